# ./dev test: the three rings of tests, and one plain total at the end.
load build wine

passed=0 failed=0 skipped=0

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

# run_test_program EXE: a Windows test program; its output is shown only when something is wrong.
run_test_program() {
    local name log status=0
    name=$(basename "$1" .exe)
    log=$build/logs/$2-$name.log
    (cd "$(dirname "$1")" && GTEST_FILTER=$filter run_wine "$1" >"$log" 2>&1 </dev/null) || status=$?
    count_results "$log"
    if ! grep -q '^\[==========\] Running ' "$log"; then
        failed=$((failed + 1)) last_bad=1
    elif [ "$status" != 0 ] && [ "$last_bad" = 0 ]; then
        failed=$((failed + 1)) last_bad=1
        printf '%s ended with status %s after its tests\n' "$name" "$status" >>"$log"
    fi
    [ "$last_bad" = 0 ] || tail -n 400 "$log" | tr -d '\r'
    report_program "$name"
}

# run_test_programs LABEL FOLDER...: every test program below these folders.
run_test_programs() {
    local label=$1 exe found=0
    shift
    while IFS= read -r exe; do
        found=1
        run_test_program "$exe" "$label"
    done < <(find "$@" -name 'core_*.exe' -o -name '*test*.exe' -o -name 'ferry_e2e.exe' 2>/dev/null | sort)
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

# The installed program is copied to C:, where its folder is an ordinary Windows folder.
test_e2e() {
    prepare_windows
    say "the installed program from outside, under Wine"
    rm -rf "$wine_prefix/drive_c/FerryTest"
    cp -r "$build/app" "$wine_prefix/drive_c/FerryTest"
    export FERRY_E2E_APP='C:\FerryTest'
    FERRY_E2E_HOST=$(windows_path "$build/mingw/tools/samplehost/samplehost.exe")
    export FERRY_E2E_HOST
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
    local ring
    for ring in "${rings[@]}"; do "test_$ring"; done
    printf '%d passed, %d failed, %d skipped\n' "$passed" "$failed" "$skipped"
    [ "$failed" = 0 ] && [ "$passed" -gt 0 ]
}
