// The progress window: title, a line of text, a bar over the indicator's range and an
// Abort button (unless the indicator has none), modal over its owner while the caller
// works. The button and the close box press Abort through user input; once aborted
// the button is greyed out.
#pragma once

#include "platform/window/renderer.h"
#include "platform/window/window_object.h"

#include <gtk/gtk.h>

namespace tabra::gtk {

class ProgressWindow {
public:
    ProgressWindow(const window::Window &indicator, GtkWindow *owner);
    ~ProgressWindow();
    ProgressWindow(const ProgressWindow &) = delete;
    ProgressWindow &operator=(const ProgressWindow &) = delete;

    // Mirrors the indicator's state (all of it for Change::Style).
    void update(const window::Window &indicator, window::Change change);
    GtkWidget *window() const { return window_; }
    GtkWidget *abortButton() const { return abort_; }
    // Drawn once, or waited for long enough (the caller does not wait for it again).
    bool appeared() const { return drawn_ || waited_; }
    void stopWaiting() { waited_ = true; }

private:
    static gboolean onDraw(GtkWidget *, cairo_t *, gpointer self);

    HWND handle_;
    GtkWidget *window_ = nullptr;
    GtkWidget *line_ = nullptr;
    GtkWidget *bar_ = nullptr;
    GtkWidget *abort_ = nullptr;
    bool drawn_ = false;
    bool waited_ = false;
};

} // namespace tabra::gtk
