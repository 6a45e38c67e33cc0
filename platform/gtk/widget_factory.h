// One GTK widget (or a small group of them) per control kind, with what the control's
// style fixes for its life: alignment, wrapping, selection mode, masks. The changing
// state (text, checks, entries, ...) is put in by state_sync.h afterwards.
//
//   static text        GtkLabel (wrapping, aligned as SS_LEFT / SS_CENTER / SS_RIGHT);
//                      an etched line (SS_ETCHEDHORZ) is a GtkSeparator
//   picture            a GtkDrawingArea showing a picture resource (picture_widget.h)
//   push button        GtkButton          check box    GtkCheckButton
//   radio button       GtkRadioButton (a group from WS_GROUP to the next WS_GROUP,
//                      with a hidden member that is active when none is checked)
//   group box          GtkFrame
//   edit               GtkEntry; multi-line: GtkTextView in a GtkScrolledWindow
//   list box           GtkTreeView without header in a GtkScrolledWindow
//   combo box          GtkComboBoxText (with an entry when editable)
//   list view          GtkTreeView with column headers in a GtkScrolledWindow (check
//                      boxes: a toggle before the first column's text)
//   tab control        GtkNotebook showing the tabs, under a page area where the
//                      pages (child dialogs) lie, in a GtkOverlay
//   progress bar       GtkProgressBar
#pragma once

#include "platform/gtk/widget_record.h"

namespace tabra::gtk {

// The widgets of a control, not yet placed in a container. Radios join the group of
// their first radio, which lookup must already know.
WidgetRecord createControlWidgets(const window::Window &control, RecordLookup &lookup);

// Edit texts: Win32 edits separate lines with "\r\n", GTK with "\n".
std::string editTextForWidget(std::u16string_view text);
std::u16string editTextFromWidget(const char *text, bool multiLine);

// The GtkListStore of a list view with this many text columns (at least one), and
// after them the check state of each item when it shows check boxes.
GtkListStore *newListViewStore(int columns, bool checks);

} // namespace tabra::gtk
