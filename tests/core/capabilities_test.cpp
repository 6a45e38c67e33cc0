// The capability table. Each dialect row's texts run on its real database with the
// effect the classic texts have, and where a row refuses (a null text), the classic
// text indeed fails there. The classic rows are reached through the test driver's DBMS
// names, and every row's formats take the arguments their callers pass.
#include "catalog/catalog_test_support.h"
#include "catalog/column_types.h"
#include "core/connection/capabilities.h"
#include "sqltext/statement_formatter.h"
#include "tabra_query.h"

#include <cmath>

namespace tabra::test {
namespace {

using connection::Capabilities;
using connection::capabilities;

std::u16string format(SQLHDBC connection, const char16_t *text, std::initializer_list<const char16_t *> arguments) {
    return sqltext::formatStatement(connection, text, arguments, 1000);
}

// Runs a statement with raw ODBC: true when it succeeded.
bool runs(const OdbcConnection &connection, const std::u16string &statement) {
    try {
        executeSql(connection, statement);
        return true;
    } catch (const OdbcError &) {
        return false;
    }
}

long count(const OdbcConnection &connection, const std::u16string &from) {
    return std::stol(toUtf8(queryValue(connection, u"SELECT COUNT(*) FROM " + from).value_or(u"-1")));
}

class DialectRowsTest : public BackendTest {
protected:
    void SetUp() override {
        BackendTest::SetUp();
        if (IsSkipped()) return;
        connection_.emplace(dataSource());
        executeAll(*connection_, {u"CREATE TABLE orders (id INTEGER NOT NULL, price INTEGER, placed DATE, note VARCHAR(20))",
                                  u"INSERT INTO orders VALUES (1, 12, {d '2024-03-05'}, 'a')",
                                  u"INSERT INTO orders VALUES (2, 120, {d '2024-04-01'}, 'a')",
                                  u"INSERT INTO orders VALUES (3, 21, {d '2023-12-31'}, 'b')",
                                  u"INSERT INTO orders VALUES (4, 1, NULL, NULL)"});
    }
    SQLHDBC handle() const { return connection_->handle(); }
    const Capabilities &row() const { return capabilities(handle()); }

    std::optional<OdbcConnection> connection_;
};

TEST_P(DialectRowsTest, TheAutoIncrementKeyNumbersNewRowsAndAlterTableAddsOneWhereTheRowSaysSo) {
    ASSERT_EQ(std::u16string(row().name), toUtf16(backendName(backend()))); // found by the driver's name
    EXPECT_EQ(Tabra_GetDatabaseType(handle()), DbOther);                    // the classic answer is kept
    ASSERT_TRUE(row().hasAutoIncrement());
    ASSERT_TRUE(runs(*connection_, format(handle(), u"CREATE TABLE %t (id %s, note VARCHAR(10))", {u"keyed", row().autoIncrementType})));
    executeAll(*connection_, {u"INSERT INTO keyed (note) VALUES ('x')", u"INSERT INTO keyed (note) VALUES ('y')"});
    EXPECT_EQ(queryRows(*connection_, u"SELECT id FROM keyed ORDER BY id"), (std::vector<Row>{{u"1"}, {u"2"}}));
    EXPECT_EQ(Tabra_IsColumnAutoIncrement(handle(), u"keyed", u"id"), 1);

    executeSql(*connection_, u"CREATE TABLE later (note VARCHAR(10))");
    EXPECT_EQ(runs(*connection_, format(handle(), u"ALTER TABLE %t ADD %f %s", {u"later", u"id", row().autoIncrementType})),
              row().alterTableAddsKeyColumn);
}

TEST_P(DialectRowsTest, APrimaryKeyIsAddedAndDroppedOrTheClassicTextsFail) {
    char16_t keys[100], name[100];
    if (row().addPrimaryKeyStatement == nullptr)
        EXPECT_FALSE(runs(*connection_, format(handle(), u"ALTER TABLE %t ADD PRIMARY KEY (%s)", {u"orders", u"id"})));
    else {
        ASSERT_TRUE(runs(*connection_, format(handle(), row().addPrimaryKeyStatement, {u"orders", u"id"})));
        EXPECT_EQ(Tabra_GetPrimaryKeyColumns(handle(), u"orders", 0, nullptr, keys, 100), 1);
        EXPECT_EQ(std::u16string(keys), u"id");
    }
    executeSql(*connection_, u"CREATE TABLE keyed (id INTEGER PRIMARY KEY, note VARCHAR(10))");
    ASSERT_EQ(Tabra_GetPrimaryKeyName(handle(), u"keyed", 0, name, 100), 1);
    if (row().dropPrimaryKeyStatement == nullptr) {
        EXPECT_FALSE(runs(*connection_, format(handle(), u"ALTER TABLE %t DROP PRIMARY KEY", {u"keyed", name})));
        EXPECT_FALSE(runs(*connection_, format(handle(), u"ALTER TABLE %t DROP CONSTRAINT %f", {u"keyed", name})));
        return;
    }
    ASSERT_TRUE(runs(*connection_, format(handle(), row().dropPrimaryKeyStatement, {u"keyed", name})));
    EXPECT_EQ(Tabra_GetPrimaryKeyColumns(handle(), u"keyed", 0, nullptr, keys, 100), 1);
    EXPECT_EQ(std::u16string(keys), u"");
}

// Every type of the type table is added to a table with a row: the column is NOT NULL
// with a default of its kind (dates without one), and it keeps what it is given.
TEST_P(DialectRowsTest, EveryColumnTypeIsAddedWithTheSuffixOfItsKind) {
    for (const catalog::ColumnType &type : catalog::kColumnTypes) {
        if (type.tabraDataType == 0) continue;
        const std::u16string column = u"c" + toUtf16(std::to_string(type.tabraDataType));
        const std::u16string typeText = catalog::columnTypeText(row(), type, 20);
        const char16_t *suffix = row().suffixFor(type.tabraDataType);
        ASSERT_TRUE(runs(*connection_, format(handle(), u"ALTER TABLE %t ADD %f %s%s",
                                              {u"orders", column.c_str(), typeText.c_str(), suffix})))
            << toUtf8(typeText);
        auto value = queryValue(*connection_, u"SELECT " + column + u" FROM orders WHERE id = 1");
        switch (connection::columnKindOf(type.tabraDataType)) {
        case connection::ColumnKind::Text: EXPECT_EQ(value.value_or(u"<null>").find_first_not_of(u' '), std::u16string::npos); break;
        case connection::ColumnKind::Number: EXPECT_EQ(std::stod(toUtf8(value.value_or(u"-1"))), 0.0); break;
        case connection::ColumnKind::DateTime: EXPECT_EQ(value, std::nullopt); break;
        }
    }
    // Numbers keep their digits (MariaDB's FLOAT would not) and dates their time.
    executeSql(*connection_, u"UPDATE orders SET c3 = 99397.123456, c4 = {ts '2024-03-05 14:07:09'} WHERE id = 1");
    EXPECT_NEAR(std::stod(toUtf8(*queryValue(*connection_, u"SELECT c3 FROM orders WHERE id = 1"))), 99397.123456, 1e-9);
    EXPECT_EQ(queryValue(*connection_, u"SELECT c4 FROM orders WHERE id = 1").value_or(u"").substr(0, 19), u"2024-03-05 14:07:09");
}

TEST_P(DialectRowsTest, TablesAreCopiedWithTheirRowsOrTheirStructureOnly) {
    ASSERT_TRUE(row().tableCopyAllowed());
    ASSERT_TRUE(runs(*connection_, format(handle(), row().copyWithRowsStatement, {u"full_copy", u"orders"})));
    ASSERT_TRUE(runs(*connection_, format(handle(), row().copyStructureStatement, {u"empty_copy", u"orders"})));
    EXPECT_EQ(count(*connection_, u"full_copy"), 4);
    EXPECT_EQ(count(*connection_, u"empty_copy"), 0);
    EXPECT_EQ(Tabra_GetFieldCount(handle(), u"empty_copy"), Tabra_GetFieldCount(handle(), u"orders"));
    // The classic copy runs only where the database has SELECT ... INTO.
    EXPECT_EQ(runs(*connection_, format(handle(), u"SELECT * INTO %t FROM %t", {u"classic_copy", u"orders"})),
              backend() == Backend::PostgreSQL);
}

TEST_P(DialectRowsTest, TheViewWordDropsAView) {
    executeSql(*connection_, u"CREATE VIEW cheap AS SELECT id FROM orders WHERE price < 20");
    ASSERT_TRUE(runs(*connection_, format(handle(), u"%s %t", {row().dropViewWord, u"cheap"})));
    EXPECT_EQ(Tabra_DoesTableExist(handle(), TABRA_TABLE_TYPE_ALL, u"cheap"), 0);
}

// The row count of a SELECT counts what the SELECT gives, where swapping its column
// list for Count(*) would count something else.
TEST_P(DialectRowsTest, ARowSetIsCountedAsADerivedTable) {
    ScriptedRun run;
    const struct {
        const char16_t *statement;
        int32_t rows;
    } cases[] = {
        {u"SELECT DISTINCT note FROM orders", 3},
        {u"SELECT note, Count(*) FROM orders GROUP BY note", 3},
        {u"SELECT id FROM orders ORDER BY id DESC LIMIT 2", 2},
        {u"SELECT id FROM orders WHERE price > 10 ;  ", 3},
    };
    for (const auto &c : cases) EXPECT_EQ(Tabra_GetRowSetCount(handle(), c.statement), c.rows) << toUtf8(c.statement);
    EXPECT_EQ(Tabra_GetRowSetCount(handle(), u"SELECT id FROM orders UNION SELECT id FROM orders"), TABRA_UNION_ROW_COUNT);
    expectNothingShown(run);
}

// "Begins with" and "contains" on number and date columns.
TEST_P(DialectRowsTest, TextMatchesOnNumbersAndDatesCountTheRightRows) {
    ScriptedRun run;
    const struct {
        const char16_t *descriptor;
        int32_t rows;
    } cases[] = {
        {u"price\tBW\t12\t4\n", 2},  // 12, 120
        {u"price\tCT\t2\t4\n", 3},   // 12, 120, 21
        {u"note\tBW\ta\t12\n", 2},   // a text column as it is
        {u"id\tBW\t3\t0\n", 1},      // a column of unknown type
    };
    for (const auto &c : cases) {
        char16_t condition[500];
        Tabra_SelDesc_To_WhereClause(handle(), c.descriptor, condition, 500);
        EXPECT_EQ(Tabra_GetRecordCountExt(handle(), u"orders", condition), c.rows) << toUtf8(condition);
    }
    expectNothingShown(run);
}

TABRA_INSTANTIATE_BACKEND_TEST(DialectRowsTest);

class CapabilitiesTestDriverTest : public TestDriverTest {};

TEST_F(CapabilitiesTestDriverTest, EachDbmsNameFindsItsRow) {
    const struct {
        const char16_t *dataSource;
        const char16_t *row;
    } cases[] = {
        {dsn::Access, u"DbAccess"},   {dsn::SqlServer, u"DbSqlServer"}, {dsn::MySql, u"DbMySql"},
        {dsn::Oracle, u"DbOracle"},   {dsn::Progress, u"DbProgress"},   {dsn::Excel, u"DbExcel"},
        {dsn::OtherDbms, u"DbOther"}, {dsn::TestDriver, u"SQLite"},
    };
    for (const auto &c : cases) {
        auto connection = connect(c.dataSource);
        EXPECT_EQ(std::u16string(capabilities(connection.handle()).name), c.row) << toUtf8(c.dataSource);
    }
    // Dialect names are whole names in any case; nothing else matches them.
    EXPECT_EQ(std::u16string(connection::capabilitiesForDbmsName(u"postgresql").name), u"PostgreSQL");
    EXPECT_EQ(std::u16string(connection::capabilitiesForDbmsName(u"MariaDB 10").name), u"DbOther");
    EXPECT_EQ(std::u16string(capabilities(nullptr).name), u"DbOther");
}

// The statements the library builds from a classic row are the design's own.
TEST_F(CapabilitiesTestDriverTest, ClassicRowsBuildTheDesignsStatements) {
    for (const char16_t *source : {dsn::Access, dsn::SqlServer, dsn::MySql, dsn::Oracle, dsn::Progress, dsn::Excel,
                                   dsn::OtherDbms}) {
        PrivateDataSources::instance().freshSqliteDatabase();
        auto connection = connect(source);
        executeAll(connection, {u"CREATE TABLE orders (id INTEGER, note VARCHAR(10))", u"INSERT INTO orders VALUES (12, 'x')"});
        ScriptedRun run;
        RecordingHook hook;
        run.queue(click(core::ids::kErrorDialog.id, IDOK)); // SQLite underneath has no SELECT ... INTO
        EXPECT_EQ(Tabra_RenameTable(connection.handle(), u"orders", u"renamed", 0), 2);
        EXPECT_EQ(Tabra_GetRowSetCount(connection.handle(), u"SELECT DISTINCT note FROM orders"), 1);
        EXPECT_EQ(hook.statements, (std::vector<std::u16string>{u"SELECT * INTO renamed FROM orders",
                                                                 u"SELECT Count(*) FROM orders"}))
            << toUtf8(source);
        EXPECT_FALSE(run.failed()) << run.report();
    }
}

// Each format holds the placeholders its arguments fill, and the row's flags agree
// with its texts.
TEST_F(CapabilitiesTestDriverTest, EveryRowsFormatsTakeTheirArguments) {
    auto placeholders = [](const char16_t *text) {
        std::u16string found;
        for (const char16_t *c = text; c != nullptr && *c != u'\0'; ++c)
            if (*c == u'%' && c[1] != u'\0') found += *++c;
        return found;
    };
    for (const Capabilities &row : connection::capabilityRows()) {
        SCOPED_TRACE(toUtf8(row.name));
        EXPECT_EQ(placeholders(row.renameStatement), u"tt");
        EXPECT_NE(row.renameCopiesAndDrops, row.dialect);
        if (row.tableCopyAllowed()) {
            EXPECT_EQ(placeholders(row.copyStructureStatement), u"tt");
            EXPECT_EQ(placeholders(row.copyWithRowsStatement), u"tt");
        }
        if (row.addPrimaryKeyStatement) { EXPECT_EQ(placeholders(row.addPrimaryKeyStatement), u"ts"); }
        if (row.dropPrimaryKeyStatement) { EXPECT_EQ(placeholders(row.dropPrimaryKeyStatement).substr(0, 1), u"t"); }
        if (row.rowSetCountStatement) { EXPECT_EQ(placeholders(row.rowSetCountStatement), u"s"); }
        if (row.textMatchCast) { EXPECT_EQ(placeholders(row.textMatchCast), u"s"); }
        EXPECT_NE(row.dropViewWord, nullptr);
        EXPECT_NE(row.tableMissingStates, nullptr);
        EXPECT_NE(row.systemTableValueType, nullptr);
        for (const connection::TypePattern &own : row.typePatterns)
            EXPECT_NE(catalog::findColumnType(own.tabraDataType), nullptr) << own.tabraDataType;
    }
}

} // namespace
} // namespace tabra::test
