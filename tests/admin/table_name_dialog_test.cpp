// The table name dialog through the scripted driver: names it refuses (empty, taken in
// another letter case), the copy bounded by the caller's capacity, a record it cannot
// use, and the option pointer of a template with the pair of radio buttons.
#include "admin/table_name/resource_ids.h"
#include "admin/table_name/table_name_dialog.h"
#include "catalog/catalog_test_support.h"
#include "platform/resources/resource_module.h"
#include "platform/resources/resource_script_file.h"
#include "tabra.h"

namespace tabra::test {
namespace {

namespace ids = admin::table_name::ids;
const int32_t kDialog = ids::kTableNameDialog.id, kName = ids::kTableNameDialog.name;
const int32_t kEmpty = ids::kMessage.emptyName, kTaken = core::ids::kMessage.tableNameTaken;

class TableNameDialogTest : public TestDriverTest {
protected:
    void SetUp() override {
        TestDriverTest::SetUp();
        connection_.emplace(connect(dsn::SQLite));
        executeAll(*connection_, {u"CREATE TABLE Orders (id INTEGER)", u"CREATE VIEW Recent AS SELECT id FROM Orders"});
    }
    std::optional<OdbcConnection> connection_;
};

TEST_F(TableNameDialogTest, RefusesEmptyAndTakenNamesAndBoundsTheCopy) {
    const struct {
        const char *what;
        std::u16string proposed;
        int32_t capacity;
        std::vector<std::string> script;
        int32_t result;
        std::vector<int32_t> messages;
        std::u16string buffer; // the caller's buffer afterwards, up to the sentinel
    } cases[] = {
        {"taken proposal, then a free name", u"orders", 20,
         {click(kDialog, IDOK), answer(kTaken, "ok"), onDialog(kDialog, "set", kName, "\"Fresh\""), click(kDialog, IDOK)},
         1, {kTaken}, std::u16string(u"Fresh\0", 6)},
        {"a view's name in capitals, blanks, then cancel", u"x", 20,
         {onDialog(kDialog, "set", kName, "\"RECENT\""), click(kDialog, IDOK), answer(kTaken, "ok"),
          onDialog(kDialog, "set", kName, "\"  \""), click(kDialog, IDOK), answer(kEmpty, "ok"),
          click(kDialog, IDCANCEL)},
         2, {kTaken, kEmpty}, u"x"},
        // A name as long as the buffer fills it without a terminator.
        {"exactly the capacity", u"abc", 5, {onDialog(kDialog, "set", kName, "\"Sales\""), click(kDialog, IDOK)},
         1, {}, u"Sales#"},
        {"longer than the capacity", u"abc", 5, {onDialog(kDialog, "set", kName, "\"Salesmen\""), click(kDialog, IDOK)},
         1, {}, u"Sales#"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<char16_t> buffer(static_cast<size_t>(c.capacity) + 1, u'#');
        std::copy(c.proposed.begin(), c.proposed.end(), buffer.begin());
        buffer[c.proposed.size()] = u'\0';
        ScriptedRun script;
        for (const auto &line : c.script) script.queue(line);
        EXPECT_EQ(admin::runTableNameDialog(kDialog, connection_->handle(), buffer.data(), c.capacity, nullptr),
                  c.result);
        EXPECT_FALSE(script.failed()) << script.report();
        EXPECT_EQ(script.pending(), 0);
        std::vector<int32_t> messages;
        for (const auto &m : script.records(TABRA_RECORD_MESSAGE)) messages.push_back(m.id);
        EXPECT_EQ(messages, c.messages);
        EXPECT_EQ(std::u16string(buffer.data(), std::min(buffer.size(), c.buffer.size())), c.buffer);
    }
    // A record without a buffer, or without room, closes the dialog at once: it never
    // waits for the user.
    char16_t name[4] = u"abc";
    for (auto [buffer, capacity] : {std::pair<char16_t *, int32_t>{nullptr, 20}, {name, 0}}) {
        ScriptedRun script;
        EXPECT_EQ(admin::runTableNameDialog(kDialog, connection_->handle(), buffer, capacity, nullptr), 2);
        EXPECT_FALSE(script.failed()) << script.report();
    }
}

// The radio button the option names is checked on opening; OK hands back the one the
// user checked.
TEST_F(TableNameDialogTest, OptionPointerChoosesAndReceivesTheRadioButton) {
    std::string error;
    auto loaded = platform::readResourceScriptFile(TABRA_TEST_SOURCE_DIR "/admin/table_name_options.rc", error);
    ASSERT_TRUE(loaded) << error;
    HMODULE module = platform::adoptResourceModule(std::move(loaded));
    constexpr int32_t kTemplate = 10903;
    const struct {
        int32_t preset;
        const char *action;
        int32_t control;
        int32_t checkedOnOpening, result;
    } cases[] = {{ids::kOption.second, "check", ids::kOption.first, ids::kOption.second, ids::kOption.first},
                 {ids::kOption.first, "check", ids::kOption.second, ids::kOption.first, ids::kOption.second},
                 {ids::kOption.second, "expect", kName, ids::kOption.second, ids::kOption.second}};
    for (const auto &c : cases) {
        char16_t name[20] = u"Copy";
        int32_t option = c.preset;
        TableNameCtx record{connection_->handle(), name, 20, &option};
        int32_t checked = 0;
        ScriptedRun script;
        script.queueCallback(
            kTemplate,
            [](HWND dialog, void *context) {
                for (int32_t button : {ids::kOption.first, ids::kOption.second})
                    if (IsDlgButtonChecked(dialog, button) == BST_CHECKED) *static_cast<int32_t *>(context) = button;
            },
            &checked);
        script.queue(onDialog(kTemplate, c.action, c.control, c.control == kName ? "\"Copy\"" : ""));
        script.queue(click(kTemplate, IDOK));
        EXPECT_EQ(DialogBoxParamW(module, kTemplate, nullptr, TableNameDialog_Callback, reinterpret_cast<LPARAM>(&record)),
                  IDOK);
        EXPECT_FALSE(script.failed()) << script.report();
        EXPECT_EQ(checked, c.checkedOnOpening);
        EXPECT_EQ(option, c.result);
    }
    platform::releaseResourceModule(module);
}

} // namespace
} // namespace tabra::test
