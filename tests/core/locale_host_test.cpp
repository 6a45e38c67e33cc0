// A host that never calls setlocale, run as a subprocess on the SQLite data source (an
// ANSI driver): with the library's coercion its text round-trips; with the coercion
// switched off nothing is stored and the user is told why (message kTextNotCarried).
#include "support/backend_test.h"
#include "support/test_text.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

namespace tabra::test {
namespace {

// The host's report for the environment prefix (e.g. "TABRA_COERCE_C_LOCALE=0").
std::string runHost(const std::string &environment) {
    const std::string command = "env " + environment + " " TABRA_LOCALE_HOST " " + toUtf8(dsn::SQLite) + " 2>&1";
    std::string output;
    if (FILE *pipe = popen(command.c_str(), "r")) {
        std::array<char, 256> chunk;
        while (fgets(chunk.data(), chunk.size(), pipe) != nullptr) output += chunk.data();
        EXPECT_EQ(pclose(pipe), 0) << output;
    }
    return output;
}

class LocaleHostSQLiteTest : public TestDriverTest {};

TEST_F(LocaleHostSQLiteTest, TextRoundTripsOrIsRefusedWithAMessage) {
    const struct {
        const char *environment;
        const char *expected;
    } cases[] = {
        {"-u TABRA_COERCE_C_LOCALE",
         "character type: C.UTF-8\ninserted: 1\nread: 004d 00fc 006c 006c 0065 0072 0020 03a9\nrefused: 0\n"},
        {"TABRA_COERCE_C_LOCALE=0", "character type: C\ninserted: 2\nread:\nrefused: 1\n"},
    };
    for (const auto &c : cases) {
        PrivateDataSources::instance().freshSqliteDatabase();
        EXPECT_EQ(runHost(c.environment), c.expected) << c.environment;
    }
}

} // namespace
} // namespace tabra::test
