// The table administration and its three sub-dialogs as a user sees them, in English
// and German: a table's columns with their types, null values and defaults, then the
// dialogs for a new column, a new auto-increment column and a new primary key.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "admin/table_admin/resource_ids.h"
#include "support/odbc_handles.h"
#include "support/private_data_sources.h"
#include "support/scoped_environment.h"
#include "tabra_admin.h"

namespace tabra::test {
namespace {

namespace ids = admin::table_admin::ids;
namespace automation = gtk::automation;

int rowCount(GtkWidget *list) { return gtk_tree_model_iter_n_children(gtk_tree_view_get_model(GTK_TREE_VIEW(list)), nullptr); }

class GtkRendererTableAdmin : public GtkRendererLanguageTest {};

TEST_P(GtkRendererTableAdmin, ShowsTheColumnsAndTheDialogsOfEachChange) {
    ScopedRegistryRoot registry;
    ScopedLanguage language(GetParam());
    PrivateDataSources::instance().freshSqliteDatabase();
    OdbcConnection connection(dsn::TestDriver);
    executeAll(connection, {u"CREATE TABLE Customers (CustomerID CHAR(5) NOT NULL, CompanyName VARCHAR(40) NOT NULL, "
                            u"City VARCHAR(15) DEFAULT 'Berlin', Founded DATETIME, Employees INTEGER DEFAULT 0)",
                            u"INSERT INTO Customers VALUES ('ALFKI', 'Alfreds Futterkiste', 'Berlin', NULL, 12)"});
    HWND main = nullptr;
    // Each sub-dialog is looked at and cancelled; then the main dialog opens the next.
    auto next = [&](HWND dialog, int32_t button) {
        clickControl(dialog, IDCANCEL);
        later(300, [&main, button] { clickControl(main, button); });
    };
    onShown({[&](const automation::Shown &shown) {
                 ASSERT_EQ(shown.id, ids::kTableAdminDialog.id);
                 main = shown.handle;
                 EXPECT_EQ(rowCount(widgetOf(main, ids::kTableAdminDialog.columns)), 5);
                 saveScreenshot(shown.window, "table-admin-" + GetParam());
                 expectTextsFit(main, "table administration");
                 clickControl(main, ids::kTableAdminDialog.addColumn);
             },
             [&](const automation::Shown &shown) {
                 ASSERT_EQ(shown.id, ids::kAddColumnDialog.id);
                 SetDlgItemTextW(shown.handle, ids::kAddColumnDialog.name, u"Notes");
                 saveScreenshot(shown.window, "table-admin-add-column-" + GetParam());
                 expectTextsFit(shown.handle, "add column");
                 next(shown.handle, ids::kTableAdminDialog.addAutoIncrement);
             },
             [&](const automation::Shown &shown) {
                 ASSERT_EQ(shown.id, ids::kAddAutoIncrementDialog.id);
                 SetDlgItemTextW(shown.handle, ids::kAddAutoIncrementDialog.name, u"Nr");
                 saveScreenshot(shown.window, "table-admin-add-auto-increment-" + GetParam());
                 expectTextsFit(shown.handle, "add auto-increment column");
                 next(shown.handle, ids::kTableAdminDialog.addPrimaryKey);
             },
             [&](const automation::Shown &shown) {
                 ASSERT_EQ(shown.id, ids::kAddPrimaryKeyDialog.id);
                 GtkWidget *available = widgetOf(shown.handle, ids::kAddPrimaryKeyDialog.available);
                 EXPECT_EQ(rowCount(available), 2) << "the NOT NULL columns";
                 clickRow(available, 0, 1);
                 later(300, [&, dialog = shown.handle, window = shown.window] {
                     clickControl(dialog, ids::kAddPrimaryKeyDialog.add);
                     later(300, [&, dialog, window] {
                         EXPECT_EQ(rowCount(widgetOf(dialog, ids::kAddPrimaryKeyDialog.chosen)), 1);
                         saveScreenshot(window, "table-admin-add-primary-key-" + GetParam());
                         expectTextsFit(dialog, "add primary key");
                         next(dialog, IDOK);
                     });
                 });
             }});
    EXPECT_EQ(Tabra_TableAdmin(connection.handle(), u"Customers", 0), 0);
    EXPECT_EQ(shownCount(), 4u);
}

TABRA_INSTANTIATE_LANGUAGE_TEST(GtkRendererTableAdmin);

} // namespace
} // namespace tabra::test

#endif
