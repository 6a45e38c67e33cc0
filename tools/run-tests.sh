#!/usr/bin/env bash
# Runs every Tabra test: installs what is missing, builds the library twice (plain,
# and with AddressSanitizer + UndefinedBehaviorSanitizer), starts throw-away
# PostgreSQL and MariaDB servers, runs the suite through ctest for both builds (GTK
# tests under Xvfb with the openbox window manager), checks that an installed copy
# serves the example host programs built with find_package and with pkg-config, and
# stops the servers on every way out. Exits non-zero on any failure.
#
# Works as root on a fresh Debian 12 machine, without a terminal.
#   TABRA_BUILD_ROOT   where build/ and build-asan/ go (default: the repository)
#   TABRA_JOBS         parallel compile and test jobs (default: the number of CPUs)
#   TABRA_SKIP_ASAN=1  only the plain build (quicker local runs)
set -euo pipefail

export LC_ALL=C.UTF-8 LANG=C.UTF-8
unset LANGUAGE
ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
BUILD_ROOT=${TABRA_BUILD_ROOT:-$ROOT}
JOBS=${TABRA_JOBS:-$(nproc)}
STARTED=$SECONDS

step() { printf '\n=== %s (%ds)\n' "$*" $((SECONDS - STARTED)); }

step "Packages"
bash "$ROOT/tools/install-packages.sh" test

# Locales the date tests compare against; only root can add them.
if [[ $(id -u) -eq 0 ]]; then
    for locale in de_DE en_US; do
        if ! locale -a 2>/dev/null | grep -qix "$locale.utf-\?8"; then
            localedef -i "$locale" -f UTF-8 "$locale.UTF-8" 2>/dev/null || echo "note: could not add $locale.UTF-8"
        fi
    done
fi

# shellcheck source=tools/test-servers.sh
source "$ROOT/tools/test-servers.sh"
WORK=$(mktemp -d /tmp/tabra-tests.XXXXXX)
chmod 755 "$WORK"
cleanup() {
    local status=$?
    servers_stop
    rm -rf "$WORK"
    exit "$status"
}
trap cleanup EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

build() { # directory build-type sanitize [cmake options]
    local dir="$BUILD_ROOT/$1"
    step "Build $1 ($2, sanitizers $3)"
    cmake -S "$ROOT" -B "$dir" -DCMAKE_BUILD_TYPE="$2" -DTABRA_SANITIZE="$3" "${@:4}" >"$WORK/configure-$1.log" 2>&1 \
        || { cat "$WORK/configure-$1.log"; return 1; }
    # Progress lines are left out; warnings and errors show.
    { cmake --build "$dir" -j "$JOBS" 2>&1; echo $? >"$WORK/build-status"; } \
        | { grep -Ev '^\[ *[0-9]+%\] (Building|Linking)|^(gmake|make)\[[0-9]\]: (Entering|Leaving)' || true; }
    return "$(cat "$WORK/build-status")"
}

SUMMARY=()
FAILED=0

run_suite() { # name build-directory
    local name=$1 dir="$BUILD_ROOT/$2" log="$WORK/ctest-$1.log"
    servers_write_data_sources "$dir"
    export ODBCSYSINI="$dir/tests/odbc"
    # (The tests get this from their ctest properties; listing them needs it too.)
    export TABRA_RESOURCE_DIR="$dir"
    export TABRA_TEST_DIR="$WORK/scratch-$name"
    mkdir -p "$TABRA_TEST_DIR"
    step "Tests: $name"
    local status=0
    ctest --test-dir "$dir" -j "$JOBS" -LE gtk --output-on-failure --timeout 600 </dev/null 2>&1 | tee "$log" \
        || status=1
    SUMMARY+=("$name: $(grep -E 'tests passed' "$log" | tail -1)")
    local gtk_tests
    gtk_tests=$(ctest --test-dir "$dir" -N -L gtk 2>/dev/null | grep -c 'Test *#' || true)
    if ((gtk_tests > 0)); then
        step "Tests: $name, GTK under Xvfb with a window manager"
        # A screen large enough for the biggest dialog at twice the pixel density.
        xvfb-run -a -s "-screen 0 1600x1200x24" bash "$ROOT/tools/with-window-manager.sh" \
            ctest --test-dir "$dir" -j "$JOBS" -L gtk --output-on-failure --timeout 600 </dev/null 2>&1 \
            | tee "$log.gtk" || status=1
        SUMMARY+=("$name, GTK: $(grep -E 'tests passed' "$log.gtk" | tail -1)")
    fi
    if ((status != 0)); then FAILED=1; fi
    return 0
}

# An installed copy (headers, library, resources, tabra.pc, the CMake package) serves
# host programs: every example is built against it twice, with find_package(Tabra) and
# with pkg-config, and each build runs headless on the demo database as
# "EXAMPLE DATA_SOURCE TABLE FOLDER"; both builds must succeed and leave the same files.
# An example that plays a script finds NAME.script beside itself; one with a
# NAME.expected must have written exactly that.
install_check() { # build-directory
    local prefix="$WORK/install" examples="$WORK/examples" strict="-Wall -Wextra -Wpedantic -Werror"
    step "Install check"
    cmake --install "$BUILD_ROOT/$1" --prefix "$prefix" >/dev/null || return 1
    local pcdir libdir
    pcdir=$(dirname "$(find "$prefix" -name tabra.pc | head -1)")
    libdir=$(dirname "$(find "$prefix" -name 'libtabra.so' | head -1)")
    [[ -f "$pcdir/tabra.pc" ]] || { echo "tabra.pc was not installed"; return 1; }
    [[ -f "$libdir/cmake/Tabra/TabraConfig.cmake" ]] || { echo "the CMake package was not installed"; return 1; }
    mkdir -p "$examples/pkg-config"
    { cmake -S "$ROOT/examples" -B "$examples/cmake" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_C_FLAGS="$strict" \
        && cmake --build "$examples/cmake"; } >"$WORK/examples-cmake.log" 2>&1 \
        || { cat "$WORK/examples-cmake.log"; return 1; }
    local source name build count=0
    for source in "$ROOT"/examples/*.c; do
        name=$(basename "$source" .c)
        # shellcheck disable=SC2046,SC2086
        cc -std=c11 $strict "$source" -o "$examples/pkg-config/$name" \
            $(PKG_CONFIG_PATH="$pcdir" pkg-config --define-variable=prefix="$prefix" --cflags --libs tabra) || return 1
        if [[ -f "${source%.c}.script" ]]; then cp "${source%.c}.script" "$examples/pkg-config/"; fi
    done
    export ODBCSYSINI="$BUILD_ROOT/$1/tests/odbc" ODBCINI="$examples/odbc.ini"
    TABRA_DEMO_DATABASE="$examples/demo.sqlite" bash "$ROOT/tools/demo/make-demo-data.sh" >/dev/null || return 1
    for source in "$ROOT"/examples/*.c; do
        name=$(basename "$source" .c)
        for build in cmake pkg-config; do
            mkdir -p "$examples/out-$build/$name"
            LD_LIBRARY_PATH="$libdir" "$examples/$build/$name" TabraDemo Orders "$examples/out-$build/$name" \
                || { echo "the example $name built with $build failed"; return 1; }
        done
        diff -r "$examples/out-cmake/$name" "$examples/out-pkg-config/$name" >/dev/null \
            || { echo "the two builds of the example $name wrote different files"; return 1; }
        if [[ -f "${source%.c}.expected" ]]; then
            cat "$examples/out-cmake/$name"/* | diff "${source%.c}.expected" - \
                || { echo "the example $name wrote other than $name.expected says"; return 1; }
        fi
        count=$((count + 1))
    done
    SUMMARY+=("install: $count example(s) built with find_package and with pkg-config ran against the installed library")
}

build build RelWithDebInfo OFF
if [[ "${TABRA_SKIP_ASAN:-}" != 1 ]]; then
    build build-asan Debug ON -DTABRA_BUILD_BENCH=OFF
fi

step "Servers"
servers_start "$WORK/servers"
export TABRA_TEST_PG_DSN=TabraTestPostgreSQL TABRA_TEST_PG_USER="$PG_USER" TABRA_TEST_PG_PASSWORD="$PG_PASSWORD"
export TABRA_TEST_MARIADB_DSN=TabraTestMariaDB TABRA_TEST_MARIADB_USER="$MARIADB_USER"
export TABRA_TEST_MARIADB_PASSWORD="$MARIADB_PASSWORD"
export TABRA_REQUIRE_SERVERS=1
export NO_AT_BRIDGE=1 GSETTINGS_BACKEND=memory
unset DISPLAY

run_suite plain build
if [[ "${TABRA_SKIP_ASAN:-}" != 1 ]]; then
    ASAN_OPTIONS="detect_leaks=1:detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1:halt_on_error=1" \
    LSAN_OPTIONS="suppressions=$ROOT/tests/lsan.supp:print_suppressions=0" \
    UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1" \
        run_suite sanitizers build-asan
fi

install_check build || FAILED=1

step "Summary"
printf '  %s\n' "${SUMMARY[@]}"
if ((FAILED != 0)); then
    echo "FAILED (after $((SECONDS - STARTED)) s)"
    exit 1
fi
echo "All tests passed (after $((SECONDS - STARTED)) s)"
