// The test driver, seen as applications see it: through the driver manager, from an
// ODBC 2 environment, with the W functions.
#include "support/backend_test.h"
#include "support/test_text.h"

#include <gtest/gtest.h>

namespace tabra::test {
namespace {

SQLWCHAR *sqlText(std::u16string &text) { return reinterpret_cast<SQLWCHAR *>(text.data()); }

SQLRETURN executeDirect(SQLHSTMT statement, std::u16string sql) {
    return SQLExecDirectW(statement, sqlText(sql), SQL_NTS);
}

// The state of the one diagnostic record there should be.
std::u16string onlyState(const std::vector<DiagnosticRecord> &records) {
    EXPECT_EQ(records.size(), 1u);
    return records.empty() ? u"<none>" : records.front().state;
}

// --- What the driver says about itself -------------------------------------------

class TestDriverInfoTest : public TestDriverTest {};

TEST_F(TestDriverInfoTest, PassesTheRealDriversAnswersThrough) {
    OdbcConnection connection = connect(dsn::TestDriver);
    EXPECT_EQ(infoText(connection, SQL_DBMS_NAME), u"SQLite");
    EXPECT_EQ(infoText(connection, SQL_IDENTIFIER_QUOTE_CHAR), u"\"");
    EXPECT_EQ(infoNumber(connection, SQL_SCHEMA_USAGE), 0u);
    executeSql(connection, u"CREATE TABLE t (name VARCHAR(20))");
    executeSql(connection, u"INSERT INTO t VALUES ('Müller')");
    EXPECT_EQ(queryValue(connection, u"SELECT name FROM t"), u"Müller");
}

TEST_F(TestDriverInfoTest, SharesTheDatabaseWithThePlainSQLiteDataSource) {
    executeSql(OdbcConnection(dsn::SQLite), u"CREATE TABLE shared (id INTEGER)");
    executeSql(OdbcConnection(dsn::SQLite), u"INSERT INTO shared VALUES (7)");
    EXPECT_EQ(queryValue(OdbcConnection(dsn::Access), u"SELECT id FROM shared"), u"7");
}

// The option values only the test driver reads (the named data sources' DBMS names
// are checked where the library classifies them).
TEST_F(TestDriverInfoTest, ReadsQuoteAndSchemaUsageOptions) {
    const std::pair<std::u16string, std::u16string> quotes[] = {
        {dsn::MySql, u"`"},
        {dsn::BlankQuote, u" "},
        {addDataSource({{"QuoteChar", "none"}}), u""},
        {addDataSource({{"QuoteChar", "["}}), u"["},
    };
    for (const auto &[dataSource, quote] : quotes)
        EXPECT_EQ(infoText(connect(dataSource), SQL_IDENTIFIER_QUOTE_CHAR), quote) << toUtf8(dataSource);
    EXPECT_EQ(infoNumber(connect(dsn::Schemas), SQL_SCHEMA_USAGE), 0x1fu);
    EXPECT_EQ(infoNumber(connect(addDataSource({{"SchemaUsage", "29"}})), SQL_SCHEMA_USAGE), 29u);
}

// Connection-string attributes win over the data source's.
TEST_F(TestDriverInfoTest, TakesAttributesFromTheConnectionString) {
    SQLHENV environment = SQL_NULL_HENV;
    SQLHDBC connection = SQL_NULL_HDBC;
    ASSERT_EQ(SQLAllocEnv(&environment), SQL_SUCCESS);
    ASSERT_EQ(SQLAllocConnect(environment, &connection), SQL_SUCCESS);
    std::u16string text = u"DSN=" + std::u16string(dsn::Access) + u";DBMSName={EXCEL 8.0};QuoteChar=`";
    SQLRETURN rc = SQLDriverConnectW(connection, nullptr, sqlText(text), SQL_NTS, nullptr, 0, nullptr,
                                     SQL_DRIVER_NOPROMPT);
    EXPECT_TRUE(succeeded(rc)) << rc;
    if (succeeded(rc)) {
        SQLWCHAR value[256] = {};
        SQLGetInfoW(connection, SQL_DBMS_NAME, value, sizeof value / 2, nullptr);
        EXPECT_EQ(std::u16string(reinterpret_cast<char16_t *>(value)), u"EXCEL 8.0");
        SQLGetInfoW(connection, SQL_IDENTIFIER_QUOTE_CHAR, value, sizeof value / 2, nullptr);
        EXPECT_EQ(std::u16string(reinterpret_cast<char16_t *>(value)), u"`");
        SQLDisconnect(connection);
    }
    SQLFreeConnect(connection);
    SQLFreeEnv(environment);
}

// Through the ANSI call: the driver manager hands the caller's buffer to this ANSI
// driver as it is. (Its SQLGetInfoW does not: it passes the byte count on as a
// character count and then writes twice as many bytes into the caller's buffer, with
// any ANSI driver, the real SQLite3 one included; callers must give SQLGetInfoW room.)
TEST_F(TestDriverInfoTest, CutsALongInfoTextToTheCallersBuffer) {
    OdbcConnection connection = connect(addDataSource({{"DBMSName", "A rather long product name"}}));
    SQLCHAR value[8] = {};
    SQLSMALLINT length = 0;
    EXPECT_EQ(SQLGetInfo(connection.handle(), SQL_DBMS_NAME, value, sizeof value, &length), SQL_SUCCESS_WITH_INFO);
    EXPECT_STREQ(reinterpret_cast<char *>(value), "A rathe");
    EXPECT_EQ(length, 26);
    EXPECT_EQ(onlyState(diagnosticRecords(SQL_HANDLE_DBC, connection.handle())), u"01004");
}

class TestDriverFunctionsTest : public TestDriverTest {
protected:
    struct Answers {
        SQLUSMALLINT single = 0;
        bool inOdbc3Bitmap = false;
        SQLUSMALLINT inOdbc2Array = 0;
    };

    static Answers primaryKeyAnswers(std::u16string_view dataSource) {
        OdbcConnection connection = connect(dataSource);
        Answers answers;
        EXPECT_EQ(SQLGetFunctions(connection.handle(), SQL_API_SQLPRIMARYKEYS, &answers.single), SQL_SUCCESS);
        SQLUSMALLINT bitmap[SQL_API_ODBC3_ALL_FUNCTIONS_SIZE] = {};
        EXPECT_EQ(SQLGetFunctions(connection.handle(), SQL_API_ODBC3_ALL_FUNCTIONS, bitmap), SQL_SUCCESS);
        answers.inOdbc3Bitmap = SQL_FUNC_EXISTS(bitmap, SQL_API_SQLPRIMARYKEYS) == SQL_TRUE;
        SQLUSMALLINT all[100] = {};
        EXPECT_EQ(SQLGetFunctions(connection.handle(), SQL_API_ALL_FUNCTIONS, all), SQL_SUCCESS);
        answers.inOdbc2Array = all[SQL_API_SQLPRIMARYKEYS];
        return answers;
    }
};

TEST_F(TestDriverFunctionsTest, HidesPrimaryKeysInEveryFormOnlyWhenToldTo) {
    Answers plain = primaryKeyAnswers(dsn::TestDriver);
    EXPECT_EQ(plain.single, SQL_TRUE);
    EXPECT_TRUE(plain.inOdbc3Bitmap);
    EXPECT_EQ(plain.inOdbc2Array, SQL_TRUE);
    Answers hidden = primaryKeyAnswers(dsn::NoPrimaryKeys);
    EXPECT_EQ(hidden.single, SQL_FALSE);
    EXPECT_FALSE(hidden.inOdbc3Bitmap);
    EXPECT_EQ(hidden.inOdbc2Array, SQL_FALSE);
    // Other functions are still there.
    OdbcConnection connection = connect(dsn::NoPrimaryKeys);
    SQLUSMALLINT tables = SQL_FALSE;
    SQLGetFunctions(connection.handle(), SQL_API_SQLTABLES, &tables);
    EXPECT_EQ(tables, SQL_TRUE);
    // The driver manager believes it and refuses the call itself.
    executeSql(connection, u"CREATE TABLE keyed (id INTEGER PRIMARY KEY)");
    OdbcStatement statement(connection);
    std::u16string table = u"keyed";
    EXPECT_EQ(SQLPrimaryKeysW(statement.handle(), nullptr, 0, nullptr, 0, sqlText(table), SQL_NTS), SQL_ERROR);
    EXPECT_EQ(onlyState(diagnosticRecords(SQL_HANDLE_STMT, statement.handle())), u"IM001");
}

// --- Statement and connection counts ---------------------------------------------

class TestDriverCountTest : public TestDriverTest {};

TEST_F(TestDriverCountTest, CountsStatementsAllocatedAndFreedOnEveryPath) {
    OdbcConnection connection = connect(dsn::TestDriver);
    SQLHSTMT first = SQL_NULL_HSTMT, second = SQL_NULL_HSTMT, third = SQL_NULL_HSTMT;
    ASSERT_EQ(SQLAllocStmt(connection.handle(), &first), SQL_SUCCESS);
    ASSERT_EQ(SQLAllocHandle(SQL_HANDLE_STMT, connection.handle(), &second), SQL_SUCCESS);
    ASSERT_EQ(SQLAllocStmt(connection.handle(), &third), SQL_SUCCESS);
    EXPECT_EQ(testDriverStatementCounts().allocated, 3);
    EXPECT_EQ(testDriverStatementCounts().freed, 0);

    ASSERT_EQ(SQLFreeStmt(first, SQL_DROP), SQL_SUCCESS);
    ASSERT_EQ(SQLFreeHandle(SQL_HANDLE_STMT, second), SQL_SUCCESS);
    StatementCounts counts = testDriverStatementCounts();
    EXPECT_EQ(counts.allocated, 3);
    EXPECT_EQ(counts.freed, 2);
    EXPECT_EQ(counts.open(), 1) << "the counts must show the handle still open";

    // Closing a cursor or unbinding frees nothing.
    ASSERT_TRUE(succeeded(executeDirect(third, u"SELECT 1")));
    SQLFreeStmt(third, SQL_CLOSE);
    SQLFreeStmt(third, SQL_UNBIND);
    EXPECT_EQ(testDriverStatementCounts().freed, 2);

    ASSERT_EQ(SQLFreeStmt(third, SQL_DROP), SQL_SUCCESS);
    counts = testDriverStatementCounts();
    EXPECT_EQ(counts.allocated, 3);
    EXPECT_EQ(counts.freed, 3);
    EXPECT_EQ(counts.freedByDisconnect, 0);
}

TEST_F(TestDriverCountTest, CountsStatementsADisconnectTakesWithIt) {
    {
        OdbcConnection connection = connect(dsn::TestDriver);
        SQLHSTMT kept = SQL_NULL_HSTMT;
        ASSERT_EQ(SQLAllocStmt(connection.handle(), &kept), SQL_SUCCESS);
        ASSERT_EQ(SQLAllocStmt(connection.handle(), &kept), SQL_SUCCESS);
        EXPECT_EQ(testDriverStatementCounts().open(), 2);
    } // disconnects with both statements still allocated
    StatementCounts counts = testDriverStatementCounts();
    EXPECT_EQ(counts.allocated, 2);
    EXPECT_EQ(counts.freed, 2);
    EXPECT_EQ(counts.freedByDisconnect, 2);
}

TEST_F(TestDriverCountTest, CountsOnlyStatementsOfTheTestDriver) {
    OdbcConnection sqlite = connect(dsn::SQLite);
    OdbcStatement statement(sqlite);
    EXPECT_EQ(testDriverStatementCounts().allocated, 0);
}

TEST_F(TestDriverCountTest, CountsConnections) {
    {
        OdbcConnection first = connect(dsn::TestDriver);
        OdbcConnection second = connect(dsn::Access);
        EXPECT_EQ(testDriverConnectionCounts().opened, 2);
        EXPECT_EQ(testDriverConnectionCounts().open(), 2);
    }
    EXPECT_EQ(testDriverConnectionCounts().closed, 2);
    // The counts survive the driver manager unloading the driver after its last
    // connection: a fresh connection adds to them.
    connect(dsn::TestDriver);
    EXPECT_EQ(testDriverConnectionCounts().opened, 3);
    EXPECT_EQ(testDriverConnectionCounts().open(), 0);
}

// --- Diagnostics the driver adds --------------------------------------------------

class TestDriverDiagnosticsTest : public TestDriverTest {};

TEST_F(TestDriverDiagnosticsTest, ConnectsWithInformationOnlyWhenToldTo) {
    EXPECT_EQ(connect(dsn::TestDriver).connectResult(), SQL_SUCCESS);
    OdbcConnection connection = connect(dsn::ConnectInfo);
    EXPECT_EQ(connection.connectResult(), SQL_SUCCESS_WITH_INFO);
    ASSERT_EQ(connection.connectRecords().size(), 1u);
    EXPECT_EQ(connection.connectRecords()[0].state, u"01S02");
    EXPECT_NE(connection.connectRecords()[0].message.find(u"01S02"), std::u16string::npos);
    // The ODBC 2 error call sees it, and the connection works.
    EXPECT_EQ(onlyState(errorRecords(SQL_NULL_HENV, connection.handle(), SQL_NULL_HSTMT)), u"01S02");
    EXPECT_EQ(queryValue(connection, u"SELECT 1"), u"1");
}

// An ODBC 3 application gets the same records; the driver manager still collects
// them from this driver through SQLError, and keeps the ODBC 3 form of a state.
TEST_F(TestDriverDiagnosticsTest, ReachesAnOdbc3ApplicationToo) {
    OdbcConnection connection(dsn::ConnectInfo, u"", u"", OdbcBehaviour::Odbc3);
    EXPECT_EQ(connection.connectResult(), SQL_SUCCESS_WITH_INFO);
    ASSERT_EQ(connection.connectRecords().size(), 1u);
    EXPECT_EQ(connection.connectRecords()[0].state, u"01S02");

    OdbcConnection refusing(addDataSource({{"FailPattern", "refused"}, {"FailState", "42000"}}), u"", u"",
                            OdbcBehaviour::Odbc3);
    OdbcStatement statement(refusing);
    EXPECT_EQ(executeDirect(statement.handle(), u"SELECT 'refused'"), SQL_ERROR);
    EXPECT_EQ(onlyState(diagnosticRecords(SQL_HANDLE_STMT, statement.handle())), u"42000");
}

TEST_F(TestDriverDiagnosticsTest, ExecutesWithInformationWhenToldTo) {
    OdbcConnection connection = connect(dsn::ExecInfo);
    OdbcStatement statement(connection);
    EXPECT_EQ(statement.execute(u"CREATE TABLE t (id INTEGER)"), SQL_SUCCESS_WITH_INFO);
    EXPECT_EQ(onlyState(diagnosticRecords(SQL_HANDLE_STMT, statement.handle())), u"01S02");
    EXPECT_EQ(statement.execute(u"INSERT INTO t VALUES (5)"), SQL_SUCCESS_WITH_INFO);
    EXPECT_EQ(onlyState(errorRecords(SQL_NULL_HENV, SQL_NULL_HDBC, statement.handle())), u"01S02");
    // The statements ran.
    EXPECT_EQ(queryValue(connect(dsn::SQLite), u"SELECT id FROM t"), u"5");
}

class TestDriverFailureTest : public TestDriverTest {
protected:
    void SetUp() override {
        TestDriverTest::SetUp();
        executeSql(connect(dsn::SQLite), u"CREATE TABLE kept (id INTEGER)");
        refusing_ = addDataSource({{"FailPattern", "drop table"}, {"FailState", "23000"}});
    }
    std::u16string refusing_;
};

TEST_F(TestDriverFailureTest, RefusesMatchingStatementsWithTheChosenState) {
    OdbcConnection connection = connect(refusing_);
    OdbcStatement statement(connection);
    EXPECT_EQ(executeDirect(statement.handle(), u"DROP TABLE kept"), SQL_ERROR);
    std::vector<DiagnosticRecord> records = diagnosticRecords(SQL_HANDLE_STMT, statement.handle());
    EXPECT_EQ(onlyState(records), u"23000");
    ASSERT_FALSE(records.empty());
    EXPECT_EQ(records[0].nativeError, 1);
    EXPECT_NE(records[0].message.find(u"DROP TABLE kept"), std::u16string::npos);
    // The real driver never saw it.
    EXPECT_EQ(queryValue(connect(dsn::SQLite), u"SELECT COUNT(*) FROM kept"), u"0");
}

TEST_F(TestDriverFailureTest, RefusesAtPrepareTooAndReportsThroughTheOdbc2ErrorCall) {
    OdbcConnection connection = connect(refusing_);
    OdbcStatement statement(connection);
    std::u16string sql = u"drop   TABLE kept";
    EXPECT_EQ(SQLPrepareW(statement.handle(), sqlText(sql), SQL_NTS), SQL_SUCCESS) << "the pattern is not matched";
    sql = u"Drop Table kept";
    EXPECT_EQ(SQLPrepareW(statement.handle(), sqlText(sql), SQL_NTS), SQL_ERROR);
    EXPECT_EQ(onlyState(errorRecords(SQL_NULL_HENV, SQL_NULL_HDBC, statement.handle())), u"23000");
}

// The driver manager gives an ODBC 2 application (an environment from SQLAllocEnv,
// as the library makes) the ODBC 2 form of an ODBC 3 state, as it would a real
// driver's: a driver's 42000 reaches the library as 37000.
TEST_F(TestDriverFailureTest, ReachesAnOdbc2ApplicationInTheOdbc2FormOfTheState) {
    OdbcConnection connection = connect(addDataSource({{"FailPattern", "kept"}, {"FailState", "42000"}}));
    OdbcStatement statement(connection);
    EXPECT_EQ(executeDirect(statement.handle(), u"SELECT * FROM kept"), SQL_ERROR);
    EXPECT_EQ(onlyState(diagnosticRecords(SQL_HANDLE_STMT, statement.handle())), u"37000");
}

TEST_F(TestDriverFailureTest, LetsOtherStatementsRunAndClearsTheFailureRecords) {
    OdbcConnection connection = connect(refusing_);
    OdbcStatement statement(connection);
    EXPECT_EQ(executeDirect(statement.handle(), u"DROP TABLE kept"), SQL_ERROR);
    EXPECT_EQ(executeDirect(statement.handle(), u"INSERT INTO kept VALUES (1)"), SQL_SUCCESS);
    EXPECT_TRUE(diagnosticRecords(SQL_HANDLE_STMT, statement.handle()).empty());
    EXPECT_EQ(queryValue(connection, u"SELECT COUNT(*) FROM kept"), u"1");
}

TEST_F(TestDriverFailureTest, PassesOnTheRealDriversOwnFailures) {
    OdbcConnection connection = connect(refusing_);
    OdbcStatement statement(connection);
    EXPECT_EQ(executeDirect(statement.handle(), u"SELECT * FROM missing"), SQL_ERROR);
    std::vector<DiagnosticRecord> records = diagnosticRecords(SQL_HANDLE_STMT, statement.handle());
    ASSERT_FALSE(records.empty());
    EXPECT_NE(records[0].message.find(u"missing"), std::u16string::npos);
}

} // namespace
} // namespace tabra::test
