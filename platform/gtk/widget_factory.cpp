// Creating the widgets of controls.
#include "platform/gtk/widget_factory.h"

#include "platform/gtk/dialog_style.h"
#include "platform/gtk/label_text.h"
#include "platform/gtk/picture_widget.h"
#include "platform/window/button_control.h"
#include "platform/window/combo_box_control.h"
#include "platform/window/edit_control.h"
#include "platform/window/list_box_control.h"
#include "platform/window/list_view_control.h"
#include "tabra_window.h"

#include <vector>

namespace tabra::gtk {
namespace {

using window::Window;
using window::WindowKind;

constexpr uint32_t kStaticAlignMask = 0x3u; // SS_LEFT, SS_CENTER, SS_RIGHT

GtkWidget *scrolled(GtkWidget *child, bool horizontal) {
    GtkWidget *scroller = gtk_scrolled_window_new(nullptr, nullptr);
    gtk_scrolled_window_set_shadow_type(GTK_SCROLLED_WINDOW(scroller), GTK_SHADOW_IN);
    gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(scroller),
                                   horizontal ? GTK_POLICY_AUTOMATIC : GTK_POLICY_NEVER, GTK_POLICY_AUTOMATIC);
    gtk_container_add(GTK_CONTAINER(scroller), child);
    gtk_widget_show(child);
    return scroller;
}

void makeStatic(WidgetRecord &record, const Window &control) {
    GtkWidget *label = gtk_label_new(nullptr);
    uint32_t align = control.style & kStaticAlignMask;
    float x = align == SS_CENTER ? 0.5f : align == SS_RIGHT ? 1.0f : 0.0f;
    gtk_label_set_xalign(GTK_LABEL(label), x);
    gtk_label_set_yalign(GTK_LABEL(label), 0.0f);
    gtk_label_set_justify(GTK_LABEL(label), align == SS_CENTER ? GTK_JUSTIFY_CENTER
                                            : align == SS_RIGHT ? GTK_JUSTIFY_RIGHT
                                                                : GTK_JUSTIFY_LEFT);
    gtk_label_set_line_wrap(GTK_LABEL(label), TRUE);
    gtk_label_set_line_wrap_mode(GTK_LABEL(label), PANGO_WRAP_WORD_CHAR);
    if (control.style & SS_SUNKEN) {
        GtkWidget *frame = gtk_frame_new(nullptr);
        gtk_frame_set_shadow_type(GTK_FRAME(frame), GTK_SHADOW_IN);
        gtk_container_add(GTK_CONTAINER(frame), label);
        gtk_widget_show(label);
        record.outer = frame;
    } else {
        record.outer = label;
    }
    record.inner = label;
}

void makeButton(WidgetRecord &record, const Window &control, RecordLookup &lookup) {
    if (window::isGroupBox(control)) {
        record.outer = record.inner = gtk_frame_new(nullptr);
        gtk_frame_set_label_align(GTK_FRAME(record.outer), 0.02f, 0.5f);
        return;
    }
    if (window::isCheckBox(control)) {
        record.outer = record.inner = gtk_check_button_new();
    } else if (window::isRadioButton(control)) {
        auto group = window::radioGroupOf(control);
        record.radioLeader = group.empty() ? control.handle : group.front();
        WidgetRecord *leader = record.radioLeader == control.handle ? nullptr : lookup.find(record.radioLeader);
        if (leader && leader->inner) {
            record.outer = record.inner = gtk_radio_button_new_from_widget(GTK_RADIO_BUTTON(leader->inner));
        } else {
            record.radioLeader = control.handle;
            record.outer = record.inner = gtk_radio_button_new(nullptr);
            // A GTK group always has an active member; this one stands for "none checked".
            record.noneRadio = gtk_radio_button_new_from_widget(GTK_RADIO_BUTTON(record.inner));
            g_object_ref_sink(record.noneRadio);
        }
    } else {
        record.outer = record.inner = gtk_button_new();
    }
    gtk_button_set_use_underline(GTK_BUTTON(record.inner), TRUE);
    if (!window::isPushButton(control)) {
        // Check boxes and radio buttons sit in the middle of their rectangle's height.
        gtk_widget_set_valign(record.inner, GTK_ALIGN_CENTER);
    }
}

void makeEdit(WidgetRecord &record, const Window &control) {
    if (window::isMultiLineEdit(control)) {
        GtkWidget *view = gtk_text_view_new();
        // Lines wrap unless the edit scrolls sideways.
        bool wraps = (control.style & (ES_AUTOHSCROLL | WS_HSCROLL)) == 0;
        gtk_text_view_set_wrap_mode(GTK_TEXT_VIEW(view), wraps ? GTK_WRAP_WORD_CHAR : GTK_WRAP_NONE);
        gtk_text_view_set_left_margin(GTK_TEXT_VIEW(view), 3);
        gtk_text_view_set_right_margin(GTK_TEXT_VIEW(view), 3);
        gtk_text_view_set_top_margin(GTK_TEXT_VIEW(view), 1);
        gtk_text_view_set_accepts_tab(GTK_TEXT_VIEW(view), FALSE);
        record.inner = view;
        record.outer = scrolled(view, !wraps);
        return;
    }
    GtkWidget *entry = gtk_entry_new();
    gtk_entry_set_width_chars(GTK_ENTRY(entry), 1); // the template gives the width
    gtk_entry_set_activates_default(GTK_ENTRY(entry), TRUE);
    if (control.style & ES_NUMBER) gtk_entry_set_input_purpose(GTK_ENTRY(entry), GTK_INPUT_PURPOSE_DIGITS);
    record.outer = record.inner = entry;
}

GtkWidget *treeView(GtkListStore *store, bool headers) {
    GtkWidget *view = gtk_tree_view_new_with_model(GTK_TREE_MODEL(store));
    g_object_unref(store); // the view holds it
    gtk_tree_view_set_headers_visible(GTK_TREE_VIEW(view), headers);
    gtk_tree_view_set_enable_search(GTK_TREE_VIEW(view), FALSE);
    return view;
}

void makeListBox(WidgetRecord &record, const Window &control) {
    record.store = gtk_list_store_new(1, G_TYPE_STRING);
    GtkWidget *view = treeView(record.store, false);
    GtkCellRenderer *cell = gtk_cell_renderer_text_new();
    g_object_set(cell, "ypad", 0, nullptr);
    gtk_tree_view_insert_column_with_attributes(GTK_TREE_VIEW(view), -1, "", cell, "text", 0, nullptr);
    gtk_tree_selection_set_mode(gtk_tree_view_get_selection(GTK_TREE_VIEW(view)),
                                window::isMultipleSelectionList(control) ? GTK_SELECTION_MULTIPLE
                                                                         : GTK_SELECTION_SINGLE);
    record.inner = view;
    record.outer = scrolled(view, (control.style & WS_HSCROLL) != 0);
}

void makeComboBox(WidgetRecord &record, const Window &control) {
    record.outer = record.inner =
        window::isDropDownList(control) ? gtk_combo_box_text_new() : gtk_combo_box_text_new_with_entry();
    if (GtkWidget *entry = gtk_bin_get_child(GTK_BIN(record.inner)); entry && GTK_IS_ENTRY(entry))
        gtk_entry_set_width_chars(GTK_ENTRY(entry), 1);
    // The cell of a drop-down list wants the width of its longest item; the template's
    // wins, and an item wider than the box is shortened with an ellipsis.
    gtk_widget_set_hexpand(record.inner, FALSE);
    GList *cells = gtk_cell_layout_get_cells(GTK_CELL_LAYOUT(record.inner));
    for (GList *cell = cells; cell != nullptr; cell = cell->next)
        if (GTK_IS_CELL_RENDERER_TEXT(cell->data)) g_object_set(cell->data, "ellipsize", PANGO_ELLIPSIZE_END, nullptr);
    g_list_free(cells);
}

void makeListView(WidgetRecord &record, const Window &control) {
    record.listColumns = 1;
    record.store = newListViewStore(record.listColumns, false);
    GtkWidget *view = treeView(record.store, true);
    gtk_tree_selection_set_mode(gtk_tree_view_get_selection(GTK_TREE_VIEW(view)),
                                window::isSingleSelectionListView(control) ? GTK_SELECTION_SINGLE
                                                                           : GTK_SELECTION_MULTIPLE);
    gtk_tree_view_set_rubber_banding(GTK_TREE_VIEW(view), !window::isSingleSelectionListView(control));
    record.inner = view;
    record.outer = scrolled(view, true);
}

// The page area lies over the notebook's content area, wherever the theme puts it.
gboolean placePageArea(GtkOverlay *, GtkWidget *, GdkRectangle *place, gpointer notebookPointer) {
    auto *notebook = GTK_WIDGET(notebookPointer);
    GtkAllocation whole;
    gtk_widget_get_allocation(notebook, &whole);
    *place = {0, 0, whole.width, whole.height};
    gint current = gtk_notebook_get_current_page(GTK_NOTEBOOK(notebook));
    GtkWidget *content = current >= 0 ? gtk_notebook_get_nth_page(GTK_NOTEBOOK(notebook), current) : nullptr;
    if (!content || !gtk_widget_get_visible(content)) return TRUE;
    GtkAllocation area;
    gtk_widget_get_allocation(content, &area);
    int x = 0, y = 0;
    if (gtk_widget_translate_coordinates(content, notebook, 0, 0, &x, &y)) *place = {x, y, area.width, area.height};
    return TRUE;
}

void makeTabControl(WidgetRecord &record) {
    GtkWidget *overlay = gtk_overlay_new();
    GtkWidget *notebook = gtk_notebook_new();
    gtk_notebook_set_scrollable(GTK_NOTEBOOK(notebook), TRUE);
    gtk_container_add(GTK_CONTAINER(overlay), notebook);
    gtk_widget_show(notebook);
    GtkWidget *pageArea = gtk_fixed_new();
    gtk_overlay_add_overlay(GTK_OVERLAY(overlay), pageArea);
    gtk_widget_show(pageArea);
    g_signal_connect(overlay, "get-child-position", G_CALLBACK(placePageArea), notebook);
    record.outer = overlay;
    record.inner = notebook;
    record.fixed = pageArea;
}

} // namespace

GtkListStore *newListViewStore(int columns, bool checks) {
    std::vector<GType> types(static_cast<std::size_t>(columns < 1 ? 1 : columns), G_TYPE_STRING);
    if (checks) types.push_back(G_TYPE_BOOLEAN);
    return gtk_list_store_newv(static_cast<gint>(types.size()), types.data());
}

std::string editTextForWidget(std::u16string_view text) {
    std::u16string lines;
    lines.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i)
        if (!(text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n')) lines += text[i];
    return utf8(lines);
}

std::u16string editTextFromWidget(const char *text, bool multiLine) {
    std::u16string value = utf16(text);
    if (!multiLine) return value;
    std::u16string lines;
    lines.reserve(value.size() + 8);
    for (char16_t c : value) {
        if (c == u'\n') lines += u'\r';
        lines += c;
    }
    return lines;
}

WidgetRecord createControlWidgets(const Window &control, RecordLookup &lookup) {
    WidgetRecord record;
    record.handle = control.handle;
    record.kind = control.kind;
    switch (control.kind) {
    case WindowKind::Static:
        if (isEtchedLine(control)) record.outer = record.inner = newEtchedLine();
        else makeStatic(record, control);
        break;
    case WindowKind::Picture: record.outer = record.inner = newPictureWidget(control); break;
    case WindowKind::Button: makeButton(record, control, lookup); break;
    case WindowKind::Edit: makeEdit(record, control); break;
    case WindowKind::ListBox: makeListBox(record, control); break;
    case WindowKind::ComboBox: makeComboBox(record, control); break;
    case WindowKind::ListView: makeListView(record, control); break;
    case WindowKind::TabControl: makeTabControl(record); break;
    case WindowKind::ProgressBar: record.outer = record.inner = gtk_progress_bar_new(); break;
    default: record.outer = record.inner = gtk_label_new(nullptr); break; // not a control kind
    }
    return record;
}

} // namespace tabra::gtk
