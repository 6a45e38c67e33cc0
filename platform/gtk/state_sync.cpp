// Mirroring engine state into widgets.
#include "platform/gtk/state_sync.h"

#include "platform/gtk/dialog_style.h"
#include "platform/gtk/label_text.h"
#include "platform/gtk/list_drag.h"
#include "platform/gtk/widget_factory.h"
#include "platform/gtk/widget_input.h"
#include "platform/window/window_registry.h"
#include "tabra_window.h"

#include <algorithm>
#include <vector>

namespace tabra::gtk {
namespace {

using window::Change;
using window::Window;
using window::WindowKind;

// List view column alignment (LVCFMT_LEFT 0, LVCFMT_RIGHT 1, LVCFMT_CENTER 2).
constexpr int32_t kColumnFormatMask = 0x3;
constexpr int32_t kColumnRight = 1;
constexpr int32_t kColumnCenter = 2;

int rowCount(GtkListStore *store) { return gtk_tree_model_iter_n_children(GTK_TREE_MODEL(store), nullptr); }

bool nthRow(GtkListStore *store, int index, GtkTreeIter &iter) {
    return index >= 0 && gtk_tree_model_iter_nth_child(GTK_TREE_MODEL(store), &iter, nullptr, index);
}

// ---- Texts ----

void syncText(WidgetRecord &record, const Window &window) {
    switch (window.kind) {
    case WindowKind::Dialog:
        if (record.topLevel) gtk_window_set_title(GTK_WINDOW(record.outer), utf8(window.text).c_str());
        break;
    case WindowKind::Static:
        if (GTK_IS_LABEL(record.inner)) // not an etched line
            gtk_label_set_text_with_mnemonic(GTK_LABEL(record.inner), mnemonicLabel(window.text).c_str());
        break;
    case WindowKind::Button:
        if (GTK_IS_FRAME(record.inner)) {
            std::string label = plainLabel(window.text);
            gtk_frame_set_label(GTK_FRAME(record.inner), label.empty() ? nullptr : label.c_str());
        } else {
            gtk_button_set_label(GTK_BUTTON(record.inner), mnemonicLabel(window.text).c_str());
        }
        break;
    case WindowKind::Edit: {
        std::string text = editTextForWidget(window.text);
        if (GTK_IS_TEXT_VIEW(record.inner)) {
            GtkTextBuffer *buffer = gtk_text_view_get_buffer(GTK_TEXT_VIEW(record.inner));
            GtkTextIter start, end;
            gtk_text_buffer_get_bounds(buffer, &start, &end);
            gchar *shown = gtk_text_buffer_get_text(buffer, &start, &end, FALSE);
            if (text != shown) gtk_text_buffer_set_text(buffer, text.c_str(), -1);
            g_free(shown);
        } else if (text != gtk_entry_get_text(GTK_ENTRY(record.inner))) {
            gtk_entry_set_text(GTK_ENTRY(record.inner), text.c_str());
            gtk_editable_set_position(GTK_EDITABLE(record.inner), -1);
        }
        break;
    }
    case WindowKind::ComboBox:
        if (GtkWidget *entry = gtk_bin_get_child(GTK_BIN(record.inner)); entry && GTK_IS_ENTRY(entry)) {
            std::string text = utf8(window.text);
            if (text != gtk_entry_get_text(GTK_ENTRY(entry))) gtk_entry_set_text(GTK_ENTRY(entry), text.c_str());
        }
        break;
    default:
        break;
    }
}

void rebuildListViewColumns(WidgetRecord &record, const window::ListViewState &view);
void syncListViewSelection(WidgetRecord &record, const Window &window);

// ---- Styles ----

void syncStyle(WidgetRecord &record, const Window &window) {
    if (window.kind == WindowKind::Edit) {
        bool readOnly = window::isReadOnlyEdit(window);
        GtkStyleContext *context = gtk_widget_get_style_context(record.inner);
        if (readOnly) gtk_style_context_add_class(context, kReadOnlyClass);
        else gtk_style_context_remove_class(context, kReadOnlyClass);
        if (GTK_IS_TEXT_VIEW(record.inner)) {
            gtk_text_view_set_editable(GTK_TEXT_VIEW(record.inner), !readOnly);
            gtk_text_view_set_cursor_visible(GTK_TEXT_VIEW(record.inner), !readOnly);
        } else {
            gtk_editable_set_editable(GTK_EDITABLE(record.inner), !readOnly);
            gtk_entry_set_visibility(GTK_ENTRY(record.inner), (window.style & ES_PASSWORD) == 0);
            if (window.style & ES_PASSWORD) gtk_entry_set_input_purpose(GTK_ENTRY(record.inner), GTK_INPUT_PURPOSE_PASSWORD);
            if (const auto *edit = window.as<window::EditState>())
                gtk_entry_set_max_length(GTK_ENTRY(record.inner), std::clamp(edit->limit, 0, 65535));
        }
    } else if (window.kind == WindowKind::ListView) {
        const auto *view = window.as<window::ListViewState>();
        if (view && ((view->extendedStyle & LVS_EX_CHECKBOXES) != 0) != record.listChecks) {
            rebuildListViewColumns(record, *view);
            syncListViewSelection(record, window);
        }
        bool grid = view && (view->extendedStyle & LVS_EX_GRIDLINES);
        gtk_tree_view_set_grid_lines(GTK_TREE_VIEW(record.inner),
                                     grid ? GTK_TREE_VIEW_GRID_LINES_BOTH : GTK_TREE_VIEW_GRID_LINES_NONE);
    }
    if (window.kind == WindowKind::ListBox || window.kind == WindowKind::ListView) syncListDragDrop(record, window);
    if (window.kind == WindowKind::ComboBox) {
        if (GtkWidget *entry = gtk_bin_get_child(GTK_BIN(record.inner)); entry && GTK_IS_ENTRY(entry))
            if (const auto *combo = window.as<window::ComboBoxState>())
                gtk_entry_set_max_length(GTK_ENTRY(entry), std::clamp(combo->limit, 0, 65535));
    }
}

// ---- Buttons ----

void syncCheck(WidgetRecord &record, const Window &window, RecordLookup &lookup) {
    const auto *button = window.as<window::ButtonState>();
    if (!button || !GTK_IS_TOGGLE_BUTTON(record.inner)) return;
    if (!window::isRadioButton(window)) {
        gtk_toggle_button_set_inconsistent(GTK_TOGGLE_BUTTON(record.inner), button->check == BST_INDETERMINATE);
        gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(record.inner), button->check == BST_CHECKED);
        return;
    }
    // A GTK group shows one active member: the checked radio, or the hidden one.
    GtkWidget *active = nullptr;
    for (HWND member : window::radioGroupOf(window)) {
        auto radio = window::findWindow(member);
        const auto *state = radio ? radio->as<window::ButtonState>() : nullptr;
        WidgetRecord *shown = lookup.find(member);
        if (state && shown && state->check == BST_CHECKED) {
            active = shown->inner;
            break;
        }
    }
    if (!active)
        if (WidgetRecord *leader = lookup.find(record.radioLeader)) active = leader->noneRadio;
    if (active && !gtk_toggle_button_get_active(GTK_TOGGLE_BUTTON(active)))
        gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(active), TRUE);
}

// ---- List boxes ----

std::vector<std::u16string> listTexts(const Window &window) {
    std::vector<std::u16string> texts;
    if (const auto *list = window.as<window::ListBoxState>())
        for (const auto &entry : list->entries) texts.push_back(entry.text);
    return texts;
}

void refillListBox(WidgetRecord &record, const Window &window) {
    gtk_list_store_clear(record.store);
    for (const auto &text : listTexts(window))
        gtk_list_store_insert_with_values(record.store, nullptr, -1, 0, utf8(text).c_str(), -1);
}

void selectRows(GtkWidget *view, GtkListStore *store, const std::vector<bool> &selected) {
    GtkTreeSelection *selection = gtk_tree_view_get_selection(GTK_TREE_VIEW(view));
    gtk_tree_selection_unselect_all(selection);
    GtkTreeIter iter;
    int first = -1;
    for (std::size_t i = 0; i < selected.size(); ++i) {
        if (!selected[i] || !nthRow(store, static_cast<int>(i), iter)) continue;
        gtk_tree_selection_select_iter(selection, &iter);
        if (first < 0) first = static_cast<int>(i);
    }
    if (first >= 0 && gtk_widget_get_realized(view)) {
        GtkTreePath *path = gtk_tree_path_new_from_indices(first, -1);
        gtk_tree_view_scroll_to_cell(GTK_TREE_VIEW(view), path, nullptr, FALSE, 0, 0);
        gtk_tree_path_free(path);
    }
}

void syncListBoxSelection(WidgetRecord &record, const Window &window) {
    const auto *list = window.as<window::ListBoxState>();
    if (!list) return;
    std::vector<bool> selected(list->entries.size(), false);
    for (int32_t index : window::selectedListEntries(window))
        if (index >= 0 && static_cast<std::size_t>(index) < selected.size()) selected[static_cast<std::size_t>(index)] = true;
    selectRows(record.inner, record.store, selected);
}

// One entry changed: the rows follow it, and the selection only when the entry itself
// is selected (GTK's selection moves with its rows as the engine's does with its
// entries, so a long list filled entry by entry is not walked at every step).
void listBoxEntryChange(WidgetRecord &record, const Window &window, Change change, int32_t index) {
    const auto *list = window.as<window::ListBoxState>();
    if (!list) return;
    const auto &entries = list->entries;
    int count = static_cast<int>(entries.size());
    bool entry = index >= 0 && index < count;
    GtkTreeIter iter;
    bool followSelection = true;
    if (change == Change::EntryInserted && entry) {
        const auto &inserted = entries[static_cast<std::size_t>(index)];
        gtk_list_store_insert_with_values(record.store, nullptr, index, 0, utf8(inserted.text).c_str(), -1);
        followSelection = inserted.selected || list->current == index;
    } else if (change == Change::EntryRemoved && nthRow(record.store, index, iter)) {
        gtk_list_store_remove(record.store, &iter);
        followSelection = false;
    } else if (change == Change::EntryChanged && entry && nthRow(record.store, index, iter)) {
        gtk_list_store_set(record.store, &iter, 0, utf8(entries[static_cast<std::size_t>(index)].text).c_str(), -1);
        followSelection = false;
    } else if (change == Change::EntriesCleared) {
        gtk_list_store_clear(record.store);
    }
    if (rowCount(record.store) != count) {
        refillListBox(record, window);
        followSelection = true;
    }
    if (followSelection) syncListBoxSelection(record, window);
}

// ---- Combo boxes ----

void refillComboBox(WidgetRecord &record, const window::ComboBoxState &combo) {
    gtk_combo_box_text_remove_all(GTK_COMBO_BOX_TEXT(record.inner));
    for (const auto &entry : combo.entries)
        gtk_combo_box_text_append_text(GTK_COMBO_BOX_TEXT(record.inner), utf8(entry.text).c_str());
}

void syncComboSelection(WidgetRecord &record, const Window &window) {
    const auto *combo = window.as<window::ComboBoxState>();
    if (!combo) return;
    if (gtk_combo_box_get_active(GTK_COMBO_BOX(record.inner)) != combo->current)
        gtk_combo_box_set_active(GTK_COMBO_BOX(record.inner), combo->current);
    syncText(record, window); // an editable combo keeps the user's text when nothing is chosen
}

void comboEntryChange(WidgetRecord &record, const Window &window, Change change, int32_t index) {
    const auto *combo = window.as<window::ComboBoxState>();
    if (!combo) return;
    auto *box = GTK_COMBO_BOX_TEXT(record.inner);
    GtkTreeModel *model = gtk_combo_box_get_model(GTK_COMBO_BOX(box));
    int count = static_cast<int>(combo->entries.size());
    if (change == Change::EntryInserted && index >= 0 && index < count) {
        gtk_combo_box_text_insert_text(box, index, utf8(combo->entries[static_cast<std::size_t>(index)].text).c_str());
    } else if (change == Change::EntryRemoved && index >= 0) {
        gtk_combo_box_text_remove(box, index);
    } else if (change == Change::EntryChanged && index >= 0 && index < count) {
        GtkTreeIter iter;
        if (gtk_tree_model_iter_nth_child(model, &iter, nullptr, index))
            gtk_list_store_set(GTK_LIST_STORE(model), &iter, 0,
                               utf8(combo->entries[static_cast<std::size_t>(index)].text).c_str(), -1);
    } else if (change == Change::EntriesCleared) {
        gtk_combo_box_text_remove_all(box);
    }
    if (gtk_tree_model_iter_n_children(model, nullptr) != count) refillComboBox(record, *combo);
    syncComboSelection(record, window);
}

// ---- List views ----

bool itemChecked(const window::ListViewItem &item) {
    return (item.state & LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2);
}

void setListViewRow(WidgetRecord &record, GtkTreeIter &iter, const window::ListViewItem &item) {
    for (int column = 0; column < record.listColumns; ++column) {
        auto at = static_cast<std::size_t>(column);
        std::string text = at < item.texts.size() ? utf8(item.texts[at]) : std::string();
        gtk_list_store_set(record.store, &iter, column, text.c_str(), -1);
    }
    if (record.listChecks) gtk_list_store_set(record.store, &iter, record.listColumns, itemChecked(item), -1);
}

// The check boxes follow item state changes (they come as selection changes).
void syncListViewChecks(WidgetRecord &record, const window::ListViewState &view) {
    if (!record.listChecks) return;
    GtkTreeIter iter;
    for (std::size_t i = 0; i < view.items.size(); ++i) {
        if (!nthRow(record.store, static_cast<int>(i), iter)) break;
        gboolean shown = FALSE;
        gtk_tree_model_get(GTK_TREE_MODEL(record.store), &iter, record.listColumns, &shown, -1);
        if ((shown != FALSE) != itemChecked(view.items[i]))
            gtk_list_store_set(record.store, &iter, record.listColumns, itemChecked(view.items[i]), -1);
    }
}

void refillListView(WidgetRecord &record, const window::ListViewState &view) {
    gtk_list_store_clear(record.store);
    for (const auto &item : view.items) {
        GtkTreeIter iter;
        gtk_list_store_insert(record.store, &iter, -1);
        setListViewRow(record, iter, item);
    }
}

void syncListViewSelection(WidgetRecord &record, const Window &window) {
    const auto *view = window.as<window::ListViewState>();
    if (!view) return;
    syncListViewChecks(record, *view);
    std::vector<bool> selected;
    for (const auto &item : view->items) selected.push_back((item.state & LVIS_SELECTED) != 0);
    selectRows(record.inner, record.store, selected);
}

void rebuildListViewColumns(WidgetRecord &record, const window::ListViewState &view) {
    auto *tree = GTK_TREE_VIEW(record.inner);
    while (GtkTreeViewColumn *column = gtk_tree_view_get_column(tree, 0)) gtk_tree_view_remove_column(tree, column);
    record.listColumns = std::max<int>(1, static_cast<int>(view.columns.size()));
    record.listChecks = (view.extendedStyle & LVS_EX_CHECKBOXES) != 0;
    record.store = newListViewStore(record.listColumns, record.listChecks);
    gtk_tree_view_set_model(tree, GTK_TREE_MODEL(record.store));
    g_object_unref(record.store);
    for (std::size_t i = 0; i < view.columns.size(); ++i) {
        const auto &source = view.columns[i];
        GtkTreeViewColumn *column = gtk_tree_view_column_new();
        gtk_tree_view_column_set_title(column, plainLabel(source.title).c_str());
        if (i == 0 && record.listChecks) { // the item's check box comes before its text
            GtkCellRenderer *toggle = gtk_cell_renderer_toggle_new();
            g_object_set(toggle, "ypad", 0, "xpad", 2, nullptr);
            gtk_tree_view_column_pack_start(column, toggle, FALSE);
            gtk_tree_view_column_add_attribute(column, toggle, "active", record.listColumns);
            connectItemChecks(toggle, record.handle);
        }
        GtkCellRenderer *cell = gtk_cell_renderer_text_new();
        int32_t format = source.format & kColumnFormatMask;
        float align = format == kColumnRight ? 1.0f : format == kColumnCenter ? 0.5f : 0.0f;
        g_object_set(cell, "xalign", align, "ypad", 0, "ellipsize", PANGO_ELLIPSIZE_END, nullptr);
        gtk_tree_view_column_pack_start(column, cell, TRUE);
        gtk_tree_view_column_add_attribute(column, cell, "text", static_cast<gint>(i));
        gtk_tree_view_column_set_sizing(column, GTK_TREE_VIEW_COLUMN_FIXED);
        gtk_tree_view_column_set_fixed_width(column, std::max(source.width, 1));
        gtk_tree_view_column_set_resizable(column, TRUE);
        gtk_tree_view_column_set_alignment(column, align);
        gtk_tree_view_append_column(tree, column);
    }
    refillListView(record, view);
}

// As for list boxes: the selection is mirrored again only when it may differ.
void listViewEntryChange(WidgetRecord &record, const Window &window, Change change, int32_t index) {
    const auto *view = window.as<window::ListViewState>();
    if (!view) return;
    int count = static_cast<int>(view->items.size());
    bool item = index >= 0 && index < count;
    GtkTreeIter iter;
    bool followSelection = true;
    if (change == Change::EntryInserted && item) {
        gtk_list_store_insert(record.store, &iter, index);
        setListViewRow(record, iter, view->items[static_cast<std::size_t>(index)]);
        followSelection = (view->items[static_cast<std::size_t>(index)].state & LVIS_SELECTED) != 0;
    } else if (change == Change::EntryRemoved && nthRow(record.store, index, iter)) {
        gtk_list_store_remove(record.store, &iter);
        followSelection = false;
    } else if (change == Change::EntryChanged && item && nthRow(record.store, index, iter)) {
        setListViewRow(record, iter, view->items[static_cast<std::size_t>(index)]);
    } else if (change == Change::EntriesCleared) {
        gtk_list_store_clear(record.store);
    } else if (change == Change::EntryChanged) {
        refillListView(record, *view);
    }
    if (rowCount(record.store) != count) {
        refillListView(record, *view);
        followSelection = true;
    }
    if (followSelection) syncListViewSelection(record, window);
}

// ---- Tab controls ----

void insertTab(WidgetRecord &record, int index, const std::u16string &text) {
    GtkWidget *content = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0); // the pages lie over it
    gtk_widget_show(content);
    GtkWidget *label = gtk_label_new(plainLabel(text).c_str());
    gtk_notebook_insert_page(GTK_NOTEBOOK(record.inner), content, label, index);
}

void refillTabs(WidgetRecord &record, const window::TabState &tab) {
    auto *notebook = GTK_NOTEBOOK(record.inner);
    while (gtk_notebook_get_n_pages(notebook) > 0) gtk_notebook_remove_page(notebook, -1);
    for (std::size_t i = 0; i < tab.items.size(); ++i) insertTab(record, static_cast<int>(i), tab.items[i].text);
}

void syncCurrentTab(WidgetRecord &record, const window::TabState &tab) {
    auto *notebook = GTK_NOTEBOOK(record.inner);
    if (tab.current >= 0 && gtk_notebook_get_current_page(notebook) != tab.current)
        gtk_notebook_set_current_page(notebook, tab.current);
}

void tabEntryChange(WidgetRecord &record, const Window &window, Change change, int32_t index) {
    const auto *tab = window.as<window::TabState>();
    if (!tab) return;
    auto *notebook = GTK_NOTEBOOK(record.inner);
    int count = static_cast<int>(tab->items.size());
    if (change == Change::EntryInserted && index >= 0 && index < count) {
        insertTab(record, index, tab->items[static_cast<std::size_t>(index)].text);
    } else if (change == Change::EntryRemoved && index >= 0 && index < gtk_notebook_get_n_pages(notebook)) {
        gtk_notebook_remove_page(notebook, index);
    } else if (change == Change::EntryChanged && index >= 0 && index < count) {
        if (GtkWidget *content = gtk_notebook_get_nth_page(notebook, index))
            gtk_notebook_set_tab_label_text(notebook, content,
                                            plainLabel(tab->items[static_cast<std::size_t>(index)].text).c_str());
    } else if (change == Change::EntriesCleared) {
        count = -1; // forces the refill below
    }
    if (gtk_notebook_get_n_pages(notebook) != count) refillTabs(record, *tab);
    syncCurrentTab(record, *tab);
}

// ---- Progress bars ----

void syncProgress(WidgetRecord &record, const Window &window) {
    const auto *bar = window.as<window::ProgressBarState>();
    if (!bar) return;
    double span = static_cast<double>(bar->maximum) - bar->minimum;
    double fraction = span > 0 ? (static_cast<double>(bar->position) - bar->minimum) / span : 0.0;
    gtk_progress_bar_set_fraction(GTK_PROGRESS_BAR(record.inner), std::clamp(fraction, 0.0, 1.0));
}

// ---- Whole windows ----

void syncEntries(WidgetRecord &record, const Window &window) {
    switch (window.kind) {
    case WindowKind::ListBox:
        refillListBox(record, window);
        syncListBoxSelection(record, window);
        break;
    case WindowKind::ComboBox:
        if (const auto *combo = window.as<window::ComboBoxState>()) refillComboBox(record, *combo);
        syncComboSelection(record, window);
        break;
    case WindowKind::ListView:
        if (const auto *view = window.as<window::ListViewState>()) rebuildListViewColumns(record, *view);
        syncListViewSelection(record, window);
        break;
    case WindowKind::TabControl:
        if (const auto *tab = window.as<window::TabState>()) {
            refillTabs(record, *tab);
            syncCurrentTab(record, *tab);
        }
        break;
    default:
        break;
    }
}

void syncVisibility(WidgetRecord &record, const Window &window) {
    if (!record.topLevel) gtk_widget_set_visible(record.outer, window.visible);
}

} // namespace

void giveFocus(GtkWidget *widget) {
    if (!widget) return;
    if (GTK_IS_COMBO_BOX(widget) || gtk_widget_get_can_focus(widget)) gtk_widget_grab_focus(widget);
    else if (GTK_IS_CONTAINER(widget)) gtk_widget_child_focus(widget, GTK_DIR_TAB_FORWARD);
}

void syncWindow(WidgetRecord &record, const Window &window, RecordLookup &lookup) {
    syncStyle(record, window);
    syncText(record, window);
    syncEntries(record, window);
    syncCheck(record, window, lookup);
    if (window.kind == WindowKind::ProgressBar) syncProgress(record, window);
    gtk_widget_set_sensitive(record.outer, window.enabled);
    syncVisibility(record, window);
}

void syncAfterInput(WidgetRecord &record, const Window &window, RecordLookup &lookup) {
    syncText(record, window);
    syncCheck(record, window, lookup);
    applyChange(record, window, Change::Selection, -1, lookup);
}

void applyChange(WidgetRecord &record, const Window &window, Change change, int32_t index, RecordLookup &lookup) {
    switch (change) {
    case Change::Text: syncText(record, window); break;
    case Change::Enabled: gtk_widget_set_sensitive(record.outer, window.enabled); break;
    case Change::Visible: syncVisibility(record, window); break;
    case Change::Style: syncStyle(record, window); break;
    case Change::Check: syncCheck(record, window, lookup); break;
    case Change::Focus: giveFocus(record.inner); break;
    case Change::EntryInserted:
    case Change::EntryRemoved:
    case Change::EntryChanged:
    case Change::EntriesCleared:
        if (window.kind == WindowKind::ListBox) listBoxEntryChange(record, window, change, index);
        else if (window.kind == WindowKind::ComboBox) comboEntryChange(record, window, change, index);
        else if (window.kind == WindowKind::ListView) listViewEntryChange(record, window, change, index);
        else if (window.kind == WindowKind::TabControl) tabEntryChange(record, window, change, index);
        break;
    case Change::Selection:
        if (window.kind == WindowKind::ListBox) syncListBoxSelection(record, window);
        else if (window.kind == WindowKind::ComboBox) syncComboSelection(record, window);
        else if (window.kind == WindowKind::ListView) syncListViewSelection(record, window);
        else if (const auto *tab = window.as<window::TabState>()) syncCurrentTab(record, *tab);
        break;
    case Change::Columns:
        if (const auto *view = window.as<window::ListViewState>()) {
            rebuildListViewColumns(record, *view);
            syncListViewSelection(record, window);
        }
        break;
    case Change::Range:
    case Change::Position:
        if (window.kind == WindowKind::ProgressBar) syncProgress(record, window);
        break;
    default: // Geometry and DefaultButton belong to the renderer's top-level windows
        break;
    }
}

} // namespace tabra::gtk
