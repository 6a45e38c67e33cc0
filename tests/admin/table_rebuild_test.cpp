// The SQLite table rebuild: a key added, dropped or an auto-increment key column added
// keeps every row, index, trigger and reference; a conflicting row, a failure in the
// middle (the test driver) or a statement the hook declines leaves the database
// exactly as it was, settings included.
#include "admin/table_admin/resource_ids.h"
#include "admin/table_admin/table_rebuild.h"
#include "catalog/catalog_test_support.h"

namespace tabra::test {
namespace {

using admin::table_admin::RebuildResult;
using admin::table_admin::TableDefinition;
using core::ids::kErrorDialog;

enum class Change { AddKey, DropKey, AddAutoIncrement, DropParentKey };

struct Case {
    const char *what;
    Change change;
    RebuildResult expected;
    const char16_t *keyAfter = u"";     // the key's columns after a success
    Attributes source = {};             // test-driver settings
    const char16_t *declineAt = u"";    // the hook declines the statement starting so
    bool manualCommit = false;          // the connection holds its own transaction open
};

const Case kCases[] = {
    {"a key over a column", Change::AddKey, RebuildResult::Done, u"a"},
    {"the key dropped", Change::DropKey, RebuildResult::Done},
    {"an auto-increment key column", Change::AddAutoIncrement, RebuildResult::Done, u"nr"},
    {"a key over a column with equal values: the copy fails", Change::AddKey, RebuildResult::Failed},
    {"the rename fails after the old table was dropped", Change::DropKey, RebuildResult::Failed, u"",
     {{"FailPattern", "RENAME TO"}}},
    {"the user declines the drop of the old table", Change::AddAutoIncrement, RebuildResult::Refused, u"", {},
     u"DROP TABLE"},
    {"a parent's key that a child's reference needs", Change::DropParentKey, RebuildResult::Failed},
    {"a connection in manual-commit mode", Change::AddKey, RebuildResult::Failed, u"", {}, u"", true},
};

class TableRebuildTestDriverTest : public TestDriverTest {};

TEST_F(TableRebuildTestDriverTest, KeepsRowsIndexesTriggersAndReferencesOrNothingChanges) {
    for (const Case &c : kCases) {
        SCOPED_TRACE(c.what);
        PrivateDataSources::instance().freshSqliteDatabase();
        auto connection = connect(c.source.empty() ? std::u16string(dsn::TestDriver) : addDataSource(c.source));
        const bool conflicting = c.change == Change::AddKey && c.expected == RebuildResult::Failed;
        executeAll(connection,
                   {u"PRAGMA foreign_keys = ON", u"CREATE TABLE parent (id INTEGER PRIMARY KEY, name TEXT)",
                    u"CREATE TABLE log (a INTEGER)",
                    c.change == Change::DropKey
                        ? u"CREATE TABLE t (a INTEGER NOT NULL CONSTRAINT pk_t PRIMARY KEY, b TEXT DEFAULT 'x', "
                          u"p INTEGER REFERENCES parent (id))"
                        : u"CREATE TABLE t (a INTEGER NOT NULL, b TEXT DEFAULT 'x' CHECK (length(b) < 9), "
                          u"p INTEGER REFERENCES parent (id))",
                    u"CREATE INDEX t_b ON t (b DESC)",
                    u"CREATE TRIGGER t_log AFTER INSERT ON t BEGIN INSERT INTO log VALUES (new.a); END",
                    u"CREATE VIEW v AS SELECT a, b FROM t", u"INSERT INTO parent VALUES (1, 'one'), (2, 'two')",
                    u"INSERT INTO t VALUES (3, 'c', 1), (1, NULL, 2), (2, 'b', NULL)",
                    u"CREATE TABLE child (id INTEGER, parent INTEGER REFERENCES parent (id))",
                    u"INSERT INTO child VALUES (1, 1), (2, 2)"});
        if (conflicting) executeAll(connection, {u"INSERT INTO t VALUES (3, 'again', NULL)"});
        const char16_t *rowsQuery = u"SELECT a, b, p FROM t ORDER BY a, b";
        const char16_t *schemaQuery = u"SELECT type, name, tbl_name, sql FROM sqlite_master WHERE name NOT LIKE 'sqlite%' ORDER BY name";
        const auto rows = queryRows(connection, rowsQuery);
        const auto schema = queryRows(connection, schemaQuery);
        const auto parents = queryRows(connection, u"SELECT * FROM parent ORDER BY id");

        ScriptedRun run;
        if (c.manualCommit) {
            SQLSetConnectAttrW(connection.handle(), SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_OFF), 0);
            run.queue(answer(admin::table_admin::ids::kMessage.rebuildNeedsAutocommit, "ok"));
        } else if (c.expected == RebuildResult::Failed) {
            run.queue(click(kErrorDialog.id, IDOK));
        }
        // Every statement runs but those starting with the case's text.
        RecordingHook hook(true, [&](const std::u16string &s) { return *c.declineAt && s.starts_with(c.declineAt); });
        const char16_t *table = c.change == Change::DropParentKey ? u"parent" : u"t";
        auto result = admin::table_admin::rebuildTable(connection.handle(), table, [&](TableDefinition &definition) {
            switch (c.change) {
            case Change::AddKey: definition.addTableConstraint(u"PRIMARY KEY (a)"); return true;
            case Change::AddAutoIncrement: definition.addColumn(u"nr INTEGER PRIMARY KEY AUTOINCREMENT"); return true;
            default: return definition.dropPrimaryKey();
            }
        });
        EXPECT_EQ(result, c.expected);
        expectPlayed(run);

        EXPECT_EQ(queryRows(connection, rowsQuery), rows);
        EXPECT_EQ(queryRows(connection, u"SELECT * FROM parent ORDER BY id"), parents);
        EXPECT_EQ(queryValue(connection, u"PRAGMA foreign_keys"), u"1") << "enforcement is on again";
        EXPECT_EQ(queryValue(connection, u"PRAGMA legacy_alter_table"), u"0");
        auto after = queryRows(connection, schemaQuery);
        if (c.expected != RebuildResult::Done) {
            EXPECT_EQ(after, schema) << "the database is as it was";
            continue;
        }
        EXPECT_EQ(queryValue(connection, u"SELECT ifnull(group_concat(name), '') FROM pragma_table_info('t') WHERE pk > 0"),
                  std::u16string(c.keyAfter));
        // Every object but the table itself is written as it was; the view still reads.
        std::erase_if(after, [](const Row &row) { return row[1] == u"t"; });
        auto others = schema;
        std::erase_if(others, [](const Row &row) { return row[1] == u"t"; });
        EXPECT_EQ(after, others);
        EXPECT_EQ(queryValue(connection, u"SELECT Count(*) FROM v"), u"3");
        executeAll(connection, {u"INSERT INTO t (a, b) VALUES (7, 'g')"});
        EXPECT_EQ(queryValue(connection, u"SELECT Count(*) FROM log WHERE a = 7"), u"1") << "the trigger fires";
        EXPECT_EQ(queryRows(connection, u"PRAGMA foreign_key_check"), std::vector<Row>{});
        if (c.change == Change::AddAutoIncrement) {
            EXPECT_EQ(queryValue(connection, u"SELECT Count(DISTINCT nr) FROM t WHERE nr IS NOT NULL"), u"4");
        }
    }
}

} // namespace
} // namespace tabra::test
