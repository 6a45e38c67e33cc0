// The notice window: a borderless window with one line of text on the notice's
// colour, over the active dialog (or the middle of the screen). It takes no input and
// goes when the engine destroys the notice.
#pragma once

#include "platform/window/window_object.h"

#include <gtk/gtk.h>

namespace tabra::gtk {

class NoticePopup {
public:
    NoticePopup(const window::Window &notice, GtkWindow *over);
    ~NoticePopup();
    NoticePopup(const NoticePopup &) = delete;
    NoticePopup &operator=(const NoticePopup &) = delete;

    void showText(const window::Window &notice);
    GtkWidget *window() const { return window_; }
    // Drawn once, or waited for long enough (the caller does not wait for it again).
    bool appeared() const { return drawn_ || waited_; }
    void stopWaiting() { waited_ = true; }

private:
    static gboolean onDraw(GtkWidget *, cairo_t *, gpointer self);

    GtkWidget *window_ = nullptr;
    GtkWidget *label_ = nullptr;
    bool drawn_ = false;
    bool waited_ = false;
};

} // namespace tabra::gtk
