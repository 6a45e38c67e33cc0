#!/usr/bin/env bash
# The 1,000,000-row table bench_export (id, name, city, amount, day, note) of the
# row-set export measurements, made once in each database named: in SQLite (the file
# DATA/bench.db, with the sqlite3 tool and a recursive query), in PostgreSQL
# (generate_series through psql) and in MariaDB (the sequence engine through the
# mariadb client). A table that already holds all its rows is left as it is.
#
#   bash bench/make-rowset-data.sh DATA SERVER_ENV sqlite|postgresql|mariadb...
#
# SERVER_ENV is the dev-env.sh of a tree whose servers run (tools/dev-env.sh start):
# the test databases of its servers get the table.
set -euo pipefail

DATA=$(realpath -m "${1:?DATA}")
SERVER_ENV=$(realpath "${2:?SERVER_ENV}")
shift 2
# shellcheck disable=SC1090
source "$SERVER_ENV"
ROWS=1000000
mkdir -p "$DATA"
columns="id INTEGER PRIMARY KEY, name VARCHAR(40), city VARCHAR(40), amount %s, day DATE, note VARCHAR(200)"
note="'a longer text for row ' || i || ', with a few more words than the other columns have'"

make_sqlite() {
    if [[ "$(sqlite3 "$DATA/bench.db" "SELECT count(*) FROM bench_export" 2>/dev/null || true)" == "$ROWS" ]]; then return; fi
    rm -f "$DATA/bench.db"
    sqlite3 "$DATA/bench.db" <<SQL
CREATE TABLE bench_export ($(printf "$columns" DOUBLE));
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < $ROWS)
INSERT INTO bench_export
SELECT i, 'name ' || i, 'city ' || (i % 1000), i * 1.25, date('2000-01-01', '+' || (i % 9000) || ' days'), $note
FROM n;
SQL
}

make_postgresql() {
    export PGHOST=127.0.0.1 PGPORT="$PG_PORT" PGUSER="$TABRA_TEST_PG_USER" PGPASSWORD="$TABRA_TEST_PG_PASSWORD"
    export PGDATABASE="$PG_DATABASE"
    if [[ "$(psql -tAq -c "SELECT count(*) FROM bench_export" 2>/dev/null || true)" == "$ROWS" ]]; then return; fi
    psql -q -v ON_ERROR_STOP=1 <<SQL
DROP TABLE IF EXISTS bench_export;
CREATE TABLE bench_export ($(printf "$columns" "DOUBLE PRECISION"));
INSERT INTO bench_export
SELECT i, 'name ' || i, 'city ' || (i % 1000), i * 1.25, DATE '2000-01-01' + (i % 9000), $note
FROM generate_series(1, $ROWS) AS i;
ANALYZE bench_export;
SQL
}

mariadb_client() {
    MYSQL_PWD="$TABRA_TEST_MARIADB_PASSWORD" command mariadb --no-defaults -h 127.0.0.1 -P "$MARIADB_PORT" \
        -u "$TABRA_TEST_MARIADB_USER" "$MARIADB_DATABASE" "$@"
}

make_mariadb() {
    if [[ "$(mariadb_client -N -e "SELECT count(*) FROM bench_export" 2>/dev/null || true)" == "$ROWS" ]]; then return; fi
    mariadb_client <<SQL
DROP TABLE IF EXISTS bench_export;
CREATE TABLE bench_export ($(printf "$columns" DOUBLE));
INSERT INTO bench_export
SELECT seq, CONCAT('name ', seq), CONCAT('city ', seq % 1000), seq * 1.25, DATE '2000-01-01' + INTERVAL (seq % 9000) DAY,
       CONCAT('a longer text for row ', seq, ', with a few more words than the other columns have')
FROM seq_1_to_$ROWS;
SQL
}

for database in "$@"; do
    case "$database" in
        sqlite | postgresql | mariadb) "make_$database" ;;
        *) echo "make-rowset-data.sh: unknown database '$database' (sqlite, postgresql, mariadb)" >&2; exit 2 ;;
    esac
done
