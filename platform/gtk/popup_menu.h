// Popup menus: a GtkMenu with the prompt's entries (mnemonics, separators, greyed and
// checked items, submenus), shown at the mouse pointer, where the right click that
// asks for a context menu happened. Answers the chosen command, 0 when dismissed.
#pragma once

#include "platform/window/prompts.h"

#include <gtk/gtk.h>

namespace tabra::gtk {

int32_t runPopupMenu(const window::MenuPrompt &prompt, GtkWindow *parent);

} // namespace tabra::gtk
