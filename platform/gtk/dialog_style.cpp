// The library's style sheet.
#include "platform/gtk/dialog_style.h"

#include <cstdio>
#include <map>

namespace tabra::gtk {
namespace {

// Rules for every library window. The theme's controls want 30 pixels and more in
// height; the templates give 14 dialog units (about 23 pixels with an 8-point font).
constexpr char kBaseRules[] = R"css(
.tabra-dialog entry { min-height: 0; padding: 1px 4px; }
.tabra-dialog button { min-height: 0; min-width: 0; padding: 1px 6px; }
.tabra-dialog button.default { border-color: @theme_selected_bg_color; }
.tabra-dialog combobox button { padding: 1px 4px; }
.tabra-dialog combobox entry { padding: 1px 4px; }
.tabra-dialog checkbutton, .tabra-dialog radiobutton { min-height: 0; padding: 0; }
.tabra-dialog checkbutton check, .tabra-dialog radiobutton radio { min-height: 12px; min-width: 12px; margin: 0 4px 0 0; }
.tabra-dialog notebook tab { min-height: 0; padding: 2px 8px; }
.tabra-dialog frame > label { margin: 0 2px; }
.tabra-dialog treeview.view { padding: 0 2px; }
.tabra-dialog treeview.view header button { padding: 1px 4px; }
.tabra-dialog entry.tabra-read-only, .tabra-dialog textview.tabra-read-only text {
    background-color: @theme_bg_color;
}
.tabra-dialog progressbar trough, .tabra-dialog progressbar progress { min-height: 10px; }
.tabra-notice { border: 1px solid alpha(black, 0.35); }
.tabra-notice label { padding: 10px 18px; }
)css";

struct StyleSheet {
    GtkCssProvider *provider = nullptr;
    std::string rules = kBaseRules;
    std::map<std::string, std::string> classes; // rule text -> class name
};

StyleSheet &sheet() {
    static auto *installed = [] {
        auto *created = new StyleSheet; // lives as long as the screen
        created->provider = gtk_css_provider_new();
        gtk_css_provider_load_from_data(created->provider, created->rules.c_str(), -1, nullptr);
        gtk_style_context_add_provider_for_screen(gdk_screen_get_default(), GTK_STYLE_PROVIDER(created->provider),
                                                  GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
        return created;
    }();
    return *installed;
}

// The class whose rule sets the given declarations on a window and all it holds.
std::string classFor(const std::string &prefix, const std::string &declarations) {
    StyleSheet &styles = sheet();
    std::string key = prefix + "{" + declarations + "}";
    if (auto found = styles.classes.find(key); found != styles.classes.end()) return found->second;
    std::string name = prefix + std::to_string(styles.classes.size() + 1);
    styles.classes[key] = name;
    styles.rules += "." + name + ", ." + name + " * { " + declarations + " }\n";
    gtk_css_provider_load_from_data(styles.provider, styles.rules.c_str(), -1, nullptr);
    return name;
}

std::string cssString(const std::string &text) {
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += c;
    }
    return quoted + "\"";
}

} // namespace

void styleDialogWindow(GtkWidget *window, const std::string &font) {
    gtk_style_context_add_class(gtk_widget_get_style_context(window), kDialogClass);
    setFont(window, font);
}

void setFont(GtkWidget *widget, const std::string &font) {
    GtkStyleContext *context = gtk_widget_get_style_context(widget);
    PangoFontDescription *description = pango_font_description_from_string(font.c_str());
    std::string declarations;
    if (const char *family = pango_font_description_get_family(description))
        declarations += "font-family: " + cssString(family) + "; ";
    if (int size = pango_font_description_get_size(description); size > 0) {
        // Whole and tenth points by integer arithmetic: the host's locale may write
        // decimals with a comma, which the style sheet would not read.
        int tenths = (size * 10 + PANGO_SCALE / 2) / PANGO_SCALE;
        declarations += "font-size: " + std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + "pt;";
    }
    pango_font_description_free(description);
    if (!declarations.empty()) gtk_style_context_add_class(context, classFor("tabra-font-", declarations).c_str());
}

void setBackgroundColour(GtkWidget *widget, unsigned colour) {
    char declarations[64];
    std::snprintf(declarations, sizeof declarations, "background-color: #%02x%02x%02x;", colour & 0xFFu,
                  (colour >> 8) & 0xFFu, (colour >> 16) & 0xFFu);
    std::string name = classFor("tabra-colour-", declarations);
    gtk_style_context_add_class(gtk_widget_get_style_context(widget), name.c_str());
}

} // namespace tabra::gtk
