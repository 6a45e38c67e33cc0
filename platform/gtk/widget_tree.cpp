// Building and destroying the widgets of dialogs and pages.
#include "platform/gtk/widget_tree.h"

#include "platform/gtk/dialog_style.h"
#include "platform/gtk/state_sync.h"
#include "platform/gtk/widget_factory.h"
#include "platform/gtk/widget_input.h"
#include "platform/window/focus.h"
#include "platform/window/window_registry.h"

namespace tabra::gtk {
namespace {

using window::Window;
using window::WindowKind;

bool takesMnemonicFocus(const Window &control) {
    switch (control.kind) {
    case WindowKind::Edit:
    case WindowKind::ListBox:
    case WindowKind::ComboBox:
    case WindowKind::ListView:
    case WindowKind::TabControl: return true;
    case WindowKind::Button: return !window::isGroupBox(control);
    default: return false;
    }
}

bool hasMnemonic(const std::u16string &text) {
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != u'&') continue;
        if (text[i + 1] != u'&') return true;
        ++i;
    }
    return false;
}

// The font of a dialog or page: its template's, else (a page) its parent's.
std::string fontOf(const Window &dialog, const WidgetRecord *parentContainer) {
    const auto *state = dialog.as<window::DialogState>();
    bool ownFont = state && (state->fontSize > 0 || !state->fontName.empty());
    if (!ownFont && parentContainer) return parentContainer->font;
    return fontDescription(state ? state->fontName : std::u16string(), state ? state->fontSize : 0);
}

// The area of a dialog or page: a GtkFixed exactly as large as its template. What its
// children would like (a wrapping label asks for its whole text on one line) never
// makes a dialog larger than its template, nor a page's wish its frame.
struct TabraTemplateArea {
    GtkFixed parent;
};
struct TabraTemplateAreaClass {
    GtkFixedClass parentClass;
};
G_DEFINE_TYPE(TabraTemplateArea, tabra_template_area, GTK_TYPE_FIXED)

void tabra_template_area_init(TabraTemplateArea *) {}

// No wish of its own: GTK then takes the size request, the template's size.
void noWish(GtkWidget *, gint *minimum, gint *natural) { *minimum = *natural = 0; }

void tabra_template_area_class_init(TabraTemplateAreaClass *type) {
    GTK_WIDGET_CLASS(type)->get_preferred_width = noWish;
    GTK_WIDGET_CLASS(type)->get_preferred_height = noWish;
}

GtkWidget *templateArea(const PixelRect &size) {
    GtkWidget *area = GTK_WIDGET(g_object_new(tabra_template_area_get_type(), nullptr));
    gtk_widget_set_size_request(area, size.width, size.height);
    return area;
}

} // namespace

WidgetRecord *WidgetTree::find(HWND handle) {
    auto found = records_.find(handle);
    return found == records_.end() ? nullptr : &found->second;
}

WidgetRecord &WidgetTree::add(WidgetRecord record) {
    HWND handle = record.handle;
    markWidget(record.outer, handle);
    markWidget(record.inner, handle);
    return records_[handle] = record;
}

WidgetRecord *WidgetTree::build(const Window &root) {
    if (root.kind != WindowKind::Dialog) return nullptr;
    WidgetRecord *built = root.parent ? buildPage(root) : buildTopLevel(root);
    if (built) syncContents(root);
    return built;
}

WidgetRecord *WidgetTree::buildTopLevel(const Window &dialog) {
    WidgetRecord record;
    record.handle = dialog.handle;
    record.kind = WindowKind::Dialog;
    record.topLevel = true;
    record.font = fontOf(dialog, nullptr);
    record.units = measureBaseUnits(record.font);
    GtkWidget *window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
    gtk_window_set_type_hint(GTK_WINDOW(window), GDK_WINDOW_TYPE_HINT_DIALOG);
    gtk_window_set_resizable(GTK_WINDOW(window), FALSE);
    gtk_window_set_skip_taskbar_hint(GTK_WINDOW(window), TRUE);
    // Positions are the client area's, not the frame's: centred on its owner's client
    // area, a dialog's frame is centred on the owner's frame too.
    gtk_window_set_gravity(GTK_WINDOW(window), GDK_GRAVITY_STATIC);
    styleDialogWindow(window, record.font);
    GtkWidget *fixed = templateArea(toPixels(dialog.frame, record.units));
    gtk_container_add(GTK_CONTAINER(window), fixed);
    gtk_widget_show(fixed);
    record.outer = window;
    record.inner = record.fixed = fixed;
    WidgetRecord &added = add(record);
    connectDialogInput(window, dialog.handle);
    buildContents(added, dialog);
    return &added;
}

WidgetRecord *WidgetTree::buildPage(const Window &page) {
    auto parent = window::findWindow(page.parent);
    WidgetRecord *parentRecord = parent ? find(parent->handle) : nullptr;
    if (!parentRecord) return nullptr;
    // Where the page lies: in its parent dialog, in the page area of its tab
    // control, or in the container of any other control, at that control's place.
    WidgetRecord *container = parentRecord;
    int originX = 0, originY = 0;
    if (parent->kind != WindowKind::Dialog && parent->kind != WindowKind::TabControl) {
        container = find(parent->parent);
        if (!container || !container->fixed) return nullptr;
        PixelRect place = toPixels(parent->frame, container->units);
        originX = place.x;
        originY = place.y;
    }
    WidgetRecord *fontSource = parent->kind == WindowKind::Dialog ? parentRecord : find(window::topLevelOf(parent->handle));
    WidgetRecord record;
    record.handle = page.handle;
    record.kind = WindowKind::Dialog;
    record.font = fontOf(page, fontSource);
    record.units = measureBaseUnits(record.font);
    PixelRect place = toPixels(page.frame, record.units);
    GtkWidget *fixed = templateArea(place);
    if (!fontSource || record.font != fontSource->font) setFont(fixed, record.font);
    gtk_fixed_put(GTK_FIXED(container->fixed), fixed, originX + place.x, originY + place.y);
    gtk_widget_set_visible(fixed, page.visible);
    record.outer = record.inner = record.fixed = fixed;
    WidgetRecord &added = add(record);
    buildContents(added, page);
    return &added;
}

void WidgetTree::buildControl(WidgetRecord &container, const Window &control) {
    WidgetRecord record = createControlWidgets(control, *this);
    PixelRect place = toPixels(control.frame, container.units);
    // A combo box's template height includes its drop-down list: GTK sizes the box.
    int height = control.kind == WindowKind::ComboBox ? -1 : place.height;
    gtk_widget_set_size_request(record.outer, place.width, height);
    gtk_fixed_put(GTK_FIXED(container.fixed), record.outer, place.x, place.y);
    add(record);
    for (HWND child : control.children)
        if (auto page = window::findWindow(child); page && page->kind == WindowKind::Dialog) buildPage(*page);
}

void WidgetTree::buildContents(WidgetRecord &container, const Window &dialog) {
    for (HWND child : dialog.children) {
        auto window = window::findWindow(child);
        if (!window) continue;
        if (window->kind == WindowKind::Dialog) buildPage(*window);
        else buildControl(container, *window);
    }
}

// State, signals and mnemonics once every control of the tree exists (a radio group
// and a label's target may come later in the template than the control itself).
void WidgetTree::syncContents(const Window &dialog) {
    const std::vector<HWND> &children = dialog.children;
    for (std::size_t i = 0; i < children.size(); ++i) {
        auto window = window::findWindow(children[i]);
        WidgetRecord *record = window ? find(children[i]) : nullptr;
        if (!record) continue;
        if (window->kind == WindowKind::Dialog) {
            syncContents(*window);
            continue;
        }
        syncWindow(*record, *window, *this);
        connectControlInput(*record, *window);
        for (HWND grandChild : window->children)
            if (auto page = window::findWindow(grandChild); page && page->kind == WindowKind::Dialog) syncContents(*page);
        if (window->kind != WindowKind::Static || !hasMnemonic(window->text)) continue;
        for (std::size_t j = i + 1; j < children.size(); ++j) {
            auto next = window::findWindow(children[j]);
            WidgetRecord *target = next ? find(children[j]) : nullptr;
            if (!target || !takesMnemonicFocus(*next)) continue;
            gtk_label_set_mnemonic_widget(GTK_LABEL(record->inner), target->inner);
            break;
        }
    }
}

void WidgetTree::forget(HWND handle) {
    auto window = window::findWindow(handle);
    if (window)
        for (HWND child : window->children) forget(child);
    auto found = records_.find(handle);
    if (found == records_.end()) return;
    if (GtkWidget *none = found->second.noneRadio) {
        gtk_widget_destroy(none);
        g_object_unref(none);
    }
    records_.erase(found);
}

void WidgetTree::destroy(HWND root) {
    WidgetRecord *record = find(root);
    if (!record) return;
    GtkWidget *outer = record->outer;
    forget(root);
    gtk_widget_destroy(outer);
}

GtkWidget *WidgetTree::windowShowing(HWND handle) {
    WidgetRecord *record = find(window::topLevelOf(handle));
    return record && record->topLevel ? record->outer : nullptr;
}

void WidgetTree::showDefaultButton(HWND dialog) {
    auto window = window::findWindow(dialog);
    WidgetRecord *record = find(dialog);
    const auto *state = window ? window->as<window::DialogState>() : nullptr;
    if (!state || !record || !record->topLevel) return;
    GtkWidget *button = nullptr;
    for (HWND child : window->children) {
        auto control = window::findWindow(child);
        WidgetRecord *shown = control ? find(child) : nullptr;
        if (shown && control->id == state->defaultId && control->kind == WindowKind::Button &&
            window::isPushButton(*control))
            button = shown->inner;
    }
    if (button) gtk_widget_set_can_default(button, TRUE);
    gtk_window_set_default(GTK_WINDOW(record->outer), button);
}

void WidgetTree::showFocus(HWND dialog) {
    auto window = window::findWindow(dialog);
    const auto *state = window ? window->as<window::DialogState>() : nullptr;
    WidgetRecord *focused = state ? find(state->focus) : nullptr;
    if (focused) giveFocus(focused->inner);
}

} // namespace tabra::gtk
