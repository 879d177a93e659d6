# ./dev test: the three rings of tests, and one plain total at the end.
load build wine

passed=0 failed=0 skipped=0
failures=() skips=() failed_logs=()
second_worker='' second_wine_dir=$build/wine-1

# How long a program, and one test of it, may take. What takes longer hangs.
program_seconds=${FERRY_PROGRAM_SECONDS:-900}
export FERRY_TEST_SECONDS=${FERRY_TEST_SECONDS:-300}

# count_results NAME LOG [STATUS]: adds up the results in a log; what is wrong is remembered by name.
count_results() {
    local line word
    last_ok=0 last_bad=0 last_skip=0
    while IFS= read -r line; do
        word=${line%% *} line=${line#* }
        case $word in
            counts) read -r last_ok last_bad last_skip <<<"$line" ;;
            failed) failures+=("$1: $line") ;;
            skipped) skips+=("$line") ;;
        esac
    done < <(awk -v excused="$dev_scripts/excused_skips.txt" -v status="${3:-}" -f "$dev_scripts/judge.awk" "$2")
    passed=$((passed + last_ok)) failed=$((failed + last_bad)) skipped=$((skipped + last_skip))
}

# report_program NAME PASSED FAILED SKIPPED
report_program() { printf '   %-44s %5d passed, %d failed, %d skipped\n' "$@"; }

# run_to_log EXE LOG [FILTER]: a Windows test program; its output and what it ended with. After one that hung, Wine
# starts anew, since whatever it started may hang as well.
run_to_log() {
    local status=0
    (cd "$(dirname "$1")" && GTEST_FILTER=${3:-$filter} run_wine_within "$program_seconds" "$1" >"$2" 2>&1 </dev/null) ||
        status=$?
    echo "$status" >"$2.status"
    if [ "$status" = 124 ] || [ "$status" = 137 ]; then restart_wine; fi
}

# judge_log NAME LOG: counts what is in the log, which is shown only when something is wrong.
judge_log() {
    local status
    status=$(cat "$2.status" 2>/dev/null) || status=none
    [ -f "$2" ] || : >"$2"
    count_results "$1" "$2" "$status"
    [ "$last_bad" != 0 ] || return 0
    tail -n 400 "$2" | tr -d '\r'
    failed_logs+=("$2")
}

# recall_failures: what the failed checks said, once more, so that the end of a long output tells it.
recall_failures() {
    local log
    for log in ${failed_logs[@]+"${failed_logs[@]}"}; do
        say "failed in $(basename "$log" .log)"
        tr -d '\r' <"$log" | awk '
            /^\[ RUN      \] / { running = $0 }
            /: Failure$/ || /: error: / || /Unhandled exception/ || /: Skipped$/ { print running; left = 12 }
            /^\[/ { left = 0 }
            left > 0 && shown < 80 { print; left--; shown++ }'
    done
    [ "${#failures[@]}" = 0 ] || printf '   FAILED: %s\n' "${failures[@]}"
    [ "${#skips[@]}" = 0 ] || printf '   skipped: %s\n' "${skips[@]}"
}

# print_total: the last line. It names the tests that were skipped.
print_total() {
    local names=
    [ "${#skips[@]}" = 0 ] || names=$(printf ', %s' "${skips[@]%%:*}")
    printf '%d passed, %d failed, %d skipped%s\n' "$passed" "$failed" "$skipped" "${names:+ (${names#, })}"
}

# The Windows test programs to run, a line each: label, parts, path. A program is cut into parts that
# can run beside each other.
plan=()

# parts_of EXE: the long programs in parts, so that no worker waits long for the last one.
parts_of() {
    [ "$filter" = '*' ] || { echo 1; return; }
    case $(basename "$1" .exe) in
        ferry_e2e) echo 12 ;;
        ferry_dialogs_test) echo 4 ;;
        *) echo 1 ;;
    esac
}

# plan_programs LABEL FOLDER...: every test program below the folders.
plan_programs() {
    local label=$1 exe found=0
    shift
    while IFS= read -r exe; do
        found=1
        plan+=("$label $(parts_of "$exe") $exe")
    done < <(find "$@" -name 'core_*.exe' -o -name '*test*.exe' -o -name 'ferry_e2e.exe' 2>/dev/null | sort)
    [ "$found" = 1 ] || { failed=$((failed + 1)); failures+=("$label: there is no test program in: $*"); }
}

# part_log LABEL EXE PART
part_log() { echo "$build/logs/$1-$(basename "$2" .exe).$3.log"; }

# next_part: the number of the part that is to run next, for one worker only.
next_part() {
    (
        flock 8
        number=$(cat "$build/logs/next")
        echo $((number + 1)) >"$build/logs/next"
        echo "$number"
    ) 8>"$build/logs/next.lock"
}

# work: runs one part after the other in the Wine prefix that is open, until none is left.
work() {
    local lines=() line number label parts exe part
    for line in "${plan[@]}"; do
        read -r label parts exe <<<"$line"
        for ((part = 0; part < parts; ++part)); do lines+=("$part $line"); done
    done
    while number=$(next_part) && [ "$number" -lt "${#lines[@]}" ]; do
        read -r part label parts exe <<<"${lines[$number]}"
        export GTEST_SHARD_INDEX=$part GTEST_TOTAL_SHARDS=$parts
        if [ "$label" = english ]; then
            run_in_english "$exe" "$(part_log "$label" "$exe" "$part")"
        else
            run_to_log "$exe" "$(part_log "$label" "$exe" "$part")"
        fi
    done
    unset GTEST_SHARD_INDEX GTEST_TOTAL_SHARDS
}

# run_in_english EXE LOG: the room of English texts in the fonts of an English Windows.
run_in_english() {
    use_fonts en-US
    FERRY_DIALOG_FAMILY=Tahoma run_to_log "$1" "$2" '*TextRoom*English*'
    use_fonts ja-JP
}

# start_second_worker: works beside us, in a prefix and on a display of its own.
start_second_worker() {
    (
        # shellcheck disable=SC2030 # this worker's display is its own
        exit_actions=() xvfb_pid=
        trap run_exit_actions EXIT
        trap 'exit 143' TERM
        use_wine_dir "$second_wine_dir"
        open_wine virtual
        install_for_tests
        work
    ) &
    second_worker=$!
}

# The worker hears of its end only when the program that it runs has ended; so the program goes, too.
stop_second_worker() {
    [ -n "$second_worker" ] || return 0
    kill "$second_worker" 2>/dev/null
    stop_wine "$second_wine_dir/prefix"
    wait "$second_worker" 2>/dev/null
}

# run_plan: a program that drives windows spends most of its time waiting for them, so two share two
# processors well.
run_plan() {
    [ "${#plan[@]}" -gt 0 ] || return 0
    say "the programs for Windows, under Wine"
    rm -f "$build/logs"/{core,windows,english,e2e}-*
    echo 0 >"$build/logs/next"
    [ "$filter" != '*' ] || [ "$(jobs)" -lt 2 ] || start_second_worker
    install_for_tests
    work
    [ -z "$second_worker" ] || wait "$second_worker" || true
    second_worker=
    report_plan
}

# report_plan: a line for each program.
report_plan() {
    local line label parts exe part name ok bad skip
    for line in "${plan[@]}"; do
        read -r label parts exe <<<"$line"
        name=$(basename "$exe" .exe) ok=0 bad=0 skip=0
        for ((part = 0; part < parts; ++part)); do
            judge_log "$name, part $((part + 1))" "$(part_log "$label" "$exe" "$part")"
            ok=$((ok + last_ok)) bad=$((bad + last_bad)) skip=$((skip + last_skip))
        done
        [ "$label" != english ] || name+=", English fonts"
        report_program "$name" "$ok" "$bad" "$skip"
    done
}

# The portable code under the sanitizers, one CTest entry for each program. They make the random runs on the model
# of a file system several times as long, so a fifth of them are made here; the same programs make them all
# under Wine.
test_core_native() {
    local log=$build/sanitize/Testing/Temporary/LastTest.log status=0
    need native
    build_preset sanitize
    say "portable code under the sanitizers"
    rm -f "$log"
    (cd "$root" && FERRY_MODEL_RUNS=${FERRY_MODEL_RUNS:-20000} GTEST_FILTER=$filter ctest --test-dir build/sanitize -j "$(jobs)" \
        --output-on-failure --no-tests=error --timeout "$program_seconds") || status=$?
    [ -f "$log" ] || : >"$log"
    count_results "portable code" "$log" "$status"
    report_program "all programs" "$last_ok" "$last_bad" "$last_skip"
}

# The Windows programs and a prefix to run them in. The program under test is the one that ships; the tests
# and what they hold in their own process trap on undefined behaviour and on failed library assertions.
windows_is_ready=
prepare_windows() {
    [ -z "$windows_is_ready" ] || return 0
    build_app
    build_preset mingw-traps
    open_wine virtual
    windows_is_ready=1
}

test_core() {
    test_core_native
    prepare_windows
    plan_programs core "$build/mingw-traps/tests/core"
}

test_windows() {
    prepare_windows
    plan_programs windows "$build/mingw-traps/tests/windows" "$build/mingw-traps/tools"
    case $filter in '*'|*TextRoom*) plan+=("english 1 $(find "$build/mingw-traps/tests/windows" -name ferry_dialogs_test.exe)") ;; esac
}

install_for_tests() {
    add_other_volume
    # Those that a run which was cut off may have left. Tests take them for somebody's.
    rm -rf "$wine_prefix"/drive_c/users/*/AppData/Local/Kiv/Bar
    install_on_c FerryTest
    export FERRY_E2E_APP='C:\FerryTest'
    FERRY_E2E_HOST=$(windows_path "$samplehost")
    export FERRY_E2E_HOST
}

test_e2e() {
    prepare_windows
    plan_programs e2e "$build/mingw-traps/tests/e2e"
}

command_test() {
    local rings=(core windows e2e)
    case ${1:-} in
        core|windows|e2e) rings=("$1"); shift ;;
    esac
    [ $# -le 1 ] || fail "usage: ./dev test [core|windows|e2e] [FILTER]"
    filter=${1:-*}
    mkdir -p "$build/logs"
    at_end stop_second_worker
    local ring
    for ring in "${rings[@]}"; do "test_$ring"; done
    run_plan
    recall_failures
    print_total
    [ "$failed" = 0 ] && [ "$passed" -gt 0 ]
}
