// The table administration played by the scripted driver on SQLite, PostgreSQL and
// MariaDB: columns of every type added, an auto-increment column, columns deleted with
// No, Yes and Cancel, a primary key added and dropped. After each change the dialog
// shows what the catalog says, and the table's rows are those it had before.
#include "admin/resource_ids.h"
#include "admin/table_admin/resource_ids.h"
#include "admin_test_support.h"
#include "catalog/column_types.h"
#include "tabra.h"

namespace tabra::test {
namespace {

namespace ids = admin::table_admin::ids;
using ids::kAddAutoIncrementDialog;
using ids::kAddColumnDialog;
using ids::kAddPrimaryKeyDialog;
using ids::kTableAdminDialog;

class TableAdminTest : public ConnectedBackendTest {
protected:
    // Opens the dialog on the table with the queued script; the run must go as written.
    void administer(const char16_t *table) {
        EXPECT_EQ(Tabra_TableAdmin(hdbc(), table, 0), 0);
        expectPlayed(run_);
    }
    void look() { run_.queueCallback(kTableAdminDialog.id, lookAtTableAdmin, &seen_); }

    ScopedRegistryRoot registry_;
    ScriptedRun run_;
    std::vector<TableAdminView> seen_;
};

TEST_P(TableAdminTest, AddsAColumnOfEveryTypeAndAnAutoIncrementColumn) {
    executeAll(*connection_, {u"CREATE TABLE people (name VARCHAR(30) NOT NULL, born INTEGER)",
                              u"INSERT INTO people VALUES ('Ann', 1970)", u"INSERT INTO people VALUES ('Bob', NULL)",
                              u"INSERT INTO people VALUES ('Cyd', 2001)"});
    const auto before = queryRows(*connection_, u"SELECT name, born FROM people ORDER BY name");
    // What the catalog reports for each row of the type table: the memo and binary rows
    // are written as VARCHAR, and SQLite's driver reports CHAR as VARCHAR too.
    const int32_t shownAs[] = {backend() == Backend::SQLite ? TdtVarText : TdtText, TdtVarText, TdtVarText,
                               TdtDateTime, TdtInteger, TdtNumber, TdtVarText};
    size_t types = 0;
    for (; catalog::kColumnTypes[types].tabraDataType != 0; ++types) {
        run_.queue(click(kTableAdminDialog.id, kTableAdminDialog.addColumn));
        run_.queue(onDialog(kAddColumnDialog.id, "set", kAddColumnDialog.name, "\"c" + std::to_string(types) + "\""));
        run_.queue(onDialog(kAddColumnDialog.id, "select", kAddColumnDialog.type, "#" + std::to_string(types)));
        if (catalog::kColumnTypes[types].needsLength)
            run_.queue(onDialog(kAddColumnDialog.id, "set", kAddColumnDialog.length, "\"20\""));
        run_.queue(click(kAddColumnDialog.id, IDOK));
        look();
    }
    run_.queue(click(kTableAdminDialog.id, kTableAdminDialog.addAutoIncrement));
    run_.queue(onDialog(kAddAutoIncrementDialog.id, "set", kAddAutoIncrementDialog.name, "\"nr\""));
    run_.queue(click(kAddAutoIncrementDialog.id, IDOK));
    look();
    run_.queue(click(kTableAdminDialog.id, IDOK));
    administer(u"people");

    ASSERT_EQ(seen_.size(), types + 1);
    for (size_t i = 0; i < types; ++i) {
        SCOPED_TRACE(i);
        const TableAdminView &view = seen_[i];
        ASSERT_EQ(view.rows.size(), 3 + i) << "the list is read again after each change";
        EXPECT_EQ(view.rows.back()[0], u"c" + toUtf16(std::to_string(i)));
        EXPECT_TRUE(view.rows.back()[1].starts_with(resourceText(catalog::findColumnType(shownAs[i])->label)))
            << toUtf8(view.rows.back()[1]);
        EXPECT_EQ(view.selected, std::vector<int32_t>{static_cast<int32_t>(2 + i)}) << "the new column is selected";
    }
    const TableAdminView &last = seen_.back();
    EXPECT_EQ(last.rows.back()[0], u"nr");
    EXPECT_EQ(last.key, u"nr") << "the auto-increment column is the key on these databases";
    EXPECT_EQ(queryRows(*connection_, u"SELECT name, born FROM people ORDER BY name"), before);
    EXPECT_EQ(queryValue(*connection_, u"SELECT Count(DISTINCT nr) FROM people"), u"3");
}

TEST_P(TableAdminTest, DeletesColumnsAskingForEachWithNoYesAndCancel) {
    executeAll(*connection_, {u"CREATE TABLE parts (a INTEGER, b VARCHAR(10), c VARCHAR(10), d VARCHAR(10))",
                              u"INSERT INTO parts VALUES (1, 'b1', 'c1', 'd1')",
                              u"INSERT INTO parts VALUES (2, 'b2', 'c2', 'd2')"});
    RecordingHook hook;
    run_.queue(onDialog(kTableAdminDialog.id, "select", kTableAdminDialog.columns, "#1 #2 #3"));
    run_.queue(click(kTableAdminDialog.id, kTableAdminDialog.deleteColumns));
    run_.queue(answer(admin::ids::kMessage.confirmDropColumn, "no"));
    run_.queue(answer(admin::ids::kMessage.confirmDropColumn, "yes"));
    run_.queue(answer(admin::ids::kMessage.confirmDropColumn, "cancel"));
    look(); // Cancel ends the action without reading the table again
    run_.queue(onDialog(kTableAdminDialog.id, "select", kTableAdminDialog.columns, "#1"));
    run_.queue(onDialog(kTableAdminDialog.id, "rightclick", kTableAdminDialog.columns, "#1"));
    run_.queue("menu " + std::to_string(ids::kMenu.columns) + ": choose " + std::to_string(ids::kMenuCommand.deleteColumns));
    run_.queue(answer(admin::ids::kMessage.confirmDropColumn, "yes"));
    look();
    run_.queue("dialog " + std::to_string(kTableAdminDialog.id) + ": press escape");
    const char16_t sortClauses[] = u".Default\\Software\\Ostrel Software\\Order By Clauses";
    Ostrel_WriteStringToRegistry(HKEY_USERS, sortClauses, 0, u"parts", u"Clause", u"d ASC");
    administer(u"parts");

    EXPECT_EQ(run_.records(TABRA_RECORD_DIALOG_CLOSED, kTableAdminDialog.id).at(0).value, IDOK) << "Cancel closes with 1";
    EXPECT_EQ(registryText(HKEY_USERS, sortClauses, u"parts", u"Clause", u"gone"), u"gone")
        << "the stored sort clauses are deleted on closing";

    std::vector<std::u16string> drops;
    for (const auto &statement : hook.statements)
        if (statement.starts_with(u"ALTER TABLE")) drops.push_back(unquoted(statement));
    ASSERT_EQ(drops.size(), 2u);
    EXPECT_TRUE(drops[0].ends_with(u" DROP COLUMN c")) << toUtf8(drops[0]);
    EXPECT_TRUE(drops[1].ends_with(u" DROP COLUMN b")) << toUtf8(drops[1]);
    ASSERT_EQ(seen_.size(), 2u);
    EXPECT_EQ(seen_[0].names(), (std::vector<std::u16string>{u"a", u"b", u"c", u"d"}));
    EXPECT_EQ(seen_[1].names(), (std::vector<std::u16string>{u"a", u"d"}));
    EXPECT_EQ(seen_[1].selected, std::vector<int32_t>{1}) << "the row at the first deleted position";
    EXPECT_EQ(queryRows(*connection_, u"SELECT * FROM parts ORDER BY a"),
              (std::vector<Row>{{u"1", u"d1"}, {u"2", u"d2"}}));
}

TEST_P(TableAdminTest, AddsAndDropsThePrimaryKeyOverChosenColumns) {
    executeAll(*connection_, {u"CREATE TABLE keyed (id INTEGER NOT NULL, code VARCHAR(10) NOT NULL, note VARCHAR(20))",
                              u"INSERT INTO keyed VALUES (1, 'x', 'first')", u"INSERT INTO keyed VALUES (1, 'y', NULL)",
                              u"INSERT INTO keyed VALUES (2, 'x', 'third')"});
    const auto before = queryRows(*connection_, u"SELECT id, code, note FROM keyed ORDER BY id, code");
    std::vector<std::u16string> available;
    RecordingHook hook;
    run_.queue(click(kTableAdminDialog.id, kTableAdminDialog.addPrimaryKey));
    run_.queueCallback(kAddPrimaryKeyDialog.id, readAvailableColumns, &available);
    run_.queue(onDialog(kAddPrimaryKeyDialog.id, "doubleclick", kAddPrimaryKeyDialog.available, "\"id\""));
    run_.queue(onDialog(kAddPrimaryKeyDialog.id, "select", kAddPrimaryKeyDialog.available, "\"code\""));
    run_.queue(click(kAddPrimaryKeyDialog.id, kAddPrimaryKeyDialog.add));
    run_.queue(click(kAddPrimaryKeyDialog.id, kAddPrimaryKeyDialog.up)); // the added column stays selected
    run_.queue(click(kAddPrimaryKeyDialog.id, IDOK));
    look();
    run_.queue(click(kTableAdminDialog.id, kTableAdminDialog.addPrimaryKey));
    run_.queue(answer(ids::kMessage.keyExists, "ok"));
    run_.queue(click(kTableAdminDialog.id, kTableAdminDialog.dropPrimaryKey));
    run_.queue(answer(admin::ids::kMessage.confirmDropPrimaryKey, "yes"));
    look();
    run_.queue(click(kTableAdminDialog.id, kTableAdminDialog.dropPrimaryKey));
    run_.queue(answer(ids::kMessage.noKey, "ok"));
    run_.queue(click(kTableAdminDialog.id, IDOK));
    administer(u"keyed");

    EXPECT_EQ(available, (std::vector<std::u16string>{u"id", u"code"})) << "only NOT NULL columns";
    ASSERT_EQ(seen_.size(), 2u);
    // The chosen order makes the key; the drivers list its columns in their own order.
    auto keyStatement = std::find_if(hook.statements.begin(), hook.statements.end(),
                                     [](const std::u16string &s) { return s.find(u"PRIMARY KEY (") != s.npos; });
    ASSERT_NE(keyStatement, hook.statements.end());
    EXPECT_NE(unquoted(*keyStatement).find(u"PRIMARY KEY (code,id)"), std::u16string::npos) << toUtf8(*keyStatement);
    EXPECT_TRUE(seen_[0].key == u"code, id" || seen_[0].key == u"id, code") << toUtf8(seen_[0].key);
    EXPECT_EQ(seen_[1].key, resourceText(ids::kString.noKey));
    std::vector<int32_t> notices;
    for (const auto &notice : run_.records(TABRA_RECORD_NOTICE)) notices.push_back(notice.id);
    EXPECT_EQ(notices, (std::vector<int32_t>{ids::kString.keyAdded, ids::kString.keyDropped}));
    EXPECT_EQ(queryRows(*connection_, u"SELECT id, code, note FROM keyed ORDER BY id, code"), before);
}

TABRA_INSTANTIATE_BACKEND_TEST(TableAdminTest);

} // namespace
} // namespace tabra::test
