#!/usr/bin/env bash
# judge_test.sh: made-up outputs of test programs, and what is to be said of them.
set -euo pipefail
cd "$(dirname "$0")/../dev"
bad=0
excused=$(mktemp)
trap 'rm -f "$excused"' EXIT
printf '# a remark\nReal\\.Long.*\tno long items here\n' >"$excused"

# expect WHAT STATUS LOG ANSWER
expect() {
    local answer
    answer=$(printf '%b' "$3" | awk -v excused="$excused" -v status="$2" -f judge.awk)
    [ "$answer" != "$(printf '%b' "$4")" ] || return 0
    bad=1
    printf '   %s: said\n%s\n   instead of\n%b\n' "$1" "$answer" "$4"
}
begin='[==========] Running 2 tests from 1 test suite.\n'
end='[==========] 2 tests from 1 test suite ran. (5 ms total)\n'
run_a='[ RUN      ] Suite.A\n' ok_a='[       OK ] Suite.A (1 ms)\n'
run_b='[ RUN      ] Suite.B\n' ok_b='[       OK ] Suite.B (1 ms)\n'

expect "all pass" 0 "$begin$run_a$ok_a$run_b$ok_b$end" 'counts 2 0 0'
expect "carriage returns" 0 "[==========] Running 1 test.\r\n[ RUN      ] S.A\r\n[       OK ] S.A (0 ms)\r\n[==========] 1 test ran.\r\n" \
    'counts 1 0 0'
expect "a failure" 1 "$begin${run_a}[  FAILED  ] Suite.A, where GetParam() = 3 (1 ms)\n$run_b$ok_b${end}[  FAILED  ] Suite.A\n" \
    'counts 1 1 0\nfailed Suite.A: see above'
expect "a status without a failure" 3 "$begin$run_a$ok_a$run_b$ok_b$end" \
    'counts 2 1 0\nfailed a program: status 3 after its tests'
expect "a crash inside a test" 5 "$begin$run_a$ok_a${run_b}Unhandled exception: page fault\n" \
    'counts 1 1 0\nfailed Suite.B: did not end: Unhandled exception: page fault'
expect "a crash of another process, which the test did not see" 0 \
    "$begin${run_a}Unhandled exception: page fault\n$ok_a$run_b$ok_b$end" \
    'counts 1 1 0\nfailed Suite.A: passed, but something crashed: Unhandled exception: page fault'
expect "a crash between two tests" 0 "$begin$run_a${ok_a}x: runtime error: shift\n$run_b$ok_b$end" \
    'counts 2 1 0\nfailed after Suite.A: x: runtime error: shift'
expect "a crash after the last test" 1 "$begin$run_a$ok_a$run_b$ok_b${end}==1==ERROR: LeakSanitizer: detected\n" \
    'counts 2 1 0\nfailed after Suite.B: ==1==ERROR: LeakSanitizer: detected'
expect "a start without graphics" 0 \
    "$begin${run_a}Unhandled exception: x\nstarted without graphics, once more\n$ok_a$run_b$ok_b$end" 'counts 2 0 0'
expect "a hang" 124 "$begin$run_a$ok_a$run_b" 'counts 1 1 0\nfailed Suite.B: did not end'
expect "an end between two tests" 0 "$begin$run_a$ok_a" \
    'counts 1 1 0\nfailed a program: ended before its last test'
expect "nothing begun" 1 "wine: cannot find it\n" 'counts 0 1 0\nfailed a program: no test was begun'
expect "an excused skip" 0 "$begin${run_a}x.cpp:1: Skipped\nwhy\n[  SKIPPED ] Suite.A (0 ms)\n${run_b/Suite.B/Real.LongOnes}[  SKIPPED ] Real.LongOnes (0 ms)\n$end" \
    'counts 0 1 1\nfailed Suite.A: skipped, though nothing here excuses it: why\nskipped Real.LongOnes: no long items here'
expect "two programs in one log, the first of which hung" 0 "$begin$run_a$begin$run_a$ok_a$run_b$ok_b$end" \
    'counts 2 1 0\nfailed Suite.A: did not end'
exit $bad
