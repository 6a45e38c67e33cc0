// Picture controls and separator lines.
#include "platform/gtk/picture_widget.h"

#include "platform/resources/picture_resources.h"
#include "platform/window/window_registry.h"
#include "tabra_window.h"

#include <algorithm>
#include <cmath>

namespace tabra::gtk {
namespace {

constexpr uint32_t kStaticTypeMask = 0x1Fu;

// What a picture widget keeps: the picture as loaded and the last scaled copy.
struct PictureSource {
    GdkPixbuf *original = nullptr;
    GdkPixbuf *scaled = nullptr;

    ~PictureSource() {
        if (scaled) g_object_unref(scaled);
        if (original) g_object_unref(original);
    }
};

gboolean drawPicture(GtkWidget *widget, cairo_t *cairo, gpointer data) {
    auto *source = static_cast<PictureSource *>(data);
    if (!source->original) return FALSE;
    int factor = gtk_widget_get_scale_factor(widget);
    int width = gtk_widget_get_allocated_width(widget) * factor;
    int height = gtk_widget_get_allocated_height(widget) * factor;
    int pictureWidth = gdk_pixbuf_get_width(source->original);
    int pictureHeight = gdk_pixbuf_get_height(source->original);
    if (width <= 0 || height <= 0 || pictureWidth <= 0 || pictureHeight <= 0) return FALSE;
    double scale = std::max(static_cast<double>(width) / pictureWidth, static_cast<double>(height) / pictureHeight);
    int scaledWidth = std::max(1, static_cast<int>(std::lround(pictureWidth * scale)));
    int scaledHeight = std::max(1, static_cast<int>(std::lround(pictureHeight * scale)));
    if (!source->scaled || gdk_pixbuf_get_width(source->scaled) != scaledWidth ||
        gdk_pixbuf_get_height(source->scaled) != scaledHeight) {
        if (source->scaled) g_object_unref(source->scaled);
        source->scaled = gdk_pixbuf_scale_simple(source->original, scaledWidth, scaledHeight, GDK_INTERP_HYPER);
        if (!source->scaled) return FALSE;
    }
    cairo_save(cairo);
    cairo_scale(cairo, 1.0 / factor, 1.0 / factor);
    gdk_cairo_set_source_pixbuf(cairo, source->scaled, (width - scaledWidth) / 2.0, (height - scaledHeight) / 2.0);
    cairo_rectangle(cairo, 0, 0, width, height);
    cairo_fill(cairo);
    cairo_restore(cairo);
    return FALSE;
}

} // namespace

GtkWidget *newPictureWidget(const window::Window &control) {
    auto *source = new PictureSource;
    auto dialog = window::findWindow(control.parent);
    const auto *state = dialog ? dialog->as<window::DialogState>() : nullptr;
    std::string file = state ? platform::pictureFileNamed(state->module, control.text) : std::string();
    if (!file.empty()) source->original = gdk_pixbuf_new_from_file(file.c_str(), nullptr);
    GtkWidget *area = gtk_drawing_area_new();
    g_signal_connect_data(area, "draw", G_CALLBACK(drawPicture), source,
                          [](gpointer data, GClosure *) { delete static_cast<PictureSource *>(data); },
                          static_cast<GConnectFlags>(0));
    return area;
}

bool isEtchedLine(const window::Window &control) {
    return control.kind == window::WindowKind::Static && (control.style & kStaticTypeMask) == SS_ETCHEDHORZ;
}

GtkWidget *newEtchedLine() { return gtk_separator_new(GTK_ORIENTATION_HORIZONTAL); }

} // namespace tabra::gtk
