// The automation hook.
#include "platform/gtk/gtk_automation.h"

#include "platform/gtk/gtk_session.h"

namespace tabra::gtk::automation {
namespace {

ShownCallback &callback() {
    static auto *installed = new ShownCallback;
    return *installed;
}

struct PendingReport {
    Shown shown;
    gulong handler = 0;
};

gboolean reportNow(gpointer data) {
    auto *pending = static_cast<PendingReport *>(data);
    GtkWidget *window = pending->shown.window;
    if (gtk_widget_get_mapped(window) && callback()) {
        ShownCallback current = callback(); // the callback may replace itself
        current(pending->shown);
    }
    g_object_unref(window);
    delete pending;
    return G_SOURCE_REMOVE;
}

// After the first frame is drawn, the report waits for the loop to be idle: the
// window's pixels are on screen then, and acting on it does not interrupt drawing.
gboolean onDrawn(GtkWidget *window, cairo_t *, gpointer data) {
    auto *pending = static_cast<PendingReport *>(data);
    g_signal_handler_disconnect(window, pending->handler);
    g_idle_add_full(G_PRIORITY_LOW, reportNow, pending, nullptr);
    return FALSE;
}

// Changes made just before (texts set, pages switched) are drawn at the next frames,
// and checks and radios fade in: the loop runs that long before the pixels are read.
constexpr int kDrawingMilliseconds = 300;

bool saveFrom(GdkWindow *source, GdkRectangle area, const std::string &path) {
    if (!source || area.width <= 0 || area.height <= 0) return false;
    pumpUntil([] { return false; }, kDrawingMilliseconds);
    flushDisplay();
    GdkPixbuf *pixels = gdk_pixbuf_get_from_window(source, area.x, area.y, area.width, area.height);
    if (!pixels) return false;
    gboolean saved = gdk_pixbuf_save(pixels, path.c_str(), "png", nullptr, nullptr);
    g_object_unref(pixels);
    return saved;
}

// The innermost window at a point of `window` (x, y become relative to it). Events the
// display server is asked to send go to exactly one window, and GTK hands an event to
// the widget that owns the window it came in, so a click must go to the window the
// user's click would reach: a button's input window, a tree view's rows.
GdkWindow *windowAt(GdkWindow *window, int &x, int &y) {
    for (bool descended = true; descended;) {
        descended = false;
        GList *children = gdk_window_peek_children(window);
        // The last child is the topmost.
        for (GList *at = g_list_last(children); at; at = at->prev) {
            auto *child = static_cast<GdkWindow *>(at->data);
            if (!gdk_window_is_visible(child)) continue;
            int left = 0, top = 0, width = 0, height = 0;
            gdk_window_get_geometry(child, &left, &top, &width, &height);
            if (x < left || y < top || x >= left + width || y >= top + height) continue;
            x -= left;
            y -= top;
            window = child;
            descended = true;
            break;
        }
    }
    return window;
}

// The innermost window at a point of a widget, and the point in its coordinates.
bool pointOf(GtkWidget *widget, int widgetX, int widgetY, GdkWindow *&window, int &x, int &y) {
    if (!widget || !gtk_widget_get_mapped(widget)) return false;
    GtkWidget *toplevel = gtk_widget_get_toplevel(widget);
    GdkWindow *top = gtk_widget_get_window(toplevel);
    if (!top || !gtk_widget_translate_coordinates(widget, toplevel, widgetX, widgetY, &x, &y)) return false;
    window = windowAt(top, x, y);
    return true;
}

} // namespace

const char *shownKindName(ShownKind kind) {
    switch (kind) {
    case ShownKind::Dialog: return "dialog";
    case ShownKind::MessageBox: return "message box";
    case ShownKind::FileChooser: return "file chooser";
    case ShownKind::PopupMenu: return "popup menu";
    case ShownKind::Notice: return "notice";
    case ShownKind::Progress: return "progress window";
    }
    return "window";
}

void setShownCallback(ShownCallback installed) { callback() = std::move(installed); }

void reportWhenDrawn(GtkWidget *window, const Shown &shown) {
    if (!callback() || !window) return;
    auto *pending = new PendingReport{shown, 0};
    pending->shown.window = window;
    g_object_ref(window);
    pending->handler = g_signal_connect_after(window, "draw", G_CALLBACK(onDrawn), pending);
}

GtkWidget *messageBoxButton(GtkWidget *messageBox, int32_t answer) {
    if (!messageBox || !GTK_IS_DIALOG(messageBox)) return nullptr;
    return gtk_dialog_get_widget_for_response(GTK_DIALOG(messageBox), answer);
}

bool clickAt(GtkWidget *widget, int widgetX, int widgetY, unsigned button) {
    GdkWindow *window = nullptr;
    int x = 0, y = 0;
    if (!pointOf(widget, widgetX, widgetY, window, x, y)) return false;
    auto none = static_cast<GdkModifierType>(0);
    return gdk_test_simulate_button(window, x, y, button, none, GDK_BUTTON_PRESS) &&
           gdk_test_simulate_button(window, x, y, button, none, GDK_BUTTON_RELEASE);
}

bool click(GtkWidget *widget) {
    if (!widget) return false;
    GtkAllocation area;
    gtk_widget_get_allocation(widget, &area);
    return clickAt(widget, area.width / 2, area.height / 2, 1);
}

bool pressKey(GtkWidget *window, unsigned keyValue, GdkModifierType modifiers) {
    GdkWindow *target = window ? gtk_widget_get_window(window) : nullptr;
    if (!target) return false;
    return gdk_test_simulate_key(target, -1, -1, keyValue, modifiers, GDK_KEY_PRESS) &&
           gdk_test_simulate_key(target, -1, -1, keyValue, modifiers, GDK_KEY_RELEASE);
}

bool saveFramedWindowImage(GtkWidget *window, const std::string &path) {
    GdkWindow *source = window ? gtk_widget_get_window(window) : nullptr;
    GdkWindow *root = gdk_get_default_root_window();
    if (!source || !root) return false;
    pumpUntil([] { return false; }, kDrawingMilliseconds); // the frame may still be drawn
    GdkRectangle frame{}, screen{0, 0, gdk_window_get_width(root), gdk_window_get_height(root)};
    gdk_window_get_frame_extents(source, &frame);
    GdkRectangle shown{};
    return gdk_rectangle_intersect(&frame, &screen, &shown) && saveFrom(root, shown, path);
}

bool saveScreenImage(const std::string &path) {
    GdkWindow *root = gdk_get_default_root_window();
    return root && saveFrom(root, {0, 0, gdk_window_get_width(root), gdk_window_get_height(root)}, path);
}

} // namespace tabra::gtk::automation
