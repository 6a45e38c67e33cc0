// The SQL performer on a data source record and its SQL help as a user sees them, in
// English and German: the shipped templates with the library's own dialog procedures,
// a history loaded from the registry, and an example taken from the help into the
// statement field.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "admin/sql_performer/resource_ids.h"
#include "core/module/module_state.h"
#include "ostrel.h"
#include "support/data_source_record.h"
#include "support/private_data_sources.h"
#include "support/scoped_environment.h"
#include "tabra_admin.h"

namespace tabra::test {
namespace {

using admin::sql_performer::ids::kRecordPerformerDialog;
using admin::sql_performer::ids::kSqlHelpDialog;
namespace automation = gtk::automation;

int rowCount(GtkWidget *list) { return gtk_tree_model_iter_n_children(gtk_tree_view_get_model(GTK_TREE_VIEW(list)), nullptr); }

class GtkRendererSqlPerformer : public GtkRendererLanguageTest {};

TEST_P(GtkRendererSqlPerformer, ShowsTheHistoryAndTakesAnExampleFromTheHelp) {
    ScopedRegistryRoot registry;
    ScopedLanguage language(GetParam());
    const char16_t key[] = u"Software\\Ostrel Software\\Tabra\\SqlPerformer\\Recent";
    const char16_t *entries[] = {u"UPDATE Customers SET Country = 'Deutschland'\\nWHERE Country = 'Germany'",
                                 u"CREATE INDEX CustomersByCity ON Customers (City)",
                                 u"DELETE FROM Orders WHERE Freight < 1"};
    Ostrel_WriteLongToRegistry(HKEY_CURRENT_USER, key, 0, nullptr, u"Total", 3);
    for (int i = 0; i < 3; ++i)
        Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, key, 0, nullptr, (u"E00" + std::u16string(1, u'1' + i)).c_str(),
                                     entries[i]);
    PrivateDataSources::instance();
    DataSourceInfo record = dataSourceRecord(dsn::TestDriver);
    HWND performer = nullptr;
    std::u16string taken;
    onShown({[&](const automation::Shown &shown) {
                 ASSERT_EQ(shown.id, kRecordPerformerDialog.id);
                 performer = shown.handle;
                 EXPECT_EQ(rowCount(widgetOf(performer, kRecordPerformerDialog.history)), 3);
                 EXPECT_STREQ(gtk_entry_get_text(GTK_ENTRY(widgetOf(performer, kRecordPerformerDialog.dataSource))),
                              "TabraTestDriver");
                 SetDlgItemTextW(performer, kRecordPerformerDialog.statement,
                                 u"INSERT INTO Customers (CustomerID, CompanyName, City)\n"
                                 u"VALUES ('ALFKI', 'Alfreds Futterkiste', 'Berlin')");
                 saveScreenshot(shown.window, "sql-performer-" + GetParam());
                 clickControl(performer, kRecordPerformerDialog.help);
             },
             [&](const automation::Shown &shown) {
                 ASSERT_EQ(shown.id, kSqlHelpDialog.id);
                 GtkWidget *examples = widgetOf(shown.handle, kSqlHelpDialog.examples);
                 EXPECT_EQ(rowCount(examples), 18);
                 clickRow(examples, 2, 1);
                 saveScreenshot(shown.window, "sql-help-" + GetParam());
                 clickControl(shown.handle, IDOK);
                 later(300, [&] {
                     char16_t text[400] = {};
                     GetDlgItemTextW(performer, kRecordPerformerDialog.statement, text, 400);
                     taken = text;
                     clickControl(performer, IDCANCEL);
                 });
             }});
    EXPECT_EQ(Tabra_DialogSqlPerformer(&record), IDCANCEL);
    EXPECT_EQ(shownCount(), 2u);
    EXPECT_EQ(taken, u"CREATE VIEW viewname AS SELECT * FROM Table WHERE Name='Schmidt' ORDER BY Name");
}

TABRA_INSTANTIATE_LANGUAGE_TEST(GtkRendererSqlPerformer);

} // namespace
} // namespace tabra::test

#endif
