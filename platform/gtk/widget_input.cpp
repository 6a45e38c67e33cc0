// Signal handlers of the renderer's widgets.
#include "platform/gtk/widget_input.h"

#include "platform/gtk/label_text.h"
#include "platform/gtk/widget_factory.h"
#include "platform/window/focus.h"
#include "platform/window/window_registry.h"
#include "tabra_window.h"

#include <gdk/gdkkeysyms.h>

#include <algorithm>
#include <vector>

namespace tabra::gtk {
namespace {

using window::WindowKind;
namespace input = window::input;

constexpr char kWindowKey[] = "tabra-window";

InputGate *activeGate = nullptr;

HWND handleOf(gpointer data) { return static_cast<HWND>(data); }

void deliver(HWND handle, const std::function<input::Refusal()> &action) {
    if (activeGate) activeGate->deliver(handle, action);
}

bool mirroring() { return !activeGate || activeGate->mirroring(); }

// ---- Buttons ----

void onButtonClicked(GtkButton *, gpointer data) {
    HWND handle = handleOf(data);
    deliver(handle, [handle] { return input::click(handle); });
}

// Radio buttons answer "toggled" on the one that became active: GTK also "clicks" the
// one that goes off, which is no click of the user's.
void onRadioToggled(GtkToggleButton *button, gpointer data) {
    if (!gtk_toggle_button_get_active(button)) return;
    HWND handle = handleOf(data);
    deliver(handle, [handle] { return input::click(handle); });
}

// ---- Edits ----

void onEntryChanged(GtkEditable *editable, gpointer data) {
    if (mirroring()) return;
    HWND handle = handleOf(data);
    std::u16string text = utf16(gtk_entry_get_text(GTK_ENTRY(editable)));
    auto edit = window::findWindow(handle);
    if (edit && edit->text == text) return;
    deliver(handle, [handle, text] { return input::replaceText(handle, text); });
}

// ES_NUMBER: only digits may be typed (texts the program sets are not filtered).
void onNumberInserted(GtkEditable *editable, gchar *text, gint length, gpointer, gpointer) {
    if (mirroring()) return;
    for (gint i = 0; length < 0 ? text[i] != '\0' : i < length; ++i) {
        if (text[i] >= '0' && text[i] <= '9') continue;
        g_signal_stop_emission_by_name(editable, "insert-text");
        gtk_widget_error_bell(GTK_WIDGET(editable));
        return;
    }
}

void onTextBufferChanged(GtkTextBuffer *buffer, gpointer data) {
    if (mirroring()) return;
    HWND handle = handleOf(data);
    GtkTextIter start, end;
    gtk_text_buffer_get_bounds(buffer, &start, &end);
    gchar *shown = gtk_text_buffer_get_text(buffer, &start, &end, FALSE);
    std::u16string text = editTextFromWidget(shown, true);
    g_free(shown);
    auto edit = window::findWindow(handle);
    if (edit && edit->text == text) return;
    deliver(handle, [handle, text] { return input::replaceText(handle, text); });
}

// ---- Lists ----

std::vector<int32_t> selectedRows(GtkTreeSelection *selection) {
    std::vector<int32_t> rows;
    GList *paths = gtk_tree_selection_get_selected_rows(selection, nullptr);
    for (GList *at = paths; at; at = at->next) {
        auto *path = static_cast<GtkTreePath *>(at->data);
        if (gtk_tree_path_get_depth(path) > 0) rows.push_back(gtk_tree_path_get_indices(path)[0]);
    }
    g_list_free_full(paths, reinterpret_cast<GDestroyNotify>(gtk_tree_path_free));
    std::sort(rows.begin(), rows.end());
    return rows;
}

std::vector<int32_t> engineSelection(const window::Window &control) {
    std::vector<int32_t> rows;
    if (control.kind == WindowKind::ListBox) return window::selectedListEntries(control);
    if (const auto *view = control.as<window::ListViewState>())
        for (std::size_t i = 0; i < view->items.size(); ++i)
            if (view->items[i].state & LVIS_SELECTED) rows.push_back(static_cast<int32_t>(i));
    return rows;
}

void onSelectionChanged(GtkTreeSelection *selection, gpointer data) {
    if (mirroring()) return;
    HWND handle = handleOf(data);
    auto rows = selectedRows(selection);
    auto control = window::findWindow(handle);
    if (!control || engineSelection(*control) == rows) return;
    deliver(handle, [handle, rows] { return input::selectEntries(handle, rows); });
}

int32_t rowAt(GtkTreeView *view, const GdkEventButton *event) {
    if (event->window != gtk_tree_view_get_bin_window(view)) return -1;
    GtkTreePath *path = nullptr;
    if (!gtk_tree_view_get_path_at_pos(view, static_cast<gint>(event->x), static_cast<gint>(event->y), &path, nullptr,
                                       nullptr, nullptr))
        return -1;
    int32_t row = gtk_tree_path_get_depth(path) > 0 ? gtk_tree_path_get_indices(path)[0] : -1;
    gtk_tree_path_free(path);
    return row;
}

gboolean onListButtonPress(GtkWidget *widget, GdkEventButton *event, gpointer data) {
    HWND handle = handleOf(data);
    int32_t row = rowAt(GTK_TREE_VIEW(widget), event);
    if (event->type == GDK_2BUTTON_PRESS && event->button == GDK_BUTTON_PRIMARY) {
        deliver(handle, [handle, row] { return input::doubleClick(handle, row); });
        return TRUE;
    }
    if (event->type == GDK_BUTTON_PRESS && event->button == GDK_BUTTON_SECONDARY) {
        gtk_widget_grab_focus(widget);
        auto control = window::findWindow(handle);
        int32_t target = control && control->kind == WindowKind::ListView ? row : -1;
        deliver(handle, [handle, target] { return input::rightClick(handle, target); });
        return TRUE;
    }
    return FALSE;
}

// A click on an item's check box (the cell shows the engine's state until it changes).
void onItemCheckToggled(GtkCellRendererToggle *toggle, gchar *pathText, gpointer data) {
    if (mirroring()) return;
    HWND handle = handleOf(data);
    GtkTreePath *path = gtk_tree_path_new_from_string(pathText);
    int32_t row = path && gtk_tree_path_get_depth(path) > 0 ? gtk_tree_path_get_indices(path)[0] : -1;
    if (path) gtk_tree_path_free(path);
    bool checked = !gtk_cell_renderer_toggle_get_active(toggle);
    deliver(handle, [handle, row, checked] { return input::setItemChecked(handle, row, checked); });
}

// ---- Combo boxes ----

void onComboChanged(GtkComboBox *combo, gpointer data) {
    if (mirroring()) return;
    HWND handle = handleOf(data);
    auto control = window::findWindow(handle);
    const auto *state = control ? control->as<window::ComboBoxState>() : nullptr;
    if (!state) return;
    int32_t active = gtk_combo_box_get_active(combo);
    if (active >= 0) {
        if (active != state->current) deliver(handle, [handle, active] { return input::selectEntries(handle, {active}); });
        return;
    }
    GtkWidget *entry = gtk_bin_get_child(GTK_BIN(combo));
    if (!entry || !GTK_IS_ENTRY(entry)) return;
    std::u16string text = utf16(gtk_entry_get_text(GTK_ENTRY(entry)));
    if (text != control->text) deliver(handle, [handle, text] { return input::replaceText(handle, text); });
}

// ---- Tab controls ----

void onSwitchPage(GtkNotebook *, GtkWidget *, guint page, gpointer data) {
    if (mirroring()) return;
    HWND handle = handleOf(data);
    auto control = window::findWindow(handle);
    const auto *tab = control ? control->as<window::TabState>() : nullptr;
    auto index = static_cast<int32_t>(page);
    if (!tab || tab->current == index) return;
    deliver(handle, [handle, index] { return input::selectEntries(handle, {index}); });
}

// ---- Dialog windows ----

gboolean onDeleteEvent(GtkWidget *, GdkEvent *, gpointer data) {
    HWND dialog = handleOf(data);
    deliver(dialog, [dialog] { return input::closeDialog(dialog); });
    return TRUE; // the engine decides whether the dialog goes
}

// The engine control that has the focus of a dialog, or null.
window::WindowPtr focusedControl(HWND dialog) {
    auto root = window::findWindow(dialog);
    const auto *state = root ? root->as<window::DialogState>() : nullptr;
    return state ? window::findWindow(state->focus) : nullptr;
}

// Tab, Enter and Escape work as a dialog's keys do on Win32 whichever widget has the
// focus (GTK's own focus chain follows the screen, not the template, and lists and
// combo boxes would keep Enter to themselves); the window sees them first. Everything
// else (typing, arrows, mnemonics with Alt) is GTK's.
gboolean onDialogKeyPress(GtkWidget *, GdkEventKey *event, gpointer data) {
    HWND dialog = handleOf(data);
    guint modifiers = event->state & gtk_accelerator_get_default_mod_mask();
    switch (event->keyval) {
    case GDK_KEY_Tab:
    case GDK_KEY_KP_Tab:
    case GDK_KEY_ISO_Left_Tab: {
        if (modifiers & ~static_cast<guint>(GDK_SHIFT_MASK)) return FALSE;
        bool backward = event->keyval == GDK_KEY_ISO_Left_Tab || (modifiers & GDK_SHIFT_MASK);
        deliver(dialog, [dialog, backward] { return input::pressTab(dialog, backward); });
        return TRUE;
    }
    case GDK_KEY_Return:
    case GDK_KEY_KP_Enter:
    case GDK_KEY_ISO_Enter: {
        if (modifiers) return FALSE;
        auto focused = focusedControl(dialog);
        // A multi-line edit that wants Enter breaks the line where the caret is.
        if (focused && focused->kind == WindowKind::Edit && window::isMultiLineEdit(*focused) &&
            (focused->style & ES_WANTRETURN))
            return FALSE;
        deliver(dialog, [dialog] { return input::pressEnter(dialog); });
        return TRUE;
    }
    case GDK_KEY_Escape:
        if (modifiers) return FALSE;
        deliver(dialog, [dialog] { return input::pressEscape(dialog); });
        return TRUE;
    default:
        return FALSE;
    }
}

void onSetFocus(GtkWindow *, GtkWidget *widget, gpointer) {
    if (mirroring() || !widget) return;
    HWND control = windowOfWidget(widget);
    auto target = window::findWindow(control);
    if (!target || target->kind == WindowKind::Dialog) return;
    auto root = window::findWindow(window::topLevelOf(control));
    const auto *dialog = root ? root->as<window::DialogState>() : nullptr;
    if (!dialog || dialog->focus == control) return;
    deliver(control, [control] { return input::focus(control); });
}

} // namespace

void setInputGate(InputGate *gate) { activeGate = gate; }

void deliverInput(HWND window, const std::function<input::Refusal()> &input) { deliver(window, input); }

void markWidget(GtkWidget *widget, HWND window) {
    if (widget) g_object_set_data(G_OBJECT(widget), kWindowKey, window);
}

HWND windowOfWidget(GtkWidget *widget) {
    for (GtkWidget *at = widget; at; at = gtk_widget_get_parent(at))
        if (auto *handle = g_object_get_data(G_OBJECT(at), kWindowKey)) return static_cast<HWND>(handle);
    return nullptr;
}

void connectControlInput(const WidgetRecord &record, const window::Window &control) {
    gpointer data = control.handle;
    GtkWidget *inner = record.inner;
    switch (control.kind) {
    case WindowKind::Button:
        if (GTK_IS_RADIO_BUTTON(inner)) g_signal_connect(inner, "toggled", G_CALLBACK(onRadioToggled), data);
        else if (GTK_IS_BUTTON(inner)) g_signal_connect(inner, "clicked", G_CALLBACK(onButtonClicked), data);
        break;
    case WindowKind::Edit:
        if (GTK_IS_TEXT_VIEW(inner)) {
            g_signal_connect(gtk_text_view_get_buffer(GTK_TEXT_VIEW(inner)), "changed", G_CALLBACK(onTextBufferChanged),
                             data);
        } else {
            g_signal_connect(inner, "changed", G_CALLBACK(onEntryChanged), data);
            if (control.style & ES_NUMBER) g_signal_connect(inner, "insert-text", G_CALLBACK(onNumberInserted), data);
        }
        break;
    case WindowKind::ListBox:
    case WindowKind::ListView:
        g_signal_connect(gtk_tree_view_get_selection(GTK_TREE_VIEW(inner)), "changed", G_CALLBACK(onSelectionChanged),
                         data);
        g_signal_connect(inner, "button-press-event", G_CALLBACK(onListButtonPress), data);
        break;
    case WindowKind::ComboBox:
        g_signal_connect(inner, "changed", G_CALLBACK(onComboChanged), data);
        break;
    case WindowKind::TabControl:
        g_signal_connect_after(inner, "switch-page", G_CALLBACK(onSwitchPage), data);
        break;
    default:
        break;
    }
}

void connectItemChecks(GtkCellRenderer *toggle, HWND listView) {
    g_signal_connect(toggle, "toggled", G_CALLBACK(onItemCheckToggled), listView);
}

void connectDialogInput(GtkWidget *window, HWND dialog) {
    g_signal_connect(window, "delete-event", G_CALLBACK(onDeleteEvent), dialog);
    g_signal_connect(window, "key-press-event", G_CALLBACK(onDialogKeyPress), dialog);
    g_signal_connect(window, "set-focus", G_CALLBACK(onSetFocus), nullptr);
}

} // namespace tabra::gtk
