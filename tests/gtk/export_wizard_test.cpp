// The export wizard on the GTK renderer, in English and German: each page as the user
// sees it on a table of the SQLite data source, the field list's context menu at the
// pointer and the field dialog. A screenshot of each is saved for a person to look at.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "core/module/module_state.h"
#include "ostrel_registry.h"
#include "ostrel_ui.h"
#include "support/odbc_handles.h"
#include "support/private_data_sources.h"
#include "support/scoped_environment.h"
#include "tabra_catalog.h"
#include "tabra_wizards.h"
#include "wizards/export/resource_ids.h"

namespace tabra::test {
namespace {

namespace ids = wizards::exporting::ids;
namespace automation = gtk::automation;

class GtkRendererExportWizard : public GtkRendererSqliteTest {
protected:
    void SetUp() override {
        setUpDatabase({u"CREATE TABLE Orders (OrderID INTEGER PRIMARY KEY, CustomerID INTEGER, Freight DOUBLE)",
                       u"CREATE TABLE Customers (CustomerID INTEGER PRIMARY KEY, CompanyName VARCHAR(40), "
                       u"\"Contact Name\" VARCHAR(30), City VARCHAR(20), Country VARCHAR(20), CreditLimit DOUBLE, "
                       u"\"Customer.Since\" DATE)",
                       u"INSERT INTO Customers VALUES (1, 'Alfreds Futterkiste', 'Maria Anders', 'Berlin', 'Germany', "
                       u"5000.5, '2019-04-01')"});
        if (IsSkipped()) return;
        Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, module::kRegistryRoot, 0, u"Export", u"FileName",
                                     u"/home/maria/exports/orders.txt");
    }
    void shoot(GtkWidget *window, const std::string &what) {
        saveScreenshot(window, "export-wizard-" + GetParam() + "-" + what);
    }

    ScopedRegistryRoot registry_;
};

TEST_P(GtkRendererExportWizard, EveryPageTheContextMenuAndTheFieldDialog) {
    ScopedLanguage language(GetParam());
    HWND frame = nullptr;
    GtkWidget *frameWindow = nullptr;
    auto press = [&](int32_t button) { gtk_button_clicked(GTK_BUTTON(widgetOf(frame, button))); };
    onShown({[&](const automation::Shown &shown) {
                 frame = shown.handle;
                 frameWindow = shown.window;
                 EXPECT_EQ(shown.id, ids::kWizardPicture);
                 HWND tables = pageHolding(frame, ids::kTablePage.tables);
                 Ostrel_SetBoxIndex(GetDlgItem(tables, ids::kTablePage.tables),
                                    Ostrel_FindBoxEntry(GetDlgItem(tables, ids::kTablePage.tables), u"Customers", 0, 0));
                 shoot(shown.window, "1-table");
                 press(WIZZARD_ID_NEXT);
                 GtkWidget *list = widgetOf(pageHolding(frame, ids::kFieldsPage.fields), ids::kFieldsPage.fields);
                 ASSERT_NE(list, nullptr);
                 later(200, [&, list] {
                     shoot(frameWindow, "2-columns");
                     clickRow(list, 2, 3); // the context menu of "Contact Name"
                 });
             },
             [&](const automation::Shown &shown) {
                 EXPECT_EQ(shown.id, ids::kFieldMenu.id);
                 later(150, [&, menu = shown.window] {
                     shoot(frameWindow, "2-columns-menu"); // the menu lies over the page
                     automation::pressKey(menu, GDK_KEY_Escape);
                     later(150, [&] {
                         clickControl(pageHolding(frame, ids::kFieldsPage.edit), ids::kFieldsPage.edit);
                     });
                 });
             },
             [&](const automation::Shown &shown) {
                 EXPECT_EQ(shown.id, ids::kFieldDialog.id);
                 shoot(shown.window, "field-dialog");
                 automation::pressKey(shown.window, GDK_KEY_Escape);
                 later(200, [&] {
                     press(WIZZARD_ID_NEXT);
                     HWND conditions = pageHolding(frame, ids::kConditionPage.column1);
                     Ostrel_SetBoxIndex(GetDlgItem(conditions, ids::kConditionPage.column1),
                                        Ostrel_FindBoxEntry(GetDlgItem(conditions, ids::kConditionPage.column1),
                                                            u"Country", 0, 0));
                     Ostrel_SetBoxIndex(GetDlgItem(conditions, ids::kConditionPage.operator1), 0);
                     SetDlgItemTextW(conditions, ids::kConditionPage.value1, u"Germ");
                     shoot(frameWindow, "3-records");
                     press(WIZZARD_ID_NEXT);
                     shoot(frameWindow, "4-file");
                     press(WIZZARD_ID_NEXT);
                     shoot(frameWindow, "5-summary");
                     press(IDCANCEL);
                 });
             }});
    DbObjectInfo object{};
    object.DbObjectType = TABRA_OBJECT_TABLE | TABRA_OBJECT_VIEW;
    EXPECT_EQ(Tabra_ExportWizzard(connection_->handle(), &object, 0), 2);
    EXPECT_EQ(shownCount(), 3u);
}

TABRA_INSTANTIATE_LANGUAGE_TEST(GtkRendererExportWizard);

} // namespace
} // namespace tabra::test

#endif
