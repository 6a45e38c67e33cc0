#!/usr/bin/env bash
# Add records benchmark: the add records wizard's copy of a 100,000-row PostgreSQL table
# into SQLite, PostgreSQL and MariaDB, plainly and matching by ids (bench/add_records_bench.cpp).
#
#   bash bench/run-add-records.sh BUILD SERVER_ENV [EXTRA BENCHMARK OPTIONS]
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
rm -f "$TABRA_BENCH_IMPORT_DIR/add-records-bench.db"
export TABRA_BENCH_PG_DSN="$TABRA_TEST_PG_DSN" TABRA_BENCH_PG_USER="$TABRA_TEST_PG_USER"
export TABRA_BENCH_PG_PASSWORD="$TABRA_TEST_PG_PASSWORD"
export TABRA_BENCH_MARIADB_DSN="$TABRA_TEST_MARIADB_DSN" TABRA_BENCH_MARIADB_USER="$TABRA_TEST_MARIADB_USER"
export TABRA_BENCH_MARIADB_PASSWORD="$TABRA_TEST_MARIADB_PASSWORD"
"$BUILD/bench/tabra_bench" --benchmark_filter='^BM_AddRecords_' --benchmark_counters_tabular=true "$@"
