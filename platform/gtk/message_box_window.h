// Message boxes: a GtkMessageDialog with the caption as title, the text, the icon of
// the MB_ICON* style, the buttons of the MB_* type in Win32 order and the MB_DEFBUTTON*
// default. Closing it without a button answers the cancel-like button; boxes whose
// buttons offer no way out (Yes/No, Abort/Retry/Ignore) have no close box.
#pragma once

#include "platform/window/prompts.h"

#include <gtk/gtk.h>

namespace tabra::gtk {

int32_t runMessageBox(const window::MessageBoxPrompt &prompt, GtkWindow *parent);

} // namespace tabra::gtk
