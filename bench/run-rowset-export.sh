#!/usr/bin/env bash
# Row-set export benchmark: makes the 1,000,000-row table bench_export in SQLite and in
# PostgreSQL (bench/make-rowset-data.sh), then runs the RowSetExport cases of
# tabra_bench: the library, a raw per-cell ODBC loop and the database's own export, at
# 250,000 and 1,000,000 rows.
#
#   bash bench/run-rowset-export.sh BUILD SERVER_ENV [EXTRA BENCHMARK OPTIONS]
#
# BUILD is a Release build with bench/tabra_bench built; SERVER_ENV is the dev-env.sh of
# a tree whose servers run (tools/dev-env.sh start): its PostgreSQL data source and
# credentials are used. The data stay in BUILD/rowset-bench and are made only once.
set -euo pipefail

BUILD=$(realpath "${1:?BUILD}")
SERVER_ENV=$(realpath "${2:?SERVER_ENV}")
shift 2
# shellcheck disable=SC1090
source "$SERVER_ENV"
DATA="$BUILD/rowset-bench"
mkdir -p "$DATA"

bash "$(dirname "${BASH_SOURCE[0]}")/make-rowset-data.sh" "$DATA" "$SERVER_ENV" sqlite postgresql
export PGHOST=127.0.0.1 PGPORT="$PG_PORT" PGUSER="$TABRA_TEST_PG_USER" PGPASSWORD="$TABRA_TEST_PG_PASSWORD"
export PGDATABASE="$PG_DATABASE"

export TABRA_BENCH_ROWSET_SQLITE_DB="$DATA/bench.db" TABRA_BENCH_ROWSET_DIR="$DATA"
export TABRA_BENCH_PG_DSN="$TABRA_TEST_PG_DSN" TABRA_BENCH_PG_USER="$TABRA_TEST_PG_USER"
export TABRA_BENCH_PG_PASSWORD="$TABRA_TEST_PG_PASSWORD"
# Each case in a process of its own, so that its memory peak is its own; the library
# runs before the raw loop, whose output is compared with the library's file.
for backend in SQLite PostgreSQL; do
    for kind in Library RawPerCell Sqlite3Cli PsqlCopy; do
        for rows in 250000 1000000; do
            "$BUILD/bench/tabra_bench" --benchmark_filter="^BM_RowSetExport_${kind}_${backend}/${rows}/" \
                --benchmark_counters_tabular=true "$@" 2>/dev/null | grep '^BM_' || true
        done
    done
done
