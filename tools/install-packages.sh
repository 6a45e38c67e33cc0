#!/usr/bin/env bash
# Installs the Debian 12 packages Tabra needs, only those that are missing: apt-get
# runs (update once, then install) only when something is. Needs root for that.
#
#   bash tools/install-packages.sh build   compiler, CMake, unixODBC, GTK 3, GoogleTest
#   bash tools/install-packages.sh demo    + the SQLite3 ODBC driver and the sqlite3 tool
#   bash tools/install-packages.sh test    + database servers, their drivers, Xvfb, a window
#                                          manager for the GTK tests, locales
set -euo pipefail

build_packages=(build-essential cmake pkg-config unixodbc unixodbc-dev libgtk-3-dev
                googletest libgtest-dev libbenchmark-dev)
demo_packages=(libsqliteodbc sqlite3)
test_packages=(libsqliteodbc sqlite3 odbc-postgresql postgresql odbc-mariadb mariadb-server mariadb-client
               xvfb xauth imagemagick openbox x11-utils locales)

wanted=("${build_packages[@]}")
for set in "$@"; do
    case "$set" in
        build) ;;
        demo) wanted+=("${demo_packages[@]}") ;;
        test) wanted+=("${test_packages[@]}") ;;
        *) echo "install-packages.sh: unknown set '$set' (build, demo, test)" >&2; exit 2 ;;
    esac
done

missing=()
for package in "${wanted[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
        case " ${missing[*]} " in *" $package "*) ;; *) missing+=("$package") ;; esac
    fi
done

if ((${#missing[@]} == 0)); then
    exit 0
fi
if [[ $(id -u) -ne 0 ]]; then
    echo "Missing packages: ${missing[*]}" >&2
    echo "Run this script as root, or install them with apt-get." >&2
    exit 1
fi

echo "Installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq </dev/null
apt-get install -y -qq -o Dpkg::Use-Pty=0 "${missing[@]}" </dev/null >/dev/null
echo "Packages installed."
