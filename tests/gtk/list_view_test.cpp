// A report list view on the GTK renderer: item check boxes show the engine's state
// images and a click on one checks it (LVN_ITEMCHANGED tells the dialog), and a right
// click on a row opens the dialog's context menu where the pointer is (GetCursorPos
// answers the real pointer, TrackPopupMenu opens there), with the row selected.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "ostrel_ui.h"
#include "window/window_test_support.h"

#include <cstdlib>

using namespace tabra::test;
using tabra::platform::ControlKind;
namespace automation = tabra::gtk::automation;

namespace {

constexpr int32_t kDialog = 720, kColumns = 1002, kMenu = 113;
constexpr int32_t kAddColumn = 40001, kDeleteColumns = 40002;

class GtkRendererListView : public GtkRendererTest {
protected:
    GtkRendererListView() {
        DialogBuilder dialog(kDialog, u"Columns of Orders");
        dialog.size(230, 120)
            .control(ControlKind::ListView, kColumns, u"", WS_TABSTOP | WS_BORDER | LVS_REPORT | LVS_SHOWSELALWAYS,
                     LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES)
            .at(7, 7, 216, 84)
            .okCancel(119, 99);
        module.add(dialog);
        tabra::platform::MenuTemplate menu;
        menu.id = kMenu;
        tabra::platform::MenuItemTemplate popup, add, remove;
        add.text = u"&Add column...";
        add.id = kAddColumn;
        remove.text = u"&Delete columns";
        remove.id = kDeleteColumns;
        popup.children = {add, remove};
        menu.items = {popup};
        module.addMenu(menu);
    }

    // The centre of a row's first cell, in the tree view's coordinates.
    static void rowCentre(GtkWidget *view, int row, int &x, int &y, bool checkBox) {
        GtkTreePath *path = gtk_tree_path_new_from_indices(row, -1);
        GdkRectangle cell{};
        gtk_tree_view_get_cell_area(GTK_TREE_VIEW(view), path, gtk_tree_view_get_column(GTK_TREE_VIEW(view), 0), &cell);
        gtk_tree_path_free(path);
        int across = checkBox ? cell.x + 10 : cell.x + cell.width / 2; // the box leads the first cell
        gtk_tree_view_convert_bin_window_to_widget_coords(GTK_TREE_VIEW(view), across, cell.y + cell.height / 2, &x, &y);
    }

    TestModule module;
};

bool shownChecked(GtkWidget *view, int row) {
    GtkTreeModel *model = gtk_tree_view_get_model(GTK_TREE_VIEW(view));
    GtkTreeIter iter;
    gboolean checked = FALSE;
    if (gtk_tree_model_iter_nth_child(model, &iter, nullptr, row))
        gtk_tree_model_get(model, &iter, gtk_tree_model_get_n_columns(model) - 1, &checked, -1);
    return checked != FALSE;
}

TEST_F(GtkRendererListView, CheckBoxesAndAContextMenuAtThePointer) {
    std::vector<std::pair<int32_t, uint32_t>> stateChanges; // item, new state image
    POINT asked{-1, -1};
    int32_t chosen = -1;
    HMENU menu = LoadMenuW(module.handle(), kMenu);
    Procedure procedure = [&](HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam) -> INT_PTR {
        HWND view = GetDlgItem(dialog, kColumns);
        if (message == WM_INITDIALOG) {
            Ostrel_ListView_CreateColumns(view, u"Column|150|Type|110|Nulls|50");
            for (const char16_t *row : {u"OrderID\tINTEGER\tNo", u"Customer\tVARCHAR(50)\tYes", u"Freight\tDOUBLE\tYes"})
                Ostrel_ListView_InsertItem(view, -1, row, u'\t', 0);
            ListView_SetCheckState(view, 1, TRUE);
            return TRUE;
        }
        if (message == WM_NOTIFY) {
            const auto *header = reinterpret_cast<const NMHDR *>(lParam);
            const auto *change = reinterpret_cast<const NMLISTVIEW *>(lParam);
            if (static_cast<int32_t>(header->code) == LVN_ITEMCHANGED &&
                ((change->uNewState ^ change->uOldState) & LVIS_STATEIMAGEMASK))
                stateChanges.emplace_back(change->iItem, (change->uNewState & LVIS_STATEIMAGEMASK) >> 12);
            if (static_cast<int32_t>(header->code) == NM_RCLICK) {
                GetCursorPos(&asked);
                chosen = TrackPopupMenu(GetSubMenu(menu, 0), TPM_RIGHTBUTTON | TPM_RETURNCMD, asked.x, asked.y, 0, dialog,
                                        nullptr);
            }
            return TRUE;
        }
        if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) EndDialog(dialog, LOWORD(wParam));
        return message == WM_COMMAND;
    };

    GtkWidget *view = nullptr;
    int pointerX = 0, pointerY = 0; // where the right click goes, on the screen
    onShown({[&](const automation::Shown &shown) {
                 view = widgetOf(shown.handle, kColumns);
                 EXPECT_FALSE(shownChecked(view, 0));
                 EXPECT_TRUE(shownChecked(view, 1)) << "the program's check shows";
                 int x = 0, y = 0;
                 rowCentre(view, 0, x, y, true);
                 EXPECT_TRUE(automation::clickAt(view, x, y, 1));
                 HWND dialog = shown.handle;
                 later(150, [&, dialog] {
                     EXPECT_EQ(ListView_GetCheckState(GetDlgItem(dialog, kColumns), 0), 1) << "the click checked row 0";
                     EXPECT_TRUE(shownChecked(view, 0));
                     saveScreenshot(gtk_widget_get_toplevel(view), "list-view-check-boxes");
                     int rowX = 0, rowY = 0;
                     rowCentre(view, 2, rowX, rowY, false);
                     GtkWidget *window = gtk_widget_get_toplevel(view);
                     int inWindowX = 0, inWindowY = 0, originX = 0, originY = 0;
                     gtk_widget_translate_coordinates(view, window, rowX, rowY, &inWindowX, &inWindowY);
                     gdk_window_get_origin(gtk_widget_get_window(window), &originX, &originY);
                     pointerX = originX + inWindowX;
                     pointerY = originY + inWindowY;
                     EXPECT_TRUE(automation::clickAt(view, rowX, rowY, 3));
                 });
             },
             [&](const automation::Shown &shown) {
                 EXPECT_EQ(shown.kind, automation::ShownKind::PopupMenu);
                 int menuX = 0, menuY = 0;
                 gdk_window_get_origin(gtk_widget_get_window(gtk_widget_get_toplevel(shown.window)), &menuX, &menuY);
                 EXPECT_LE(std::abs(menuX - asked.x), 8) << "the menu opens at the pointer";
                 EXPECT_LE(std::abs(menuY - asked.y), 8);
                 saveScreenshot(gtk_widget_get_toplevel(view), "popup-menu-at-pointer"); // the menu lies over it
                 GList *items = gtk_container_get_children(GTK_CONTAINER(shown.window));
                 gtk_menu_shell_activate_item(GTK_MENU_SHELL(shown.window), GTK_WIDGET(g_list_nth_data(items, 1)), TRUE);
                 g_list_free(items);
                 later(100, [&] { automation::pressKey(gtk_widget_get_toplevel(view), GDK_KEY_Escape); });
             }});
    EXPECT_EQ(runDialog(module, kDialog, procedure), IDCANCEL);
    EXPECT_EQ(stateChanges, (std::vector<std::pair<int32_t, uint32_t>>{{1, 2}, {0, 2}}));
    EXPECT_LE(std::abs(asked.x - pointerX), 1) << "GetCursorPos answers where the pointer is";
    EXPECT_LE(std::abs(asked.y - pointerY), 1);
    EXPECT_EQ(chosen, kDeleteColumns);
    DestroyMenu(menu);
}

} // namespace

#endif
