// The select statement wizard as a user sees it, in English and German: a statement
// read back into the dialog, with a chosen column selected.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "query/select_wizard/resource_ids.h"
#include "support/odbc_handles.h"
#include "support/private_data_sources.h"
#include "tabra_query.h"

namespace tabra::test {
namespace {

using query::select_wizard::ids::kSelectWizardDialog;

class GtkRendererSelectWizard : public GtkRendererLanguageTest {};

TEST_P(GtkRendererSelectWizard, ShowsAStatementReadBack) {
    ScopedLanguage language(GetParam());
    PrivateDataSources::instance().freshSqliteDatabase();
    OdbcConnection connection(dsn::SQLite);
    executeAll(connection,
               {u"CREATE TABLE Customers (CustomerID INTEGER, CompanyName VARCHAR(60), City VARCHAR(30))",
                u"CREATE TABLE Orders (OrderID INTEGER, CustomerID INTEGER, OrderDate DATE, Freight DECIMAL(10,2))",
                u"CREATE TABLE \"Order Details\" (OrderID INTEGER, ProductID INTEGER, Quantity INTEGER)",
                u"CREATE TABLE Products (ProductID INTEGER, ProductName VARCHAR(50))"});
    char16_t statement[300] = u"SELECT OrderID, OrderDate, Freight FROM Orders ORDER BY OrderDate";
    onShown({[&](const gtk::automation::Shown &shown) {
        ASSERT_EQ(shown.id, kSelectWizardDialog.id);
        clickRow(widgetOf(shown.handle, kSelectWizardDialog.chosenColumns), 1, 1);
        saveScreenshot(shown.window, "select-wizard-" + GetParam());
        EXPECT_TRUE(IsWindowEnabled(GetDlgItem(shown.handle, kSelectWizardDialog.up)));
        clickControl(shown.handle, IDOK);
    }});
    EXPECT_EQ(Tabra_SelectStatementWizzard(connection.handle(), statement, 300, nullptr, 0, 0), 1);
    EXPECT_EQ(shownCount(), 1u);
    EXPECT_EQ(std::u16string(statement), u"SELECT OrderID,OrderDate,Freight FROM Orders ORDER BY OrderDate");
}

TABRA_INSTANTIATE_LANGUAGE_TEST(GtkRendererSelectWizard);

} // namespace
} // namespace tabra::test

#endif
