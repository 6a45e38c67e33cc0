#!/usr/bin/env bash
# Import benchmark: the import wizard's run, the database's own loader and a raw loop
# of one INSERT per row, on SQLite, PostgreSQL and MariaDB, over the same 100,000-row
# tab-separated text file (made by the benchmark in BUILD/import-bench).
#
#   bash bench/run-import.sh BUILD SERVER_ENV [EXTRA BENCHMARK OPTIONS]
#
# BUILD is a Release build with bench/tabra_bench built; SERVER_ENV is the dev-env.sh of
# a tree whose servers run (tools/dev-env.sh start).
set -euo pipefail

BUILD=$(realpath "${1:?BUILD}")
SERVER_ENV=$(realpath "${2:?SERVER_ENV}")
shift 2
# shellcheck disable=SC1090
source "$SERVER_ENV"
export TABRA_BENCH_IMPORT_DIR="$BUILD/import-bench"
mkdir -p "$TABRA_BENCH_IMPORT_DIR"
rm -f "$TABRA_BENCH_IMPORT_DIR/import-bench.db"
export PGHOST=127.0.0.1 PGPORT="$PG_PORT" PGUSER="$TABRA_TEST_PG_USER" PGPASSWORD="$TABRA_TEST_PG_PASSWORD"
export PGDATABASE="$PG_DATABASE"
export MARIADB_USER="$TABRA_TEST_MARIADB_USER" MARIADB_PASSWORD="$TABRA_TEST_MARIADB_PASSWORD"
export TABRA_BENCH_PG_DSN="$TABRA_TEST_PG_DSN" TABRA_BENCH_PG_USER="$TABRA_TEST_PG_USER"
export TABRA_BENCH_PG_PASSWORD="$TABRA_TEST_PG_PASSWORD"
export TABRA_BENCH_MARIADB_DSN="$TABRA_TEST_MARIADB_DSN" TABRA_BENCH_MARIADB_USER="$TABRA_TEST_MARIADB_USER"
export TABRA_BENCH_MARIADB_PASSWORD="$TABRA_TEST_MARIADB_PASSWORD"
"$BUILD/bench/tabra_bench" --benchmark_filter='^BM_Import_' --benchmark_counters_tabular=true "$@"
