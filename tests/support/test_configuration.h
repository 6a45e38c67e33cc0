// Where the tests find their databases. tools/run-tests.sh starts the servers and
// describes them through environment variables; without them only SQLite (always
// there, a file) and the test driver run, and server tests are skipped:
//
//   TABRA_TEST_PG_DSN, TABRA_TEST_PG_USER, TABRA_TEST_PG_PASSWORD
//   TABRA_TEST_MARIADB_DSN, TABRA_TEST_MARIADB_USER, TABRA_TEST_MARIADB_PASSWORD
//   TABRA_REQUIRE_SERVERS=1   a server that is not configured fails its tests
//   TABRA_TEST_DIR            root of the scratch directories (default: the temp dir)
//
// The driver registrations (odbcinst.ini) are in the build tree (ODBCSYSINI); the
// server data sources are in the odbc.ini beside it, written by the script.
#pragma once

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace tabra::test {

enum class Backend { SQLite, PostgreSQL, MariaDB };

// "SQLite", "PostgreSQL", "MariaDB": also the suffix of parametrised test names,
// which is how ctest labels select the tests of one backend.
const char *backendName(Backend backend);
std::vector<Backend> allBackends();
std::vector<Backend> serverBackends();
inline void PrintTo(Backend backend, std::ostream *out) { *out << backendName(backend); }

// What the library's data source record holds: name, user, password.
struct DataSource {
    std::u16string name;
    std::u16string user;
    std::u16string password;
};

// The data source of a backend, or nothing when its server is not configured.
// SQLite is always configured.
std::optional<DataSource> configuredDataSource(Backend backend);

// True when TABRA_REQUIRE_SERVERS=1: then a missing server is a failure, not a skip.
bool serversRequired();

// Root of the scratch directories; created on demand.
std::filesystem::path scratchRoot();

// The test driver library, as registered in the private odbcinst.ini.
std::filesystem::path testDriverLibrary();

// The private driver registrations (odbcinst.ini) in the build tree.
std::filesystem::path odbcSystemDirectory();

} // namespace tabra::test
