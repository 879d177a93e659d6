# ./dev test: the three rings of tests, and one plain total at the end.
load build wine

passed=0 failed=0 skipped=0
shard_processes=() failed_logs=()

# count_results LOG: adds up the GoogleTest results in it. A program that ended before its closing
# line lost the test it was in, and counts as one failure more; the same goes for no result at all.
count_results() {
    local counts
    counts=$(tr -d '\r' <"$1" | awk '
        /^\[       OK \] .*\([0-9]+ ms\)$/ { ok++ }
        /^\[  FAILED  \] .*\([0-9]+ ms\)$/ { bad++ }
        /^\[  SKIPPED \] .*\([0-9]+ ms\)$/ { skip++ }
        /^\[==========\] Running / { begun++ }
        /^\[==========\] .* ran\./ { ended++ }
        END { print ok + 0, bad + begun - ended, skip + 0 }')
    local ok bad skip
    read -r ok bad skip <<<"$counts"
    passed=$((passed + ok)) failed=$((failed + bad)) skipped=$((skipped + skip))
    last_ok=$ok last_bad=$bad last_skip=$skip
}

report_program() { printf '   %-44s %5d passed, %d failed, %d skipped\n' "$1" "$last_ok" "$last_bad" "$last_skip"; }

# run_to_log EXE LOG: a Windows test program; its output and what it ended with.
run_to_log() {
    local status=0
    (cd "$(dirname "$1")" && GTEST_FILTER=$filter run_wine "$1" >"$2" 2>&1 </dev/null) || status=$?
    echo "$status" >"$2.status"
}

# judge_log NAME LOG: counts what is in the log, which is shown only when something is wrong.
judge_log() {
    local status
    status=$(cat "$2.status" 2>/dev/null) || status=none
    [ -f "$2" ] || : >"$2"
    count_results "$2"
    if ! grep -q '^\[==========\] Running ' "$2"; then
        failed=$((failed + 1)) last_bad=1
    elif [ "$status" != 0 ] && [ "$last_bad" = 0 ]; then
        failed=$((failed + 1)) last_bad=1
        printf '%s ended with status %s after its tests\n' "$1" "$status" >>"$2"
    fi
    if [ "$last_bad" != 0 ]; then
        tail -n 400 "$2" | tr -d '\r'
        failed_logs+=("$2")
    fi
    report_program "$1"
}

# recall_failures: what the failed checks said, once more, so that the end of a long output tells it.
recall_failures() {
    local log
    for log in "${failed_logs[@]}"; do
        say "failed in $(basename "$log" .log)"
        tr -d '\r' <"$log" | awk '
            /^\[ RUN      \] / { running = $0 }
            /: Failure$/ || /: error: / { print running; left = 12 }
            /^\[/ { left = 0 }
            left > 0 && shown < 80 { print; left--; shown++ }'
    done
}

test_programs() { find "$@" -name 'core_*.exe' -o -name '*test*.exe' -o -name 'ferry_e2e.exe' 2>/dev/null | sort; }

shard_log() { echo "$build/logs/$1-$(basename "$2" .exe).$3.log"; }

# run_shard INDEX LABEL FOLDER...: this part of every test program below the folders, in the Wine prefix
# that is open.
run_shard() {
    local index=$1 label=$2 exe
    shift 2
    export GTEST_SHARD_INDEX=$index GTEST_TOTAL_SHARDS=$shards
    while IFS= read -r exe; do
        run_to_log "$exe" "$(shard_log "$label" "$exe" "$index")"
    done < <(test_programs "$@")
    unset GTEST_SHARD_INDEX GTEST_TOTAL_SHARDS
}

# start_shard INDEX LABEL FOLDER...: the same beside us, in a prefix and on a display of its own.
start_shard() {
    (
        exit_actions=() xvfb_pid=
        trap run_exit_actions EXIT
        trap 'exit 143' TERM
        use_wine_dir "$build/wine-$1"
        open_wine virtual
        [ "$2" != e2e ] || install_for_tests
        run_shard "$@"
    ) &
    shard_processes+=($!)
}

# A shard hears of its end only when the program that it runs has ended; so the programs go, too.
stop_shards() {
    local index
    [ "${#shard_processes[@]}" -gt 0 ] || return 0
    kill "${shard_processes[@]}" 2>/dev/null
    for ((index = 1; index < shards; ++index)); do stop_wine "$build/wine-$index/prefix"; done
    wait "${shard_processes[@]}" 2>/dev/null
}

# run_test_programs LABEL FOLDER...: every test program below the folders. One that drives windows spends
# most of its time waiting for them, so two share two processors well.
run_test_programs() {
    local label=$1 index exe name found=0
    shift
    shards=1
    if [ "$filter" = '*' ] && [ "$(jobs)" -ge 2 ]; then shards=2; fi
    rm -f "$build/logs/$label"-*
    for ((index = 1; index < shards; ++index)); do start_shard "$index" "$label" "$@"; done
    run_shard 0 "$label" "$@"
    [ "${#shard_processes[@]}" = 0 ] || wait "${shard_processes[@]}" || true
    shard_processes=()
    while IFS= read -r exe; do
        found=1
        for ((index = 0; index < shards; ++index)); do
            name=$(basename "$exe" .exe)
            [ "$shards" = 1 ] || name="$name, part $((index + 1))"
            judge_log "$name" "$(shard_log "$label" "$exe" "$index")"
        done
    done < <(test_programs "$@")
    [ "$found" = 1 ] || { failed=$((failed + 1)); say "there is no test program in: $*"; }
}

# The portable code under the sanitizers, one CTest entry for each program.
test_core_native() {
    local log=$build/sanitize/Testing/Temporary/LastTest.log status=0
    need native
    build_preset sanitize
    say "portable code under the sanitizers"
    rm -f "$log"
    (cd "$root" && GTEST_FILTER=$filter ctest --test-dir build/sanitize -j "$(jobs)" \
        --output-on-failure --no-tests=error --timeout 900) || status=$?
    [ -f "$log" ] && count_results "$log" || last_ok=0 last_bad=0 last_skip=0
    if [ "$status" != 0 ] && [ "$last_bad" = 0 ]; then failed=$((failed + 1)) last_bad=1; fi
    report_program "all programs"
}

# The Windows programs, tests included, and a prefix to run them in.
prepare_windows() {
    build_app
    build_preset mingw
    open_wine virtual
}

test_core() {
    test_core_native
    prepare_windows
    say "the same tests on Windows text, under Wine"
    run_test_programs core "$build/mingw/tests/core"
}

test_windows() {
    prepare_windows
    say "adapters, dialogs and tools, under Wine"
    run_test_programs windows "$build/mingw/tests/windows" "$build/mingw/tools"
}

install_for_tests() {
    install_on_c FerryTest
    export FERRY_E2E_APP='C:\FerryTest'
    FERRY_E2E_HOST=$(windows_path "$samplehost")
    export FERRY_E2E_HOST
}

test_e2e() {
    prepare_windows
    say "the installed program from outside, under Wine"
    install_for_tests
    run_test_programs e2e "$build/mingw/tests/e2e"
}

command_test() {
    local rings=(core windows e2e)
    case ${1:-} in
        core|windows|e2e) rings=("$1"); shift ;;
    esac
    [ $# -le 1 ] || fail "usage: ./dev test [core|windows|e2e] [FILTER]"
    filter=${1:-*}
    mkdir -p "$build/logs"
    at_end stop_shards
    local ring
    for ring in "${rings[@]}"; do "test_$ring"; done
    recall_failures
    printf '%d passed, %d failed, %d skipped\n' "$passed" "$failed" "$skipped"
    [ "$failed" = 0 ] && [ "$passed" -gt 0 ]
}
