// The notice window.
#include "platform/gtk/notice_popup.h"

#include "platform/gtk/dialog_style.h"
#include "platform/gtk/gtk_automation.h"
#include "platform/gtk/label_text.h"

namespace tabra::gtk {

NoticePopup::NoticePopup(const window::Window &notice, GtkWindow *over) {
    window_ = gtk_window_new(GTK_WINDOW_POPUP);
    gtk_window_set_type_hint(GTK_WINDOW(window_), GDK_WINDOW_TYPE_HINT_NOTIFICATION);
    gtk_style_context_add_class(gtk_widget_get_style_context(window_), kNoticeClass);
    const auto *state = notice.as<window::NoticeState>();
    setBackgroundColour(window_, state ? state->colour : 0xFFFFFFu);
    label_ = gtk_label_new(nullptr);
    gtk_label_set_line_wrap(GTK_LABEL(label_), TRUE);
    gtk_label_set_max_width_chars(GTK_LABEL(label_), 60);
    gtk_label_set_justify(GTK_LABEL(label_), GTK_JUSTIFY_CENTER);
    gtk_container_add(GTK_CONTAINER(window_), label_);
    gtk_widget_show(label_);
    showText(notice);
    if (over) gtk_window_set_transient_for(GTK_WINDOW(window_), over);
    gtk_window_set_position(GTK_WINDOW(window_), over ? GTK_WIN_POS_CENTER_ON_PARENT : GTK_WIN_POS_CENTER);
    g_signal_connect_after(window_, "draw", G_CALLBACK(onDraw), this);
    automation::reportWhenDrawn(window_, {automation::ShownKind::Notice, window_, notice.handle,
                                          state ? state->stringId : 0});
    gtk_widget_show(window_);
}

NoticePopup::~NoticePopup() {
    g_signal_handlers_disconnect_by_data(window_, this);
    gtk_widget_destroy(window_);
}

void NoticePopup::showText(const window::Window &notice) {
    gtk_label_set_text(GTK_LABEL(label_), utf8(notice.text).c_str());
}

gboolean NoticePopup::onDraw(GtkWidget *, cairo_t *, gpointer self) {
    static_cast<NoticePopup *>(self)->drawn_ = true;
    return FALSE;
}

} // namespace tabra::gtk
