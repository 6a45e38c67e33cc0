// The harness itself: every backend answers through the real driver manager, keeps
// non-ASCII text intact both ways, and each test starts on an empty database.
#include "support/backend_test.h"
#include "support/test_text.h"

#include <gtest/gtest.h>

namespace tabra::test {
namespace {

class BackendQueryTest : public BackendTest {
protected:
    // The DBMS name each backend's driver reports (the test would pass on the wrong
    // server otherwise).
    std::u16string expectedDbmsName() const {
        switch (backend()) {
        case Backend::SQLite: return u"SQLite";
        case Backend::PostgreSQL: return u"PostgreSQL";
        case Backend::MariaDB: return u"MariaDB";
        }
        return {};
    }

    // Names of the tables SQLTablesW lists under a name pattern.
    static std::vector<std::u16string> tablesNamed(const OdbcConnection &connection, std::u16string name) {
        OdbcStatement statement(connection);
        std::u16string types = u"TABLE";
        SQLRETURN rc = SQLTablesW(statement.handle(), nullptr, 0, nullptr, 0, reinterpret_cast<SQLWCHAR *>(name.data()),
                                  SQL_NTS, reinterpret_cast<SQLWCHAR *>(types.data()), SQL_NTS);
        EXPECT_TRUE(succeeded(rc)) << "SQLTablesW returned " << rc;
        std::vector<std::u16string> names;
        for (const Row &row : fetchRows(statement.handle()))
            if (row.size() > 2 && row[2]) names.push_back(*row[2]);
        return names;
    }

    void expectEmptyThenCreate() {
        OdbcConnection connection = connect();
        EXPECT_TRUE(tablesNamed(connection, u"harness_probe").empty()) << "a table outlived an earlier test";
        executeSql(connection, u"CREATE TABLE harness_probe (id INTEGER)");
        EXPECT_EQ(tablesNamed(connection, u"harness_probe"), std::vector<std::u16string>{u"harness_probe"});
    }
};

TEST_P(BackendQueryTest, AnswersAQueryThroughTheDriverManager) {
    OdbcConnection connection = connect();
    EXPECT_EQ(infoText(connection, SQL_DBMS_NAME), expectedDbmsName());
    EXPECT_EQ(queryValue(connection, u"SELECT 6 * 7"), u"42");
}

TEST_P(BackendQueryTest, KeepsNonAsciiTextBothWays) {
    OdbcConnection connection = connect();
    executeSql(connection, u"CREATE TABLE harness_names (id INTEGER PRIMARY KEY, name VARCHAR(40))");
    const std::vector<std::u16string> names = {u"Müller", u"Ωmega", u"Straße 東京 Ø", u"ÀÁÂ ĀĂ Ș"};
    for (size_t i = 0; i < names.size(); ++i)
        executeSql(connection, u"INSERT INTO harness_names (id, name) VALUES (" + toUtf16(std::to_string(i)) + u", '" +
                                   names[i] + u"')");
    std::vector<Row> rows = queryRows(connection, u"SELECT name FROM harness_names ORDER BY id");
    ASSERT_EQ(rows.size(), names.size());
    for (size_t i = 0; i < names.size(); ++i) EXPECT_EQ(rows[i][0], names[i]) << "row " << i;
    // A condition on non-ASCII text finds its row: the text reached the server intact.
    EXPECT_EQ(queryValue(connection, u"SELECT id FROM harness_names WHERE name = 'Ωmega'"), u"1");
}

// Characters beyond the Basic Multilingual Plane pass the Unicode drivers (PostgreSQL,
// MariaDB in utf8mb4). The driver manager converts the text of an ANSI driver
// (SQLite3) as UCS-2, which cuts it at the first such character: the statement that
// reaches the driver is broken.
TEST_P(BackendQueryTest, KeepsCharactersBeyondTheBasicPlaneOnlyThroughUnicodeDrivers) {
    OdbcConnection connection = connect();
    executeSql(connection, u"CREATE TABLE harness_emoji (name VARCHAR(20))");
    const std::u16string sql = u"INSERT INTO harness_emoji (name) VALUES ('😀 x')";
    if (backend() == Backend::SQLite) {
        EXPECT_THROW(executeSql(connection, sql), OdbcError);
        return;
    }
    executeSql(connection, sql);
    EXPECT_EQ(queryValue(connection, u"SELECT name FROM harness_emoji"), u"😀 x");
}

TEST_P(BackendQueryTest, ReadsNullsAndLongValues) {
    OdbcConnection connection = connect();
    executeSql(connection, u"CREATE TABLE harness_values (id INTEGER, note VARCHAR(6000))");
    std::u16string longText;
    for (int i = 0; i < 5000; ++i) longText += static_cast<char16_t>(u'a' + i % 26);
    longText += u"üΩ";
    executeSql(connection, u"INSERT INTO harness_values VALUES (1, NULL)");
    executeSql(connection, u"INSERT INTO harness_values VALUES (2, '" + longText + u"')");
    std::vector<Row> rows = queryRows(connection, u"SELECT note FROM harness_values ORDER BY id");
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0][0], std::nullopt);
    EXPECT_EQ(rows[1][0], longText);
}

TEST_P(BackendQueryTest, StartsOnAnEmptyDatabase) { expectEmptyThenCreate(); }

TEST_P(BackendQueryTest, StartsOnAnEmptyDatabaseAgain) { expectEmptyThenCreate(); }

TEST_P(BackendQueryTest, ReportsFailuresWithTheDriversState) {
    OdbcConnection connection = connect();
    try {
        executeSql(connection, u"SELECT * FROM harness_missing_table");
        ADD_FAILURE() << "a query on a missing table succeeded";
    } catch (const OdbcError &error) {
        EXPECT_EQ(error.result(), SQL_ERROR);
        EXPECT_EQ(error.state().size(), 5u) << error.what();
    }
}

TABRA_INSTANTIATE_BACKEND_TEST(BackendQueryTest);

} // namespace
} // namespace tabra::test
