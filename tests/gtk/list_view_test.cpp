// A report list view on the GTK renderer: item check boxes show the engine's state
// images and a click on one checks it (LVN_ITEMCHANGED tells the dialog); a right click
// on a row opens the dialog's context menu where the pointer is (GetCursorPos answers
// the real pointer, TrackPopupMenu opens there).
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "ostrel_ui.h"
#include "window/window_test_support.h"

#include <cstdlib>

using namespace tabra::test;
using tabra::platform::ControlKind;
namespace automation = tabra::gtk::automation;

namespace {

constexpr int32_t kDialog = 720, kColumns = 1002, kMenu = 113, kAddColumn = 40001, kDeleteColumns = 40002;

class GtkRendererListView : public GtkRendererTest {
protected:
    GtkRendererListView() {
        DialogBuilder dialog(kDialog, u"Columns of Orders");
        dialog.size(230, 120)
            .control(ControlKind::ListView, kColumns, u"", WS_TABSTOP | WS_BORDER | LVS_REPORT,
                     LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES)
            .at(7, 7, 216, 84)
            .okCancel(119, 99);
        tabra::platform::MenuTemplate menu;
        menu.id = kMenu;
        menu.items.resize(1);
        menu.items[0].children.resize(2);
        menu.items[0].children[0].text = u"&Add column...";
        menu.items[0].children[0].id = kAddColumn;
        menu.items[0].children[1].text = u"&Delete columns";
        menu.items[0].children[1].id = kDeleteColumns;
        module.add(dialog).addMenu(menu);
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
    std::vector<std::pair<int32_t, uint32_t>> stateImages; // item, its new state image
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
        }
        const auto *change = reinterpret_cast<const NMLISTVIEW *>(lParam);
        if (message == WM_NOTIFY && static_cast<int32_t>(change->hdr.code) == LVN_ITEMCHANGED &&
            ((change->uNewState ^ change->uOldState) & LVIS_STATEIMAGEMASK))
            stateImages.emplace_back(change->iItem, (change->uNewState & LVIS_STATEIMAGEMASK) >> 12);
        if (message == WM_NOTIFY && static_cast<int32_t>(change->hdr.code) == NM_RCLICK) {
            GetCursorPos(&asked);
            chosen = TrackPopupMenu(GetSubMenu(menu, 0), TPM_RETURNCMD, asked.x, asked.y, 0, dialog, nullptr);
        }
        if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) EndDialog(dialog, LOWORD(wParam));
        return message == WM_INITDIALOG || message == WM_COMMAND || message == WM_NOTIFY;
    };
    GtkWidget *view = nullptr;
    GdkPoint pointer{};
    onShown({[&](const automation::Shown &shown) {
                 view = widgetOf(shown.handle, kColumns);
                 EXPECT_FALSE(shownChecked(view, 0));
                 EXPECT_TRUE(shownChecked(view, 1)) << "the program's check shows";
                 clickRow(view, 0, 1, 10); // on the box that leads the row
                 later(150, [&, dialog = shown.handle] {
                     EXPECT_EQ(ListView_GetCheckState(GetDlgItem(dialog, kColumns), 0), 1) << "the click checked row 0";
                     EXPECT_TRUE(shownChecked(view, 0));
                     saveScreenshot(gtk_widget_get_toplevel(view), "list-view-check-boxes");
                     pointer = clickRow(view, 2, 3);
                 });
             },
             [&](const automation::Shown &shown) {
                 int menuX = 0, menuY = 0;
                 gdk_window_get_origin(gtk_widget_get_window(gtk_widget_get_toplevel(shown.window)), &menuX, &menuY);
                 EXPECT_LE(std::abs(menuX - asked.x) + std::abs(menuY - asked.y), 8) << "the menu opens at the pointer";
                 saveScreenshot(gtk_widget_get_toplevel(view), "popup-menu-at-pointer"); // the menu lies over it
                 GList *items = gtk_container_get_children(GTK_CONTAINER(shown.window));
                 gtk_menu_shell_activate_item(GTK_MENU_SHELL(shown.window), GTK_WIDGET(g_list_nth_data(items, 1)), TRUE);
                 g_list_free(items);
                 later(100, [&] { automation::pressKey(gtk_widget_get_toplevel(view), GDK_KEY_Escape); });
             }});
    EXPECT_EQ(runDialog(module, kDialog, procedure), IDCANCEL);
    EXPECT_EQ(stateImages, (std::vector<std::pair<int32_t, uint32_t>>{{1, 2}, {0, 2}}));
    EXPECT_LE(std::abs(asked.x - pointer.x) + std::abs(asked.y - pointer.y), 1) << "GetCursorPos answers the pointer";
    EXPECT_EQ(chosen, kDeleteColumns);
    DestroyMenu(menu);
}

} // namespace

#endif
