// Preparing names and formatting statements: the text work every statement of the
// library goes through. With a connection each call asks the driver for its quote
// character, and for a plain name its identifier case and its keywords (nothing is
// cached from call to call), so the connected figures include those round trips; the
// figures without a connection are the text work alone.
//
// PrepareNameOnDataSource runs on the data source named by TABRA_BENCH_DSN (with
// TABRA_BENCH_USER and TABRA_BENCH_PASSWORD; the servers of tools/dev-env.sh, e.g.
// TABRA_BENCH_DSN=TabraTestMariaDB after sourcing BUILD/dev-env.sh) and is skipped
// without it.
#include "tabra_sqltext.h"

#include <sql.h>
#include <sqlext.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

std::u16string utf16(const char *text) { return std::u16string(text, text + std::char_traits<char>::length(text)); }

// A connection to a private SQLite data source (the quote character is '"'), or to
// the data source a benchmark names.
class QuotingConnection {
public:
    QuotingConnection(const char *dataSource, const char *user, const char *password) {
        std::setlocale(LC_CTYPE, "C.UTF-8");
        SQLAllocEnv(&environment_);
        SQLAllocConnect(environment_, &connection_);
        std::u16string name = utf16(dataSource), login = utf16(user), secret = utf16(password);
        auto orNull = [](std::u16string &text) { return text.empty() ? nullptr : reinterpret_cast<SQLWCHAR *>(text.data()); };
        SQLRETURN rc = SQLConnectW(connection_, reinterpret_cast<SQLWCHAR *>(name.data()), SQL_NTS, orNull(login), SQL_NTS,
                                   orNull(secret), SQL_NTS);
        if (rc != SQL_SUCCESS && rc != SQL_SUCCESS_WITH_INFO) throw std::runtime_error("cannot connect");
    }
    QuotingConnection() {
        std::setlocale(LC_CTYPE, "C.UTF-8");
        directory_ = std::filesystem::temp_directory_path() / ("tabra-bench-sqltext-" + std::to_string(getpid()));
        std::filesystem::create_directories(directory_);
        std::ofstream(directory_ / "odbc.ini") << "[TabraBenchText]\nDriver=" TABRA_BENCH_SQLITE3_DRIVER "\nDatabase="
                                               << (directory_ / "text.sqlite").string() << "\n";
        setenv("ODBCINI", (directory_ / "odbc.ini").c_str(), 1);
        SQLAllocEnv(&environment_);
        SQLAllocConnect(environment_, &connection_);
        std::u16string name = u"TabraBenchText";
        SQLRETURN rc = SQLConnectW(connection_, reinterpret_cast<SQLWCHAR *>(name.data()), SQL_NTS, nullptr, 0, nullptr, 0);
        if (rc != SQL_SUCCESS && rc != SQL_SUCCESS_WITH_INFO) throw std::runtime_error("cannot connect");
    }
    ~QuotingConnection() {
        SQLDisconnect(connection_);
        SQLFreeConnect(connection_);
        SQLFreeEnv(environment_);
        std::error_code ignored;
        std::filesystem::remove_all(directory_, ignored);
    }
    SQLHDBC handle() const { return connection_; }

private:
    std::filesystem::path directory_;
    SQLHENV environment_ = SQL_NULL_HENV;
    SQLHDBC connection_ = SQL_NULL_HDBC;
};

QuotingConnection &connection() {
    static QuotingConnection shared;
    return shared;
}

void PrepareNameWithoutConnection(benchmark::State &state) {
    char16_t out[300];
    for (auto _ : state) {
        int32_t length = Tabra_PrepareNameForSql(out, 300, 1);
        benchmark::DoNotOptimize(length);
        std::u16string(u"dbo.Order Details").copy(out, 17);
        out[17] = u'\0';
    }
}
BENCHMARK(PrepareNameWithoutConnection);

void PrepareNameForSql92(benchmark::State &state) {
    SQLHDBC h = connection().handle();
    char16_t out[300];
    for (auto _ : state) {
        Tabra_PrepareNameForSql92(h, u"dbo.Order Details", out, 300, 0);
        benchmark::DoNotOptimize(out[0]);
    }
}
BENCHMARK(PrepareNameForSql92);

void PrepareNameOnDataSource(benchmark::State &state) {
    const char *dataSource = std::getenv("TABRA_BENCH_DSN");
    if (dataSource == nullptr) {
        state.SkipWithError("TABRA_BENCH_DSN is not set");
        return;
    }
    const char *user = std::getenv("TABRA_BENCH_USER"), *password = std::getenv("TABRA_BENCH_PASSWORD");
    static QuotingConnection server(dataSource, user ? user : "", password ? password : "");
    const char16_t *name = state.range(0) ? u"customers" : u"Order Details"; // plain, or quoted at once
    char16_t out[300];
    for (auto _ : state) {
        Tabra_PrepareNameForSql92(server.handle(), name, out, 300, 0);
        benchmark::DoNotOptimize(out[0]);
    }
}
BENCHMARK(PrepareNameOnDataSource)->Arg(0)->Arg(1);

void QuoteCharacterRoundTrip(benchmark::State &state) {
    // The driver call alone, for comparison with the preparation above.
    SQLHDBC h = connection().handle();
    SQLWCHAR quote[5];
    SQLSMALLINT length = 0;
    for (auto _ : state) {
        SQLGetInfoW(h, SQL_IDENTIFIER_QUOTE_CHAR, quote, sizeof quote, &length);
        benchmark::DoNotOptimize(quote[0]);
    }
}
BENCHMARK(QuoteCharacterRoundTrip);

void FormatStatement(benchmark::State &state) {
    SQLHDBC h = state.range(0) ? connection().handle() : nullptr;
    char16_t out[1000];
    for (auto _ : state) {
        Tabra_SprintfSqlStatement(h, out, 1000, u"UPDATE %t%.%t SET %s WHERE %f = %s", u"sales", u"Order Details",
                                  u"Quantity = Quantity + 1", u"Order Id", u"4711", nullptr, nullptr, nullptr);
        benchmark::DoNotOptimize(out[0]);
    }
}
BENCHMARK(FormatStatement)->Arg(0)->Arg(1);

void PrepareNameList(benchmark::State &state) {
    SQLHDBC h = connection().handle();
    std::u16string list;
    for (int i = 0; i < 50; ++i) list += u"Column Number " + std::u16string(1, static_cast<char16_t>(u'A' + i % 26)) + u"\t";
    std::u16string buffer(4000, u'\0');
    for (auto _ : state) {
        list.copy(buffer.data(), list.size());
        buffer[list.size()] = u'\0';
        Tabra_PrepareNameListForSql92(h, buffer.data(), 4000, u'\t', u',');
        benchmark::DoNotOptimize(buffer[0]);
    }
    state.SetItemsProcessed(state.iterations() * 50);
}
BENCHMARK(PrepareNameList);

} // namespace
