// Catalog reads through the library beside raw ODBC on the same data source: listing
// 5,000 tables, and reading the fields of a 200-column table. SQLite always;
// PostgreSQL too when TABRA_BENCH_PG_DSN, TABRA_BENCH_PG_USER and
// TABRA_BENCH_PG_PASSWORD name a data source the driver manager knows.
//
// Two raw baselines each: the bare catalog call with only the name column bound (the
// driver's floor), and the same ODBC calls the library has to make (the table list
// binds catalog, schema and table names; the field list counts the columns in one
// catalog call and fetches them in a second). The library's own cost is its time
// over the second baseline.
//
//   build/bench/tabra_bench --benchmark_filter=Catalog
#include "tabra_catalog.h"

#include <sql.h>
#include <sqlext.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr int kTables = 5000;
constexpr int kColumns = 200;

bool succeeded(SQLRETURN rc) { return rc == SQL_SUCCESS || rc == SQL_SUCCESS_WITH_INFO; }
SQLWCHAR *sqlText(std::u16string &text) { return reinterpret_cast<SQLWCHAR *>(text.data()); }

std::u16string ascii(const std::string &text) { return std::u16string(text.begin(), text.end()); }

// One connection with the bench schema: kTables small tables and one wide table.
class CatalogDatabase {
public:
    explicit CatalogDatabase(std::u16string connectText, bool connectByName, std::u16string user = u"",
                             std::u16string password = u"") {
        std::setlocale(LC_CTYPE, "C.UTF-8");
        SQLAllocEnv(&environment_);
        SQLAllocConnect(environment_, &connection_);
        SQLRETURN rc;
        if (connectByName) {
            rc = SQLConnectW(connection_, sqlText(connectText), SQL_NTS, user.empty() ? nullptr : sqlText(user), SQL_NTS,
                             password.empty() ? nullptr : sqlText(password), SQL_NTS);
        } else {
            SQLSMALLINT length = 0;
            rc = SQLDriverConnectW(connection_, nullptr, sqlText(connectText), SQL_NTS, nullptr, 0, &length,
                                   SQL_DRIVER_NOPROMPT);
        }
        if (!succeeded(rc)) throw std::runtime_error("cannot connect to the bench database");
        execute(u"DROP TABLE IF EXISTS bench_wide");
        std::u16string wide = u"CREATE TABLE bench_wide (c000 INTEGER";
        for (int i = 1; i < kColumns; ++i) wide += u", c" + ascii(std::to_string(1000 + i).substr(1)) + u" VARCHAR(20)";
        execute(wide + u")");
        if (countTables() < kTables) {
            execute(u"BEGIN");
            for (int i = 0; i < kTables; ++i)
                execute(u"CREATE TABLE IF NOT EXISTS bench_table_" + ascii(std::to_string(10000 + i)) + u" (id INTEGER)");
            execute(u"COMMIT");
        }
    }
    ~CatalogDatabase() {
        SQLDisconnect(connection_);
        SQLFreeConnect(connection_);
        SQLFreeEnv(environment_);
    }
    SQLHDBC connection() const { return connection_; }

    void execute(std::u16string sql) {
        SQLHSTMT statement;
        SQLAllocStmt(connection_, &statement);
        SQLExecDirectW(statement, sqlText(sql), SQL_NTS);
        SQLFreeStmt(statement, SQL_DROP);
    }
    int countTables() {
        std::vector<char16_t> list(400000);
        Tabra_GetTables(connection_, TABRA_TABLE_TYPE_TABLE, list.data(), static_cast<int32_t>(list.size()), u"\t");
        int count = 0;
        for (char16_t c : list) {
            if (c == u'\0') break;
            if (c == u'\t') ++count;
        }
        return count;
    }

private:
    SQLHENV environment_ = SQL_NULL_HENV;
    SQLHDBC connection_ = SQL_NULL_HDBC;
};

CatalogDatabase &sqliteDatabase() {
    static std::unique_ptr<CatalogDatabase> database = [] {
        auto file = std::filesystem::temp_directory_path() / ("tabra-catalog-bench-" + std::to_string(getpid()) + ".sqlite");
        return std::make_unique<CatalogDatabase>(ascii("Driver=" TABRA_BENCH_SQLITE3_DRIVER ";Database=" + file.string()),
                                                 false);
    }();
    return *database;
}

CatalogDatabase *postgresDatabase() {
    static std::unique_ptr<CatalogDatabase> database = []() -> std::unique_ptr<CatalogDatabase> {
        const char *dsn = std::getenv("TABRA_BENCH_PG_DSN");
        if (dsn == nullptr) return nullptr;
        const char *user = std::getenv("TABRA_BENCH_PG_USER");
        const char *password = std::getenv("TABRA_BENCH_PG_PASSWORD");
        return std::make_unique<CatalogDatabase>(ascii(dsn), true, ascii(user ? user : ""), ascii(password ? password : ""));
    }();
    return database.get();
}

CatalogDatabase *databaseFor(int which) { return which == 0 ? &sqliteDatabase() : postgresDatabase(); }

// SQLTablesW for tables with the given catalog columns bound as wide text.
void rawTables(SQLHDBC connection, std::initializer_list<SQLUSMALLINT> columns, int64_t &rows) {
    SQLHSTMT statement;
    SQLAllocStmt(connection, &statement);
    std::u16string types = u"'TABLE'";
    SQLTablesW(statement, nullptr, 0, nullptr, 0, nullptr, 0, sqlText(types), SQL_NTS);
    char16_t names[3][100];
    SQLLEN indicators[3];
    int bound = 0;
    for (SQLUSMALLINT column : columns) {
        SQLBindCol(statement, column, SQL_C_WCHAR, names[bound], sizeof names[bound], &indicators[bound]);
        ++bound;
    }
    while (SQLFetch(statement) == SQL_SUCCESS) ++rows;
    SQLFreeStmt(statement, SQL_DROP);
}

// SQLColumnsW on the wide table with the given columns bound; passes > 1 repeats the
// call, as a count before the fetch does.
void rawColumns(SQLHDBC connection, std::initializer_list<SQLUSMALLINT> columns, int passes, int64_t &rows) {
    SQLHSTMT statement;
    SQLAllocStmt(connection, &statement);
    std::u16string table = u"bench_wide";
    for (int pass = 0; pass < passes; ++pass) {
        SQLColumnsW(statement, nullptr, 0, nullptr, 0, sqlText(table), SQL_NTS, nullptr, 0);
        char16_t names[4][100];
        SQLLEN indicators[4];
        int bound = 0;
        if (pass == passes - 1) {
            for (SQLUSMALLINT column : columns) {
                SQLBindCol(statement, column, SQL_C_WCHAR, names[bound], sizeof names[bound], &indicators[bound]);
                ++bound;
            }
        }
        int64_t fetched = 0;
        while (SQLFetch(statement) == SQL_SUCCESS) ++fetched;
        if (pass == passes - 1) rows += fetched;
        SQLFreeStmt(statement, SQL_UNBIND);
        SQLFreeStmt(statement, SQL_CLOSE);
    }
    SQLFreeStmt(statement, SQL_DROP);
}

void CatalogRawTables(benchmark::State &state) {
    auto *database = databaseFor(static_cast<int>(state.range(0)));
    if (database == nullptr) return state.SkipWithError("TABRA_BENCH_PG_DSN not set");
    int64_t rows = 0;
    for (auto _ : state) rawTables(database->connection(), {3}, rows);
    state.counters["tables"] = static_cast<double>(rows) / static_cast<double>(state.iterations());
}

void CatalogRawTablesSameCalls(benchmark::State &state) {
    auto *database = databaseFor(static_cast<int>(state.range(0)));
    if (database == nullptr) return state.SkipWithError("TABRA_BENCH_PG_DSN not set");
    int64_t rows = 0;
    for (auto _ : state) rawTables(database->connection(), {1, 2, 3}, rows);
    state.counters["tables"] = static_cast<double>(rows) / static_cast<double>(state.iterations());
}

void CatalogGetTables(benchmark::State &state) {
    auto *database = databaseFor(static_cast<int>(state.range(0)));
    if (database == nullptr) return state.SkipWithError("TABRA_BENCH_PG_DSN not set");
    std::vector<char16_t> list(400000);
    for (auto _ : state) {
        int32_t rc = Tabra_GetTables(database->connection(), TABRA_TABLE_TYPE_TABLE, list.data(),
                                     static_cast<int32_t>(list.size()), u"\t");
        benchmark::DoNotOptimize(rc);
    }
}

void CatalogRawColumns(benchmark::State &state) {
    auto *database = databaseFor(static_cast<int>(state.range(0)));
    if (database == nullptr) return state.SkipWithError("TABRA_BENCH_PG_DSN not set");
    int64_t rows = 0;
    for (auto _ : state) rawColumns(database->connection(), {4}, 1, rows);
    state.counters["columns"] = static_cast<double>(rows) / static_cast<double>(state.iterations());
}

void CatalogRawColumnsSameCalls(benchmark::State &state) {
    auto *database = databaseFor(static_cast<int>(state.range(0)));
    if (database == nullptr) return state.SkipWithError("TABRA_BENCH_PG_DSN not set");
    int64_t rows = 0;
    for (auto _ : state) rawColumns(database->connection(), {3, 4, 5, 11}, 2, rows);
    state.counters["columns"] = static_cast<double>(rows) / static_cast<double>(state.iterations());
}

void CatalogGetFields(benchmark::State &state) {
    auto *database = databaseFor(static_cast<int>(state.range(0)));
    if (database == nullptr) return state.SkipWithError("TABRA_BENCH_PG_DSN not set");
    std::vector<char16_t> list(30000);
    for (auto _ : state) {
        int32_t rc = Tabra_GetFields(database->connection(), u"bench_wide", TABRA_FIELDS_WITH_TYPE, u"\t", list.data(),
                                     static_cast<int32_t>(list.size()));
        benchmark::DoNotOptimize(rc);
    }
}

// Argument 0: SQLite, 1: PostgreSQL.
BENCHMARK(CatalogRawTables)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(CatalogRawTablesSameCalls)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(CatalogGetTables)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(CatalogRawColumns)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(CatalogRawColumnsSameCalls)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(CatalogGetFields)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace
