#!/usr/bin/env bash
# Creates the Tabra demo database (SQLite) and registers it as the data source
# "TabraDemo" in the user's own odbc.ini, the one the driver manager reads ($ODBCINI,
# else the .odbc.ini of the account's home directory, which need not be $HOME). Only
# that section of the file is written; running again changes nothing else.
#
#   bash tools/demo/make-demo-data.sh [--force]
#     --force   make the database again even if it exists
#   TABRA_DEMO_DATABASE   the database file (default: ~/.local/share/tabra/TabraDemo.sqlite)
set -euo pipefail

HERE=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
DATABASE=${TABRA_DEMO_DATABASE:-${XDG_DATA_HOME:-$HOME/.local/share}/tabra/TabraDemo.sqlite}
DSN=TabraDemo

force=0
for argument in "$@"; do
    case "$argument" in
        --force) force=1 ;;
        *) echo "usage: make-demo-data.sh [--force]" >&2; exit 2 ;;
    esac
done

for tool in sqlite3 odbcinst; do
    command -v "$tool" >/dev/null || { echo "make-demo-data.sh: $tool is missing (bash tools/install-packages.sh demo)" >&2; exit 1; }
done

# The database: made in a temporary file and moved into place, so a broken run never
# leaves a half-made database behind.
if [[ $force -eq 1 || ! -s "$DATABASE" ]]; then
    mkdir -p "$(dirname "$DATABASE")"
    temporary="$DATABASE.new.$$"
    rm -f "$temporary"
    trap 'rm -f "$temporary"' EXIT
    started=$SECONDS
    sqlite3 -bail "$temporary" <"$HERE/demo-data.sql" >/dev/null
    mv -f "$temporary" "$DATABASE"
    trap - EXIT
    echo "Demo database made in $((SECONDS - started)) s: $DATABASE"
else
    echo "Demo database present: $DATABASE"
fi

# The SQLite3 driver must be registered (the Debian package does so in /etc/odbcinst.ini).
if ! odbcinst -q -d -n SQLite3 >/dev/null 2>&1; then
    driver=$(find /usr/lib /usr/local/lib -name libsqlite3odbc.so 2>/dev/null | head -1)
    if [[ -z "$driver" ]]; then
        echo "make-demo-data.sh: the SQLite3 ODBC driver is not installed (package libsqliteodbc)" >&2
        exit 1
    fi
    printf '[SQLite3]\nDescription=SQLite3 ODBC Driver\nDriver=%s\nSetup=%s\n' "$driver" "$driver" \
        | odbcinst -i -d -r >/dev/null
    echo "Registered the SQLite3 ODBC driver."
fi

# Our section of the user's odbc.ini: every other line stays as it was.
USER_INI=$(odbcinst -j | sed -n 's/^USER DATA SOURCES\.*: //p')
[[ -n "$USER_INI" ]] || USER_INI=${ODBCINI:-$HOME/.odbc.ini}
mkdir -p "$(dirname "$USER_INI")"
touch "$USER_INI"
section=$(printf '[%s]\nDescription=Tabra demo database (customers, products, orders)\nDriver=SQLite3\nDatabase=%s\n' \
    "$DSN" "$DATABASE")
updated=$(awk -v name="[$DSN]" '
    /^[ \t]*\[/ { line = $0; gsub(/^[ \t]+|[ \t]+$/, "", line); skipping = (tolower(line) == tolower(name)) }
    !skipping { print }
' "$USER_INI")
{
    # (The command substitution dropped trailing blank lines.)
    if [[ -n "$updated" ]]; then printf '%s\n\n' "$updated"; fi
    printf '%s\n' "$section"
} >"$USER_INI.new"
mv -f "$USER_INI.new" "$USER_INI"
echo "Data source $DSN registered in $USER_INI"
