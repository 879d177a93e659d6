# ./dev bench: runs every benchmark and puts their lines into one file and one table.
load build wine

# run_bench PROGRAM RUNNER...: a benchmark prints one JSON object a line; other lines are remarks.
run_bench() {
    local program=$1 output status=0
    shift
    say "$(basename "$program")"
    output=$("$@" "$program" </dev/null) || status=$?
    output=$(tr -d '\r' <<<"$output")
    grep '^{' <<<"$output" >>"$build/bench.lines" || status=${status/#0/1}
    grep -v '^{' <<<"$output" || true
    [ "$status" = 0 ] || { bench_failed=1; say "$(basename "$program") ended with status $status"; }
}

# fill_bench_folder: 100,000 entries, every fifteenth a folder, in one folder of C:. Wine itself would
# take an hour for it.
fill_bench_folder() {
    local folder=$wine_prefix/drive_c/FerryBench
    export FERRY_BENCH_FOLDER='C:\FerryBench'
    [ "$(find "$folder" -mindepth 1 2>/dev/null | wc -l)" = 100000 ] && return
    rm -rf "$folder"
    mkdir -p "$folder"
    (cd "$folder" && seq 0 15 99999 | sed 's/^/Some entry /' | xargs -d '\n' mkdir &&
        seq 0 99999 | awk '$1 % 15' | sed 's/^/Some entry /' | xargs -d '\n' touch)
}

bench_table() {
    awk '
        function field(name,   rest) {
            if (!match($0, "\"" name "\" *: *")) return "-"
            rest = substr($0, RSTART + RLENGTH)
            if (rest ~ /^"/) { sub(/^"/, "", rest); sub(/".*/, "", rest) } else sub(/[,}].*/, "", rest)
            return rest
        }
        BEGIN { printf "%-44s %14s %14s %-8s %8s %8s %s\n",
                       "name", "ferry", "reference", "unit", "ratio", "goal", "met" }
        { printf "%-44s %14s %14s %-8s %8s %8s %s\n", field("name"), field("ferry"), field("reference"),
                 field("unit"), field("ratio"), field("goal"), field("met") }' "$build/bench.lines"
}

command_bench() {
    local program found=0
    bench_failed=0
    need native
    build_preset native benches
    build_app
    build_preset mingw benches
    : >"$build/bench.lines"
    while IFS= read -r program; do
        found=1
        run_bench "$program" env
    done < <(find "$build/native/tests/bench" -type f -name 'bench_*' -perm -u+x 2>/dev/null | sort)
    open_wine virtual
    fill_bench_folder
    while IFS= read -r program; do
        found=1
        run_bench "$program" run_wine
    done < <(find "$build/mingw/tests/bench" -name 'bench_*.exe' 2>/dev/null | sort)
    [ "$found" = 1 ] || fail "there is no benchmark program below build/*/tests/bench"
    { echo '['; sed '$!s/$/,/' "$build/bench.lines"; echo ']'; } >"$build/bench.json"
    bench_table
    say "the same figures are in build/bench.json"
    [ "$bench_failed" = 0 ] || fail "a benchmark did not end well; see above"
}
