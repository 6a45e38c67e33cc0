// The progress window.
#include "platform/gtk/progress_window.h"

#include "platform/gtk/gtk_automation.h"
#include "platform/gtk/label_text.h"
#include "platform/gtk/widget_input.h"
#include "platform/window/window_registry.h"

#include <algorithm>

namespace tabra::gtk {
namespace {

constexpr int kBorder = 12;
constexpr int kWidthInCharacters = 48;

void pressAbort(HWND indicator) {
    deliverInput(indicator, [indicator] { return window::input::pressAbort(indicator); });
}

void onAbortClicked(GtkButton *, gpointer indicator) { pressAbort(static_cast<HWND>(indicator)); }

gboolean onDelete(GtkWidget *, GdkEvent *, gpointer indicator) {
    auto window = window::findWindow(static_cast<HWND>(indicator));
    const auto *state = window ? window->as<window::ProgressIndicatorState>() : nullptr;
    if (state && state->abortable && !state->aborted) pressAbort(static_cast<HWND>(indicator));
    return TRUE; // the caller destroys the indicator
}

} // namespace

ProgressWindow::ProgressWindow(const window::Window &indicator, GtkWindow *owner) : handle_(indicator.handle) {
    const auto *state = indicator.as<window::ProgressIndicatorState>();
    window_ = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_type_hint(GTK_WINDOW(window_), GDK_WINDOW_TYPE_HINT_DIALOG);
    gtk_window_set_resizable(GTK_WINDOW(window_), FALSE);
    gtk_window_set_skip_taskbar_hint(GTK_WINDOW(window_), owner != nullptr);
    gtk_window_set_modal(GTK_WINDOW(window_), TRUE);
    if (owner) gtk_window_set_transient_for(GTK_WINDOW(window_), owner);
    gtk_window_set_gravity(GTK_WINDOW(window_), GDK_GRAVITY_STATIC); // centred frame on frame (widget_tree.cpp)
    gtk_window_set_position(GTK_WINDOW(window_), owner ? GTK_WIN_POS_CENTER_ON_PARENT : GTK_WIN_POS_CENTER);
    gtk_window_set_deletable(GTK_WINDOW(window_), state && state->abortable);

    GtkWidget *column = gtk_box_new(GTK_ORIENTATION_VERTICAL, 8);
    gtk_container_set_border_width(GTK_CONTAINER(column), kBorder);
    line_ = gtk_label_new(nullptr);
    gtk_label_set_xalign(GTK_LABEL(line_), 0.0f);
    gtk_label_set_width_chars(GTK_LABEL(line_), kWidthInCharacters);
    gtk_label_set_max_width_chars(GTK_LABEL(line_), kWidthInCharacters);
    gtk_label_set_ellipsize(GTK_LABEL(line_), PANGO_ELLIPSIZE_MIDDLE);
    gtk_box_pack_start(GTK_BOX(column), line_, FALSE, FALSE, 0);
    bar_ = gtk_progress_bar_new();
    gtk_box_pack_start(GTK_BOX(column), bar_, FALSE, FALSE, 0);
    if (state && state->abortable) {
        GtkWidget *buttons = gtk_button_box_new(GTK_ORIENTATION_HORIZONTAL);
        gtk_button_box_set_layout(GTK_BUTTON_BOX(buttons), GTK_BUTTONBOX_END);
        abort_ = gtk_button_new_with_mnemonic(g_dgettext("gtk30", "_Cancel"));
        g_signal_connect(abort_, "clicked", G_CALLBACK(onAbortClicked), handle_);
        gtk_container_add(GTK_CONTAINER(buttons), abort_);
        gtk_box_pack_start(GTK_BOX(column), buttons, FALSE, FALSE, 4);
    }
    gtk_container_add(GTK_CONTAINER(window_), column);
    gtk_widget_show_all(column);
    update(indicator, window::Change::Style);
    g_signal_connect(window_, "delete-event", G_CALLBACK(onDelete), handle_);
    g_signal_connect_after(window_, "draw", G_CALLBACK(onDraw), this);
    automation::reportWhenDrawn(window_, {automation::ShownKind::Progress, window_, handle_, 0});
    gtk_window_present(GTK_WINDOW(window_));
}

ProgressWindow::~ProgressWindow() {
    g_signal_handlers_disconnect_by_data(window_, this);
    gtk_widget_destroy(window_);
}

void ProgressWindow::update(const window::Window &indicator, window::Change change) {
    const auto *state = indicator.as<window::ProgressIndicatorState>();
    if (!state) return;
    bool all = change == window::Change::Style;
    if (all || change == window::Change::Text) {
        gtk_window_set_title(GTK_WINDOW(window_), utf8(indicator.text).c_str());
        gtk_label_set_text(GTK_LABEL(line_), utf8(state->line).c_str());
    }
    if (all || change == window::Change::Position || change == window::Change::Range) {
        double span = static_cast<double>(state->maximum) - state->minimum;
        double fraction = span > 0 ? (static_cast<double>(state->position) - state->minimum) / span : 0.0;
        gtk_progress_bar_set_fraction(GTK_PROGRESS_BAR(bar_), std::clamp(fraction, 0.0, 1.0));
        if (abort_) gtk_widget_set_sensitive(abort_, !state->aborted);
    }
}

gboolean ProgressWindow::onDraw(GtkWidget *, cairo_t *, gpointer self) {
    static_cast<ProgressWindow *>(self)->drawn_ = true;
    return FALSE;
}

} // namespace tabra::gtk
