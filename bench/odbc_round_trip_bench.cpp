// The floor under every library operation: raw ODBC through the driver manager to the
// SQLite3 driver, with an ODBC 2 environment and the W functions as the library uses
// them. Library benchmarks compare against these numbers.
//
//   build/bench/tabra_bench [--benchmark_filter=...]
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

bool succeeded(SQLRETURN rc) { return rc == SQL_SUCCESS || rc == SQL_SUCCESS_WITH_INFO; }

SQLWCHAR *sqlText(std::u16string &text) { return reinterpret_cast<SQLWCHAR *>(text.data()); }

// A private SQLite data source in a scratch directory, with a table of rows.
class BenchDatabase {
public:
    explicit BenchDatabase(int rows) {
        std::setlocale(LC_CTYPE, "C.UTF-8");
        directory_ = std::filesystem::temp_directory_path() / ("tabra-bench-" + std::to_string(getpid()));
        std::filesystem::create_directories(directory_);
        std::ofstream(directory_ / "odbc.ini") << "[TabraBench]\nDriver=" TABRA_BENCH_SQLITE3_DRIVER "\nDatabase="
                                               << (directory_ / "bench.sqlite").string() << "\n";
        setenv("ODBCINI", (directory_ / "odbc.ini").c_str(), 1);
        SQLAllocEnv(&environment_);
        SQLAllocConnect(environment_, &connection_);
        std::u16string name = u"TabraBench";
        if (!succeeded(SQLConnectW(connection_, sqlText(name), SQL_NTS, nullptr, 0, nullptr, 0)))
            throw std::runtime_error("cannot connect to the bench database");
        execute(u"CREATE TABLE items (id INTEGER PRIMARY KEY, name VARCHAR(40), price DECIMAL(10,2))");
        execute(u"BEGIN");
        for (int i = 1; i <= rows; ++i) {
            std::string number = std::to_string(i);
            execute(u"INSERT INTO items VALUES (" + std::u16string(number.begin(), number.end()) +
                    u", 'Müller Ωmega item', 12.5)");
        }
        execute(u"COMMIT");
    }

    ~BenchDatabase() {
        SQLDisconnect(connection_);
        SQLFreeConnect(connection_);
        SQLFreeEnv(environment_);
        std::error_code ignored;
        std::filesystem::remove_all(directory_, ignored);
    }

    SQLHDBC connection() const { return connection_; }

    void execute(std::u16string sql) {
        SQLHSTMT statement = SQL_NULL_HSTMT;
        SQLAllocStmt(connection_, &statement);
        SQLRETURN rc = SQLExecDirectW(statement, sqlText(sql), SQL_NTS);
        SQLFreeStmt(statement, SQL_DROP);
        if (!succeeded(rc)) throw std::runtime_error("statement failed");
    }

private:
    std::filesystem::path directory_;
    SQLHENV environment_ = SQL_NULL_HENV;
    SQLHDBC connection_ = SQL_NULL_HDBC;
};

BenchDatabase &database() {
    static BenchDatabase instance(10000);
    return instance;
}

// One statement handle, one small query, one row fetched as text: what a catalog
// lookup or a count costs at least.
void SelectOneRowRoundTrip(benchmark::State &state) {
    SQLHDBC connection = database().connection();
    std::u16string sql = u"SELECT name FROM items WHERE id = 42";
    for (auto _ : state) {
        SQLHSTMT statement = SQL_NULL_HSTMT;
        SQLAllocStmt(connection, &statement);
        SQLExecDirectW(statement, sqlText(sql), SQL_NTS);
        SQLFetch(statement);
        char16_t value[64];
        SQLLEN indicator = 0;
        SQLGetData(statement, 1, SQL_C_WCHAR, value, sizeof value, &indicator);
        benchmark::DoNotOptimize(value);
        SQLFreeStmt(statement, SQL_DROP);
    }
}
BENCHMARK(SelectOneRowRoundTrip);

// Every row of a table fetched column by column as wide text, as exports do.
void FetchRowsAsWideText(benchmark::State &state) {
    SQLHDBC connection = database().connection();
    std::u16string sql = u"SELECT id, name, price FROM items";
    int64_t rows = 0;
    for (auto _ : state) {
        SQLHSTMT statement = SQL_NULL_HSTMT;
        SQLAllocStmt(connection, &statement);
        SQLExecDirectW(statement, sqlText(sql), SQL_NTS);
        while (succeeded(SQLFetch(statement))) {
            for (SQLUSMALLINT column = 1; column <= 3; ++column) {
                char16_t value[128];
                SQLLEN indicator = 0;
                SQLGetData(statement, column, SQL_C_WCHAR, value, sizeof value, &indicator);
                benchmark::DoNotOptimize(value);
            }
            ++rows;
        }
        SQLFreeStmt(statement, SQL_DROP);
    }
    state.SetItemsProcessed(rows);
}
BENCHMARK(FetchRowsAsWideText)->Unit(benchmark::kMillisecond);

} // namespace
