// Importing a tab-separated text file of 100,000 rows (the row-set benchmark's columns
// id, name, city, amount, day, note, with a header line) into a new table: the import
// wizard's run (the field list read, the table created, the row cycle) beside the
// database's own loader (sqlite3 .import, psql \copy, mariadb LOAD DATA LOCAL INFILE)
// and beside a raw loop of one INSERT per row in autocommit mode. Throughput is in
// rows per second (items_per_second); each case checks the rows that arrived.
//
// bench/run-import.sh sets the environment:
//   TABRA_BENCH_IMPORT_DIR        where the text file and the SQLite database go
//   TABRA_BENCH_PG_DSN, TABRA_BENCH_PG_USER, TABRA_BENCH_PG_PASSWORD, and the same
//   with MARIADB: the server data sources; psql and mariadb read PG* and MARIADB_*.
//
//   build/bench/tabra_bench --benchmark_filter=Import
#include "bench/bench_connection.h"
#include "tabra_catalog.h"
#include "wizards/import/import_run.h"
#include "wizards/import/import_source.h"

#include <sql.h>
#include <sqlext.h>
#include <sys/wait.h>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include <chrono>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using bench::ascii;
using bench::Connection;
using bench::environment;

namespace importing = tabra::wizards::importing;

constexpr int64_t kRows = 100000;
// The per-row loop is slow (an fsync per row on SQLite): its rate is measured on fewer rows.
constexpr int64_t kRawRows = 20000;
constexpr int64_t kRawRowsSqlite = 2000;
constexpr const char *kCreateColumns =
    "(id INTEGER, name VARCHAR(255), city VARCHAR(255), amount %s, day %s, note VARCHAR(255))";

std::string folder() {
    std::string folder = environment("TABRA_BENCH_IMPORT_DIR");
    return folder.empty() ? "/tmp" : folder;
}
std::string textFile() { return folder() + "/import-bench.txt"; }
std::string sqliteFile() { return folder() + "/import-bench.db"; }

// The text file, written once.
void writeTextFile() {
    static bool written = false;
    if (written) return;
    using namespace std::chrono;
    std::ofstream out(textFile(), std::ios::binary | std::ios::trunc);
    out << "id\tname\tcity\tamount\tday\tnote\n";
    for (int64_t i = 1; i <= kRows; ++i) {
        year_month_day day{sys_days{year{2000} / January / 1} + days{i % 9000}};
        char date[16];
        std::snprintf(date, sizeof date, "%04d-%02u-%02u", static_cast<int>(day.year()),
                      static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
        out << i << "\tname " << i << "\tcity " << i % 1000 << '\t' << i * 1.25 << '\t' << date
            << "\ta longer text for row " << i << ", with a few more words than the other columns have\n";
    }
    written = true;
}


struct Backend {
    const char *name;
    const char *numberType, *dateType; // of the tables the loader and the raw loop fill
};
constexpr Backend kSqlite{"SQLite", "DOUBLE", "DATE"};
constexpr Backend kPostgres{"PostgreSQL", "DOUBLE PRECISION", "DATE"};
constexpr Backend kMariaDb{"MariaDB", "DOUBLE", "DATE"};

std::unique_ptr<Connection> connect(const Backend &backend) {
    if (&backend == &kSqlite)
        return std::make_unique<Connection>(
            ascii("DRIVER=" TABRA_BENCH_SQLITE3_DRIVER ";Database=" + sqliteFile()), false, u"", u"",
            SQL_OV_ODBC3);
    std::string prefix = &backend == &kPostgres ? "TABRA_BENCH_PG_" : "TABRA_BENCH_MARIADB_";
    auto variable = [&](const char *name) { return environment((prefix + name).c_str()); };
    if (variable("DSN").empty()) return nullptr;
    return std::make_unique<Connection>(
        ascii("DSN=" + variable("DSN") + ";UID=" + variable("USER") + ";PWD=" + variable("PASSWORD")), false,
        u"", u"", SQL_OV_ODBC3);
}

std::u16string createStatement(const Backend &backend, const char *table) {
    char columns[200];
    std::snprintf(columns, sizeof columns, kCreateColumns, backend.numberType, backend.dateType);
    return ascii(std::string("CREATE TABLE ") + table + " " + columns);
}

// Rows per second and whether every row arrived.
void finish(benchmark::State &state, const Connection &connection, const char *table, int64_t rows) {
    state.SetItemsProcessed(state.iterations() * rows);
    state.counters["rows_arrived"] = static_cast<double>(connection.count(ascii(table)));
}

void libraryImport(benchmark::State &state, const Backend &backend) {
    writeTextFile();
    auto connection = connect(backend);
    if (!connection) return state.SkipWithError("no database (see bench/run-import.sh)");
    for (auto _ : state) {
        state.PauseTiming();
        connection->run(u"DROP TABLE IF EXISTS bench_import");
        state.ResumeTiming();
        importing::ImportWizardState wizard;
        wizard.connection = connection->handle();
        wizard.sourceKind = importing::ids::kSourceKindPage.textFile;
        wizard.textFile = ascii(textFile());
        wizard.textFormat.decimalKind = importing::ids::kTextFilePage.decimalPoint;
        if (!importing::readFieldsIfChanged(wizard)) return state.SkipWithError("the file's fields");
        const int32_t types[] = {TdtInteger, TdtVarText, TdtVarText, TdtNumber, TdtDateTime, TdtVarText};
        for (std::size_t i = 0; i < std::size(types); ++i) wizard.fields.inSourceOrder(i)->type = types[i];
        wizard.table = u"bench_import";
        importing::ImportOutcome outcome = importing::runImport(wizard);
        if (outcome.result != 1 || outcome.rowsKept != kRows) return state.SkipWithError("the import failed");
    }
    finish(state, *connection, "bench_import", kRows);
}

// One INSERT per row in autocommit mode, the values as literals.
void rawInsertLoop(benchmark::State &state, const Backend &backend) {
    const int64_t rawRows = &backend == &kSqlite ? kRawRowsSqlite : kRawRows;
    writeTextFile();
    auto connection = connect(backend);
    if (!connection) return state.SkipWithError("no database (see bench/run-import.sh)");
    for (auto _ : state) {
        state.PauseTiming();
        connection->run(u"DROP TABLE IF EXISTS bench_import_raw");
        connection->run(createStatement(backend, "bench_import_raw"));
        state.ResumeTiming();
        std::ifstream in(textFile(), std::ios::binary);
        std::string line;
        std::getline(in, line);
        for (int64_t row = 0; row < rawRows && std::getline(in, line); ++row) {
            std::string values;
            std::size_t start = 0;
            for (int field = 0; field < 6; ++field) {
                std::size_t end = line.find('\t', start);
                std::string value = line.substr(start, end - start);
                values += (field > 0 ? "," : "") + (field == 0 || field == 3 ? value : "'" + value + "'");
                start = end + 1;
            }
            if (!connection->run(ascii("INSERT INTO bench_import_raw (id,name,city,amount,day,note) VALUES (" +
                                      values + ")")))
                return state.SkipWithError("an INSERT failed");
        }
    }
    finish(state, *connection, "bench_import_raw", rawRows);
}

// The database's own loader as a child process.
void loaderImport(benchmark::State &state, const Backend &backend, const std::string &command) {
    writeTextFile();
    auto connection = connect(backend);
    if (!connection) return state.SkipWithError("no database (see bench/run-import.sh)");
    for (auto _ : state) {
        state.PauseTiming();
        connection->run(u"DROP TABLE IF EXISTS bench_import_tool");
        connection->run(createStatement(backend, "bench_import_tool"));
        connection.reset(); // SQLite: the loader writes the file alone
        state.ResumeTiming();
        int status = std::system(command.c_str());
        state.PauseTiming();
        connection = connect(backend);
        state.ResumeTiming();
        if (status != 0) return state.SkipWithError(("failed: " + command).c_str());
    }
    finish(state, *connection, "bench_import_tool", kRows);
}

void BM_Import_Library_SQLite(benchmark::State &state) { libraryImport(state, kSqlite); }
void BM_Import_Library_PostgreSQL(benchmark::State &state) { libraryImport(state, kPostgres); }
void BM_Import_Library_MariaDB(benchmark::State &state) { libraryImport(state, kMariaDb); }
void BM_Import_RawPerRowInsert_SQLite(benchmark::State &state) { rawInsertLoop(state, kSqlite); }
void BM_Import_RawPerRowInsert_PostgreSQL(benchmark::State &state) { rawInsertLoop(state, kPostgres); }
void BM_Import_RawPerRowInsert_MariaDB(benchmark::State &state) { rawInsertLoop(state, kMariaDb); }
void BM_Import_Loader_SQLite(benchmark::State &state) {
    loaderImport(state, kSqlite,
                 "sqlite3 '" + sqliteFile() + "' '.mode tabs' '.import --skip 1 " + textFile() + " bench_import_tool'");
}
void BM_Import_Loader_PostgreSQL(benchmark::State &state) {
    loaderImport(state, kPostgres,
                 "psql -q -c \"\\copy bench_import_tool FROM '" + textFile() + "' WITH (FORMAT text, HEADER true)\"");
}
void BM_Import_Loader_MariaDB(benchmark::State &state) {
    loaderImport(state, kMariaDb,
                 "MYSQL_PWD=\"$MARIADB_PASSWORD\" mariadb --no-defaults --local-infile=1 -h 127.0.0.1 -P \"$MARIADB_PORT\""
                 " -u \"$MARIADB_USER\" \"$MARIADB_DATABASE\" -e \"LOAD DATA LOCAL INFILE '" +
                     textFile() + "' INTO TABLE bench_import_tool FIELDS TERMINATED BY '\\t' IGNORE 1 LINES\"");
}

#define IMPORT_CASE(function) BENCHMARK(function)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime()
IMPORT_CASE(BM_Import_Library_SQLite);
IMPORT_CASE(BM_Import_Loader_SQLite);
IMPORT_CASE(BM_Import_RawPerRowInsert_SQLite);
IMPORT_CASE(BM_Import_Library_PostgreSQL);
IMPORT_CASE(BM_Import_Loader_PostgreSQL);
IMPORT_CASE(BM_Import_RawPerRowInsert_PostgreSQL);
IMPORT_CASE(BM_Import_Library_MariaDB);
IMPORT_CASE(BM_Import_Loader_MariaDB);
IMPORT_CASE(BM_Import_RawPerRowInsert_MariaDB);

} // namespace
