// Fixtures for tests that talk to databases.
//
// BackendTest runs a test once per backend (SQLite, PostgreSQL, MariaDB). Each run
// starts on an empty database: a new SQLite file, or the server's test database
// emptied of everything the test user owns. A backend whose server is not configured
// is skipped, or fails when TABRA_REQUIRE_SERVERS=1.
//
//     class CatalogTest : public tabra::test::BackendTest {};
//     TEST_P(CatalogTest, ListsTables) { auto connection = connect(); ... }
//     TABRA_INSTANTIATE_BACKEND_TEST(CatalogTest);
//
// Test names end in the backend's name ("Backends/CatalogTest.ListsTables/MariaDB"),
// which is how the ctest labels sqlite, postgresql and mariadb select them.
//
// TestDriverTest is for tests on the test driver's data sources (dsn::Access, ...).
// It starts on an empty SQLite file with the driver's counts at zero. Name such
// test suites with "TestDriver" in them (the ctest label testdriver selects those).
#pragma once

#include "support/odbc_handles.h"
#include "support/private_data_sources.h"
#include "support/test_configuration.h"
#include "support/test_driver_control.h"

#include <gtest/gtest.h>

#include <string>

namespace tabra::test {

class BackendTest : public ::testing::TestWithParam<Backend> {
protected:
    void SetUp() override;

    Backend backend() const { return GetParam(); }
    const DataSource &dataSource() const { return dataSource_; }
    // A raw connection to the backend's data source.
    OdbcConnection connect() const { return OdbcConnection(dataSource_); }

private:
    DataSource dataSource_;
};

class TestDriverTest : public ::testing::Test {
protected:
    void SetUp() override;

    // A raw connection to one of the data sources (dsn::TestDriver, dsn::Access, ...).
    static OdbcConnection connect(std::u16string_view dataSource) { return OdbcConnection(dataSource); }
    // Adds a test-driver data source with the given attributes; returns its name.
    static std::u16string addDataSource(const Attributes &attributes) {
        return PrivateDataSources::instance().addTestDriverDataSource(attributes);
    }
};

// Parameter names for GoogleTest: the backend's name.
std::string backendTestName(const ::testing::TestParamInfo<Backend> &info);

} // namespace tabra::test

#define TABRA_INSTANTIATE_BACKEND_TEST(suite)                                                              \
    INSTANTIATE_TEST_SUITE_P(Backends, suite, ::testing::ValuesIn(::tabra::test::allBackends()),           \
                             ::tabra::test::backendTestName)

#define TABRA_INSTANTIATE_SERVER_BACKEND_TEST(suite)                                                       \
    INSTANTIATE_TEST_SUITE_P(Servers, suite, ::testing::ValuesIn(::tabra::test::serverBackends()),         \
                             ::tabra::test::backendTestName)
