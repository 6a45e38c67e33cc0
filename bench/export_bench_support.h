// What the export benchmarks share: connections to the benchmark databases through the
// driver manager (as the library uses it), the peak resident set of a run, a raw
// per-cell ODBC loop to compare with, and the databases' own export tools run as child
// processes. (Header only.)
//
// The table bench_export (id, name, city, amount, day, note; 1,000,000 rows) is made
// by bench/make-rowset-data.sh; the runner scripts set the environment:
//   TABRA_BENCH_ROWSET_SQLITE_DB   the SQLite database file
//   TABRA_BENCH_PG_DSN, TABRA_BENCH_PG_USER, TABRA_BENCH_PG_PASSWORD   the PostgreSQL
//                                  data source; psql reads PGHOST, PGPORT, PGUSER,
//                                  PGPASSWORD, PGDATABASE
//   TABRA_BENCH_MARIADB_DSN, TABRA_BENCH_MARIADB_USER, TABRA_BENCH_MARIADB_PASSWORD,
//   TABRA_BENCH_MARIADB_PORT, TABRA_BENCH_MARIADB_DATABASE   the MariaDB data source
//                                  and what its client needs
//   TABRA_BENCH_ROWSET_DIR         where the files go (default: the temp folder)
#pragma once

#include "bench/bench_connection.h"

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
#include <string_view>
#include <vector>

namespace bench {

inline constexpr const char *kColumns = "id, name, city, amount, day, note";

inline std::string benchFolder() {
    const char *folder = std::getenv("TABRA_BENCH_ROWSET_DIR");
    return folder != nullptr ? folder : std::filesystem::temp_directory_path().string();
}

// The output file of one kind of run, backend and size.
inline std::string outputPath(const char *kind, const std::string &backend, int64_t rows) {
    return benchFolder() + "/" + kind + "-" + backend + "-" + std::to_string(rows) + ".txt";
}

inline std::string fileBytes(const std::string &path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// Resident set now and its peak, in KiB, from /proc/self/status.
inline long statusKiB(const char *field) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind(field, 0) == 0) return std::atol(line.c_str() + std::string(field).size());
    return 0;
}

// Starts a fresh peak; answers the resident set the run starts from.
inline long resetPeak() {
    std::ofstream("/proc/self/clear_refs") << "5";
    return statusKiB("VmRSS:");
}

inline void reportPeak(benchmark::State &state, long startKiB) {
    state.counters["peak_growth_MiB"] = static_cast<double>(statusKiB("VmHWM:") - startKiB) / 1024.0;
}

// The SQLite file through its driver; options such as "StepAPI=1" are appended.
inline std::unique_ptr<Connection> sqliteConnection(const std::string &options = "") {
    std::string database = environment("TABRA_BENCH_ROWSET_SQLITE_DB");
    if (database.empty()) return nullptr;
    return std::make_unique<Connection>(
        ascii(std::string("DRIVER=") + TABRA_BENCH_SQLITE3_DRIVER + ";Database=" + database + ";" + options), false);
}

// A server's data source by name, or with options through a connection string.
inline std::unique_ptr<Connection> serverConnection(const char *prefix, const std::string &options = "") {
    std::string dsn = environment((std::string(prefix) + "_DSN").c_str());
    if (dsn.empty()) return nullptr;
    std::string user = environment((std::string(prefix) + "_USER").c_str());
    std::string password = environment((std::string(prefix) + "_PASSWORD").c_str());
    if (options.empty()) return std::make_unique<Connection>(ascii(dsn), true, ascii(user), ascii(password));
    return std::make_unique<Connection>(ascii("DSN=" + dsn + ";UID=" + user + ";PWD=" + password + ";" + options),
                                        false);
}

// The raw loop: every cell through SQLGetData as wide text into a 5000-character
// buffer, written as the text as fetched (nothing for NULL), tabs between fields and
// lineEnd between records (after every record when endsEveryRecord), through a
// buffered stream. Answers the rows written.
inline int64_t rawExport(SQLHDBC connection, std::u16string sql, const std::string &path,
                         std::u16string_view lineEnd = u"\n", bool endsEveryRecord = false) {
    SQLHSTMT statement;
    SQLAllocStmt(connection, &statement);
    if (!SQL_SUCCEEDED(SQLExecDirectW(statement, sqlText(sql), SQL_NTS))) throw std::runtime_error("raw: exec");
    SQLSMALLINT columns = 0;
    SQLNumResultCols(statement, &columns);
    std::vector<char> streamBuffer(1 << 20); // outlives the stream that writes through it
    std::unique_ptr<std::FILE, int (*)(std::FILE *)> file(std::fopen(path.c_str(), "wb"), std::fclose);
    std::setvbuf(file.get(), streamBuffer.data(), _IOFBF, streamBuffer.size());
    std::vector<char16_t> value(5000);
    const char16_t tab = u'\t';
    int64_t rows = 0;
    while (SQL_SUCCEEDED(SQLFetch(statement))) {
        if (!endsEveryRecord && rows > 0) std::fwrite(lineEnd.data(), 2, lineEnd.size(), file.get());
        ++rows;
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
        if (endsEveryRecord) std::fwrite(lineEnd.data(), 2, lineEnd.size(), file.get());
    }
    SQLFreeStmt(statement, SQL_DROP);
    return rows;
}

// Runs a shell command as a child process; its peak resident set in KiB (-1 on failure).
inline long runTool(const std::string &command) {
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

inline void toolExport(benchmark::State &state, const std::string &command) {
    long peak = 0;
    for (auto _ : state)
        if ((peak = runTool(command)) < 0) return state.SkipWithError(("failed: " + command).c_str());
    state.counters["tool_peak_MiB"] = static_cast<double>(peak) / 1024.0;
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// The commands of the databases' own exports of a query (its text quoted for the shell
// by the caller's choice of quotes: the query holds none) into file.
inline std::string sqlite3Export(const std::string &query, const std::string &file) {
    return "sqlite3 -csv '" + environment("TABRA_BENCH_ROWSET_SQLITE_DB") + "' \"" + query + "\" > '" + file + "'";
}
inline std::string psqlExport(const std::string &query, const std::string &file) {
    return "psql -q -c \"\\copy (" + query + ") TO '" + file + "'\"";
}
// The mariadb client in batch mode (tab-separated, one line per row, a header line).
inline std::string mariadbExport(const std::string &query, const std::string &file) {
    return "MYSQL_PWD='" + environment("TABRA_BENCH_MARIADB_PASSWORD") + "' mariadb --no-defaults -h 127.0.0.1 -P " +
           environment("TABRA_BENCH_MARIADB_PORT") + " -u '" + environment("TABRA_BENCH_MARIADB_USER") + "' '" +
           environment("TABRA_BENCH_MARIADB_DATABASE") + "' -B -e \"" + query + "\" > '" + file + "'";
}

} // namespace bench
