// The add records wizard on the GTK renderer, in English and German: every page in the
// frame and the field dialog, copying between two tables of an SQLite data source. A
// screenshot of each is saved for a person to look at.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "core/module/module_state.h"
#include "platform/text/bounded_text.h"
#include "support/odbc_handles.h"
#include "support/private_data_sources.h"
#include "support/scoped_environment.h"
#include "tabra.h"
#include "wizards/add_records/add_records_state.h"

#include <optional>

namespace tabra::test {
namespace {

namespace addRecords = wizards::add_records;
namespace ids = addRecords::ids;
namespace automation = gtk::automation;

class GtkRendererAddRecords : public GtkRendererSqliteTest {
protected:
    void SetUp() override {
        setUpDatabase({u"CREATE TABLE Orders (id INTEGER, customer VARCHAR(40), note VARCHAR(20))",
                       u"CREATE TABLE Customers (id INTEGER, customer VARCHAR(40), city VARCHAR(30))",
                       u"INSERT INTO Customers VALUES (1, 'Müller', 'Köln'), (2, 'O''Neil', 'Cork')"});
    }
};

TEST_P(GtkRendererAddRecords, EveryPageAndTheFieldDialog) {
    ScopedRegistryRoot registry;
    ScopedLanguage language(GetParam());
    DataSourceInfo record{};
    platform::writeBounded(record.DataSourceName, static_cast<int32_t>(std::size(record.DataSourceName)), dsn::SQLite);
    Tabra_WriteDataSourceToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, addRecords::kRegistryKey, &record);
    Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, addRecords::kRegistryKey,
                                 addRecords::kTableValue, u"Customers");
    onShown({[&](const automation::Shown &shown) {
                 HWND frame = shown.handle;
                 const struct {
                     int32_t control;
                     const char *name;
                 } pages[] = {{ids::kDestinationTablePage.tables, "destination"},
                              {ids::kDataSourcePage.dataSources, "data-source"},
                              {ids::kSourceTablePage.showViews, "source-table"},
                              {ids::kMappingPage.fields, "mapping"},
                              {ids::kIdPage.sourceFields, "ids"},
                              {ids::kSummaryPage.records, "summary"}};
                 for (const auto &page : pages) {
                     if (page.control != pages[0].control) gtk_button_clicked(GTK_BUTTON(widgetOf(frame, WIZZARD_ID_NEXT)));
                     HWND shownPage = pageHolding(frame, page.control, true);
                     ASSERT_NE(shownPage, nullptr) << page.name;
                     saveScreenshot(shown.window, std::string("add-records-") + page.name + "-" + GetParam());
                     if (page.control == ids::kMappingPage.fields)
                         gtk_button_clicked(GTK_BUTTON(widgetOf(shownPage, ids::kMappingPage.edit)));
                     if (page.control == ids::kIdPage.sourceFields)
                         gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(widgetOf(shownPage, ids::kIdPage.matchIds)), TRUE);
                 }
                 EXPECT_TRUE(gtk_widget_is_visible(widgetOf(frame, WIZZARD_ID_FINISH)));
                 clickControl(frame, IDCANCEL);
             },
             [&](const automation::Shown &shown) {
                 EXPECT_EQ(shown.id, ids::kFieldDialog.id);
                 later(300, [this, shown] {
                     saveScreenshot(shown.window, "add-records-field-dialog-" + GetParam());
                     gtk_button_clicked(GTK_BUTTON(widgetOf(shown.handle, IDCANCEL)));
                 });
             },
             [&](const automation::Shown &shown) {
                 // Matching by ids without id fields warns, and the user goes on.
                 EXPECT_EQ(shown.id, ids::kMessage.emptyIdField);
                 later(300, [this, shown] {
                     saveScreenshot(shown.window, "add-records-id-warning-" + GetParam());
                     gtk_button_clicked(GTK_BUTTON(automation::messageBoxButton(shown.window, IDOK)));
                 });
             }});
    DbObjectInfo object{};
    platform::writeBounded(object.DbObjectName, static_cast<int32_t>(std::size(object.DbObjectName)), u"Orders");
    object.DbObjectType = TABRA_OBJECT_TABLE;
    EXPECT_EQ(Tabra_AddRecordsWizzard(connection_->handle(), &object), 2);
    EXPECT_EQ(shownCount(), 3u);
}

TABRA_INSTANTIATE_LANGUAGE_TEST(GtkRendererAddRecords);

} // namespace
} // namespace tabra::test

#endif
