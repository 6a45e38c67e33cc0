// The create table wizard, the driver information dialog and the table name dialog as
// a user sees them, in English and German: the shipped templates with the library's
// own procedures on an SQLite connection. Every page and dialog is saved as a
// screenshot for a person to look at.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "admin/driver_info/resource_ids.h"
#include "admin/table_name/resource_ids.h"
#include "admin/table_name/table_name_dialog.h"
#include "core/module/module_state.h"
#include "support/odbc_handles.h"
#include "support/private_data_sources.h"
#include "support/scoped_environment.h"
#include "tabra.h"
#include "wizards/create_table/resource_ids.h"

#include <optional>

namespace tabra::test {
namespace {

namespace ids = wizards::create_table::ids;
namespace automation = gtk::automation;

class GtkRendererCreateTable : public GtkRendererSqliteTest {
protected:
    void SetUp() override {
        setUpDatabase({u"CREATE TABLE Orders (id INTEGER)", u"CREATE TABLE Customers (id INTEGER)"});
    }
};

// Through every page to the closing one (a copy of Orders), then Cancel.
TEST_P(GtkRendererCreateTable, WizardPages) {
    ScopedRegistryRoot registry;
    ScopedLanguage language(GetParam());
    onShown({[&](const automation::Shown &shown) {
        HWND frame = shown.handle;
        HWND modes = pageHolding(frame, ids::kModePage.copyStructure);
        ASSERT_NE(modes, nullptr);
        for (int32_t mode : {ids::kModePage.keyColumnOnly, ids::kModePage.copyStructure, ids::kModePage.defaultDefinition})
            EXPECT_TRUE(gtk_widget_get_sensitive(widgetOf(modes, mode))) << "SQLite makes tables every way";
        gtk_toggle_button_set_active(GTK_TOGGLE_BUTTON(widgetOf(modes, ids::kModePage.copyStructure)), TRUE);
        saveScreenshot(shown.window, "create-table-mode-" + GetParam());
        const struct {
            int32_t control;
            const char *name;
        } next[] = {{ids::kSourcePage.tables, "source"}, {ids::kNamePage.name, "name"}, {0, "closing"}};
        for (const auto &page : next) {
            gtk_button_clicked(GTK_BUTTON(widgetOf(frame, WIZZARD_ID_NEXT)));
            if (page.control != 0) {
                HWND shownPage = pageHolding(frame, page.control);
                ASSERT_NE(shownPage, nullptr) << page.name;
                EXPECT_TRUE(gtk_widget_is_visible(widgetOf(shownPage, page.control))) << page.name;
            }
            saveScreenshot(shown.window, std::string("create-table-") + page.name + "-" + GetParam());
        }
        EXPECT_TRUE(gtk_widget_is_visible(widgetOf(frame, WIZZARD_ID_FINISH)));
        clickControl(frame, IDCANCEL);
    }});
    char16_t name[50] = {};
    EXPECT_EQ(Tabra_CreateTableWizzard(connection_->handle(), name, 50), 2);
    EXPECT_EQ(shownCount(), 1u);
}

TEST_P(GtkRendererCreateTable, DriverInformationAndTableNameDialogs) {
    ScopedLanguage language(GetParam());
    const auto &info = admin::driver_info::ids::kDriverInfoDialog;
    onShown({[&](const automation::Shown &shown) {
                 ASSERT_EQ(shown.id, info.id);
                 EXPECT_STREQ(gtk_entry_get_text(GTK_ENTRY(widgetOf(shown.handle, info.dbmsName))), "SQLite");
                 saveScreenshot(shown.window, "driver-info-" + GetParam());
                 clickControl(shown.handle, IDOK);
             },
             [&](const automation::Shown &shown) {
                 ASSERT_EQ(shown.id, admin::table_name::ids::kTableNameDialog.id);
                 saveScreenshot(shown.window, "table-name-" + GetParam());
                 clickControl(shown.handle, IDCANCEL);
             }});
    Tabra_DisplayDriverInformation(connection_->handle(), nullptr);
    char16_t name[256] = u"Orders Copy";
    EXPECT_EQ(admin::runTableNameDialog(admin::table_name::ids::kTableNameDialog.id, connection_->handle(), name, 256,
                                        nullptr),
              2);
    EXPECT_EQ(shownCount(), 2u);
}

TABRA_INSTANTIATE_LANGUAGE_TEST(GtkRendererCreateTable);

} // namespace
} // namespace tabra::test

#endif
