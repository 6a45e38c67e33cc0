// The export wizard's file writer on the 1,000,000-row table, beside the raw per-cell
// ODBC loop over the same driver (writing the same bytes) and the database's own
// export (sqlite3 -csv, psql \copy, the mariadb client in batch mode), all with the
// same SELECT the writer builds. The writer runs as the wizard leaves it after
// Finish: every field of the table, a condition on id, the records counted, the point
// as decimal character, ISO dates (TABRA_DATE_ORDER=YMD), no header line, so that the
// raw loop's file must be byte for byte the writer's. Also with the data source
// options that keep the drivers' memory flat (SQLite StepAPI=1, psqlodbc
// UseDeclareFetch=1 with Fetch=1000).
//
// The table and the environment: bench/export_bench_support.h; bench/run-export-wizard.sh
// runs every case in a process of its own, several rounds, and prints medians and ratios.
//
//   build/bench/tabra_bench --benchmark_filter=ExportWizard
#include "export_bench_support.h"
#include "wizards/export/export_file.h"

#include <map>

namespace {

using namespace bench;
namespace exporting = tabra::wizards::exporting;

std::string condition(int64_t rows) { return "id\tLE\t" + std::to_string(rows) + "\t4\n"; }
// The SELECT the writer builds for that condition.
std::string selectText(int64_t rows) {
    return std::string("SELECT ") + kColumns + " FROM bench_export WHERE ((id <= " + std::to_string(rows) + "))";
}

// A data source of the runs: its name in the files and how to connect.
struct Variant {
    const char *name;
    std::unique_ptr<Connection> (*connect)();
};

// One connection per data source for the process, made on first use.
Connection *connectionOf(const Variant &variant) {
    static std::map<const Variant *, std::unique_ptr<Connection>> connections;
    auto found = connections.find(&variant);
    if (found == connections.end()) found = connections.emplace(&variant, variant.connect()).first;
    return found->second.get();
}

void writerExport(benchmark::State &state, const Variant &variant) {
    setenv("TABRA_DATE_ORDER", "YMD", 1);
    Connection *connection = connectionOf(variant);
    if (connection == nullptr) return state.SkipWithError("no database (see bench/run-export-wizard.sh)");
    exporting::ExportWizardState wizard;
    wizard.connection = connection->handle();
    std::u16string(u"bench_export").copy(wizard.object.DbObjectName, 12);
    if (!wizard.fields.load(wizard.connection, u"bench_export")) return state.SkipWithError("no table");
    wizard.condition = ascii(condition(state.range(0)));
    wizard.recordCount = static_cast<int32_t>(state.range(0));
    wizard.fileName = ascii(outputPath("wizard-writer", variant.name, state.range(0)));
    wizard.format.headerLine = false;
    wizard.format.decimalKind = exporting::ids::kFilePage.decimalPoint;
    long start = resetPeak();
    for (auto _ : state)
        if (exporting::writeExportFile(wizard) != 1) return state.SkipWithError("the export failed");
    reportPeak(state, start);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void rawLoopExport(benchmark::State &state, const Variant &variant) {
    Connection *connection = connectionOf(variant);
    if (connection == nullptr) return state.SkipWithError("no database (see bench/run-export-wizard.sh)");
    std::string path = outputPath("wizard-raw", variant.name, state.range(0));
    int64_t rows = 0;
    long start = resetPeak();
    for (auto _ : state) rows = rawExport(connection->handle(), ascii(selectText(state.range(0))), path, u"\r\n", true);
    reportPeak(state, start);
    state.SetItemsProcessed(state.iterations() * rows);
    state.counters["same_bytes_as_writer"] =
        fileBytes(path) == fileBytes(outputPath("wizard-writer", variant.name, state.range(0))) ? 1 : 0;
}

std::string toolFile(const char *name) { return benchFolder() + "/wizard-tool-" + name + ".txt"; }

const Variant kSQLite{"sqlite", [] { return sqliteConnection(); }};
const Variant kSQLiteStepApi{"sqlite-stepapi", [] { return sqliteConnection("StepAPI=1"); }};
const Variant kPostgreSQL{"pg", [] { return serverConnection("TABRA_BENCH_PG"); }};
const Variant kPostgreSQLDeclareFetch{
    "pg-declarefetch", [] { return serverConnection("TABRA_BENCH_PG", "UseDeclareFetch=1;Fetch=1000"); }};
const Variant kMariaDB{"mariadb", [] { return serverConnection("TABRA_BENCH_MARIADB"); }};

void BM_ExportWizard_Writer_SQLite(benchmark::State &state) { writerExport(state, kSQLite); }
void BM_ExportWizard_RawPerCell_SQLite(benchmark::State &state) { rawLoopExport(state, kSQLite); }
void BM_ExportWizard_Writer_SQLiteStepAPI(benchmark::State &state) { writerExport(state, kSQLiteStepApi); }
void BM_ExportWizard_RawPerCell_SQLiteStepAPI(benchmark::State &state) { rawLoopExport(state, kSQLiteStepApi); }
void BM_ExportWizard_Sqlite3Cli_SQLite(benchmark::State &state) {
    if (environment("TABRA_BENCH_ROWSET_SQLITE_DB").empty()) return state.SkipWithError("no database");
    toolExport(state, sqlite3Export(selectText(state.range(0)), toolFile("sqlite")));
}
void BM_ExportWizard_Writer_PostgreSQL(benchmark::State &state) { writerExport(state, kPostgreSQL); }
void BM_ExportWizard_RawPerCell_PostgreSQL(benchmark::State &state) { rawLoopExport(state, kPostgreSQL); }
void BM_ExportWizard_Writer_PostgreSQLDeclareFetch(benchmark::State &state) {
    writerExport(state, kPostgreSQLDeclareFetch);
}
void BM_ExportWizard_RawPerCell_PostgreSQLDeclareFetch(benchmark::State &state) {
    rawLoopExport(state, kPostgreSQLDeclareFetch);
}
void BM_ExportWizard_PsqlCopy_PostgreSQL(benchmark::State &state) {
    if (environment("TABRA_BENCH_PG_DSN").empty()) return state.SkipWithError("no database");
    toolExport(state, psqlExport(selectText(state.range(0)), toolFile("pg")));
}
void BM_ExportWizard_Writer_MariaDB(benchmark::State &state) { writerExport(state, kMariaDB); }
void BM_ExportWizard_RawPerCell_MariaDB(benchmark::State &state) { rawLoopExport(state, kMariaDB); }
void BM_ExportWizard_MariadbCli_MariaDB(benchmark::State &state) {
    if (environment("TABRA_BENCH_MARIADB_DSN").empty()) return state.SkipWithError("no database");
    toolExport(state, mariadbExport(selectText(state.range(0)), toolFile("mariadb")));
}

#define EXPORT_CASE(function)                                                                                     \
    BENCHMARK(function)->Arg(250000)->Arg(1000000)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime()

EXPORT_CASE(BM_ExportWizard_Writer_SQLite);
EXPORT_CASE(BM_ExportWizard_RawPerCell_SQLite);
EXPORT_CASE(BM_ExportWizard_Writer_SQLiteStepAPI);
EXPORT_CASE(BM_ExportWizard_RawPerCell_SQLiteStepAPI);
EXPORT_CASE(BM_ExportWizard_Sqlite3Cli_SQLite);
EXPORT_CASE(BM_ExportWizard_Writer_PostgreSQL);
EXPORT_CASE(BM_ExportWizard_RawPerCell_PostgreSQL);
EXPORT_CASE(BM_ExportWizard_Writer_PostgreSQLDeclareFetch);
EXPORT_CASE(BM_ExportWizard_RawPerCell_PostgreSQLDeclareFetch);
EXPORT_CASE(BM_ExportWizard_PsqlCopy_PostgreSQL);
EXPORT_CASE(BM_ExportWizard_Writer_MariaDB);
EXPORT_CASE(BM_ExportWizard_RawPerCell_MariaDB);
EXPORT_CASE(BM_ExportWizard_MariadbCli_MariaDB);

} // namespace
