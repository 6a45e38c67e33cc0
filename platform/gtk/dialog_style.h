// The look of the library's windows: one style sheet for the screen whose rules apply
// only inside the library's windows (style class "tabra-dialog"). It trims the theme's
// padding so controls fit the heights the templates give them, marks read-only edits,
// and sets each dialog's template font through a class per font.
#pragma once

#include <gtk/gtk.h>

#include <string>

namespace tabra::gtk {

// Style classes the renderer puts on widgets.
inline constexpr char kDialogClass[] = "tabra-dialog";
inline constexpr char kReadOnlyClass[] = "tabra-read-only";
inline constexpr char kNoticeClass[] = "tabra-notice";

// Gives a top-level window the library's look and the font (a Pango description such
// as "Sans 8") for everything inside it.
void styleDialogWindow(GtkWidget *window, const std::string &font);
// Sets the font for a widget and everything inside it (a page with a font of its own).
void setFont(GtkWidget *widget, const std::string &font);

// Gives a widget (a notice) a background colour, 0x00BBGGRR.
void setBackgroundColour(GtkWidget *widget, unsigned colour);

} // namespace tabra::gtk
