// Copying 100,000 rows with the add records wizard's copy (the descriptors mapped by
// name, the source SELECT, the row cycle with its conversions and statements) from a
// PostgreSQL table (the row-set benchmark's columns id, name, city, amount, day, note)
// into SQLite, PostgreSQL and MariaDB tables: plainly (every row inserted), and matching
// by ids into a table that holds every second id already (half the rows update a record,
// half are inserted; the destination's id column has an index). Throughput is in rows
// per second (items_per_second); each case checks the rows that arrived.
//
// bench/run-add-records.sh sets the environment (as bench/run-import.sh does):
//   TABRA_BENCH_IMPORT_DIR   where the SQLite database goes
//   TABRA_BENCH_PG_DSN, TABRA_BENCH_PG_USER, TABRA_BENCH_PG_PASSWORD, and the same with
//   MARIADB: the server data sources.
#include "bench/bench_connection.h"
#include "tabra_connection.h"
#include "wizards/add_records/add_records_copy.h"

#include <sql.h>
#include <sqlext.h>

#include <benchmark/benchmark.h>

#include <clocale>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

using bench::ascii;
using bench::Connection;
using bench::environment;

namespace add_records = tabra::wizards::add_records;

constexpr int64_t kRows = 100000;

std::string sqliteFile() {
    std::string folder = environment("TABRA_BENCH_IMPORT_DIR");
    return (folder.empty() ? "/tmp" : folder) + "/add-records-bench.db";
}

struct Backend {
    const char *prefix; // of the environment variables; null for SQLite
    const char *numberType;
};
constexpr Backend kSqlite{nullptr, "DOUBLE"};
constexpr Backend kPostgres{"TABRA_BENCH_PG_", "DOUBLE PRECISION"};
constexpr Backend kMariaDb{"TABRA_BENCH_MARIADB_", "DOUBLE"};

std::string variable(const Backend &backend, const char *name) {
    return environment((std::string(backend.prefix) + name).c_str());
}

std::unique_ptr<Connection> connect(const Backend &backend) {
    if (backend.prefix == nullptr)
        return std::make_unique<Connection>(
            ascii("DRIVER=" TABRA_BENCH_SQLITE3_DRIVER ";Database=" + sqliteFile()), false);
    if (variable(backend, "DSN").empty()) return nullptr;
    return std::make_unique<Connection>(
        ascii("DSN=" + variable(backend, "DSN") + ";UID=" + variable(backend, "USER") + ";PWD=" +
              variable(backend, "PASSWORD")),
        false);
}

// The source tables in PostgreSQL, made once: every row, and every second one.
bool makeSource() {
    static bool made = false;
    if (made) return true;
    auto source = connect(kPostgres);
    if (!source) return false;
    source->run(u"DROP VIEW IF EXISTS bench_ar_even");
    source->run(u"DROP TABLE IF EXISTS bench_ar_source");
    source->run(u"CREATE TABLE bench_ar_source (id INTEGER, name VARCHAR(255), city VARCHAR(255), "
                u"amount DOUBLE PRECISION, day DATE, note VARCHAR(255))");
    source->run(u"INSERT INTO bench_ar_source SELECT i, 'name ' || i, 'city ' || (i % 1000), i * 1.25, "
                u"DATE '2000-01-01' + (i % 9000), 'a longer text for row ' || i || ', with a few more words than "
                u"the other columns have' FROM generate_series(1, " +
                ascii(std::to_string(kRows)) + u") AS i");
    source->run(u"CREATE VIEW bench_ar_even AS SELECT * FROM bench_ar_source WHERE id % 2 = 0");
    made = source->count(u"bench_ar_source") == kRows;
    return made;
}

// A copy from a source table into bench_ar_dest as the wizard runs it after Finish.
add_records::CopyOutcome copy(SQLHDBC destination, const char16_t *sourceTable, bool byIds) {
    add_records::AddRecordsWizardState wizard;
    wizard.connection = destination;
    std::u16string table = u"bench_ar_dest";
    table.copy(wizard.object.DbObjectName, table.size());
    DataSourceInfo record{};
    ascii(variable(kPostgres, "DSN")).copy(record.DataSourceName, 99);
    ascii(variable(kPostgres, "USER")).copy(record.UserId, 49);
    ascii(variable(kPostgres, "PASSWORD")).copy(record.Password, 49);
    if (!wizard.source.open(record)) return {};
    wizard.sourceTable = sourceTable;
    if (!add_records::buildFields(wizard)) return {};
    if (byIds) {
        wizard.idMode = add_records::ids::kIdPage.matchIds;
        wizard.sourceIdField = wizard.destinationIdField = u"id";
    }
    return add_records::runCopy(wizard);
}

void addRecords(benchmark::State &state, const Backend &backend, bool byIds) {
    if (!makeSource()) return state.SkipWithError("no PostgreSQL source (see bench/run-add-records.sh)");
    auto connection = connect(backend);
    if (!connection) return state.SkipWithError("no database (see bench/run-add-records.sh)");
    for (auto _ : state) {
        state.PauseTiming();
        connection->run(u"DROP TABLE IF EXISTS bench_ar_dest");
        connection->run(u"CREATE TABLE bench_ar_dest (id INTEGER, name VARCHAR(255), city VARCHAR(255), amount " +
                        ascii(backend.numberType) + u", day DATE, note VARCHAR(255))");
        connection->run(u"CREATE INDEX bench_ar_dest_id ON bench_ar_dest (id)");
        if (byIds && copy(connection->handle(), u"bench_ar_even", false).rowsKept != kRows / 2)
            return state.SkipWithError("the even rows did not arrive");
        state.ResumeTiming();
        add_records::CopyOutcome outcome = copy(connection->handle(), u"bench_ar_source", byIds);
        if (outcome.result != 1 || outcome.rowsKept != kRows) return state.SkipWithError("the copy failed");
        state.counters["updates"] = outcome.updates;
    }
    state.SetItemsProcessed(state.iterations() * kRows);
    state.counters["rows_arrived"] = static_cast<double>(connection->count(u"bench_ar_dest"));
}

void BM_AddRecords_Plain_SQLite(benchmark::State &state) { addRecords(state, kSqlite, false); }
void BM_AddRecords_ById_SQLite(benchmark::State &state) { addRecords(state, kSqlite, true); }
void BM_AddRecords_Plain_PostgreSQL(benchmark::State &state) { addRecords(state, kPostgres, false); }
void BM_AddRecords_ById_PostgreSQL(benchmark::State &state) { addRecords(state, kPostgres, true); }
void BM_AddRecords_Plain_MariaDB(benchmark::State &state) { addRecords(state, kMariaDb, false); }
void BM_AddRecords_ById_MariaDB(benchmark::State &state) { addRecords(state, kMariaDb, true); }

#define ADD_RECORDS_CASE(function) BENCHMARK(function)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime()
ADD_RECORDS_CASE(BM_AddRecords_Plain_SQLite);
ADD_RECORDS_CASE(BM_AddRecords_ById_SQLite);
ADD_RECORDS_CASE(BM_AddRecords_Plain_PostgreSQL);
ADD_RECORDS_CASE(BM_AddRecords_ById_PostgreSQL);
ADD_RECORDS_CASE(BM_AddRecords_Plain_MariaDB);
ADD_RECORDS_CASE(BM_AddRecords_ById_MariaDB);

} // namespace
