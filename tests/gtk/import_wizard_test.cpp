// The import wizard on the GTK renderer, in English and German: every page in the
// frame and the field dialog, filled from a text file, an SDI file, a selection file
// and a table of a data source. A screenshot of each is saved for a person to look at.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "core/module/module_state.h"
#include "ostrel_registry.h"
#include "support/odbc_handles.h"
#include "support/private_data_sources.h"
#include "support/scoped_environment.h"
#include "support/test_configuration.h"
#include "support/test_text.h"
#include "tabra_wizards.h"
#include "wizards/import/import_state.h"
#include "platform/text/bounded_text.h"

#include <algorithm>
#include <memory>

using namespace tabra::test;
namespace importing = tabra::wizards::importing;
namespace ids = importing::ids;

namespace {

// A visible control of the frame's current page (or of the frame) by its id.
HWND visibleControl(HWND parent, int32_t id) {
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (!IsWindowVisible(child)) continue;
        if (GetDlgCtrlID(child) == id) return child;
        if (HWND found = visibleControl(child, id)) return found;
    }
    return nullptr;
}

class GtkRendererImportWizard : public GtkRendererLanguageTest {
protected:
    void SetUp() override {
        GtkRendererTest::SetUp();
        if (IsSkipped()) return;
        language_.emplace(GetParam());
    }
    static void remember(const char16_t *value, const std::u16string &text) {
        Ostrel_WriteStringToRegistry(HKEY_CURRENT_USER, tabra::module::kRegistryRoot, 0, importing::kRegistryKey,
                                     value, text.c_str());
    }
    std::string shot(int32_t page) const { return "import-" + GetParam() + "-" + std::to_string(page); }

    // Runs the wizard of a source kind: its pages one after the other with Next, a
    // screenshot of each, the field dialog on the mapping page; Cancel on the last.
    void walk(int32_t kind, std::vector<int32_t> pages) {
        Ostrel_WriteLongToRegistry(HKEY_CURRENT_USER, tabra::module::kRegistryRoot, 0, importing::kRegistryKey,
                                   importing::kTypeValue, kind);
        std::vector<std::function<void(const tabra::gtk::automation::Shown &)>> acts;
        acts.push_back([this, pages](const tabra::gtk::automation::Shown &shown) {
            auto step = std::make_shared<std::function<void(std::size_t)>>();
            // The step holds itself only through the pending timer, so it is freed after the last page.
            *step = [this, pages, shown, weak = std::weak_ptr(step)](std::size_t at) {
                later(300, [this, pages, shown, step = weak.lock(), at] {
                    saveScreenshot(shown.window, shot(pages[at]));
                    if (pages[at] == ids::kMappingPage.id) {
                        HWND edit = visibleControl(shown.handle, ids::kMappingPage.edit);
                        ASSERT_NE(edit, nullptr);
                        gtk_button_clicked(GTK_BUTTON(tabra::gtk::automation::widgetOf(edit)));
                    }
                    HWND button = visibleControl(shown.handle, at + 1 < pages.size() ? WIZZARD_ID_NEXT : IDCANCEL);
                    ASSERT_NE(button, nullptr);
                    gtk_button_clicked(GTK_BUTTON(tabra::gtk::automation::widgetOf(button)));
                    if (at + 1 < pages.size()) (*step)(at + 1);
                });
            };
            (*step)(0);
        });
        if (std::find(pages.begin(), pages.end(), ids::kMappingPage.id) != pages.end())
            acts.push_back([this](const tabra::gtk::automation::Shown &shown) {
                EXPECT_EQ(shown.id, ids::kFieldDialog.id);
                later(300, [this, shown] {
                    saveScreenshot(shown.window, "import-" + GetParam() + "-field-dialog");
                    gtk_button_clicked(GTK_BUTTON(widgetOf(shown.handle, IDCANCEL)));
                });
            });
        onShown(std::move(acts));
        EXPECT_EQ(Tabra_ImportTableWizzard(connection_->handle(), nullptr, 0), 2);
    }

    ScopedRegistryRoot registry_;
    TemporaryDirectory folder_;
    std::optional<ScopedLanguage> language_;
    std::unique_ptr<OdbcConnection> connection_;
};

TEST_P(GtkRendererImportWizard, EveryPageAndTheFieldDialog) {
    std::optional<DataSource> sqlite = configuredDataSource(Backend::SQLite);
    if (!sqlite) GTEST_SKIP() << "no SQLite data source";
    PrivateDataSources::instance().freshSqliteDatabase();
    connection_ = std::make_unique<OdbcConnection>(*sqlite);
    executeSql(*connection_, u"CREATE TABLE Orders (id INTEGER, customer VARCHAR(40))");
    executeSql(*connection_, u"CREATE TABLE Customers (id INTEGER, name VARCHAR(40))");
    auto file = [this](const std::string &name, const std::string &bytes) {
        writeWholeFile(folder_.path() / name, bytes);
        return toUtf16((folder_.path() / name).string());
    };
    remember(importing::kTextFileValue, file("Kunden.txt", "Nr\tName\tOrt\tUmsatz\n1\tM\xC3\xBCller\tK\xC3\xB6ln\t12,5\n"));
    remember(importing::kSdiFileValue, file("a.sdi", "SDI\n\n\n\n1\nname\n\nx\n"));
    remember(importing::kSelectionFileValue, file("a.sel", "t\n1,1\nname\nx\n"));
    walk(ids::kSourceKindPage.textFile, {ids::kSourceKindPage.id, ids::kTextFilePage.id, ids::kMappingPage.id,
                                         ids::kDestinationPage.id, ids::kClosingPage.id});
    walk(ids::kSourceKindPage.sdiFile, {ids::kSourceKindPage.id, ids::kSdiFilePage.id});
    walk(ids::kSourceKindPage.selectionFile, {ids::kSourceKindPage.id, ids::kSelectionFilePage.id});

    DataSourceInfo record{};
    tabra::platform::writeBounded(record.DataSourceName, static_cast<int32_t>(std::size(record.DataSourceName)),
                                  sqlite->name);
    Tabra_WriteDataSourceToRegistry(HKEY_CURRENT_USER, tabra::module::kRegistryRoot, 0, importing::kRegistryKey,
                                    &record);
    walk(ids::kSourceKindPage.table, {ids::kSourceKindPage.id, ids::kDataSourcePage.id, ids::kSourceTablePage.id,
                                      ids::kMappingPage.id});
}

TABRA_INSTANTIATE_LANGUAGE_TEST(GtkRendererImportWizard);

} // namespace

#endif
