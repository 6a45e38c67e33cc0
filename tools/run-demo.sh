#!/usr/bin/env bash
# The main job: installs what is missing, builds the library and the demo host if
# needed, makes the demo database if it is missing (registered as data source
# "TabraDemo" in the user's odbc.ini) and runs the demo host on it with a UTF-8 locale.
# Without arguments the host opens the database object chooser, on screen when there
# is a display; without one it plays the scripted tour tools/demo/tour.script.
#
#   bash tools/run-demo.sh [tabra-demo arguments, e.g. --dsn NAME]
#   TABRA_BUILD_ROOT   where build/ goes (default: the repository)
#   TABRA_JOBS         parallel compile jobs (default: the number of CPUs)
set -euo pipefail

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
BUILD="${TABRA_BUILD_ROOT:-$ROOT}/build"
JOBS=${TABRA_JOBS:-$(nproc)}

bash "$ROOT/tools/install-packages.sh" demo

# The host's text passes through the process's character type: keep a UTF-8 one.
if [[ "$(locale charmap 2>/dev/null)" != "UTF-8" ]]; then
    export LC_ALL=C.UTF-8
fi

if [[ ! -f "$BUILD/CMakeCache.txt" ]]; then
    cmake -S "$ROOT" -B "$BUILD" -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
fi
echo "Building the library and the demo host in $BUILD ..."
if ! cmake --build "$BUILD" -j "$JOBS" --target tabra-demo >"$BUILD/run-demo-build.log" 2>&1; then
    cat "$BUILD/run-demo-build.log" >&2
    echo "run-demo.sh: the build failed" >&2
    exit 1
fi

bash "$ROOT/tools/demo/make-demo-data.sh"
echo
if [[ $# -eq 0 ]]; then
    if [[ -n "${DISPLAY:-}" ]]; then
        set -- chooser
    else
        # The tour's script names list entries by their English labels.
        export ZUL_LANGUAGE=en
        set -- tour "$ROOT/tools/demo/tour.script"
    fi
fi
exec "$BUILD/tools/tabra-demo" "$@"
