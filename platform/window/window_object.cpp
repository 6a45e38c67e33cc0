// Names of window kinds and changes, for reports and diagnostics.
#include "platform/window/window_object.h"

#include "platform/window/renderer.h"

namespace tabra::window {

const char *kindName(WindowKind kind) {
    switch (kind) {
    case WindowKind::Dialog: return "dialog";
    case WindowKind::Static: return "static";
    case WindowKind::Picture: return "picture";
    case WindowKind::Button: return "button";
    case WindowKind::Edit: return "edit";
    case WindowKind::ListBox: return "list box";
    case WindowKind::ComboBox: return "combo box";
    case WindowKind::ListView: return "list view";
    case WindowKind::TabControl: return "tab control";
    case WindowKind::ProgressBar: return "progress bar";
    case WindowKind::Notice: return "notice";
    case WindowKind::ProgressIndicator: return "progress indicator";
    }
    return "window";
}

const char *changeName(Change change) {
    switch (change) {
    case Change::Text: return "text";
    case Change::Enabled: return "enabled";
    case Change::Visible: return "visible";
    case Change::Style: return "style";
    case Change::Check: return "check";
    case Change::Focus: return "focus";
    case Change::EntryInserted: return "entry inserted";
    case Change::EntryRemoved: return "entry removed";
    case Change::EntryChanged: return "entry changed";
    case Change::EntriesCleared: return "entries cleared";
    case Change::Selection: return "selection";
    case Change::Columns: return "columns";
    case Change::Range: return "range";
    case Change::Position: return "position";
    case Change::Geometry: return "geometry";
    case Change::DefaultButton: return "default button";
    }
    return "change";
}

} // namespace tabra::window
