// The designer dialog as a user sees it, in English and German: each page of a design
// of three tables, and the join dialog of its second table.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "core/module/module_state.h"
#include "ostrel_ui.h"
#include "query/resource_ids.h"
#include "support/odbc_handles.h"
#include "support/private_data_sources.h"
#include "support/scoped_environment.h"
#include "tabra_designer.h"

namespace tabra::test {
namespace {

namespace ids = query::ids;

class GtkRendererDesigner : public GtkRendererLanguageTest {};

TEST_P(GtkRendererDesigner, PagesAndTheJoinDialog) {
    const std::string language = GetParam();
    ScopedLanguage scoped(language);
    PrivateDataSources::instance().freshSqliteDatabase();
    OdbcConnection connection(dsn::SQLite);
    executeAll(connection,
               {u"CREATE TABLE Customers (CustomerID INTEGER, CompanyName VARCHAR(60), City VARCHAR(30), Country VARCHAR(30))",
                u"CREATE TABLE Orders (OrderID INTEGER, CustomerID INTEGER, OrderDate DATE, Freight DECIMAL(10,2))",
                u"CREATE TABLE \"Order Details\" (OrderID INTEGER, ProductID INTEGER, Quantity INTEGER)",
                u"CREATE TABLE Products (ProductID INTEGER, ProductName VARCHAR(50))"});
    SelFact design = nullptr;
    ASSERT_EQ(Tabra_SelFact_Create(&design, connection.handle(), u"", 0), TABRA_SELFACT_OK);
    Tabra_SelFact_SetDescriptor(design, TABRA_SELFACT_TABLES,
                                u"Orders\to\nCustomers\tc\tLJ\tEQ\to.CustomerID\tc.CustomerID\n"
                                u"\"Order Details\"\td\tIJ\tEQ\to.OrderID\td.OrderID");
    Tabra_SelFact_SetDescriptor(design, TABRA_SELFACT_COLUMNS,
                                u"o.OrderID\nc.CompanyName\tCustomer\no.OrderDate\nd.Quantity\tPieces");
    Tabra_SelFact_SetDescriptor(design, TABRA_SELFACT_SELECTION,
                                u"o.Freight\tGT\t100\t3\nc.Country\tEQ\tGermany\t12\n\v\v\vd.Quantity\tGE\t50\t4\n\v");
    Tabra_SelFact_SetDescriptor(design, TABRA_SELFACT_SORT_ORDER, u"o.OrderDate\tDESC\nc.CompanyName\tASC");
    const char *pageNames[] = {"tables", "columns", "selection", "sort"};
    HWND designer = nullptr;
    onShown({
        [&](const gtk::automation::Shown &shown) {
            ASSERT_EQ(shown.id, ids::kDesignerDialog.id);
            designer = shown.handle;
            HWND tab = GetDlgItem(designer, ids::kDesignerDialog.pages);
            for (int32_t page = 3; page >= 0; --page) {
                HWND window = Ostrel_GetTabControlPage(tab, page);
                ASSERT_NE(window, nullptr);
                Ostrel_ShowTabControlItem(tab, page);
                gtk::pumpUntil([] { return false; }, 100); // the page is laid out before its rows are clicked
                if (page != 2) clickRow(widgetOf(window, ids::kDesignerList.chosen), 1, 1);
                saveScreenshot(shown.window, "designer-" + language + "-" + pageNames[page]);
            }
            clickControl(Ostrel_GetTabControlPage(tab, 0), ids::kDesignerTablesPage.edit);
        },
        [&](const gtk::automation::Shown &shown) {
            ASSERT_EQ(shown.id, ids::kDesignerJoinDialog.id);
            saveScreenshot(shown.window, "designer-" + language + "-join");
            clickControl(shown.handle, IDCANCEL);
            later(300, [&] { clickControl(designer, IDCANCEL); });
        },
    });
    EXPECT_EQ(Tabra_SelFact_Edit(design, nullptr), 2);
    EXPECT_EQ(shownCount(), 2u);
    Tabra_SelFact_Destroy(design);
}

// A point of a tree view's row: in its bin window and on the screen.
struct RowPoint {
    GdkWindow *bin = nullptr;
    int x = 0, y = 0, screenX = 0, screenY = 0;
};

RowPoint rowPoint(GtkWidget *view, int row) {
    RowPoint point;
    GtkTreePath *path = gtk_tree_path_new_from_indices(row, -1);
    GdkRectangle cell{};
    gtk_tree_view_get_cell_area(GTK_TREE_VIEW(view), path, gtk_tree_view_get_column(GTK_TREE_VIEW(view), 0), &cell);
    gtk_tree_path_free(path);
    point.bin = gtk_tree_view_get_bin_window(GTK_TREE_VIEW(view));
    point.x = cell.x + cell.width / 2;
    point.y = cell.y + cell.height / 2;
    gdk_window_get_origin(point.bin, &point.screenX, &point.screenY);
    point.screenX += point.x;
    point.screenY += point.y;
    return point;
}

// The mouse drags a table from the offered list onto the design's tables, a real
// drag through the display server (xdotool moves the pointer and holds the button: a
// drag needs the server to know the button is down, which synthetic events do not
// tell it).
TEST_F(GtkRendererDesigner, DraggingATableAddsIt) {
    if (std::system("command -v xdotool >/dev/null 2>&1") != 0) GTEST_SKIP() << "xdotool is not installed";
    PrivateDataSources::instance().freshSqliteDatabase();
    OdbcConnection connection(dsn::SQLite);
    executeAll(connection, {u"CREATE TABLE Customers (CustomerID INTEGER)", u"CREATE TABLE Orders (OrderID INTEGER)"});
    SelFact design = nullptr;
    ASSERT_EQ(Tabra_SelFact_Create(&design, connection.handle(), u"", 0), TABRA_SELFACT_OK);
    Tabra_SelFact_SetDescriptor(design, TABRA_SELFACT_TABLES, u"Orders\to");
    onShown({[&](const gtk::automation::Shown &shown) {
        HWND dialog = shown.handle;
        HWND page = Ostrel_GetTabControlPage(GetDlgItem(dialog, ids::kDesignerDialog.pages), 0);
        RowPoint from = rowPoint(widgetOf(page, ids::kDesignerList.available), 0);
        RowPoint to = rowPoint(widgetOf(page, ids::kDesignerList.chosen), 0);
        std::string drag = "xdotool mousemove " + std::to_string(from.screenX) + " " + std::to_string(from.screenY) +
                           " mousedown 1 sleep 0.2 mousemove " + std::to_string(from.screenX + 20) + " " +
                           std::to_string(from.screenY + 5) + " sleep 0.2 mousemove " + std::to_string(to.screenX) +
                           " " + std::to_string(to.screenY + 20) + " sleep 0.3 mouseup 1 &";
        ASSERT_EQ(std::system(drag.c_str()), 0);
        later(2000, [dialog, page, window = shown.window] {
            saveScreenshot(window, "designer-en-dragged");
            EXPECT_EQ(SendDlgItemMessageW(page, ids::kDesignerList.chosen, LVM_GETITEMCOUNT, 0, 0), 2);
            clickControl(dialog, IDOK);
        });
    }});
    EXPECT_EQ(Tabra_SelFact_Edit(design, nullptr), 1);
    char16_t tables[200] = {};
    Tabra_SelFact_GetDescriptor(design, TABRA_SELFACT_TABLES, tables, 200);
    EXPECT_EQ(std::u16string(tables), u"Orders\to\t\tEQ\t\t\nCustomers\tc\t\tEQ\t\t");
    Tabra_SelFact_Destroy(design);
}

TABRA_INSTANTIATE_LANGUAGE_TEST(GtkRendererDesigner);

} // namespace
} // namespace tabra::test

#endif
