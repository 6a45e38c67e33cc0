#!/usr/bin/env bash
# Row-set export benchmark: OdbcEh_SelectRowSetToFile on the 1,000,000-row table beside
# the raw per-cell ODBC loop and the database's own export (sqlite3 -csv, psql \copy,
# the mariadb client in batch mode), several rounds; prints medians, rows per second,
# peak memory and the ratios of wall time.
#
#   bash bench/run-rowset-export.sh BUILD SERVER_ENV [ROUNDS (default 3)]
#
# BUILD is a Release build with bench/tabra_bench built; SERVER_ENV is the dev-env.sh of
# a tree whose servers run (tools/dev-env.sh start). The data stay in BUILD/rowset-bench
# and are made only once.
set -euo pipefail
# shellcheck source=bench/export-runs.sh
source "$(dirname "${BASH_SOURCE[0]}")/export-runs.sh"
export_runs_setup "${1:?BUILD}" "${2:?SERVER_ENV}"
# The library runs before the raw loop, whose output is compared with the library's file.
run_rounds "${3:-3}" \
    RowSetExport_Library_SQLite RowSetExport_RawPerCell_SQLite RowSetExport_Sqlite3Cli_SQLite \
    RowSetExport_Library_PostgreSQL RowSetExport_RawPerCell_PostgreSQL RowSetExport_PsqlCopy_PostgreSQL \
    RowSetExport_Library_MariaDB RowSetExport_RawPerCell_MariaDB RowSetExport_MariadbCli_MariaDB
summarise \
    RowSetExport_Library_SQLite/RowSetExport_Sqlite3Cli_SQLite RowSetExport_Library_SQLite/RowSetExport_RawPerCell_SQLite \
    RowSetExport_Library_PostgreSQL/RowSetExport_PsqlCopy_PostgreSQL \
    RowSetExport_Library_PostgreSQL/RowSetExport_RawPerCell_PostgreSQL \
    RowSetExport_Library_MariaDB/RowSetExport_MariadbCli_MariaDB \
    RowSetExport_Library_MariaDB/RowSetExport_RawPerCell_MariaDB
