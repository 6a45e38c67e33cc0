// Names a database would misread if they stood bare, created by plain SQL and then
// used only through the library: a mixed-case table (which PostgreSQL would fold) and
// reserved words as table and column names, through every statement builder.
#include "catalog/catalog_test_support.h"
#include "ostrel.h"
#include "tabra_designer.h"
#include "tabra_query.h"
#include "tabra_rowset.h"
#include "tabra_sqltext.h"

namespace tabra::test {
namespace {

class AwkwardNamesTest : public BackendTest {
protected:
    std::u16string q(std::u16string_view name) const { return quoted(backend(), name); }
    static std::u16string format(SQLHDBC h, const char16_t *text, const char16_t *a1, const char16_t *a2 = nullptr,
                                 const char16_t *a3 = nullptr) {
        char16_t statement[1000];
        Tabra_SprintfSqlStatement(h, statement, 1000, text, a1, a2, a3, nullptr, nullptr, nullptr, nullptr, nullptr);
        return statement;
    }
    static std::u16string whereOf(SQLHDBC h, const char16_t *descriptor) {
        char16_t condition[500];
        Tabra_SelDesc_To_WhereClause(h, descriptor, condition, 500);
        return condition;
    }
};

TEST_P(AwkwardNamesTest, AMixedCaseTableIsListedCountedExportedAndFiltered) {
    auto connection = connect();
    SQLHDBC h = connection.handle();
    executeSql(connection, u"CREATE TABLE " + q(u"Customers") + u" (" + q(u"Name") + u" VARCHAR(20), " + q(u"Born") +
                               u" INTEGER)");
    for (const char16_t *row : {u"('Maier', 1970)", u"('Schmidt', 1985)", u"('Mohn', 1990)"})
        executeSql(connection, u"INSERT INTO " + q(u"Customers") + u" VALUES " + row);
    ScriptedRun run;
    EXPECT_TRUE(contains(readTables(h, TABRA_TABLE_TYPE_TABLE).items, u"Customers"));
    EXPECT_EQ(Tabra_GetRecordCount(h, u"Customers", 0), 3);
    EXPECT_EQ(Tabra_GetRecordCountExt(h, u"Customers", whereOf(h, u"Name\tBW\tM\t12\n").c_str()), 2);
    EXPECT_EQ(Tabra_GetRecordCountExt(h, u"Customers", whereOf(h, u"Born\tBW\t19\t4\n").c_str()), 3);
    char16_t exported[200];
    ASSERT_EQ(OdbcEh_SelectRowSetToBuffer(0, h, format(h, u"SELECT %f FROM %t ORDER BY %f", u"Name", u"Customers", u"Name").c_str(),
                                          u"\t", u"\n", exported, 200, nullptr, 0),
              1);
    EXPECT_EQ(std::u16string(exported), u"Maier\nMohn\nSchmidt");
    char16_t fields[200];
    ASSERT_EQ(Tabra_GetFields(h, u"Customers", TABRA_FIELDS_QUOTE, u",", fields, 200), 1);
    EXPECT_EQ(OdbcEh_CountRows(0, h, format(h, u"SELECT %s FROM %t", fields, u"Customers").c_str()), 3) << toUtf8(fields);
    expectNothingShown(run);
}

TEST_P(AwkwardNamesTest, ReservedWordsWorkThroughEveryStatementBuilder) {
    auto connection = connect();
    SQLHDBC h = connection.handle();
    executeSql(connection, u"CREATE TABLE " + q(u"Order") + u" (" + q(u"Key") + u" INTEGER PRIMARY KEY, " + q(u"User") +
                               u" VARCHAR(20), " + q(u"Group") + u" INTEGER)");
    for (const char16_t *row : {u"(1, 'anna', 1)", u"(2, 'bert', 2)", u"(3, 'anton', 2)"})
        executeSql(connection, u"INSERT INTO " + q(u"Order") + u" VALUES " + row);
    ScriptedRun run;
    // Counts, aggregates and conditions.
    EXPECT_EQ(Tabra_GetRecordCount(h, u"Order", 0), 3);
    EXPECT_EQ(Tabra_GetRecordCountExt(h, u"Order", whereOf(h, u"Group\tGT\t1\t4\nUser\tBW\ta\t12\n").c_str()), 1);
    double value = 0;
    EXPECT_EQ(Tabra_GetMaximum(h, u"Order", u"Key", nullptr, &value), 0);
    EXPECT_EQ(value, 3);
    EXPECT_EQ(Tabra_AddFields(h, u"Order", u"Group", nullptr, &value), 0);
    EXPECT_EQ(value, 5);
    // Column facts, keys and field lists.
    EXPECT_EQ(Tabra_GetColumnDataType(h, u"Order", u"Group"), SQL_INTEGER);
    char16_t text[200];
    ASSERT_EQ(Tabra_GetPrimaryKeyColumns(h, u"Order", TABRA_FIELDS_QUOTE, nullptr, text, 200), 1);
    EXPECT_EQ(std::u16string(text), q(u"Key"));
    ASSERT_EQ(Tabra_GetFields(h, u"Order", TABRA_FIELDS_QUOTE, u",", text, 200), 1);
    EXPECT_EQ(std::u16string(text), q(u"Key") + u"," + q(u"User") + u"," + q(u"Group"));
    // An assignment list.
    Tabra_OpDesc_To_SetClause(h, u"User\tSCO\tzed\t12\nGroup\tSFI\tKey\t4\n", text, 200);
    EXPECT_EQ(OdbcEh_PerformSqlStatement(0, h, format(h, u"UPDATE %t SET %s WHERE %f = 3", u"Order", text, u"Key").c_str(), nullptr),
              1);
    EXPECT_EQ(queryRows(connection, u"SELECT " + q(u"User") + u", " + q(u"Group") + u" FROM " + q(u"Order") + u" WHERE " +
                                        q(u"Key") + u" = 3"),
              (std::vector<Row>{{u"zed", u"3"}}));
    // The query designer: its lists are used as the caller quoted them, its selection
    // is quoted by the library.
    SelFact design = nullptr;
    ASSERT_EQ(Tabra_SelFact_Create(&design, h, nullptr, 0), TABRA_SELFACT_OK);
    char16_t table[50], column[50];
    Tabra_PrepareNameForSql92(h, u"Order", table, 50, 0);
    Tabra_PrepareNameForSql92(h, u"User", column, 50, 0);
    Tabra_SelFact_SetDescriptor(design, TABRA_SELFACT_TABLES, (std::u16string(table) + u"\n").c_str());
    Tabra_SelFact_SetDescriptor(design, TABRA_SELFACT_COLUMNS, (std::u16string(column) + u"\n").c_str());
    Tabra_SelFact_SetDescriptor(design, TABRA_SELFACT_SELECTION, u"Group\tEQ\t2\t4\n");
    char16_t statement[500];
    Tabra_SelFact_CreateSql(design, statement, 500, 0);
    Tabra_SelFact_Destroy(design);
    EXPECT_EQ(OdbcEh_CountRows(0, h, statement), 1) << toUtf8(statement);
    // Renaming, free names and dropping.
    EXPECT_EQ(Tabra_RenameTable(h, u"Order", u"Group", 0), 1);
    EXPECT_EQ(Tabra_GetRecordCount(h, u"Group", 0), 3);
    OstrelCopyString(text, u"Group", 200);
    Tabra_CreateUniqueTableName(h, text, 200);
    EXPECT_EQ(std::u16string(text), u"Group_1");
    EXPECT_EQ(Tabra_DeleteTable(h, u"Group", TABRA_DELETE_NO_CONFIRM), 1);
    EXPECT_FALSE(contains(readTables(h, TABRA_TABLE_TYPE_TABLE).items, u"Group"));
    expectNothingShown(run);
}

TABRA_INSTANTIATE_BACKEND_TEST(AwkwardNamesTest);

} // namespace
} // namespace tabra::test
