// Opening and closing connections from a data source record, the questions asked of
// an open connection, and how the database is classified.
#include "core/resource_ids.h"
#include "support/backend_test.h"
#include "support/data_source_record.h"
#include "support/script_lines.h"
#include "support/scripted_run.h"
#include "support/test_text.h"
#include "tabra_connection.h"
#include "tabra_window_constants.h"

#include <gtest/gtest.h>

namespace tabra::test {
namespace {

namespace ids = core::ids;
using ids::kErrorDialog;

// A pair of connection handles that is always closed at the end of the test.
struct HandlePair {
    SQLHENV environment = SQL_NULL_HENV;
    SQLHDBC connection = SQL_NULL_HDBC;
    ~HandlePair() { Tabra_DisconnectDataSource(&environment, &connection); }
};

class DataSourceConnectionTest : public BackendTest {};

TEST_P(DataSourceConnectionTest, ConnectsAnswersAndDisconnects) {
    const DataSource &source = dataSource();
    DataSourceInfo record = dataSourceRecord(source.name, source.user, source.password);
    HandlePair pair;
    ScriptedRun run; // nothing may be shown
    ASSERT_EQ(Tabra_ConnectDataSource(&record, &pair.environment, &pair.connection), 0);
    ASSERT_NE(pair.environment, nullptr);
    ASSERT_NE(pair.connection, nullptr);

    // A second connect on the open pair is a no-op that reports success.
    SQLHDBC before = pair.connection;
    DataSourceInfo other = dataSourceRecord(u"NoSuchDataSource");
    EXPECT_EQ(Tabra_ConnectDataSource(&other, &pair.environment, &pair.connection), 0);
    EXPECT_EQ(pair.connection, before);

    // The info queries hand the buffer length to the driver as bytes: half is used.
    char16_t name[100];
    Tabra_GetDataSourceName(pair.connection, name, 100);
    EXPECT_EQ(std::u16string(name), source.name.substr(0, 49));
    char16_t tiny[8];
    Tabra_GetDataSourceName(pair.connection, tiny, 8);
    EXPECT_EQ(std::u16string(tiny), source.name.substr(0, 3));

    char16_t version[60] = {};
    EXPECT_EQ(Tabra_GetDriverVersion(pair.connection, version, 60), SQL_SUCCESS);
    EXPECT_FALSE(std::u16string(version).empty());
    char16_t database[200] = {};
    Tabra_GetDatabaseName(pair.connection, database, 200);

    struct Facts {
        char16_t delimiter;
        uint32_t schemaUsage;
        bool namesItsDatabase;
    };
    const Facts facts = backend() == Backend::SQLite       ? Facts{u'"', 0u, false}
                        : backend() == Backend::PostgreSQL ? Facts{u'"', 0x1du, true}
                                                           : Facts{u'`', 0u, true};
    EXPECT_EQ(Tabra_GetDelimiter(pair.connection), facts.delimiter);
    EXPECT_EQ(Tabra_GetSchemaUsage(pair.connection), facts.schemaUsage);
    if (facts.namesItsDatabase) { EXPECT_FALSE(std::u16string(database).empty()); }
    // "SQLite", "PostgreSQL" and "MariaDB" are none of the kinds the library tells apart.
    EXPECT_EQ(Tabra_GetDatabaseType(pair.connection), DbOther);

    Tabra_DisconnectDataSource(&pair.environment, &pair.connection);
    EXPECT_EQ(pair.environment, nullptr);
    EXPECT_EQ(pair.connection, nullptr);
    EXPECT_FALSE(run.failed());
    EXPECT_TRUE(run.records(TABRA_RECORD_DIALOG_OPENED).empty());
}

TABRA_INSTANTIATE_BACKEND_TEST(DataSourceConnectionTest);

class DataSourceLoginTest : public BackendTest {};

TEST_P(DataSourceLoginTest, AWrongPasswordShowsTheDiagnosticAndLeavesBothHandlesNull) {
    const DataSource &source = dataSource();
    DataSourceInfo record = dataSourceRecord(source.name, source.user, u"not-the-password");
    HandlePair pair;
    ScriptedRun run;
    run.queue(click(kErrorDialog.id, IDOK));
    EXPECT_EQ(Tabra_ConnectDataSource(&record, &pair.environment, &pair.connection), -1);
    EXPECT_EQ(pair.environment, nullptr);
    EXPECT_EQ(pair.connection, nullptr);
    EXPECT_FALSE(run.failed());
    EXPECT_EQ(run.records(TABRA_RECORD_DIALOG_CLOSED, kErrorDialog.id).size(), 1u);
    std::u16string shown = run.closedControlText(kErrorDialog.id, kErrorDialog.vendor) +
                           run.closedControlText(kErrorDialog.id, kErrorDialog.component) +
                           run.closedControlText(kErrorDialog.id, kErrorDialog.message);
    EXPECT_FALSE(shown.empty());
    EXPECT_EQ(run.closedControlText(kErrorDialog.id, kErrorDialog.state).size(), 5u);
}

TABRA_INSTANTIATE_SERVER_BACKEND_TEST(DataSourceLoginTest);

class DataSourceConnectionTestDriverTest : public TestDriverTest {};

TEST_F(DataSourceConnectionTestDriverTest, BadArgumentsAndAnEmptyName) {
    HandlePair pair;
    ScriptedRun run;
    DataSourceInfo record = dataSourceRecord(u"");
    EXPECT_EQ(Tabra_ConnectDataSource(nullptr, &pair.environment, &pair.connection), -1);
    EXPECT_EQ(Tabra_ConnectDataSource(&record, nullptr, &pair.connection), -1);
    EXPECT_EQ(Tabra_ConnectDataSource(&record, &pair.environment, nullptr), -1);
    EXPECT_TRUE(run.records(TABRA_RECORD_MESSAGE).empty());

    run.queue(answer(ids::kMessage.noDataSource, "ok"));
    EXPECT_EQ(Tabra_ConnectDataSource(&record, &pair.environment, &pair.connection), -1);
    EXPECT_EQ(pair.environment, nullptr);
    EXPECT_EQ(pair.connection, nullptr);
    EXPECT_FALSE(run.failed());
    Tabra_DisconnectDataSource(nullptr, &pair.connection); // does nothing, no crash
}

TEST_F(DataSourceConnectionTestDriverTest, AnUnknownDataSourceShowsTheDriverManagersDiagnostic) {
    HandlePair pair;
    DataSourceInfo record = dataSourceRecord(u"NoSuchDataSourceAnywhere");
    ScriptedRun run;
    run.queue(click(kErrorDialog.id, IDOK));
    EXPECT_EQ(Tabra_ConnectDataSource(&record, &pair.environment, &pair.connection), -1);
    EXPECT_EQ(pair.connection, nullptr);
    EXPECT_EQ(run.closedControlText(kErrorDialog.id, kErrorDialog.state), u"IM002");
    EXPECT_EQ(run.closedControlText(kErrorDialog.id, kErrorDialog.vendor), u"unixODBC");
    EXPECT_EQ(run.closedControlText(kErrorDialog.id, kErrorDialog.component), u"Driver Manager");
}

TEST_F(DataSourceConnectionTestDriverTest, EmptyLoginFieldsReachTheDriverAsNull) {
    for (const char16_t *user : {u"", u"scott"}) {
        HandlePair pair;
        DataSourceInfo record = dataSourceRecord(dsn::TestDriver, user, u"");
        ASSERT_EQ(Tabra_ConnectDataSource(&record, &pair.environment, &pair.connection), 0);
        EXPECT_EQ(testDriverLastLogin().userGiven, *user != u'\0' ? 1 : 0) << toUtf8(user);
        EXPECT_EQ(testDriverLastLogin().passwordGiven, 0);
    }
}

TEST_F(DataSourceConnectionTestDriverTest, InformationalConnectIsSuccessWithoutAMessage) {
    HandlePair pair;
    DataSourceInfo record = dataSourceRecord(dsn::ConnectInfo);
    ScriptedRun run;
    EXPECT_EQ(Tabra_ConnectDataSource(&record, &pair.environment, &pair.connection), 0);
    EXPECT_NE(pair.connection, nullptr);
    EXPECT_FALSE(run.failed());
    EXPECT_TRUE(run.records(TABRA_RECORD_DIALOG_OPENED).empty());
}

TEST_F(DataSourceConnectionTestDriverTest, EveryConnectionIsClosedOnEveryPath) {
    {
        HandlePair pair;
        DataSourceInfo record = dataSourceRecord(dsn::TestDriver);
        ASSERT_EQ(Tabra_ConnectDataSource(&record, &pair.environment, &pair.connection), 0);
        EXPECT_EQ(testDriverConnectionCounts().open(), 1);
    }
    EXPECT_EQ(testDriverConnectionCounts().open(), 0);
    // A login the driver refuses: the database's folder does not exist.
    std::u16string broken = addDataSource({{"Database", "/nonexistent/folder/db.sqlite"}});
    HandlePair pair;
    DataSourceInfo record = dataSourceRecord(broken);
    ScriptedRun run;
    run.queue(click(kErrorDialog.id, IDOK));
    EXPECT_EQ(Tabra_ConnectDataSource(&record, &pair.environment, &pair.connection), -1);
    EXPECT_EQ(pair.connection, nullptr);
    EXPECT_EQ(testDriverConnectionCounts().open(), 0);
    EXPECT_EQ(testDriverStatementCounts().open(), 0);
}

TEST_F(DataSourceConnectionTestDriverTest, DatabaseTypeComesFromTheDbmsName) {
    struct Case {
        std::string dbmsName;
        int32_t expected;
    };
    const Case cases[] = {
        {"ACCESS", DbAccess},          {"access", DbAccess},
        {"Microsoft SQL Server", DbSqlServer}, {"MICROSOFT sql server", DbSqlServer},
        {"Oracle8", DbOracle},         {"ORACLE", DbOracle},        {"oracle 19c", DbOracle},
        {"Oracl", DbOther},            {"MySQL", DbMySql},          {"MySQL Server", DbOther},
        {"PROGRESS", DbProgress},      {"Excel", DbExcel},          {"EXCEL 2003", DbOther},
        {"SQLite", DbOther},           {"", DbOther},
        {"Oracle, told with a product name far longer than fifty characters", DbOracle},
    };
    for (const Case &c : cases) {
        std::u16string source = addDataSource({{"DBMSName", c.dbmsName}});
        auto connection = connect(source);
        EXPECT_EQ(Tabra_GetDatabaseType(connection.handle()), c.expected) << c.dbmsName;
    }
    auto access = connect(dsn::Access);
    EXPECT_EQ(Tabra_GetDatabaseType(access.handle()), DbAccess);
    EXPECT_EQ(Tabra_GetDatabaseType(nullptr), DbOther);
}

TEST_F(DataSourceConnectionTestDriverTest, QuoteCharacterAndSchemaUsageAreAskedEachTime) {
    auto mysql = connect(dsn::MySql);
    EXPECT_EQ(Tabra_GetDelimiter(mysql.handle()), u'`');
    auto blank = connect(dsn::BlankQuote);
    EXPECT_EQ(Tabra_GetDelimiter(blank.handle()), u' ');
    auto schemas = connect(dsn::Schemas);
    EXPECT_EQ(Tabra_GetSchemaUsage(schemas.handle()), 0x1fu);
    EXPECT_EQ(Tabra_GetSchemaUsage(nullptr), 0u);
}

TEST_F(DataSourceConnectionTestDriverTest, InfoQueriesOnAClosedConnection) {
    char16_t buffer[10] = {u'x', u'y'};
    Tabra_GetDataSourceName(nullptr, buffer, 10);
    EXPECT_EQ(buffer[0], u'\0');
    buffer[0] = u'x';
    Tabra_GetDataSourceName(nullptr, buffer, 0); // length 0: untouched
    EXPECT_EQ(buffer[0], u'x');
    Tabra_GetDatabaseName(nullptr, buffer, 10);
    EXPECT_EQ(buffer[0], u'\0');
    Tabra_GetDriverVersion(nullptr, nullptr, 10); // no crash
}

} // namespace
} // namespace tabra::test
