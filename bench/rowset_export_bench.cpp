// Writing a large row set to a file: OdbcEh_SelectRowSetToFile beside a raw ODBC loop
// that writes the same bytes (SQLFetch, then SQLGetData as wide text for every cell)
// and beside the database's own export tool, on the same table. Throughput is in
// rows per second (items_per_second); memory is the peak resident set: for the
// in-process runs the growth of the process's peak over its size before the run (the
// peak is reset first), for the tools the child's own peak.
//
// The table bench_export (id, name, city, amount, day, note) is made by
// bench/run-rowset-export.sh, which also sets the environment:
//   TABRA_BENCH_ROWSET_SQLITE_DB   the SQLite database file
//   TABRA_BENCH_PG_DSN, TABRA_BENCH_PG_USER, TABRA_BENCH_PG_PASSWORD   the PostgreSQL
//                                  data source; psql reads PGHOST, PGPORT, PGUSER,
//                                  PGPASSWORD, PGDATABASE
//   TABRA_BENCH_ROWSET_DIR         where the files go (default: the temp folder)
//
//   build/bench/tabra_bench --benchmark_filter=RowSetExport
#include "tabra_rowset.h"

#include <sql.h>
#include <sqlext.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr const char *kColumns = "id, name, city, amount, day, note";

std::u16string ascii(const std::string &text) { return std::u16string(text.begin(), text.end()); }
SQLWCHAR *sqlText(std::u16string &text) { return reinterpret_cast<SQLWCHAR *>(text.data()); }

std::string benchFolder() {
    const char *folder = std::getenv("TABRA_BENCH_ROWSET_DIR");
    return folder != nullptr ? folder : std::filesystem::temp_directory_path().string();
}

// The output file of one kind of run, backend and size.
std::string outputPath(const char *kind, const char *backend, int64_t rows) {
    return benchFolder() + "/rowset-" + kind + "-" + backend + "-" + std::to_string(rows) + ".txt";
}

std::string fileBytes(const std::string &path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// Resident set now and its peak, in KiB, from /proc/self/status.
long statusKiB(const char *field) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind(field, 0) == 0) return std::atol(line.c_str() + std::string(field).size());
    return 0;
}

// Starts a fresh peak; answers the resident set the run starts from.
long resetPeak() {
    std::ofstream("/proc/self/clear_refs") << "5";
    return statusKiB("VmRSS:");
}

void reportPeak(benchmark::State &state, long startKiB) {
    state.counters["peak_growth_MiB"] = static_cast<double>(statusKiB("VmHWM:") - startKiB) / 1024.0;
}

// A connection for one backend, through the driver manager as the library uses it.
class Connection {
public:
    Connection(std::u16string text, bool byName, std::u16string user = u"", std::u16string password = u"") {
        std::setlocale(LC_CTYPE, "C.UTF-8");
        SQLAllocEnv(&environment_);
        SQLAllocConnect(environment_, &connection_);
        SQLRETURN rc;
        if (byName)
            rc = SQLConnectW(connection_, sqlText(text), SQL_NTS, user.empty() ? nullptr : sqlText(user), SQL_NTS,
                             password.empty() ? nullptr : sqlText(password), SQL_NTS);
        else
            rc = SQLDriverConnectW(connection_, nullptr, sqlText(text), SQL_NTS, nullptr, 0, nullptr,
                                   SQL_DRIVER_NOPROMPT);
        if (!SQL_SUCCEEDED(rc)) throw std::runtime_error("cannot connect to the bench database");
    }
    ~Connection() {
        SQLDisconnect(connection_);
        SQLFreeConnect(connection_);
        SQLFreeEnv(environment_);
    }
    SQLHDBC handle() const { return connection_; }

private:
    SQLHENV environment_ = SQL_NULL_HENV;
    SQLHDBC connection_ = SQL_NULL_HDBC;
};

std::unique_ptr<Connection> sqliteConnection() {
    const char *database = std::getenv("TABRA_BENCH_ROWSET_SQLITE_DB");
    if (database == nullptr) return nullptr;
    return std::make_unique<Connection>(
        ascii(std::string("DRIVER=") + TABRA_BENCH_SQLITE3_DRIVER + ";Database=" + database), false);
}

std::unique_ptr<Connection> postgresConnection() {
    const char *dsn = std::getenv("TABRA_BENCH_PG_DSN");
    if (dsn == nullptr) return nullptr;
    const char *user = std::getenv("TABRA_BENCH_PG_USER");
    const char *password = std::getenv("TABRA_BENCH_PG_PASSWORD");
    return std::make_unique<Connection>(ascii(dsn), true, ascii(user ? user : ""), ascii(password ? password : ""));
}

std::u16string selectRows(int64_t rows) {
    return ascii(std::string("SELECT ") + kColumns + " FROM bench_export WHERE id <= " + std::to_string(rows) +
                 " ORDER BY id");
}

// The raw loop: every cell through SQLGetData as wide text into a 5000-character
// buffer, written as the library writes a row set without flags (the value, or nothing
// for NULL; tabs between fields, line feeds between records) through a buffered stream.
int64_t rawExport(SQLHDBC connection, std::u16string sql, const std::string &path) {
    SQLHSTMT statement;
    SQLAllocStmt(connection, &statement);
    if (!SQL_SUCCEEDED(SQLExecDirectW(statement, sqlText(sql), SQL_NTS))) throw std::runtime_error("raw: exec");
    SQLSMALLINT columns = 0;
    SQLNumResultCols(statement, &columns);
    std::vector<char> streamBuffer(1 << 20); // outlives the stream that writes through it
    std::unique_ptr<std::FILE, int (*)(std::FILE *)> file(std::fopen(path.c_str(), "wb"), std::fclose);
    std::setvbuf(file.get(), streamBuffer.data(), _IOFBF, streamBuffer.size());
    std::vector<char16_t> value(5000);
    const char16_t tab = u'\t', lineFeed = u'\n';
    int64_t rows = 0;
    while (SQL_SUCCEEDED(SQLFetch(statement))) {
        if (rows++ > 0) std::fwrite(&lineFeed, 2, 1, file.get());
        for (SQLUSMALLINT column = 1; column <= columns; ++column) {
            if (column > 1) std::fwrite(&tab, 2, 1, file.get());
            SQLLEN indicator = 0;
            value[0] = u'\0';
            SQLGetData(statement, column, SQL_C_WCHAR, value.data(), 10000, &indicator);
            if (indicator == SQL_NULL_DATA) continue;
            std::size_t length = 0;
            while (length < 4999 && value[length] != u'\0') ++length;
            std::fwrite(value.data(), 2, length, file.get());
        }
    }
    SQLFreeStmt(statement, SQL_DROP);
    return rows;
}

void libraryExport(benchmark::State &state, Connection *connection, const char *name) {
    if (connection == nullptr) return state.SkipWithError("no database (see bench/run-rowset-export.sh)");
    std::u16string file = ascii(outputPath("library", name, state.range(0)));
    std::u16string sql = selectRows(state.range(0));
    int32_t count = 0;
    long start = resetPeak();
    for (auto _ : state) {
        count = 0;
        if (OdbcEh_SelectRowSetToFile(0, connection->handle(), sql.c_str(), nullptr, nullptr, file.c_str(), &count,
                                      nullptr, 0) != 1)
            return state.SkipWithError("the export failed");
    }
    reportPeak(state, start);
    state.SetItemsProcessed(state.iterations() * count);
}

void rawLoopExport(benchmark::State &state, Connection *connection, const char *name) {
    if (connection == nullptr) return state.SkipWithError("no database (see bench/run-rowset-export.sh)");
    std::string path = outputPath("raw", name, state.range(0));
    int64_t rows = 0;
    long start = resetPeak();
    for (auto _ : state) rows = rawExport(connection->handle(), selectRows(state.range(0)), path);
    reportPeak(state, start);
    state.SetItemsProcessed(state.iterations() * rows);
    // Same bytes as the library, or the comparison means nothing.
    state.counters["same_bytes_as_library"] =
        fileBytes(path) == fileBytes(outputPath("library", name, state.range(0))) ? 1 : 0;
}

// Runs a shell command as a child process; its peak resident set in KiB (-1 on failure).
long runTool(const std::string &command) {
    pid_t child = fork();
    if (child == 0) {
        execl("/bin/sh", "sh", "-c", command.c_str(), static_cast<char *>(nullptr));
        _exit(127);
    }
    int status = 0;
    struct rusage usage {};
    if (wait4(child, &status, 0, &usage) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0) return -1;
    return usage.ru_maxrss;
}

void toolExport(benchmark::State &state, const std::string &command) {
    long peak = 0;
    for (auto _ : state)
        if ((peak = runTool(command)) < 0) return state.SkipWithError(("failed: " + command).c_str());
    state.counters["tool_peak_MiB"] = static_cast<double>(peak) / 1024.0;
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

Connection *sqlite() {
    static auto connection = sqliteConnection();
    return connection.get();
}
Connection *postgres() {
    static auto connection = postgresConnection();
    return connection.get();
}

void BM_RowSetExport_Library_SQLite(benchmark::State &state) { libraryExport(state, sqlite(), "sqlite"); }
void BM_RowSetExport_RawPerCell_SQLite(benchmark::State &state) { rawLoopExport(state, sqlite(), "sqlite"); }
void BM_RowSetExport_Sqlite3Cli_SQLite(benchmark::State &state) {
    const char *database = std::getenv("TABRA_BENCH_ROWSET_SQLITE_DB");
    if (database == nullptr) return state.SkipWithError("no database");
    toolExport(state, std::string("sqlite3 -csv '") + database + "' \"SELECT " + kColumns +
                          " FROM bench_export WHERE id <= " + std::to_string(state.range(0)) + " ORDER BY id\" > '" +
                          benchFolder() + "/rowset-tool-sqlite.csv'");
}
void BM_RowSetExport_Library_PostgreSQL(benchmark::State &state) { libraryExport(state, postgres(), "pg"); }
void BM_RowSetExport_RawPerCell_PostgreSQL(benchmark::State &state) { rawLoopExport(state, postgres(), "pg"); }
void BM_RowSetExport_PsqlCopy_PostgreSQL(benchmark::State &state) {
    if (std::getenv("TABRA_BENCH_PG_DSN") == nullptr) return state.SkipWithError("no database");
    toolExport(state, std::string("psql -q -c \"\\copy (SELECT ") + kColumns + " FROM bench_export WHERE id <= " +
                          std::to_string(state.range(0)) + " ORDER BY id) TO '" + benchFolder() +
                          "/rowset-tool-pg.txt'\"");
}

// Each case once per size: a run is long enough to time alone, and 250,000 beside
// 1,000,000 rows shows whether memory grows with the row count.
#define ROWSET_CASE(function)                                                                                     \
    BENCHMARK(function)->Arg(250000)->Arg(1000000)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime()

ROWSET_CASE(BM_RowSetExport_Library_SQLite);
ROWSET_CASE(BM_RowSetExport_RawPerCell_SQLite);
ROWSET_CASE(BM_RowSetExport_Sqlite3Cli_SQLite);
ROWSET_CASE(BM_RowSetExport_Library_PostgreSQL);
ROWSET_CASE(BM_RowSetExport_RawPerCell_PostgreSQL);
ROWSET_CASE(BM_RowSetExport_PsqlCopy_PostgreSQL);

} // namespace
