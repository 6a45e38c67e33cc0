// Drag and drop of list entries.
#include "platform/gtk/list_drag.h"

#include "ostrel_ui.h"
#include "platform/gtk/widget_input.h"
#include "platform/window/user_input.h"

#include <cstring>

namespace tabra::gtk {
namespace {

constexpr char kTarget[] = "application/x-tabra-list-entry";
constexpr char kConnectedKey[] = "tabra-list-drag";
// Where GtkTreeView keeps the row a drag started on.
constexpr char kSourceRowKey[] = "gtk-tree-view-source-row";

// What travels from the source to the target (within the process only).
struct DraggedEntry {
    HWND source;
    int32_t item;
};

GtkTargetEntry *targets() {
    static GtkTargetEntry entry{const_cast<gchar *>(kTarget), GTK_TARGET_SAME_APP, 0};
    return &entry;
}

int32_t firstIndex(GtkTreePath *path) {
    return path && gtk_tree_path_get_depth(path) > 0 ? gtk_tree_path_get_indices(path)[0] : -1;
}

// The row the drag started on; the first selected row when GTK does not tell.
int32_t draggedRow(GtkTreeView *view, GdkDragContext *context) {
    auto *reference = static_cast<GtkTreeRowReference *>(g_object_get_data(G_OBJECT(context), kSourceRowKey));
    if (GtkTreePath *path = reference ? gtk_tree_row_reference_get_path(reference) : nullptr) {
        int32_t row = firstIndex(path);
        gtk_tree_path_free(path);
        return row;
    }
    GList *rows = gtk_tree_selection_get_selected_rows(gtk_tree_view_get_selection(view), nullptr);
    int32_t row = rows ? firstIndex(static_cast<GtkTreePath *>(rows->data)) : -1;
    g_list_free_full(rows, reinterpret_cast<GDestroyNotify>(gtk_tree_path_free));
    return row;
}

// The row a drop at (x, y) goes before; the row count below the last row.
int32_t dropPosition(GtkTreeView *view, gint x, gint y) {
    GtkTreePath *path = nullptr;
    GtkTreeViewDropPosition where = GTK_TREE_VIEW_DROP_BEFORE;
    if (!gtk_tree_view_get_dest_row_at_pos(view, x, y, &path, &where))
        return gtk_tree_model_iter_n_children(gtk_tree_view_get_model(view), nullptr);
    int32_t row = firstIndex(path);
    gtk_tree_path_free(path);
    bool after = where == GTK_TREE_VIEW_DROP_AFTER || where == GTK_TREE_VIEW_DROP_INTO_OR_AFTER;
    return after ? row + 1 : row;
}

void onDragDataGet(GtkWidget *widget, GdkDragContext *context, GtkSelectionData *data, guint, guint, gpointer handle) {
    g_signal_stop_emission_by_name(widget, "drag-data-get");
    DraggedEntry entry{static_cast<HWND>(handle), draggedRow(GTK_TREE_VIEW(widget), context)};
    gtk_selection_data_set(data, gdk_atom_intern_static_string(kTarget), 8, reinterpret_cast<const guchar *>(&entry),
                           sizeof entry);
}

void onDragDataReceived(GtkWidget *widget, GdkDragContext *context, gint x, gint y, GtkSelectionData *data, guint,
                        guint time, gpointer handle) {
    g_signal_stop_emission_by_name(widget, "drag-data-received");
    DraggedEntry entry{};
    bool whole = gtk_selection_data_get_length(data) == static_cast<gint>(sizeof entry);
    if (whole) std::memcpy(&entry, gtk_selection_data_get_data(data), sizeof entry);
    gtk_drag_finish(context, whole, FALSE, time);
    if (!whole || entry.item < 0) return;
    HWND target = static_cast<HWND>(handle);
    int32_t position = dropPosition(GTK_TREE_VIEW(widget), x, y);
    deliverInput(target, [entry, target, position] {
        return window::input::dropEntry(entry.source, entry.item, target, position);
    });
}

} // namespace

void syncListDragDrop(const WidgetRecord &record, const window::Window &list) {
    auto *view = GTK_TREE_VIEW(record.inner);
    // Copy, never move: a moving drag would have GTK delete the source row itself.
    if (list.dragFlags & OSTREL_DRAG_SOURCE)
        gtk_tree_view_enable_model_drag_source(view, GDK_BUTTON1_MASK, targets(), 1, GDK_ACTION_COPY);
    else
        gtk_tree_view_unset_rows_drag_source(view);
    if (list.dragFlags & OSTREL_DROP_TARGET) gtk_tree_view_enable_model_drag_dest(view, targets(), 1, GDK_ACTION_COPY);
    else gtk_tree_view_unset_rows_drag_dest(view);
    if (list.dragFlags == 0 || g_object_get_data(G_OBJECT(view), kConnectedKey)) return;
    g_object_set_data(G_OBJECT(view), kConnectedKey, list.handle);
    g_signal_connect(view, "drag-data-get", G_CALLBACK(onDragDataGet), list.handle);
    g_signal_connect(view, "drag-data-received", G_CALLBACK(onDragDataReceived), list.handle);
}

} // namespace tabra::gtk
