#!/usr/bin/env bash
# Row-set export benchmark: makes the 1,000,000-row table bench_export in SQLite (with
# the sqlite3 tool and a recursive query) and in PostgreSQL (generate_series through
# psql), then runs the RowSetExport cases of tabra_bench: the library, a raw per-cell
# ODBC loop and the database's own export, at 250,000 and 1,000,000 rows.
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
ROWS=1000000
DATA="$BUILD/rowset-bench"
mkdir -p "$DATA"

columns="id INTEGER PRIMARY KEY, name VARCHAR(40), city VARCHAR(40), amount %s, day DATE, note VARCHAR(200)"
if [[ "$(sqlite3 "$DATA/bench.db" "SELECT count(*) FROM bench_export" 2>/dev/null || true)" != "$ROWS" ]]; then
    rm -f "$DATA/bench.db"
    sqlite3 "$DATA/bench.db" <<SQL
CREATE TABLE bench_export ($(printf "$columns" DOUBLE));
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < $ROWS)
INSERT INTO bench_export
SELECT i, 'name ' || i, 'city ' || (i % 1000), i * 1.25, date('2000-01-01', '+' || (i % 9000) || ' days'),
       'a longer text for row ' || i || ', with a few more words than the other columns have'
FROM n;
SQL
fi

export PGHOST=127.0.0.1 PGPORT="$PG_PORT" PGUSER="$TABRA_TEST_PG_USER" PGPASSWORD="$TABRA_TEST_PG_PASSWORD"
export PGDATABASE="$PG_DATABASE"
if [[ "$(psql -tAq -c "SELECT count(*) FROM bench_export" 2>/dev/null || true)" != "$ROWS" ]]; then
    psql -q -v ON_ERROR_STOP=1 <<SQL
DROP TABLE IF EXISTS bench_export;
CREATE TABLE bench_export ($(printf "$columns" "DOUBLE PRECISION"));
INSERT INTO bench_export
SELECT i, 'name ' || i, 'city ' || (i % 1000), i * 1.25, DATE '2000-01-01' + (i % 9000),
       'a longer text for row ' || i || ', with a few more words than the other columns have'
FROM generate_series(1, $ROWS) AS i;
ANALYZE bench_export;
SQL
fi

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
