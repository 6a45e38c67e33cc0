// The update and delete records wizards on the GTK renderer, in English and German: a
// user fills each page through its widgets and goes on with Next until Finish; every
// page's texts fit and a screenshot of the frame with each page is saved for a person
// to look at.
#include "gtk_test_support.h"

#ifdef TABRA_WITH_GTK

#include "core/module/module_state.h"
#include "ostrel_wizard.h"
#include "platform/window/dialog_state.h"
#include "query/resource_ids.h"
#include "support/odbc_handles.h"
#include "support/private_data_sources.h"
#include "support/scoped_environment.h"
#include "tabra_catalog.h"
#include "tabra_wizards.h"
#include "wizards/records/resource_ids.h"

#include <optional>

namespace tabra::test {
namespace {

namespace ids = wizards::records::ids;
using query::ids::kOperatorLabel;

// What the user does on one page before he goes on.
struct Step {
    int32_t page;
    std::function<void(HWND page)> fill;
};

class GtkRendererRecordsWizards : public GtkRendererSqliteTest {
protected:
    void SetUp() override {
        setUpDatabase({u"CREATE TABLE rw_orders (id INTEGER, \"Ship City\" VARCHAR(30), note VARCHAR(40))",
                       u"INSERT INTO rw_orders VALUES (1, 'Berlin', NULL)",
                       u"INSERT INTO rw_orders VALUES (2, 'Bonn', NULL)",
                       u"INSERT INTO rw_orders VALUES (3, 'Berlin', NULL)",
                       u"CREATE TABLE rw_other (id INTEGER, label VARCHAR(20))"});
        if (IsSkipped()) return;
        language_.emplace(GetParam());
    }
    void TearDown() override {
        language_.reset();
        connection_.reset();
        GtkRendererTest::TearDown();
    }

    static std::u16string text(int32_t id) {
        char16_t buffer[200] = {};
        module::LoadTranslatedString(module::resourceLibrary(), id, buffer, 200);
        return buffer;
    }
    // Picks the entry of a combo box's list as a user would.
    static void choose(HWND page, int32_t id, const std::u16string &entry) {
        auto index = SendMessageW(GetDlgItem(page, id), CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                  reinterpret_cast<LPARAM>(entry.c_str()));
        ASSERT_GE(index, 0) << gtk::utf8(entry);
        gtk_combo_box_set_active(GTK_COMBO_BOX(widgetOf(page, id)), static_cast<gint>(index));
    }
    // A condition or assignment row: column, operator (by its label) and value.
    static void fillRow(HWND page, const ConditionRow &row, const char16_t *column, int32_t label, const char *value) {
        choose(page, row.column, column);
        choose(page, row.operation, text(label));
        gtk_entry_set_text(GTK_ENTRY(gtk_bin_get_child(GTK_BIN(widgetOf(page, row.value)))), value);
    }
    // The page the frame shows.
    static HWND shownPage(HWND frame) {
        for (HWND child = GetWindow(frame, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            auto window = window::findWindow(child);
            if (window && window->as<window::DialogState>() && IsWindowVisible(child)) return child;
        }
        return nullptr;
    }

    // Runs the wizard on rw_orders and plays the steps in its frame: each page filled,
    // checked and saved, then Next (Finish on the last); the wizard must report 1.
    void play(int32_t (*wizard)(SQLHDBC, DbObjectInfo *, int32_t), std::vector<Step> steps) {
        steps_ = std::move(steps);
        onShown({[this](const gtk::automation::Shown &shown) {
            const auto &steps = steps_;
            for (std::size_t i = 0; i < steps.size(); ++i) {
                HWND page = shownPage(shown.handle);
                ASSERT_NE(page, nullptr);
                ASSERT_EQ(window::findWindow(page)->as<window::DialogState>()->templateId, steps[i].page);
                std::string name = "records-" + GetParam() + "-" + std::to_string(steps[i].page);
                if (steps[i].fill) steps[i].fill(page);
                gtk::pumpEvents(); // laid out as shown: Finish has just come in Next's place
                expectTextsFit(page, name);
                expectTextsFit(shown.handle, name + " frame");
                saveScreenshot(shown.window, name);
                bool last = i + 1 == steps.size();
                GtkWidget *button = widgetOf(shown.handle, last ? WIZZARD_ID_FINISH : WIZZARD_ID_NEXT);
                if (last) {
                    EXPECT_TRUE(gtk_widget_has_default(button)) << "Finish is the default button on the last page";
                }
                gtk_button_clicked(GTK_BUTTON(button));
            }
        }});
        DbObjectInfo object{};
        std::u16string(u"rw_orders").copy(object.DbObjectName, 9);
        object.DbObjectType = TABRA_OBJECT_TABLE;
        EXPECT_EQ(wizard(connection_->handle(), &object, 0), 1);
        EXPECT_EQ(shownCount(), 1u);
    }

    std::vector<Step> steps_;
    std::optional<ScopedLanguage> language_;
};

TEST_P(GtkRendererRecordsWizards, DeletePagesOneByOne) {
    const auto &rows = ids::kConditionRows;
    play(Tabra_DeleteRecordsWizzard,
         {{ids::kDeleteTablePage.id, nullptr},
          {ids::kDeleteConditionPage.id,
           [&](HWND page) {
               fillRow(page, rows[0], u"Ship City", kOperatorLabel.equal, "Berlin");
               fillRow(page, rows[1], u"id", kOperatorLabel.greaterOrEqual, "2");
           }},
          {ids::kSummaryPage.id, nullptr}});
    EXPECT_EQ(queryValue(*connection_, u"SELECT Count(*) FROM rw_orders"), u"2");
}

TEST_P(GtkRendererRecordsWizards, UpdatePagesOneByOne) {
    play(Tabra_UpdateRecordsWizzard,
         {{ids::kUpdateTablePage.id, nullptr},
          {ids::kUpdateConditionPage.id,
           [](HWND page) { fillRow(page, ids::kConditionRows[0], u"Ship City", kOperatorLabel.equal, "Berlin"); }},
          {ids::kAssignmentPage.id,
           [](HWND page) { fillRow(page, ids::kAssignmentRows[0], u"note", kOperatorLabel.setValue, "checked"); }},
          {ids::kConfirmationPage.id, nullptr},
          {ids::kResultPage.id, [](HWND page) {
               EXPECT_FALSE(gtk_widget_get_sensitive(widgetOf(GetParent(page), WIZZARD_ID_BACK)))
                   << "the update has run: no way back to run it again";
           }}});
    EXPECT_EQ(queryValue(*connection_, u"SELECT Count(*) FROM rw_orders WHERE note = 'checked'"), u"2");
}

TABRA_INSTANTIATE_LANGUAGE_TEST(GtkRendererRecordsWizards);

} // namespace
} // namespace tabra::test

#endif
