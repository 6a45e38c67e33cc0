// The view editor on every backend: views created, tested and dropped with the items
// the system table keeps for them, and scripted sessions of its dialog (a new view,
// renaming with and without a replace flag, refused names, a failing statement, the
// designer on a stored view and the statement files).
#include "ostrel_ui.h"
#include "query/designer/query_design.h"
#include "query/resource_ids.h"
#include "query/view_editor/view_editor.h"
#include "query/view_editor/statement_file.h"
#include "query/view_editor/view_operations.h"
#include "rowset/row_set_test_support.h"
#include "tabra_designer.h"

namespace tabra::test {
namespace {

using namespace tabra::query::view_editor;
namespace ids = tabra::query::ids;
using query::designer::kViewTestName;

const auto &kEditor = ids::kViewEditorDialog;
const std::u16string kBigOrders = u"SELECT o.id, o.total FROM orders AS o WHERE (o.total > 100)";
const std::u16string kBroken = u"SELECT id FROM orders WHERE"; // a syntax error on every backend

class ViewEditorTest : public ConnectedBackendTest {
protected:
    void prepare(const OdbcConnection &connection) override {
        executeAll(connection, {u"CREATE TABLE orders (id INTEGER, total INTEGER)",
                                u"INSERT INTO orders VALUES (1, 50)", u"INSERT INTO orders VALUES (2, 150)"});
    }
    ViewEditState state(std::u16string name = {}) const {
        ViewEditState s;
        s.connection = hdbc();
        s.name = std::move(name);
        s.statement = kBigOrders;
        s.tables = u"orders\to";
        s.columns = u"o.id\t\no.total\t";
        s.selection = u"o.total\tGT\t100\t4\n";
        return s;
    }
    bool viewExists(std::u16string_view name) const {
        return OdbcEh_DoesTableExist(0, hdbc(), TABRA_TABLE_TYPE_VIEW, nullptr, std::u16string(name).c_str(), 0) == 1;
    }
    // Whether the view's "Sql" item is stored (the other items go with it).
    bool itemsStored(std::u16string_view name) const {
        ViewEditState read = state();
        return loadViewItems(read, name);
    }
};

TEST_P(ViewEditorTest, CreatesAndDropsViewsWithTheirItems) {
    ViewEditState view = state(u"big_orders");
    ScriptedRun run;
    ASSERT_EQ(createView(view), 1);
    EXPECT_EQ(queryRows(*connection_, u"SELECT id FROM big_orders"), std::vector<Row>{{u"2"}});
    ViewEditState read = state();
    read.statement = read.tables = read.columns = read.selection = u"old";
    EXPECT_TRUE(loadViewItems(read, u"big_orders"));
    EXPECT_EQ(std::tie(read.name, read.statement, read.tables, read.columns, read.selection),
              std::tie(view.name, view.statement, view.tables, view.columns, view.selection));

    // Dropping by mode; the last drop finds no view and shows it.
    const struct {
        int32_t mode, result;
        size_t errorsShown;
    } drops[] = {{0, 1, 0}, {kDropIgnoringMissing, 1, 0}, {kDropIgnoringErrors, 1, 0}, {0, 2, 1}};
    for (const auto &drop : drops) {
        const size_t before = errorDialogsShown(run);
        if (drop.errorsShown != 0) run.queue(click(core::ids::kErrorDialog.id, IDOK));
        EXPECT_EQ(dropView(view, u"big_orders", drop.mode), drop.result) << drop.mode;
        EXPECT_EQ(errorDialogsShown(run) - before, drop.errorsShown) << drop.mode;
        EXPECT_FALSE(viewExists(u"big_orders"));
    }
    EXPECT_FALSE(loadViewItems(read, u"big_orders"));
    EXPECT_EQ(read.columns, u"*");
    EXPECT_FALSE(run.failed()) << run.report();
}

TEST_P(ViewEditorTest, TheTestLeavesNoTestViewAndNoItems) {
    const struct {
        std::u16string statement;
        int32_t result;
    } cases[] = {{kBigOrders, 1}, {kBroken, 2}};
    for (const auto &c : cases) {
        ViewEditState view = state(u"anything");
        view.statement = c.statement;
        ScriptedRun run;
        if (c.result == 2) run.queue(click(core::ids::kErrorDialog.id, IDOK));
        RecordingHook hook;
        EXPECT_EQ(testView(view), c.result);
        EXPECT_FALSE(run.failed()) << run.report();
        EXPECT_TRUE(contains(hook.statements, u"CREATE VIEW " + quoted(backend(), kViewTestName) + u" AS " + c.statement));
        EXPECT_FALSE(viewExists(kViewTestName));
        EXPECT_FALSE(itemsStored(kViewTestName));
    }
}

TEST_P(ViewEditorTest, ScriptedSessions) {
    const std::string okay = click(kEditor.id, IDOK), cancel = click(kEditor.id, IDCANCEL);
    const std::string errorShown = click(core::ids::kErrorDialog.id, IDOK);
    const std::string rename = onDialog(kEditor.id, "set", kEditor.name, "\"newview\"");
    struct Session {
        const char *what;
        std::u16string opening; // the view the editor opens on ("" a new one; made first when it is "oldview")
        int32_t flags;
        std::vector<std::string> script;
        int32_t result;
        std::vector<std::pair<std::u16string, bool>> views; // exists afterwards, with its items
    } sessions[] = {
        {"a new view, typed and tested",
         u"",
         0,
         {onDialog(kEditor.id, "type", kEditor.name, "\"big-orders\""),
          onDialog(kEditor.id, "set", kEditor.statement, quoted(std::u16string_view(kBigOrders))),
          click(kEditor.id, kEditor.test), answer(ids::kViewEditorMessage.testPassed, "ok"), okay},
         1,
         {{u"bigorders", true}}},
        {"renamed with flag 0x2", u"oldview", 0x2, {rename, okay}, 1, {{u"oldview", false}, {u"newview", true}}},
        {"renamed with flag 0x1000000", u"oldview", 0x1000000, {rename, okay}, 1, {{u"oldview", false}, {u"newview", true}}},
        {"renamed without a replace flag", u"oldview", 0, {rename, okay}, 1, {{u"oldview", true}, {u"newview", true}}},
        {"a name with a 0", u"view0", 0, {okay, answer(ids::kViewEditorMessage.badName, "ok"), cancel}, 2, {{u"view0", false}}},
        {"no name",
         u"",
         0,
         {okay, answer(ids::kViewEditorMessage.noName, "ok"), cancel},
         2,
         {{kViewTestName, false}}},
        {"a failing statement",
         u"",
         0,
         {onDialog(kEditor.id, "set", kEditor.name, "\"broken\""),
          onDialog(kEditor.id, "set", kEditor.statement, quoted(std::u16string_view(kBroken))), okay, errorShown, cancel},
         2,
         {{u"broken", false}, {kViewTestName, false}}},
    };
    for (const Session &session : sessions) {
        SCOPED_TRACE(session.what);
        ViewEditState view = state(session.opening);
        if (session.opening == u"oldview") {
            ASSERT_EQ(createView(view), 1);
        }
        ScriptedRun run;
        for (const std::string &line : session.script) run.queue(line);
        EXPECT_EQ(runViewEditor(view, session.flags, nullptr), session.result);
        expectPlayed(run);
        EXPECT_EQ(run.records(TABRA_RECORD_BEEP).size(), session.opening.empty() && session.result == 1 ? 1u : 0u);
        for (const auto &[name, exists] : session.views) {
            EXPECT_EQ(viewExists(name), exists) << toUtf8(name);
            EXPECT_EQ(itemsStored(name), exists) << toUtf8(name);
            dropView(view, name, kDropIgnoringErrors);
        }
        if (session.result == 1) {
            EXPECT_EQ(view.name, session.views.back().first);
        }
    }
}

// A view designed in the designer and created; reopened from its stored items, the
// designer shows the same statement; the statement goes to a file as UTF-8 and comes
// back from a UTF-16 file.
TEST_P(ViewEditorTest, DesignerAndStatementFiles) {
    const std::u16string designed = u"SELECT o.total FROM orders AS o";
    const std::string showsDesigned = onDialog(kEditor.id, "expect", kEditor.statement, quoted(std::u16string_view(designed)));
    const auto &list = ids::kDesignerList;
    ViewEditState view = state();
    view.statement = view.tables = view.columns = view.selection = u"";
    {
        ScriptedRun run;
        for (const std::string &line :
             {onDialog(kEditor.id, "set", kEditor.name, "\"designed\""), click(kEditor.id, kEditor.design),
              onDialog(ids::kDesignerTablesPage.id, "doubleclick", list.available, "\"orders\""),
              onDialog(ids::kDesignerDialog.id, "select", ids::kDesignerDialog.pages, "\"Columns\""),
              onDialog(ids::kDesignerColumnsPage.id, "doubleclick", list.available, "\"o.total\""),
              click(ids::kDesignerDialog.id, IDOK), showsDesigned, click(kEditor.id, IDOK)})
            run.queue(line);
        EXPECT_EQ(runViewEditor(view, 0, nullptr), 1);
        expectPlayed(run);
    }
    EXPECT_EQ(queryRows(*connection_, u"SELECT total FROM designed ORDER BY total"),
              (std::vector<Row>{{u"50"}, {u"150"}}));

    ViewEditState reopened = state();
    ASSERT_TRUE(loadViewItems(reopened, u"designed"));
    ScratchFolder folder;
    const std::string saved = toUtf8(folder.file("saved.sql")), wide = toUtf8(folder.file("wide.sql"));
    const std::u16string loaded = u"SELECT total FROM orders -- Größe \U0001F600";
    std::ofstream(wide, std::ios::binary) << std::string("\xFF\xFE", 2) + utf16le(loaded);
    ScriptedRun run;
    for (const std::string &line :
         {click(kEditor.id, kEditor.design),
          onDialog(ids::kDesignerDialog.id, "expect", ids::kDesignerDialog.statement, quoted(std::u16string_view(designed))),
          click(ids::kDesignerDialog.id, IDOK), showsDesigned, click(kEditor.id, kEditor.save),
          "file: choose " + quoted(std::u16string_view(toUtf16(saved))), click(kEditor.id, kEditor.load),
          "file: choose " + quoted(std::u16string_view(toUtf16(wide))),
          onDialog(kEditor.id, "expect", kEditor.statement, quoted(std::u16string_view(loaded))),
          click(kEditor.id, IDCANCEL)})
        run.queue(line);
    EXPECT_EQ(runViewEditor(reopened, 0, nullptr), 2);
    expectPlayed(run);
    EXPECT_EQ(reopened.statement, designed); // Cancel keeps the caller's state
    EXPECT_EQ(fileBytes(toUtf16(saved)), toUtf8(designed));
    EXPECT_EQ(registryText(HKEY_CURRENT_USER, module::kRegistryRoot, u"LastUsed", u"SqlStatementFile"), toUtf16(wide));
}

TABRA_INSTANTIATE_BACKEND_TEST(ViewEditorTest);

TEST(StatementFile, ReadsUtf8AndUtf16WithAByteOrderMark) {
    const std::u16string text = u"SELECT \"Größe\" -- \U0001F600";
    const std::string utf8 = toUtf8(text);
    std::string little = "\xFF\xFE", big = "\xFE\xFF";
    for (char16_t c : text) {
        little += {static_cast<char>(c & 0xFF), static_cast<char>(c >> 8)};
        big += {static_cast<char>(c >> 8), static_cast<char>(c & 0xFF)};
    }
    for (const std::string &bytes : {utf8, "\xEF\xBB\xBF" + utf8, little, big})
        EXPECT_EQ(decodeStatementBytes(bytes), text) << bytes.size();
}

} // namespace
} // namespace tabra::test
