// The catalog on the test driver: drivers that lack primary keys, know schemas, quote
// with a back quote, refuse statements with a chosen SQLSTATE or answer with info;
// and handle accounting: no operation leaves a statement open, on any path.
#include "catalog_test_support.h"

#include "ostrel.h"

namespace tabra::test {
namespace {

class CatalogTestDriverTest : public TestDriverTest {
protected:
    void SetUp() override {
        TestDriverTest::SetUp();
        auto setup = connect(dsn::TestDriver);
        executeAll(setup, {u"CREATE TABLE orders (id INTEGER PRIMARY KEY, price INTEGER NOT NULL)",
                           u"CREATE TABLE \"order items\" (\"line no\" INTEGER PRIMARY KEY, qty INTEGER)",
                           u"INSERT INTO orders VALUES (1, 10)", u"INSERT INTO orders VALUES (2, 20)"});
    }
};

TEST_F(CatalogTestDriverTest, ADriverWithoutPrimaryKeysGivesTwoAndAnEmptyList) {
    auto connection = connect(dsn::NoPrimaryKeys);
    ScriptedRun run;
    char16_t keys[100] = u"#";
    EXPECT_EQ(Tabra_GetPrimaryKeyColumns(connection.handle(), u"orders", 0, nullptr, keys, 100), 2);
    EXPECT_EQ(keys[0], u'\0');
    keys[0] = u'#';
    EXPECT_EQ(Tabra_GetPrimaryKeyName(connection.handle(), u"orders", 0, keys, 100), 2);
    EXPECT_EQ(keys[0], u'\0');
    expectNothingShown(run);
    expectNoOpenStatements("primary keys");
}

TEST_F(CatalogTestDriverTest, MySqlGetsTheQuotedTableNameForItsKeys) {
    ScriptedRun run;
    char16_t keys[100];
    {
        auto plain = connect(dsn::TestDriver);
        EXPECT_EQ(Tabra_GetPrimaryKeyColumns(plain.handle(), u"order items", 0, nullptr, keys, 100), 1);
        EXPECT_EQ(std::u16string(keys), u"line no");
    }
    auto mysql = connect(dsn::MySql);
    EXPECT_EQ(Tabra_GetPrimaryKeyColumns(mysql.handle(), u"orders", TABRA_FIELDS_QUOTE, nullptr, keys, 100), 1);
    EXPECT_EQ(std::u16string(keys), u"id"); // a plain name needs no quotes
    // The catalog underneath gets `order items` (back quotes), which it does not know.
    EXPECT_EQ(Tabra_GetPrimaryKeyColumns(mysql.handle(), u"order items", 0, nullptr, keys, 100), 1);
    EXPECT_EQ(std::u16string(keys), u"");
    expectNothingShown(run);
}

TEST_F(CatalogTestDriverTest, SchemaUsageWithRowsWithoutSchemaGivesBareNames) {
    auto connection = connect(dsn::Schemas);
    ScriptedRun run;
    auto list = readTables(connection.handle(), TABRA_TABLE_TYPE_TABLE, nullptr, TABRA_QUALIFY_SCHEMA);
    EXPECT_EQ(list.result, 0);
    EXPECT_TRUE(contains(list.items, u"orders")) << toUtf8(list.text);
    EXPECT_TRUE(contains(list.items, u"order items"));
    // The field list splits entries at the point when schemas are known.
    char16_t fields[100];
    EXPECT_EQ(Tabra_GetFields(connection.handle(), u"main.orders", 0, u",", fields, 100), 1);
    expectNothingShown(run);
    expectNoOpenStatements("schemas");
}

// A database without a row of its own: the classic "no such table" states mean the
// table is gone, under flag two. SQLite answers a missing table with its generic state:
// there the catalog decides whether the table is gone.
TEST_F(CatalogTestDriverTest, DropFailuresThatMeanMissingAreSuccessUnderFlagTwo) {
    auto missing = addDataSource({{"DBMSName", "TabraTestDBMS"}, {"FailPattern", "DROP"}, {"FailState", "42S02"}});
    auto other = addDataSource({{"DBMSName", "TabraTestDBMS"}, {"FailPattern", "DROP"}, {"FailState", "42000"}});
    auto generic = addDataSource({{"FailPattern", "DROP"}, {"FailState", "S1000"}});
    const uint8_t missingOk = TABRA_DELETE_NO_CONFIRM | TABRA_DELETE_MISSING_OK;
    const struct {
        const std::u16string &dataSource;
        const char16_t *table;
        uint8_t flags;
        int32_t result; // 2: the failure is shown with its statement
    } cases[] = {
        {missing, u"orders", missingOk, 1},          {missing, u"orders", TABRA_DELETE_NO_CONFIRM, 2},
        {other, u"orders", missingOk, 2},            {generic, u"no_such_table", missingOk, 1},
        {generic, u"orders", missingOk, 2}, // still there
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(toUtf8(c.dataSource) + " " + toUtf8(c.table));
        auto connection = connect(c.dataSource);
        ScriptedRun run;
        if (c.result == 2) run.queue(click(core::ids::kErrorDialog.id, IDOK));
        EXPECT_EQ(Tabra_DeleteTable(connection.handle(), c.table, c.flags), c.result);
        EXPECT_FALSE(run.failed()) << run.report();
        EXPECT_EQ(errorDialogsShown(run), c.result == 2 ? 1u : 0u);
        if (c.result == 2) {
            EXPECT_EQ(run.closedControlText(core::ids::kErrorDialog.id, core::ids::kErrorDialog.statement),
                      u"DROP TABLE " + std::u16string(c.table));
        }
        EXPECT_TRUE(run.records(TABRA_RECORD_MESSAGE).empty());
    }
    expectNoOpenStatements("drop");
}

TEST_F(CatalogTestDriverTest, SuccessWithInfoCountsAsSuccess) {
    auto connection = connect(dsn::ExecInfo);
    ScriptedRun run;
    EXPECT_EQ(Tabra_GetRecordCount(connection.handle(), u"orders", 0), 2);
    double value = 0;
    EXPECT_EQ(Tabra_AddFields(connection.handle(), u"orders", u"price", nullptr, &value), 0);
    EXPECT_DOUBLE_EQ(value, 30);
    EXPECT_EQ(OdbcEh_CountRows(0, connection.handle(), u"SELECT * FROM orders"), 2);
    expectNothingShown(run);
}

TEST_F(CatalogTestDriverTest, NoOperationLeavesAStatementOpen) {
    auto connection = connect(dsn::TestDriver);
    SQLHDBC hdbc = connection.handle();
    ScriptedRun run;
    char16_t buffer[2000];
    double value = 0;
    ColumnProperties properties{};
    TestListBox box;

    // Success paths.
    EXPECT_EQ(Tabra_GetTables(hdbc, TABRA_TABLE_TYPE_ALL, buffer, 2000, nullptr), 0);
    EXPECT_EQ(OdbcEh_GetTablesExtended(0, hdbc, 1, nullptr, 0, buffer, 2000, nullptr), 0);
    EXPECT_EQ(Tabra_DoesTableExist(hdbc, 1, u"orders"), 1);
    EXPECT_EQ(OdbcEh_DoesTableExist(0, hdbc, 1, nullptr, u"orders", 0), 1);
    EXPECT_EQ(Tabra_FillTablesBox(hdbc, 1, box.handle()), 0);
    EXPECT_EQ(Tabra_GetFields(hdbc, u"orders\torder items", 2, nullptr, buffer, 2000), 1);
    EXPECT_EQ(Tabra_GetFieldCount(hdbc, u"orders"), 2);
    Tabra_FillFieldsBox(hdbc, u"orders", box.handle(), 0);
    EXPECT_EQ(Tabra_AddColumnsToBox(hdbc, nullptr, u"orders", box.handle(), 0), 1);
    EXPECT_EQ(Tabra_DoesFieldExist(hdbc, u"orders", u"price"), 1);
    EXPECT_EQ(OdbcEh_DoesColumnExist(0, hdbc, u"orders", nullptr, u"price"), 1);
    EXPECT_EQ(OdbcEh_GetColumnNames(0, hdbc, u"orders", nullptr, 0, nullptr, nullptr, buffer, 2000), 1);
    EXPECT_EQ(Tabra_GetColumnDataType(hdbc, u"orders", u"price"), SQL_INTEGER);
    EXPECT_GT(Tabra_GetColumnLength(hdbc, u"orders", u"price"), 0);
    EXPECT_EQ(Tabra_GetColumnProperties(hdbc, u"orders", u"price", &properties), 1);
    EXPECT_EQ(Tabra_IsColumnAutoIncrement(hdbc, u"orders", u"price"), 0);
    EXPECT_EQ(Tabra_IsColumnUpdateable(hdbc, u"orders", u"price"), 1);
    Tabra_FindFirstAutoIncrementField(hdbc, u"orders", buffer, 2000);
    EXPECT_EQ(Tabra_GetPrimaryKeyColumns(hdbc, u"orders", 0, nullptr, buffer, 2000), 1);
    EXPECT_EQ(Tabra_GetPrimaryKeyName(hdbc, u"orders", 0, buffer, 2000), 1);
    EXPECT_EQ(Tabra_GetRecordCountExt(hdbc, u"orders", u"price > 10"), 1);
    EXPECT_EQ(Tabra_GetRowSetCount(hdbc, u"SELECT * FROM orders ORDER BY id"), 2);
    EXPECT_EQ(Tabra_GetMaximum(hdbc, u"orders", u"price", nullptr, &value), 0);
    EXPECT_EQ(OdbcEh_CountRows(0, hdbc, u"SELECT * FROM orders"), 2);
    OstrelCopyString(buffer, u"orders", 2000);
    Tabra_CreateUniqueTableName(hdbc, buffer, 2000);
    OdbcEh_CreateUniqueTableName(0, hdbc, nullptr, buffer, 2000);
    executeSql(connection, u"CREATE TABLE scratch (id INTEGER)");
    EXPECT_EQ(Tabra_DeleteTable(hdbc, u"scratch", TABRA_DELETE_NO_CONFIRM), 1);
    expectNothingShown(run);
    expectNoOpenStatements("success paths");

    // Failure paths, each shown once.
    const int failures = 9;
    for (int i = 0; i < failures; ++i) run.queue(click(core::ids::kErrorDialog.id, IDOK));
    EXPECT_EQ(Tabra_DeleteTable(hdbc, u"scratch", TABRA_DELETE_NO_CONFIRM), 2);
    EXPECT_EQ(Tabra_RenameTable(hdbc, u"no_such_table", u"orders_copy", 0), 2);
    EXPECT_EQ(Tabra_GetRecordCount(hdbc, u"no_such_table", 0), 0);
    EXPECT_EQ(Tabra_GetRowSetCount(hdbc, u"SELECT * FROM no_such_table"), 0);
    EXPECT_EQ(Tabra_GetMaximum(hdbc, u"no_such_table", u"x", nullptr, &value), -1);
    EXPECT_EQ(OdbcEh_CountRows(0, hdbc, u"SELECT * FROM no_such_table"), 0);
    EXPECT_EQ(Tabra_GetColumnDataType(hdbc, u"orders", u"no_such_column"), 0);
    EXPECT_EQ(Tabra_IsColumnUpdateable(hdbc, u"no_such_table", u"x"), 0);
    EXPECT_EQ(Tabra_GetColumnLength(hdbc, u"no_such_table", u"x"), -1);
    EXPECT_FALSE(run.failed()) << run.report();
    EXPECT_EQ(errorDialogsShown(run), static_cast<size_t>(failures));
    expectNoOpenStatements("failure paths");
}

// Null and blank arguments: the failure value, no message, no crash, no handle.
TEST_F(CatalogTestDriverTest, NullAndBlankArgumentsGiveTheFailureValueQuietly) {
    auto connection = connect(dsn::TestDriver);
    SQLHDBC hdbc = connection.handle();
    ScriptedRun run;
    char16_t buffer[100] = u"#";
    double value = 7;
    ColumnProperties properties{};
    EXPECT_EQ(Tabra_GetTables(nullptr, 1, buffer, 100, nullptr), -1);
    EXPECT_EQ(buffer[0], u'#'); // untouched
    EXPECT_EQ(Tabra_GetTables(hdbc, 1, nullptr, 100, nullptr), -1);
    EXPECT_EQ(Tabra_GetTables(hdbc, 1, buffer, 0, nullptr), -1);
    EXPECT_EQ(Tabra_GetTablesExtended(hdbc, 1, nullptr, 0, buffer, -5, nullptr), -1);
    EXPECT_EQ(OdbcEh_GetTablesExtended(0, nullptr, 1, nullptr, 0, buffer, 100, nullptr), -1);
    EXPECT_EQ(OdbcEh_GetTablesExtended(0, hdbc, 1, nullptr, 0, nullptr, 100, nullptr), -1);
    EXPECT_EQ(Tabra_DoesTableExist(nullptr, 1, u"orders"), -1);
    EXPECT_EQ(Tabra_DoesTableExist(hdbc, 1, nullptr), 0);
    EXPECT_EQ(Tabra_DoesTableExistExtended(nullptr, 1, nullptr, u"orders"), -1);
    EXPECT_EQ(OdbcEh_DoesTableExist(0, hdbc, 1, nullptr, nullptr, 0), 0);
    EXPECT_EQ(OdbcEh_DoesTableExist(0, nullptr, 1, nullptr, u"orders", 0), 0);
    EXPECT_EQ(Tabra_FillTablesBoxExtended(nullptr, 1, nullptr, 0, nullptr), -1);
    EXPECT_EQ(Tabra_GetFields(nullptr, u"orders", 0, nullptr, buffer, 100), 2);
    EXPECT_EQ(Tabra_GetFields(hdbc, u"orders", 0, nullptr, nullptr, 100), 2);
    EXPECT_EQ(Tabra_GetFieldCount(nullptr, u"orders"), 2);
    EXPECT_EQ(Tabra_GetFieldCount(hdbc, nullptr), 2);
    Tabra_FillFieldsBox(nullptr, nullptr, nullptr, 0);
    EXPECT_EQ(Tabra_AddColumnsToBox(nullptr, nullptr, u"orders", nullptr, 0), 1);
    EXPECT_EQ(Tabra_DoesFieldExist(hdbc, nullptr, u"id"), 0);
    EXPECT_EQ(Tabra_DoesFieldExist(hdbc, u"orders", nullptr), 0);
    EXPECT_EQ(Tabra_DoesFieldExist(nullptr, u"orders", u"id"), 0);
    EXPECT_EQ(OdbcEh_DoesColumnExist(0, hdbc, nullptr, nullptr, u"id"), 0);
    EXPECT_EQ(OdbcEh_GetColumnNames(0, nullptr, u"orders", nullptr, 0, nullptr, nullptr, buffer, 100), 2);
    EXPECT_EQ(OdbcEh_GetColumnNames(0, hdbc, nullptr, nullptr, 0, nullptr, nullptr, buffer, 100), 2);
    EXPECT_EQ(OdbcEh_GetColumnNames(0, hdbc, u"orders", nullptr, 0, nullptr, nullptr, buffer, 0), 2);
    EXPECT_EQ(Tabra_GetColumnNamesFromRowSet(nullptr, 0, buffer, 100), 2);
    for (const char16_t *blank : {static_cast<const char16_t *>(nullptr), u""}) {
        EXPECT_EQ(Tabra_GetColumnDataType(hdbc, blank, u"id"), 0);
        EXPECT_EQ(Tabra_GetColumnDataType(hdbc, u"orders", blank), 0);
        EXPECT_EQ(Tabra_GetColumnLength(hdbc, blank, u"id"), -1);
        EXPECT_EQ(Tabra_GetColumnProperties(hdbc, u"orders", blank, &properties), 2);
        EXPECT_EQ(Tabra_IsColumnAutoIncrement(hdbc, blank, u"id"), 0);
        EXPECT_EQ(Tabra_IsColumnUpdateable(hdbc, u"orders", blank), 0);
        EXPECT_EQ(Tabra_FindFirstAutoIncrementField(hdbc, blank, buffer, 100), 2);
        EXPECT_EQ(Tabra_GetRecordCountExt(hdbc, blank, nullptr), 0);
        EXPECT_EQ(Tabra_GetRowSetCount(hdbc, blank), 0);
        EXPECT_EQ(Tabra_GetMaximum(hdbc, blank, u"id", nullptr, &value), -1);
        EXPECT_EQ(Tabra_AddFields(hdbc, u"orders", blank, nullptr, &value), -1);
        EXPECT_EQ(OdbcEh_CountRows(0, hdbc, blank), 0);
        EXPECT_EQ(Tabra_RenameTable(hdbc, blank, u"x", 0), 2);
        EXPECT_EQ(Tabra_RenameTable(hdbc, u"orders", blank, 0), 2);
    }
    EXPECT_EQ(Tabra_GetColumnProperties(hdbc, u"orders", u"id", nullptr), 2);
    EXPECT_EQ(Tabra_GetColumnDataType(nullptr, u"orders", u"id"), 0);
    EXPECT_EQ(Tabra_FindFirstAutoIncrementField(hdbc, u"orders", nullptr, 100), 2);
    EXPECT_EQ(Tabra_GetPrimaryKeyColumns(nullptr, u"orders", 0, nullptr, buffer, 100), 2);
    EXPECT_EQ(Tabra_GetPrimaryKeyColumns(hdbc, u"orders", 0, nullptr, nullptr, 100), 2);
    EXPECT_EQ(Tabra_GetPrimaryKeyName(hdbc, u"orders", 0, buffer, 0), 2);
    EXPECT_EQ(Tabra_DeleteTable(nullptr, u"orders", 1), 2);
    EXPECT_EQ(Tabra_DeleteTable(hdbc, u"   ", 0), 2); // blank: not even asked
    EXPECT_EQ(Tabra_DeleteTableExtended(hdbc, nullptr, nullptr, 0), 2);
    EXPECT_EQ(Tabra_GetRecordCount(nullptr, u"orders", 0), 0);
    EXPECT_EQ(Tabra_GetMaximum(nullptr, u"orders", u"id", nullptr, &value), -1);
    EXPECT_EQ(OdbcEh_CountRows(0, nullptr, u"SELECT 1"), 0);
    EXPECT_EQ(Tabra_GetRowSetCount(nullptr, u"SELECT 1"), 0);
    EXPECT_DOUBLE_EQ(value, 7);
    Tabra_CreateUniqueTableName(nullptr, buffer, 100);
    Tabra_CreateUniqueTableName(hdbc, nullptr, 100);
    Tabra_CreateUniqueTableName(hdbc, buffer, 0);
    OdbcEh_CreateUniqueTableName(0, nullptr, nullptr, buffer, 100);
    expectNothingShown(run);
    expectNoOpenStatements("bad arguments");
}

} // namespace
} // namespace tabra::test
