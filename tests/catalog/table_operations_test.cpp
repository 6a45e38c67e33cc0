// Dropping, renaming, free names, counts and aggregates on the real databases.
#include "catalog_test_support.h"

#include "ostrel.h"

#include <cmath>

namespace tabra::test {
namespace {

class TableOperationsTest : public ConnectedBackendTest {
protected:
    void prepare(const OdbcConnection &connection) override {
        executeAll(connection, {u"CREATE TABLE orders (id INTEGER, price INTEGER, note VARCHAR(20))",
                                u"INSERT INTO orders VALUES (1, 5, 'a')", u"INSERT INTO orders VALUES (2, 15, 'b')",
                                u"INSERT INTO orders VALUES (3, 25, NULL)", u"CREATE TABLE empty_one (price INTEGER)"});
    }
    bool exists(const char16_t *name) const {
        return OdbcEh_DoesTableExist(0, hdbc(), TABRA_TABLE_TYPE_ALL, nullptr, name, 0) == 1;
    }
};

TEST_P(TableOperationsTest, DropAsksFirstAndOnlyYesDrops) {
    {
        ScriptedRun run;
        run.queue(answer(catalog::ids::kMessage.confirmDropTable, "no"));
        EXPECT_EQ(Tabra_DeleteTable(hdbc(), u"orders", 0), 2);
        EXPECT_FALSE(run.failed()) << run.report();
        auto asked = run.records(TABRA_RECORD_MESSAGE, catalog::ids::kMessage.confirmDropTable);
        ASSERT_EQ(asked.size(), 1u);
        EXPECT_NE(asked[0].text.find(u"orders"), std::u16string::npos);
    }
    EXPECT_TRUE(exists(u"orders"));
    {
        ScriptedRun run;
        run.queue(answer(catalog::ids::kMessage.confirmDropTable, "yes"));
        RecordingHook hook;
        EXPECT_EQ(Tabra_DeleteTable(hdbc(), u"orders", 0), 1);
        EXPECT_FALSE(run.failed()) << run.report();
        EXPECT_EQ(hook.statements, std::vector<std::u16string>{u"DROP TABLE orders"});
    }
    EXPECT_FALSE(exists(u"orders"));
}

TEST_P(TableOperationsTest, DroppingAMissingTableIsQuietSuccessOnlyUnderFlagTwo) {
    {
        // Each database's own "no such table" answer (SQLite's generic one confirmed by
        // the catalog) counts as gone.
        ScriptedRun run;
        EXPECT_EQ(Tabra_DeleteTable(hdbc(), u"no_such_table",
                                    TABRA_DELETE_NO_CONFIRM | TABRA_DELETE_MISSING_OK),
                  1);
        expectNothingShown(run);
    }
    ScriptedRun run;
    run.queue(click(core::ids::kErrorDialog.id, IDOK));
    EXPECT_EQ(Tabra_DeleteTable(hdbc(), u"no_such_table", TABRA_DELETE_NO_CONFIRM), 2);
    EXPECT_FALSE(run.failed()) << run.report();
    EXPECT_EQ(errorDialogsShown(run), 1u);
    EXPECT_EQ(run.closedControlText(core::ids::kErrorDialog.id, core::ids::kErrorDialog.statement), u"DROP TABLE no_such_table"); // shown with its statement
}

TEST_P(TableOperationsTest, TheStatementHookCanRefuseQuietly) {
    ScriptedRun run;
    RecordingHook hook(false);
    EXPECT_EQ(Tabra_DeleteTable(hdbc(), u"orders", TABRA_DELETE_NO_CONFIRM), 2);
    EXPECT_EQ(Tabra_GetRecordCount(hdbc(), u"orders", 0), 0);
    double value = -1;
    EXPECT_EQ(Tabra_GetMaximum(hdbc(), u"orders", u"price", nullptr, &value), -1);
    EXPECT_EQ(value, -1);
    EXPECT_EQ(OdbcEh_CountRows(0, hdbc(), u"SELECT * FROM orders"), 0);
    EXPECT_EQ(hook.statements.size(), 4u);
    expectNothingShown(run);
    hook.allow = true;
    EXPECT_TRUE(exists(u"orders"));
}

TEST_P(TableOperationsTest, DropTextCarriesThePreparedSchemaOnlyWhenGiven) {
    executeSql(*connection_, u"CREATE TABLE " + quoted(backend(), u"Order Lines") + u" (id INTEGER)");
    ScriptedRun run;
    RecordingHook hook(false);
    Tabra_DeleteTableExtended(hdbc(), u"my schema", u"Order Lines", TABRA_DELETE_NO_CONFIRM);
    Tabra_DeleteTableExtended(hdbc(), u"  ", u"Order Lines", TABRA_DELETE_NO_CONFIRM);
    ASSERT_EQ(hook.statements.size(), 2u);
    EXPECT_EQ(hook.statements[0], u"DROP TABLE " + quoted(backend(), u"my schema") + u"." + quoted(backend(), u"Order Lines"));
    EXPECT_EQ(hook.statements[1], u"DROP TABLE " + quoted(backend(), u"Order Lines"));
    expectNothingShown(run);
}

TEST_P(TableOperationsTest, RenameKeepsTheRowsAndThePrimaryKey) {
    executeSql(*connection_, u"CREATE TABLE keyed (id INTEGER PRIMARY KEY, note VARCHAR(20))");
    executeAll(*connection_, {u"INSERT INTO keyed VALUES (1, 'a')", u"INSERT INTO keyed VALUES (2, 'b')"});
    ScriptedRun run;
    // A taken target name fails quietly.
    EXPECT_EQ(Tabra_RenameTable(hdbc(), u"orders", u"EMPTY_ONE", 0), 2);
    RecordingHook hook;
    EXPECT_EQ(Tabra_RenameTable(hdbc(), u"keyed", u"keyed_renamed", TABRA_RENAME_WAIT_NOTICE), 1);
    EXPECT_EQ(hook.statements, std::vector<std::u16string>{u"ALTER TABLE keyed RENAME TO keyed_renamed"});
    EXPECT_FALSE(exists(u"keyed"));
    EXPECT_EQ(queryRows(*connection_, u"SELECT id FROM keyed_renamed ORDER BY id").size(), 2u);
    char16_t keys[100];
    EXPECT_EQ(Tabra_GetPrimaryKeyColumns(hdbc(), u"keyed_renamed", 0, nullptr, keys, 100), 1);
    EXPECT_EQ(std::u16string(keys), u"id");
    EXPECT_EQ(run.records(TABRA_RECORD_NOTICE, catalog::ids::kString.copyingTableNotice).size(), 1u);
    expectNothingShown(run);
}

TEST_P(TableOperationsTest, UniqueNamesCountUpFromOne) {
    executeAll(*connection_, {u"CREATE TABLE orders_1 (id INTEGER)", u"CREATE VIEW orders_2 AS SELECT id FROM orders"});
    ScriptedRun run;
    char16_t name[50] = u"fresh_name";
    Tabra_CreateUniqueTableName(hdbc(), name, 50);
    EXPECT_EQ(std::u16string(name), u"fresh_name"); // free: untouched
    OstrelCopyString(name, u"ORDERS", 50);
    Tabra_CreateUniqueTableName(hdbc(), name, 50);
    EXPECT_EQ(std::u16string(name), u"ORDERS_3"); // any case, any type is taken
    name[0] = u'\0';
    Tabra_CreateUniqueTableName(hdbc(), name, 50);
    EXPECT_EQ(std::u16string(name), u"_1");
    OstrelCopyString(name, u"orders", 50);
    OdbcEh_CreateUniqueTableName(0, hdbc(), nullptr, name, 50);
    EXPECT_EQ(std::u16string(name), u"orders_3");
    OstrelCopyString(name, u"orders", 50);
    Tabra_CreateUniqueTableName(hdbc(), name, 8); // cut to the capacity
    EXPECT_EQ(std::u16string(name), u"orders_");
    expectNothingShown(run);
}

TEST_P(TableOperationsTest, CountsWithAndWithoutConditions) {
    ScriptedRun run;
    RecordingHook hook;
    EXPECT_EQ(Tabra_GetRecordCount(hdbc(), u"orders", 0), 3);
    EXPECT_EQ(Tabra_GetRecordCountExt(hdbc(), u"orders", u""), 3);
    EXPECT_EQ(Tabra_GetRecordCountExt(hdbc(), u"orders", u"price > 10"), 2);
    EXPECT_EQ(Tabra_GetRecordCountExt(hdbc(), u"empty_one", nullptr), 0);
    ASSERT_EQ(hook.statements.size(), 4u);
    EXPECT_EQ(hook.statements[1], u"SELECT Count(*) FROM orders"); // no WHERE for an empty condition
    EXPECT_EQ(hook.statements[2], u"SELECT Count(*) FROM orders WHERE price > 10");
    EXPECT_EQ(OdbcEh_CountRows(0, hdbc(), u"SELECT id FROM orders WHERE note IS NOT NULL"), 2);
    EXPECT_EQ(OdbcEh_CountRows(0, hdbc(), u"SELECT price FROM empty_one"), 0);
    expectNothingShown(run);
}

TEST_P(TableOperationsTest, RowSetCountsAndTheUnionSentinel) {
    ScriptedRun run;
    EXPECT_EQ(Tabra_GetRowSetCount(hdbc(), u"SELECT id, note FROM orders WHERE price > 10 ORDER BY id"), 2);
    EXPECT_EQ(Tabra_GetRowSetCount(hdbc(), u"SELECT * FROM orders"), 3);
    // A blank-surrounded UNION is not run at all (this one would fail).
    EXPECT_EQ(Tabra_GetRowSetCount(hdbc(), u"SELECT id FROM no_such_table UNION SELECT id FROM orders"),
              TABRA_UNION_ROW_COUNT);
    EXPECT_EQ(Tabra_GetRowSetCount(hdbc(), u"SELECT id FROM no_such_table\nUNION\tSELECT id FROM orders"),
              TABRA_UNION_ROW_COUNT);
    expectNothingShown(run);
}

TEST_P(TableOperationsTest, AFailingCountIsShownWithItsStatementAndGivesZero) {
    ScriptedRun run;
    run.queue(click(core::ids::kErrorDialog.id, IDOK));
    EXPECT_EQ(Tabra_GetRecordCountExt(hdbc(), u"no_such_table", u"x = 1"), 0);
    EXPECT_EQ(run.closedControlText(core::ids::kErrorDialog.id, core::ids::kErrorDialog.statement), u"SELECT Count(*) FROM no_such_table WHERE x = 1");
    run.queue(click(core::ids::kErrorDialog.id, IDOK));
    // Lower-case union is counted normally, so this fails at the database.
    EXPECT_EQ(Tabra_GetRowSetCount(hdbc(), u"SELECT id FROM no_such_table union SELECT 1"), 0);
    EXPECT_FALSE(run.failed()) << run.report();
    EXPECT_EQ(errorDialogsShown(run), 2u);
}

TEST_P(TableOperationsTest, MaximumAndSumWithConditionsAndOverEmptyTables) {
    ScriptedRun run;
    RecordingHook hook;
    using Aggregate = int32_t (*)(SQLHDBC, const char16_t *, const char16_t *, const char16_t *, double *);
    struct Case {
        Aggregate aggregate;
        const char16_t *table, *condition;
        double expected; // an aggregate over no rows (NULL) reads as 0
        std::u16string statement;
    };
    const Case cases[] = {
        {Tabra_GetMaximum, u"orders", nullptr, 25, u"SELECT max(price) FROM orders"},
        {Tabra_GetMaximum, u"orders", u"price < 20", 15, u"SELECT max(price) FROM orders WHERE price < 20"},
        {Tabra_AddFields, u"orders", u"", 45, u"SELECT Sum(price) FROM orders"},
        {Tabra_AddFields, u"orders", u"id = 99", 0, u"SELECT Sum(price) FROM orders WHERE id = 99"},
        {Tabra_GetMaximum, u"empty_one", nullptr, 0, u"SELECT max(price) FROM empty_one"},
        {Tabra_AddFields, u"empty_one", nullptr, 0, u"SELECT Sum(price) FROM empty_one"},
    };
    for (const Case &c : cases) {
        double value = -1;
        EXPECT_EQ(c.aggregate(hdbc(), c.table, u"price", c.condition, &value), 0) << toUtf8(c.statement);
        EXPECT_DOUBLE_EQ(value, c.expected) << toUtf8(c.statement);
        EXPECT_EQ(hook.statements.back(), c.statement);
    }
    expectNothingShown(run);
    run.queue(click(core::ids::kErrorDialog.id, IDOK));
    double value = -1;
    EXPECT_EQ(Tabra_AddFields(hdbc(), u"orders", u"no_such_column", nullptr, &value), -1);
    EXPECT_FALSE(run.failed()) << run.report();
}

TABRA_INSTANTIATE_BACKEND_TEST(TableOperationsTest);

} // namespace
} // namespace tabra::test
