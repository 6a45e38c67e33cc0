// Writing a large row set to a file: OdbcEh_SelectRowSetToFile beside a raw ODBC loop
// that writes the same bytes (SQLFetch, then SQLGetData as wide text for every cell)
// and beside the database's own export tool, on the same table. Throughput is in
// rows per second (items_per_second); memory is the peak resident set: for the
// in-process runs the growth of the process's peak over its size before the run (the
// peak is reset first), for the tools the child's own peak.
//
// The table and the environment: bench/export_bench_support.h; bench/run-rowset-export.sh
// runs every case in a process of its own.
//
//   build/bench/tabra_bench --benchmark_filter=RowSetExport
#include "export_bench_support.h"
#include "tabra_rowset.h"

namespace {

using namespace bench;

std::string selectText(int64_t rows) {
    return std::string("SELECT ") + kColumns + " FROM bench_export WHERE id <= " + std::to_string(rows) + " ORDER BY id";
}

void libraryExport(benchmark::State &state, Connection *connection, const char *name) {
    if (connection == nullptr) return state.SkipWithError("no database (see bench/run-rowset-export.sh)");
    std::u16string file = ascii(outputPath("rowset-library", name, state.range(0)));
    std::u16string sql = ascii(selectText(state.range(0)));
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
    std::string path = outputPath("rowset-raw", name, state.range(0));
    int64_t rows = 0;
    long start = resetPeak();
    for (auto _ : state) rows = rawExport(connection->handle(), ascii(selectText(state.range(0))), path);
    reportPeak(state, start);
    state.SetItemsProcessed(state.iterations() * rows);
    // Same bytes as the library, or the comparison means nothing.
    state.counters["same_bytes_as_library"] =
        fileBytes(path) == fileBytes(outputPath("rowset-library", name, state.range(0))) ? 1 : 0;
}

Connection *sqlite() {
    static auto connection = sqliteConnection();
    return connection.get();
}
Connection *postgres() {
    static auto connection = serverConnection("TABRA_BENCH_PG");
    return connection.get();
}
Connection *mariadb() {
    static auto connection = serverConnection("TABRA_BENCH_MARIADB");
    return connection.get();
}

std::string toolFile(const char *name) { return benchFolder() + "/rowset-tool-" + name + ".txt"; }

void BM_RowSetExport_Library_SQLite(benchmark::State &state) { libraryExport(state, sqlite(), "sqlite"); }
void BM_RowSetExport_RawPerCell_SQLite(benchmark::State &state) { rawLoopExport(state, sqlite(), "sqlite"); }
void BM_RowSetExport_Sqlite3Cli_SQLite(benchmark::State &state) {
    if (environment("TABRA_BENCH_ROWSET_SQLITE_DB").empty()) return state.SkipWithError("no database");
    toolExport(state, sqlite3Export(selectText(state.range(0)), toolFile("sqlite")));
}
void BM_RowSetExport_Library_PostgreSQL(benchmark::State &state) { libraryExport(state, postgres(), "pg"); }
void BM_RowSetExport_RawPerCell_PostgreSQL(benchmark::State &state) { rawLoopExport(state, postgres(), "pg"); }
void BM_RowSetExport_PsqlCopy_PostgreSQL(benchmark::State &state) {
    if (environment("TABRA_BENCH_PG_DSN").empty()) return state.SkipWithError("no database");
    toolExport(state, psqlExport(selectText(state.range(0)), toolFile("pg")));
}
void BM_RowSetExport_Library_MariaDB(benchmark::State &state) { libraryExport(state, mariadb(), "mariadb"); }
void BM_RowSetExport_RawPerCell_MariaDB(benchmark::State &state) { rawLoopExport(state, mariadb(), "mariadb"); }
void BM_RowSetExport_MariadbCli_MariaDB(benchmark::State &state) {
    if (environment("TABRA_BENCH_MARIADB_DSN").empty()) return state.SkipWithError("no database");
    toolExport(state, mariadbExport(selectText(state.range(0)), toolFile("mariadb")));
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
ROWSET_CASE(BM_RowSetExport_Library_MariaDB);
ROWSET_CASE(BM_RowSetExport_RawPerCell_MariaDB);
ROWSET_CASE(BM_RowSetExport_MariadbCli_MariaDB);

} // namespace
