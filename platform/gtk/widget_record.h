// What the GTK renderer keeps per engine window: the widgets that show it. Signal
// handlers never hold a record: they carry the window's handle and look it up, so a
// window destroyed meanwhile is simply not found.
#pragma once

#include "platform/gtk/dialog_units.h"
#include "platform/window/window_object.h"
#include "tabra_base.h"

#include <gtk/gtk.h>

#include <string>

namespace tabra::gtk {

struct WidgetRecord {
    HWND handle = nullptr;
    window::WindowKind kind = window::WindowKind::Static;
    GtkWidget *outer = nullptr;     // placed in the container (a top-level dialog: its GtkWindow)
    GtkWidget *inner = nullptr;     // shows the state and takes input and focus
    GtkListStore *store = nullptr;  // the rows of a list box or list view (owned by its tree view)
    GtkWidget *fixed = nullptr;     // dialogs and pages: where their controls go; tab controls: the page area
    BaseUnits units;                // dialogs and pages: their dialog units
    std::string font;               // dialogs and pages: their font (Pango description)
    bool topLevel = false;          // outer is a window of its own
    GtkWidget *noneRadio = nullptr; // first radio of a group: the hidden member active when none is checked
    HWND radioLeader = nullptr;     // radios: the first radio of the group
    int listColumns = 0;            // list views: text columns in the store
    bool listChecks = false;        // list views: a check box per item (its state in store column listColumns)
};

// Finds the record of a window (null when the renderer does not show it).
class RecordLookup {
public:
    virtual ~RecordLookup() = default;
    virtual WidgetRecord *find(HWND handle) = 0;
};

} // namespace tabra::gtk
