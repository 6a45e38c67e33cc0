#!/usr/bin/env bash
# Peak memory of exporting the 1,000,000-row table bench_export through
# OdbcEh_SelectRowSetToFile (the example program examples/export-table), per driver,
# with and without the data source option that keeps the driver from holding the
# whole result in memory: SQLite StepAPI=1, PostgreSQL UseDeclareFetch=1 (with
# Fetch=1000 rows per round trip), MariaDB OPTION=1048576 (its bit for not caching
# forward-only results; Connector/ODBC 3.1 ignores it). Prints each run's maximum resident set and time
# (/usr/bin/time) and checks that the option leaves the exported file unchanged.
#
#   bash tools/measure-export-memory.sh BUILD SERVER_ENV
#
# BUILD is a build (Release, for times worth comparing) with examples/export-table
# built; SERVER_ENV is the dev-env.sh of a tree whose servers run (tools/dev-env.sh
# start). The table is made once per database (bench/make-rowset-data.sh), the SQLite
# one in BUILD/rowset-bench.
set -euo pipefail

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
BUILD=$(realpath "${1:?BUILD}")
SERVER_ENV=$(realpath "${2:?SERVER_ENV}")
# shellcheck disable=SC1090
source "$SERVER_ENV"
DATA="$BUILD/rowset-bench"
EXPORT="$BUILD/examples/export-table"
[[ -x "$EXPORT" ]] || { echo "measure-export-memory.sh: build $EXPORT first" >&2; exit 1; }
[[ -x /usr/bin/time ]] || { echo "measure-export-memory.sh: /usr/bin/time is missing (apt-get install time)" >&2; exit 1; }
bash "$ROOT/bench/make-rowset-data.sh" "$DATA" "$SERVER_ENV" sqlite postgresql mariadb

# The data sources of the runs, beside the drivers the tests register.
WORK=$(mktemp -d /tmp/tabra-export-memory.XXXXXX)
trap 'rm -rf "$WORK"' EXIT
cp "$ODBCSYSINI/odbcinst.ini" "$WORK/"
sqlite="Driver=SQLite3
Database=$DATA/bench.db"
postgresql="Driver=PostgreSQL Unicode
Servername=127.0.0.1
Port=$PG_PORT
Database=$PG_DATABASE"
mariadb="Driver=MariaDB Unicode
Server=127.0.0.1
Port=$MARIADB_PORT
Database=$MARIADB_DATABASE
CHARSET=utf8mb4"
cat >"$WORK/odbc.ini" <<INI
[SQLite]
$sqlite
[SQLite-StepAPI]
$sqlite
StepAPI=1
[PostgreSQL]
$postgresql
[PostgreSQL-UseDeclareFetch]
$postgresql
UseDeclareFetch=1
Fetch=1000
[MariaDB]
$mariadb
[MariaDB-NoCache]
$mariadb
OPTION=1048576
INI
export ODBCSYSINI="$WORK" ODBCINI="$WORK/odbc.ini" LC_ALL=C.UTF-8
unset DISPLAY

printf '%-28s %12s %9s\n' "data source" "peak memory" "time"
measure() { # data-source [user password]
    mkdir -p "$WORK/$1"
    /usr/bin/time -f '%M %e' -o "$WORK/time" "$EXPORT" "$1" bench_export "$WORK/$1" "${@:2}" >/dev/null
    read -r kib seconds <"$WORK/time"
    awk -v name="$1" -v kib="$kib" -v seconds="$seconds" 'BEGIN { printf "%-28s %8.0f MiB %7.1f s\n", name, kib / 1024, seconds }'
}
same() { # data-source data-source
    cmp -s "$WORK/$1/bench_export.txt" "$WORK/$2/bench_export.txt" \
        || { echo "the files of $1 and $2 differ" >&2; exit 1; }
    rm -rf "${WORK:?}/$1" "${WORK:?}/$2"
}
measure SQLite
measure SQLite-StepAPI
same SQLite SQLite-StepAPI
measure PostgreSQL "$TABRA_TEST_PG_USER" "$TABRA_TEST_PG_PASSWORD"
measure PostgreSQL-UseDeclareFetch "$TABRA_TEST_PG_USER" "$TABRA_TEST_PG_PASSWORD"
same PostgreSQL PostgreSQL-UseDeclareFetch
measure MariaDB "$TABRA_TEST_MARIADB_USER" "$TABRA_TEST_MARIADB_PASSWORD"
measure MariaDB-NoCache "$TABRA_TEST_MARIADB_USER" "$TABRA_TEST_MARIADB_PASSWORD"
same MariaDB MariaDB-NoCache
