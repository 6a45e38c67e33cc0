// The widgets of the dialogs the renderer shows, by engine window: a top-level dialog
// is a GtkWindow holding a GtkFixed where its controls lie at their template places
// (dialog units scaled by the dialog font); a page (a child dialog of a tab control,
// a wizard frame or any dialog) is a GtkFixed of its own placed in the container of
// its parent.
#pragma once

#include "platform/gtk/widget_record.h"

#include <map>

namespace tabra::gtk {

class WidgetTree : public RecordLookup {
public:
    WidgetRecord *find(HWND handle) override;

    // Makes the widgets of a dialog tree the engine announced, with their state: a
    // top-level dialog gets its window (not shown yet); a page goes where its parent
    // is shown. Null when the root is no dialog or its parent is not shown.
    WidgetRecord *build(const window::Window &root);
    // Destroys the widgets of the window and its descendants.
    void destroy(HWND root);

    // The window (GtkWindow) that shows the engine window, or null.
    GtkWidget *windowShowing(HWND handle);
    // Makes the engine's default button of a top-level dialog the window's default.
    void showDefaultButton(HWND dialog);
    // Puts the keyboard focus where the engine has it in a top-level dialog.
    void showFocus(HWND dialog);

private:
    WidgetRecord &add(WidgetRecord record);
    WidgetRecord *buildTopLevel(const window::Window &dialog);
    WidgetRecord *buildPage(const window::Window &page);
    void buildControl(WidgetRecord &container, const window::Window &control);
    void buildContents(WidgetRecord &container, const window::Window &dialog);
    void syncContents(const window::Window &dialog);
    void forget(HWND handle);

    std::map<HWND, WidgetRecord> records_;
};

} // namespace tabra::gtk
