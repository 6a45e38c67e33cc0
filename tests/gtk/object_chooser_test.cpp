// The database object chooser as a user sees it, in English and German: each of its
// four pages in turn (chosen as a user does, so the buttons follow the page), with the
// tables and views of a small database.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "admin/object_chooser/resource_ids.h"
#include "core/module/module_state.h"
#include "ostrel_registry.h"
#include "ostrel_ui.h"
#include "platform/window/user_input.h"
#include "support/data_source_record.h"
#include "support/odbc_handles.h"
#include "support/private_data_sources.h"
#include "support/scoped_environment.h"
#include "tabra_admin.h"

namespace tabra::test {
namespace {

namespace ids = admin::object_chooser::ids;

class GtkRendererObjectChooser : public GtkRendererLanguageTest {};

TEST_P(GtkRendererObjectChooser, ShowsEachPage) {
    ScopedRegistryRoot registry;
    ScopedLanguage language(GetParam());
    PrivateDataSources::instance().freshSqliteDatabase();
    executeAll(OdbcConnection(dsn::SQLite),
               {u"CREATE TABLE Customers (CustomerID INTEGER, CompanyName VARCHAR(40))",
                u"CREATE TABLE Orders (OrderID INTEGER, CustomerID INTEGER)", u"CREATE TABLE Products (ProductID INTEGER)",
                u"CREATE VIEW BigOrders AS SELECT * FROM Orders"});
    Ostrel_WriteLongToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, u"LastUsed", u"VrimViewsOnly", 0);
    const char *pageNames[] = {"tables", "views", "forms", "reports"};
    onShown({[&](const gtk::automation::Shown &shown) {
        ASSERT_EQ(shown.id, ids::kChooserDialog.id);
        HWND tab = GetDlgItem(shown.handle, ids::kChooserDialog.pages);
        for (int32_t page = 3; page >= 0; --page) {
            ASSERT_FALSE(window::input::selectEntries(tab, {page})); // as a click on the tab
            gtk::pumpUntil([] { return false; }, 100);
            saveScreenshot(shown.window, "object-chooser-" + GetParam() + "-" + pageNames[page]);
            expectTextsFit(Ostrel_GetTabControlPage(tab, page), std::string("chooser page ") + pageNames[page]);
        }
        expectTextsFit(shown.handle, "chooser");
        clickControl(shown.handle, IDCANCEL);
    }});
    DbObjectDialogRequest request{};
    request.DataSource = dataSourceRecord(dsn::SQLite);
    std::u16string_view(u"Orders").copy(request.DbObject.DbObjectName, 49);
    request.PageMask = TABRA_CHOOSER_PAGE_TABLES | TABRA_CHOOSER_PAGE_VIEWS | TABRA_CHOOSER_PAGE_FORMS |
                       TABRA_CHOOSER_PAGE_REPORTS;
    request.DialogOptions = TABRA_CHOOSER_OPTION_OK | TABRA_CHOOSER_OPTION_HELP | TABRA_CHOOSER_OPTION_DATA_SOURCE;
    request.TablesButtons = request.ViewsButtons = request.FormsButtons = request.ReportsButtons = -1;
    request.CaptionOptions = TABRA_CHOOSER_CAPTION_CANCEL;
    EXPECT_EQ(Tabra_DbObjectDialog(&request), 2);
    EXPECT_EQ(shownCount(), 1u);
}

TABRA_INSTANTIATE_LANGUAGE_TEST(GtkRendererObjectChooser);

} // namespace
} // namespace tabra::test

#endif
