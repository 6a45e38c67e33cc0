#!/usr/bin/env bash
# A developer's test environment for one build tree: configures and builds it if
# needed, starts throw-away PostgreSQL and MariaDB servers for it (each build tree its
# own, since server tests empty their test database), writes their data sources
# beside the tree's driver registrations and leaves a file of exports to source.
#
#   bash tools/dev-env.sh start BUILD [Debug|RelWithDebInfo|Release] [cmake options]
#   source BUILD/dev-env.sh      then: ctest --test-dir BUILD -R ..., or run tabra_tests
#   bash tools/dev-env.sh stop BUILD
#
# The servers keep running until "stop" (or the machine goes); their data lives in
# BUILD/dev-servers.
set -euo pipefail

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
action=${1:-}
BUILD=$(realpath -m "${2:-}")
[[ -n "$action" && -n "${2:-}" ]] || { sed -n 2,12p "$0"; exit 2; }

# shellcheck source=tools/test-servers.sh
source "$ROOT/tools/test-servers.sh"

case "$action" in
start)
    bash "$ROOT/tools/install-packages.sh" test
    if [[ ! -f "$BUILD/CMakeCache.txt" ]]; then
        cmake -S "$ROOT" -B "$BUILD" -DCMAKE_BUILD_TYPE="${3:-Debug}" "${@:4}"
    fi
    if [[ -f "$BUILD/dev-servers/pids" ]]; then
        echo "Servers for $BUILD are already running (bash $0 stop $BUILD first)"
    else
        servers_start "$BUILD/dev-servers"
        servers_write_data_sources "$BUILD"
        echo "$PG_PID $MARIADB_PID" >"$BUILD/dev-servers/pids"
        cat >"$BUILD/dev-env.sh" <<ENV
# Source this to run the tests of $BUILD by hand.
export LC_ALL=C.UTF-8 LANG=C.UTF-8
export ODBCSYSINI="$BUILD/tests/odbc" TABRA_RESOURCE_DIR="$BUILD"
export TABRA_TEST_PG_DSN=TabraTestPostgreSQL TABRA_TEST_PG_USER="$PG_USER" TABRA_TEST_PG_PASSWORD="$PG_PASSWORD"
export TABRA_TEST_MARIADB_DSN=TabraTestMariaDB TABRA_TEST_MARIADB_USER="$MARIADB_USER"
export TABRA_TEST_MARIADB_PASSWORD="$MARIADB_PASSWORD"
export TABRA_REQUIRE_SERVERS=1 NO_AT_BRIDGE=1 GSETTINGS_BACKEND=memory
export PG_PORT=$PG_PORT PG_DATABASE=$PG_DATABASE MARIADB_PORT=$MARIADB_PORT MARIADB_DATABASE=$MARIADB_DATABASE
ENV
        # Left running on purpose: forget the pids so the exit trap does not stop them.
        SERVERS_ROOT="" PG_PID="" MARIADB_PID=""
    fi
    cmake --build "$BUILD" -j "$(nproc)"
    echo "Ready: source $BUILD/dev-env.sh"
    ;;
stop)
    if [[ -f "$BUILD/dev-servers/pids" ]]; then
        read -r PG_PID MARIADB_PID <"$BUILD/dev-servers/pids"
        SERVERS_ROOT="$BUILD/dev-servers"
        servers_stop
    fi
    rm -f "$BUILD/dev-env.sh"
    ;;
*)
    sed -n 2,12p "$0"
    exit 2
    ;;
esac
