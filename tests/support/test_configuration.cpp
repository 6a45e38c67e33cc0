#include "support/test_configuration.h"

#include "support/private_data_sources.h"
#include "support/test_text.h"

#include <cstdlib>

#ifndef TABRA_TEST_DRIVER_PATH
#error "TABRA_TEST_DRIVER_PATH must name the test driver library"
#endif
#ifndef TABRA_TEST_ODBC_DIR
#error "TABRA_TEST_ODBC_DIR must name the private ODBC configuration directory"
#endif

namespace tabra::test {
namespace {

std::string environment(const char *name) {
    const char *value = std::getenv(name);
    return value ? value : "";
}

std::optional<DataSource> serverDataSource(const char *prefix) {
    std::string dsn = environment((std::string(prefix) + "_DSN").c_str());
    if (dsn.empty()) return std::nullopt;
    return DataSource{toUtf16(dsn), toUtf16(environment((std::string(prefix) + "_USER").c_str())),
                      toUtf16(environment((std::string(prefix) + "_PASSWORD").c_str()))};
}

} // namespace

const char *backendName(Backend backend) {
    switch (backend) {
    case Backend::SQLite: return "SQLite";
    case Backend::PostgreSQL: return "PostgreSQL";
    case Backend::MariaDB: return "MariaDB";
    }
    return "?";
}

std::vector<Backend> allBackends() { return {Backend::SQLite, Backend::PostgreSQL, Backend::MariaDB}; }

std::vector<Backend> serverBackends() { return {Backend::PostgreSQL, Backend::MariaDB}; }

std::optional<DataSource> configuredDataSource(Backend backend) {
    switch (backend) {
    case Backend::SQLite: return DataSource{std::u16string(dsn::SQLite), u"", u""};
    case Backend::PostgreSQL: return serverDataSource("TABRA_TEST_PG");
    case Backend::MariaDB: return serverDataSource("TABRA_TEST_MARIADB");
    }
    return std::nullopt;
}

bool serversRequired() { return environment("TABRA_REQUIRE_SERVERS") == "1"; }

std::filesystem::path scratchRoot() {
    std::string configured = environment("TABRA_TEST_DIR");
    std::filesystem::path root = configured.empty() ? std::filesystem::temp_directory_path() / "tabra-tests"
                                                    : std::filesystem::path(configured);
    std::filesystem::create_directories(root);
    return root;
}

std::filesystem::path testDriverLibrary() { return TABRA_TEST_DRIVER_PATH; }

std::filesystem::path odbcSystemDirectory() { return TABRA_TEST_ODBC_DIR; }

} // namespace tabra::test
