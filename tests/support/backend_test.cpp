#include "support/backend_test.h"

#include "support/test_text.h"

namespace tabra::test {
namespace {

// Drops everything the test user owns in the PostgreSQL test database (tables,
// views, sequences, schemas it made); the database and its public schema stay.
void emptyPostgreSqlDatabase(const DataSource &dataSource) {
    OdbcConnection connection(dataSource);
    executeSql(connection, u"DROP OWNED BY CURRENT_USER CASCADE");
}

// Drops and creates the MariaDB test database again, in utf8mb4.
void emptyMariaDbDatabase(const DataSource &dataSource) {
    OdbcConnection connection(dataSource);
    std::optional<std::u16string> name = queryValue(connection, u"SELECT DATABASE()");
    if (!name || name->empty()) throw std::runtime_error("the MariaDB data source names no database");
    executeSql(connection, u"DROP DATABASE IF EXISTS `" + *name + u"`");
    executeSql(connection, u"CREATE DATABASE `" + *name + u"` CHARACTER SET utf8mb4 COLLATE utf8mb4_general_ci");
}

} // namespace

void BackendTest::SetUp() {
    PrivateDataSources &sources = PrivateDataSources::instance();
    std::optional<DataSource> configured = configuredDataSource(backend());
    if (!configured) {
        if (serversRequired())
            GTEST_FAIL() << backendName(backend()) << " is required (TABRA_REQUIRE_SERVERS=1) but not configured";
        GTEST_SKIP() << backendName(backend()) << " server not configured (run tools/run-tests.sh)";
    }
    dataSource_ = *configured;
    switch (backend()) {
    case Backend::SQLite: sources.freshSqliteDatabase(); break;
    case Backend::PostgreSQL: emptyPostgreSqlDatabase(dataSource_); break;
    case Backend::MariaDB: emptyMariaDbDatabase(dataSource_); break;
    }
}

void TestDriverTest::SetUp() {
    PrivateDataSources::instance().freshSqliteDatabase();
    resetTestDriverCounts();
}

std::string backendTestName(const ::testing::TestParamInfo<Backend> &info) { return backendName(info.param); }

} // namespace tabra::test
