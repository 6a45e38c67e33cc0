#!/usr/bin/env bash
# Export wizard benchmark: the wizard's file writer on the 1,000,000-row table beside
# the raw per-cell ODBC loop and the database's own export, on SQLite, PostgreSQL and
# MariaDB, also with the driver options that keep memory flat (SQLite StepAPI=1,
# psqlodbc UseDeclareFetch=1), several rounds; prints medians, rows per second, peak
# memory and the ratios of wall time.
#
#   bash bench/run-export-wizard.sh BUILD SERVER_ENV [ROUNDS (default 3)]
#
# BUILD is a Release build with bench/tabra_bench built; SERVER_ENV is the dev-env.sh of
# a tree whose servers run (tools/dev-env.sh start). The data stay in BUILD/rowset-bench.
set -euo pipefail
# shellcheck source=bench/export-runs.sh
source "$(dirname "${BASH_SOURCE[0]}")/export-runs.sh"
export_runs_setup "${1:?BUILD}" "${2:?SERVER_ENV}"
run_rounds "${3:-3}" \
    ExportWizard_Writer_SQLite ExportWizard_RawPerCell_SQLite ExportWizard_Sqlite3Cli_SQLite \
    ExportWizard_Writer_SQLiteStepAPI ExportWizard_RawPerCell_SQLiteStepAPI \
    ExportWizard_Writer_PostgreSQL ExportWizard_RawPerCell_PostgreSQL ExportWizard_PsqlCopy_PostgreSQL \
    ExportWizard_Writer_PostgreSQLDeclareFetch ExportWizard_RawPerCell_PostgreSQLDeclareFetch \
    ExportWizard_Writer_MariaDB ExportWizard_RawPerCell_MariaDB ExportWizard_MariadbCli_MariaDB
summarise \
    ExportWizard_Writer_SQLite/ExportWizard_Sqlite3Cli_SQLite ExportWizard_Writer_SQLite/ExportWizard_RawPerCell_SQLite \
    ExportWizard_Writer_SQLiteStepAPI/ExportWizard_Sqlite3Cli_SQLite \
    ExportWizard_Writer_SQLiteStepAPI/ExportWizard_RawPerCell_SQLiteStepAPI \
    ExportWizard_Writer_PostgreSQL/ExportWizard_PsqlCopy_PostgreSQL \
    ExportWizard_Writer_PostgreSQL/ExportWizard_RawPerCell_PostgreSQL \
    ExportWizard_Writer_PostgreSQLDeclareFetch/ExportWizard_PsqlCopy_PostgreSQL \
    ExportWizard_Writer_PostgreSQLDeclareFetch/ExportWizard_RawPerCell_PostgreSQLDeclareFetch \
    ExportWizard_Writer_MariaDB/ExportWizard_MariadbCli_MariaDB \
    ExportWizard_Writer_MariaDB/ExportWizard_RawPerCell_MariaDB
