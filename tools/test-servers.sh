#!/usr/bin/env bash
# Throw-away PostgreSQL and MariaDB servers for the tests, on 127.0.0.1 at free ports,
# in data directories below one root, each with a test database and a user with a
# password. Sourced by tools/run-tests.sh:
#
#   source tools/test-servers.sh
#   servers_start ROOT        starts both; sets the variables below
#   servers_stop              stops them by their process ids, removes ROOT
#   servers_write_data_sources BUILD   writes their ODBC data sources for a build tree
#
# After servers_start: PG_PORT PG_USER PG_PASSWORD PG_DATABASE and MARIADB_PORT
# MARIADB_USER MARIADB_PASSWORD MARIADB_DATABASE. Servers run as their own system
# users when started by root.

SERVERS_ROOT=""
PG_PID=""
MARIADB_PID=""

servers_log() { echo "[servers] $*"; }

# A random password of 24 hexadecimal digits.
servers_password() { od -An -N12 -tx1 /dev/urandom | tr -d ' \n'; }

# True when something listens on TCP port $1 (IPv4 or IPv6), from /proc alone.
servers_port_in_use() {
    local hex
    hex=$(printf '%04X' "$1")
    awk -v port=":$hex" 'NR > 1 && $4 == "0A" && substr($2, length($2) - 4) == port { found = 1 } END { exit !found }' \
        /proc/net/tcp /proc/net/tcp6 2>/dev/null
}

# A free port in 20000-59999.
servers_free_port() {
    local port
    for _ in $(seq 1 200); do
        port=$((20000 + RANDOM % 40000))
        if ! servers_port_in_use "$port"; then echo "$port"; return 0; fi
    done
    echo "no free port found" >&2
    return 1
}

# Runs a command as system user $1 when we are root, else as ourselves.
servers_as() {
    local user=$1; shift
    if [[ $(id -u) -eq 0 ]]; then runuser -u "$user" -- "$@"; else "$@"; fi
}

# Waits until process $1 has exited (up to $2 seconds); true if it did.
servers_wait_exit() {
    local pid=$1 limit=$2
    for _ in $(seq 1 $((limit * 10))); do
        kill -0 "$pid" 2>/dev/null || return 0
        sleep 0.1
    done
    return 1
}

# Stops process $2 (named $1) with signal $3 and waits; kills it if it lingers.
servers_stop_pid() {
    local name=$1 pid=$2 signal=${3:-TERM}
    [[ -n "$pid" ]] || return 0
    kill -0 "$pid" 2>/dev/null || return 0
    kill "-$signal" "$pid" 2>/dev/null || true
    if ! servers_wait_exit "$pid" 30; then
        servers_log "$name ($pid) did not stop; killing it"
        kill -KILL "$pid" 2>/dev/null || true
        servers_wait_exit "$pid" 5 || true
    fi
}

servers_start_postgresql() {
    local dir="$SERVERS_ROOT/postgresql" bindir
    bindir=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -1)
    [[ -x "$bindir/initdb" ]] || bindir=$(pg_config --bindir)
    install -d -m 700 "$dir"
    if [[ $(id -u) -eq 0 ]]; then chown postgres:postgres "$dir"; fi
    PG_USER=tabra
    PG_PASSWORD=$(servers_password)
    PG_DATABASE=tabra_test
    servers_as postgres "$bindir/initdb" -D "$dir/data" -U postgres --auth-local=trust --auth-host=scram-sha-256 \
        -E UTF8 --locale=C.UTF-8 >"$dir/initdb.log" 2>&1 || { cat "$dir/initdb.log" >&2; return 1; }
    local attempt
    for attempt in 1 2 3; do
        PG_PORT=$(servers_free_port)
        if servers_as postgres "$bindir/pg_ctl" -D "$dir/data" -l "$dir/server.log" -w -t 60 \
            -o "-c listen_addresses=127.0.0.1 -p $PG_PORT -k $dir -c fsync=off -c synchronous_commit=off -c full_page_writes=off" \
            start >/dev/null; then
            break
        fi
        servers_log "PostgreSQL did not start on port $PG_PORT (attempt $attempt)"
        [[ $attempt -eq 3 ]] && { cat "$dir/server.log" >&2; return 1; }
    done
    PG_PID=$(head -1 "$dir/data/postmaster.pid")
    local psql=("$bindir/psql" -X -q -v ON_ERROR_STOP=1 -h "$dir" -p "$PG_PORT" -U postgres -d postgres)
    servers_as postgres "${psql[@]}" -c "CREATE ROLE $PG_USER LOGIN PASSWORD '$PG_PASSWORD'" \
        -c "CREATE DATABASE $PG_DATABASE OWNER $PG_USER ENCODING 'UTF8' TEMPLATE template0"
    servers_log "PostgreSQL on 127.0.0.1:$PG_PORT (pid $PG_PID)"
}

servers_start_mariadb() {
    local dir="$SERVERS_ROOT/mariadb"
    install -d -m 700 "$dir"
    if [[ $(id -u) -eq 0 ]]; then chown mysql:mysql "$dir"; fi
    MARIADB_USER=tabra
    MARIADB_PASSWORD=$(servers_password)
    MARIADB_DATABASE=tabra_test
    local user_option=()
    if [[ $(id -u) -eq 0 ]]; then user_option=(--user=mysql); fi
    mariadb-install-db --no-defaults "${user_option[@]}" --datadir="$dir/data" \
        --auth-root-authentication-method=socket --skip-test-db >"$dir/install.log" 2>&1 \
        || { cat "$dir/install.log" >&2; return 1; }
    local attempt socket="$dir/mysqld.sock"
    for attempt in 1 2 3; do
        MARIADB_PORT=$(servers_free_port)
        mariadbd --no-defaults "${user_option[@]}" --datadir="$dir/data" --socket="$socket" \
            --pid-file="$dir/mysqld.pid" --port="$MARIADB_PORT" --bind-address=127.0.0.1 \
            --character-set-server=utf8mb4 --collation-server=utf8mb4_general_ci \
            --innodb-flush-log-at-trx-commit=0 --skip-log-bin --log-error="$dir/server.log" \
            </dev/null >/dev/null 2>&1 &
        MARIADB_PID=$!
        local ready=""
        for _ in $(seq 1 300); do
            if mariadb-admin --no-defaults --socket="$socket" -u root ping >/dev/null 2>&1; then ready=1; break; fi
            kill -0 "$MARIADB_PID" 2>/dev/null || break
            sleep 0.1
        done
        [[ -n "$ready" ]] && break
        servers_log "MariaDB did not start on port $MARIADB_PORT (attempt $attempt)"
        servers_stop_pid MariaDB "$MARIADB_PID"
        MARIADB_PID=""
        [[ $attempt -eq 3 ]] && { cat "$dir/server.log" >&2; return 1; }
    done
    mariadb --no-defaults --socket="$socket" -u root <<SQL
CREATE DATABASE $MARIADB_DATABASE CHARACTER SET utf8mb4 COLLATE utf8mb4_general_ci;
CREATE USER '$MARIADB_USER'@'127.0.0.1' IDENTIFIED BY '$MARIADB_PASSWORD';
CREATE USER '$MARIADB_USER'@'localhost' IDENTIFIED BY '$MARIADB_PASSWORD';
GRANT ALL PRIVILEGES ON $MARIADB_DATABASE.* TO '$MARIADB_USER'@'127.0.0.1';
GRANT ALL PRIVILEGES ON $MARIADB_DATABASE.* TO '$MARIADB_USER'@'localhost';
SQL
    servers_log "MariaDB on 127.0.0.1:$MARIADB_PORT (pid $MARIADB_PID)"
}

servers_start() {
    SERVERS_ROOT=$1
    mkdir -p "$SERVERS_ROOT"
    chmod 755 "$SERVERS_ROOT"
    servers_start_postgresql
    servers_start_mariadb
}

# The data sources of the running servers, beside the driver registrations of a build
# tree (BUILD/tests/odbc/odbc.ini, which ODBCSYSINI points the tests at).
servers_write_data_sources() { # build-directory
    local odbc="$1/tests/odbc"
    mkdir -p "$odbc"
    cat >"$odbc/odbc.ini" <<INI
; Server data sources of the current test run (written by tools/test-servers.sh)
[TabraTestPostgreSQL]
Driver=PostgreSQL Unicode
Servername=127.0.0.1
Port=$PG_PORT
Database=$PG_DATABASE

[TabraTestMariaDB]
Driver=MariaDB Unicode
Server=127.0.0.1
Port=$MARIADB_PORT
Database=$MARIADB_DATABASE
CHARSET=utf8mb4
INI
}

servers_stop() {
    servers_stop_pid PostgreSQL "$PG_PID" INT   # fast shutdown
    servers_stop_pid MariaDB "$MARIADB_PID" TERM
    PG_PID=""
    MARIADB_PID=""
    if [[ -n "$SERVERS_ROOT" && -d "$SERVERS_ROOT" ]]; then rm -rf "$SERVERS_ROOT"; fi
    SERVERS_ROOT=""
}
