// Popup menus: a GtkMenu with the prompt's entries (mnemonics, separators, greyed and
// checked items, submenus), shown with its top left corner at the prompt's screen
// position (a context menu is asked for at GetCursorPos, where the pointer is), moved
// in where it would leave the screen. Answers the chosen command, 0 when dismissed.
#pragma once

#include "platform/window/prompts.h"

#include <gtk/gtk.h>

namespace tabra::gtk {

int32_t runPopupMenu(const window::MenuPrompt &prompt, GtkWindow *parent);

} // namespace tabra::gtk
