# Shared by bench/run-rowset-export.sh and bench/run-export-wizard.sh (sourced): the
# 1,000,000-row table in SQLite, PostgreSQL and MariaDB, the environment of the
# benchmark cases, each case run in a process of its own (so that its memory peak is
# its own), rounds of cases run back to back (so that the ratios compare runs under
# the same load), and a summary of medians and ratios.
#
# The machine may be shared: the load average is printed before and after, and the
# summary gives medians over the rounds, and ratios taken within each round.

# export_runs_setup BUILD SERVER_ENV: makes the data (once) and sets the environment.
export_runs_setup() {
    BUILD=$(realpath "$1")
    local server_env
    server_env=$(realpath "$2")
    # shellcheck disable=SC1090
    source "$server_env"
    DATA="$BUILD/rowset-bench"
    mkdir -p "$DATA"
    bash "$(dirname "${BASH_SOURCE[0]}")/make-rowset-data.sh" "$DATA" "$server_env" sqlite postgresql mariadb
    export PGHOST=127.0.0.1 PGPORT="$PG_PORT" PGUSER="$TABRA_TEST_PG_USER" PGPASSWORD="$TABRA_TEST_PG_PASSWORD"
    export PGDATABASE="$PG_DATABASE"
    export TABRA_BENCH_ROWSET_SQLITE_DB="$DATA/bench.db" TABRA_BENCH_ROWSET_DIR="$DATA"
    export TABRA_BENCH_PG_DSN="$TABRA_TEST_PG_DSN" TABRA_BENCH_PG_USER="$TABRA_TEST_PG_USER"
    export TABRA_BENCH_PG_PASSWORD="$TABRA_TEST_PG_PASSWORD"
    export TABRA_BENCH_MARIADB_DSN="$TABRA_TEST_MARIADB_DSN" TABRA_BENCH_MARIADB_USER="$TABRA_TEST_MARIADB_USER"
    export TABRA_BENCH_MARIADB_PASSWORD="$TABRA_TEST_MARIADB_PASSWORD" TABRA_BENCH_MARIADB_PORT="$MARIADB_PORT"
    export TABRA_BENCH_MARIADB_DATABASE="$MARIADB_DATABASE"
    RESULTS=$(mktemp /tmp/tabra-export-runs.XXXXXX)
    echo "$(nproc) processors; load average before: $(cut -d' ' -f1-3 /proc/loadavg)"
}

# run_case CASE ROWS ROUND: runs BM_<CASE>/<ROWS> and keeps
# "round case rows milliseconds peak_MiB same_bytes" in $RESULTS.
run_case() {
    "$BUILD/bench/tabra_bench" --benchmark_filter="^BM_$1/$2/" --benchmark_format=csv 2>/dev/null |
        awk -F, -v round="$3" -v name="$1" -v rows="$2" '
            /^name,/ { for (i = 1; i <= NF; ++i) { gsub(/"/, "", $i); column[$i] = i }; next }
            /^"BM_/ {
                if (column["error_occurred"] && $column["error_occurred"] == "true") { print "failed: " name > "/dev/stderr"; next }
                peak = column["peak_growth_MiB"] ? $column["peak_growth_MiB"] : column["tool_peak_MiB"] ? $column["tool_peak_MiB"] : "-"
                same = column["same_bytes_as_writer"] ? $column["same_bytes_as_writer"] : column["same_bytes_as_library"] ? $column["same_bytes_as_library"] : "-"
                printf "%s %s %s %.1f %s %s\n", round, name, rows, $column["real_time"], peak, same
            }' >>"$RESULTS"
}

# run_rounds ROUNDS CASE...: every case at 1,000,000 rows in each round, and at 250,000
# rows once (to see whether memory grows with the rows).
run_rounds() {
    local rounds=$1 round name
    shift
    for ((round = 1; round <= rounds; ++round)); do
        for name in "$@"; do run_case "$name" 1000000 "$round"; done
    done
    for name in "$@"; do run_case "$name" 250000 1; done
}

# summarise PAIR...: per case the median time and rows per second at 1,000,000 rows,
# the peak memory at 250,000 and 1,000,000 rows and whether the bytes matched; then for
# each pair "A/B" the median over the rounds of time(A) / time(B).
summarise() {
    echo "load average after: $(cut -d' ' -f1-3 /proc/loadavg)"
    awk -v pairs="$*" '
        function median(list,    n, v, i, j, t) {
            n = split(list, v, " ")
            for (i = 2; i <= n; ++i) { t = v[i] + 0; for (j = i - 1; j >= 1 && v[j] + 0 > t; --j) v[j + 1] = v[j]; v[j + 1] = t }
            return n % 2 ? v[(n + 1) / 2] : (v[n / 2] + v[n / 2 + 1]) / 2
        }
        {
            key = $2
            if ($3 == 1000000) {
                if (!(key in times)) order[++count] = key
                times[key] = times[key] " " $4; at[$1, key] = $4; peak[key] = $5; same[key] = $6
                if ($1 > rounds) rounds = $1
            } else small[key] = $5
        }
        END {
            printf "%-44s %10s %12s %12s %12s %6s\n", "case (1,000,000 rows)", "median ms", "rows/s", "peak 250k MiB", "peak 1M MiB", "same"
            for (i = 1; i <= count; ++i) {
                k = order[i]; m = median(times[k])
                printf "%-44s %10.0f %12.0f %12s %12s %6s\n", k, m, 1000000 / (m / 1000), small[k], peak[k], same[k]
            }
            n = split(pairs, list, " ")
            for (i = 1; i <= n; ++i) {
                split(list[i], side, "/"); ratios = ""
                for (r = 1; r <= rounds; ++r) if (((r, side[1]) in at) && ((r, side[2]) in at) && at[r, side[2]] > 0) ratios = ratios " " at[r, side[1]] / at[r, side[2]]
                if (ratios != "") printf "ratio %-44s %6.2f  (rounds:%s)\n", list[i], median(ratios), ratios
            }
        }' "$RESULTS"
    rm -f "$RESULTS"
}
