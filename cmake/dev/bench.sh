# ./dev bench: runs every benchmark and puts their lines into one file and one table.
load build wine

# No program takes half of it; one that does hangs.
bench_limit=240

# run_bench PROGRAM RUNNER...: a benchmark prints one JSON object a line and its remarks beside them. It ends
# with 0 when it could measure all, whether the goals were met or not.
run_bench() {
    local program=$1 name lines=$build/bench.new status=0
    shift
    name=$(basename "$program")
    say "$name"
    "$@" "$program" </dev/null >"$lines" 2> >(tr -d '\r' | tee "$build/bench.remarks" >&2) || status=$?
    wait $! || true
    [ "$status" != 124 ] || say "$name did not end within $bench_limit s"
    tr -d '\r' <"$lines" | grep '^{' >>"$build/bench.lines" || [ "$status" != 0 ] || status=none
    [ "$status" = 0 ] && return
    bench_failed+=("$name (status $status)$(sed -n 's/^could not measure: /\n   /p' "$build/bench.remarks")")
    return 1
}

run_native_bench() { timeout -k 10 "$bench_limit" "$@"; }

run_wine_bench() { run_wine_within "$bench_limit" "$@"; }

# fill_bench_folder: what the benchmarks work on, in one folder of C:.
fill_bench_folder() {
    say "making the files of the benchmarks"
    bench_folder=$wine_prefix/drive_c/FerryBench
    export FERRY_BENCH_FOLDER='C:\FerryBench'
    rm -rf "$bench_folder"
    at_end remove_bench_folder
    "$build/native/tests/bench/fill_bench_folder" "$bench_folder" ||
        fail "the files of the benchmarks could not be made in $bench_folder"
}

remove_bench_folder() { rm -rf "$bench_folder"; }

run_native_benches() {
    local program
    while IFS= read -r program; do
        run_bench "$program" run_native_bench || true
    done < <(find "$build/native/tests/bench" -type f -name 'bench_*' -perm -u+x 2>/dev/null | sort)
}

# run_wine_benches NAME...: who measures next must find neither windows nor files of the one before.
run_wine_benches() {
    local name
    for name in "$@"; do
        run_bench "$build/mingw/tests/bench/$name.exe" run_wine_bench || restart_wine
        rm -rf "$bench_folder"/new*
    done
}

# wine_benches: the names of all programs for Windows.
wine_benches() {
    find "$build/mingw/tests/bench" -name 'bench_*.exe' -printf '%f\n' 2>/dev/null | sed 's/\.exe$//' | sort
}

# What these measure is one call of Wine's server after the other. On one processor such a call takes a third of
# the time, and not now more and now less, since no other processor has to be woken for each.
serial_benches='bench_batch|bench_completion|bench_enumerate|bench_individual|bench_menu|bench_script'

run_pinned_benches() {
    local processor
    # The last one that we may use; the first one has most of the interrupts.
    processor=$(taskset -cp $$ | sed 's/.*[^0-9]//')
    wine_pinned=(taskset -c "$processor")
    # Wine tells its programs of all processors.
    export FERRY_BENCH_PROCESSORS=1
    restart_wine
    run_wine_benches "$@"
    unset FERRY_BENCH_PROCESSORS
    wine_pinned=()
    restart_wine
}

# The value of a field of the line, for the awk programs below.
# shellcheck disable=SC2016  # awk's own $0
bench_awk='
    function field(name,   rest) {
        if (!match($0, "\"" name "\" *: *")) return "-"
        rest = substr($0, RSTART + RLENGTH)
        if (rest ~ /^"/) { sub(/^"/, "", rest); sub(/".*/, "", rest) } else sub(/[,}].*/, "", rest)
        return rest
    }'

bench_table() {
    awk "$bench_awk"'
        function row(name, ferry, reference, unit, ratio, spread, rounds, goal, met) {
            printf "%-68s %10s %10s %-4s %7s %7s %6s %6s %s\n",
                   name, ferry, reference, unit, ratio, spread, rounds, goal, met
        }
        BEGIN { row("name", "ferry", "reference", "unit", "ratio", "spread", "rounds", "goal", "met") }
        { row(field("name"), field("ferry"), field("reference"), field("unit"), field("ratio"),
              field("spread"), field("rounds"), field("goal"),
              field("met") (field("settled") == "true" ? "" : ", not settled")) }' "$build/bench.lines"
}

# bench_verdict: the goals in one line.
bench_verdict() {
    awk "$bench_awk"'
        field("met") == "true" { ++met }
        field("met") == "false" { names = names (missed++ ? "; " : ": ") field("name") }
        END { printf "%d goals met, %d missed%s\n", met, missed, names }' "$build/bench.lines"
}

command_bench() {
    local twice names
    bench_failed=()
    need native bench
    build_preset native benches
    build_app
    build_preset mingw benches
    : >"$build/bench.lines"
    run_native_benches
    open_wine virtual
    fill_bench_folder
    mapfile -t names < <(wine_benches | grep -vxE "$serial_benches")
    run_wine_benches "${names[@]}"
    mapfile -t names < <(wine_benches | grep -xE "$serial_benches")
    run_pinned_benches "${names[@]}"
    [ -s "$build/bench.lines" ] || bench_failed+=("nothing at all was measured")
    twice=$(sed 's/","ferry.*//' "$build/bench.lines" | sort | uniq -d)
    [ -z "$twice" ] || bench_failed+=("a name stands twice: $twice")
    { echo '['; sed '$!s/$/,/' "$build/bench.lines"; echo ']'; } >"$build/bench.json"
    bench_table
    say "the same figures are in build/bench.json"
    [ ${#bench_failed[@]} = 0 ] || printf './dev: could not measure all: %s\n' "${bench_failed[@]}" >&2
    bench_verdict
    [ ${#bench_failed[@]} = 0 ]
}
