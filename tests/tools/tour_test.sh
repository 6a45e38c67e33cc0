#!/usr/bin/env bash
# The demo's main job without a display: the demo host plays tools/demo/tour.script on
# a fresh demo database, twice (a second tour first removes what the first one made).
# Every step must be done, with the figures the demo data gives, and the database
# must hold what the tour says it made.
#   tour_test.sh TABRA_DEMO SOURCE_DIR
set -euo pipefail
demo=$1
source_dir=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME=$work ODBCINI=$work/odbc.ini TABRA_DEMO_DATABASE=$work/demo.sqlite ZUL_LANGUAGE=en
unset DISPLAY
database=$TABRA_DEMO_DATABASE

fail() { echo "tour_test: $*" >&2; exit 1; }

bash "$source_dir/tools/demo/make-demo-data.sh" >/dev/null
for round in 1 2; do
    "$demo" tour "$source_dir/tools/demo/tour.script" >"$work/tour.out" 2>&1 || { cat "$work/tour.out"; fail "round $round failed"; }
    cat "$work/tour.out"
    for expected in \
        ' 1\. Export the German customers to a file .* 39 lines' \
        ' 2\. Import that file into a new table .* new table TourCustomers \(38 rows\)' \
        ' 3\. .* TourCustomers: 38 -> 500 rows' \
        ' 4\. .* 248 records of TourCustomers with Country = '"'"'Germany'"'" \
        ' 5\. .* TourCustomers: 500 -> 455 rows' \
        ' 6\. .* new table TourNotes \(0 rows\)' \
        ' 7\. .* TourNotes has the columns .*, Remark$' \
        ' 8\. .* TourNotes: 0 -> 1 rows' \
        ' 9\. .* new view TourView \(248 rows\)' \
        '10\. .* new table TourCopy \(500 rows\)' \
        '11\. .* table TourCopy deleted' \
        '12\. Show the driver information .* SQLite 3\.' \
        '^12 of 12 steps done$' \
        "^Database: +$database\$"; do
        grep -Eq "$expected" "$work/tour.out" || fail "round $round: no line matching: $expected"
    done
done

# What the database holds after the second tour.
query() { sqlite3 "$database" "$1"; }
[[ $(query "SELECT count(*) FROM TourCustomers WHERE CreditLimit IS NULL") == 0 ]] || fail "records without a credit limit left"
[[ $(query "SELECT Remark FROM TourNotes") == "written by the SQL performer" ]] || fail "the SQL performer's row is missing"
[[ $(query "SELECT count(*) FROM TourView") == 248 ]] || fail "the view does not hold the German customers"
[[ $(query "SELECT sql FROM sqlite_master WHERE name = 'TourView'") == *"FROM TourCustomers AS t WHERE"* ]] \
    || fail "the view was not made by the designer"
[[ -z $(query "SELECT name FROM sqlite_master WHERE name = 'TourCopy'") ]] || fail "the copy was not deleted"
[[ $(query "SELECT count(*) FROM Customers") == 500 ]] || fail "the demo's own table changed"
[[ -s $work/.cache/tabra-tour/customers.txt ]] || fail "the exported file is not in the user's tour folder"
echo "tour_test: two tours, 12 of 12 steps each"
