// Dialog units and the dialog font.
#include "platform/gtk/dialog_units.h"

#include "platform/gtk/label_text.h"

#include <gtk/gtk.h>

#include <map>
#include <memory>

namespace tabra::gtk {
namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

// units * base / divisor, rounded half away from zero (as MulDiv rounds).
int scale(int units, int base, int divisor) {
    long long product = static_cast<long long>(units) * base;
    long long half = divisor / 2;
    return static_cast<int>(product >= 0 ? (product + half) / divisor : -((-product + half) / divisor));
}

struct FontDescriptionDeleter {
    void operator()(PangoFontDescription *description) const { pango_font_description_free(description); }
};
using FontDescriptionPtr = std::unique_ptr<PangoFontDescription, FontDescriptionDeleter>;

FontDescriptionPtr desktopFont() {
    gchar *name = nullptr;
    if (GtkSettings *settings = gtk_settings_get_default()) g_object_get(settings, "gtk-font-name", &name, nullptr);
    FontDescriptionPtr font(pango_font_description_from_string(name ? name : "Sans 10"));
    g_free(name);
    return font;
}

} // namespace

BaseUnits baseUnitsFromMeasure(int alphabetWidth, int fontHeight) {
    BaseUnits base;
    base.x = (alphabetWidth / 26 + 1) / 2;
    base.y = fontHeight;
    if (base.x < 1) base.x = 1;
    if (base.y < 1) base.y = 1;
    return base;
}

int horizontalPixels(int units, BaseUnits base) { return scale(units, base.x, 4); }

int verticalPixels(int units, BaseUnits base) { return scale(units, base.y, 8); }

PixelRect toPixels(const window::Frame &frame, BaseUnits base) {
    return {horizontalPixels(frame.x, base), verticalPixels(frame.y, base), horizontalPixels(frame.width, base),
            verticalPixels(frame.height, base)};
}

std::string fontDescription(std::u16string_view family, int pointSize) {
    FontDescriptionPtr font = desktopFont();
    if (!family.empty()) pango_font_description_set_family(font.get(), utf8(family).c_str());
    if (pointSize > 0) pango_font_description_set_size(font.get(), pointSize * PANGO_SCALE);
    gchar *text = pango_font_description_to_string(font.get());
    std::string description = text;
    g_free(text);
    return description;
}

BaseUnits measureBaseUnits(const std::string &description) {
    static std::map<std::string, BaseUnits> measured; // fonts do not change while the library runs
    if (auto found = measured.find(description); found != measured.end()) return found->second;
    PangoContext *context = gdk_pango_context_get();
    FontDescriptionPtr font(pango_font_description_from_string(description.c_str()));
    PangoLayout *layout = pango_layout_new(context);
    pango_layout_set_font_description(layout, font.get());
    pango_layout_set_text(layout, kAlphabet, -1);
    int width = 0, height = 0;
    pango_layout_get_pixel_size(layout, &width, &height);
    PangoFontMetrics *metrics = pango_context_get_metrics(context, font.get(), nullptr);
    int fontHeight = PANGO_PIXELS_CEIL(pango_font_metrics_get_ascent(metrics)) +
                     PANGO_PIXELS_CEIL(pango_font_metrics_get_descent(metrics));
    pango_font_metrics_unref(metrics);
    g_object_unref(layout);
    g_object_unref(context);
    BaseUnits base = baseUnitsFromMeasure(width, fontHeight);
    measured[description] = base;
    return base;
}

} // namespace tabra::gtk
