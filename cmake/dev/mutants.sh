# ./dev mutants: wrong changes to the product, each of which a test must notice by name.
load tests

mutants_dir=$build/mutants

# What the heads of the patches say, by "FIELD PATCH".
declare -gA heads=()  # also when a function loads this file

# learn_heads PATCH...: reads them once; there are a thousand, and each is asked for often.
# shellcheck disable=SC2016  # awk's own $0
learn_heads() {
    local field patch value
    while IFS=$'\t' read -r field patch value; do heads["$field $patch"]=$value; done < <(printf '%s\0' "$@" | xargs -0 awk '
        FNR == 1 { isHead = 1 }
        /^diff / { isHead = 0 }
        isHead && match($0, /^(Breaks|Ring|Test): /) {
            print substr($0, 1, RLENGTH - 2) "\t" FILENAME "\t" substr($0, RLENGTH + 1)
        }')
}

# head_of PATCH FIELD: what the patch's head says.
head_of() { echo "${heads["$2 $1"]:-}"; }

# A mutant's name is its place: ROOM/NAME.
name_of() { local name=${1#"$root"/tests/mutants/}; echo "${name%.patch}"; }

# find_mutants [FILTER]: the patches whose name contains FILTER.
find_mutants() { find "$root/tests/mutants" -name '*.patch' -path "*/mutants/*${1:-}*" | sort; }

# check_mutants PATCH...: every head is complete and every patch still applies.
check_mutants() {
    local patch field bad=0
    for patch in "$@"; do
        for field in Breaks Ring Test; do
            [ -n "${heads["$field $patch"]:-}" ] || { say "$(name_of "$patch"): no line '$field: ...'"; bad=1; }
        done
        case ${heads["Ring $patch"]:-} in
            core|windows|e2e) ;;
            *) say "$(name_of "$patch"): the ring is core, windows or e2e"; bad=1 ;;
        esac
    done
    # shellcheck disable=SC2016  # the inner shell's own $1
    while IFS= read -r patch; do
        say "$(name_of "$patch"): it no longer applies"
        bad=1
    done < <(cd "$root" && printf '%s\0' "$@" | xargs -0 -n 1 -P "$(jobs)" sh -c 'git apply --check "$1" || echo "$1"' sh)
    return "$bad"
}

# The build that a ring's tests come from, and the one whose program they judge.
build_of() { case $1 in core) echo "$build/sanitize" ;; windows) echo "$build/mingw-traps" ;; e2e) echo "$build/mingw" ;; esac; }

# compile_commands BUILD: the commands, a line each: object, folder, file, command; TABs between.
compile_commands() {
    awk '
        function value(line) {
            sub(/^ *"[a-z]*": "/, "", line); sub(/",?$/, "", line)
            gsub(/\\"/, "\"", line); gsub(/\\\\/, "\\", line)
            return line
        }
        function object(command) {
            if (command ~ /windres/) sub(/.* /, "", command)
            else { sub(/.* -o /, "", command); sub(/ .*/, "", command) }
            return command
        }
        /^ *"directory": / { folder = value($0) }
        /^ *"command": / { command = value($0) }
        /^ *"file": / { print object(command) "\t" folder "\t" value($0) "\t" command }' "$1/compile_commands.json"
}

# dependents BUILD FILE: the objects that are made from a file, by the compiler's own notes. A compiler cache
# may have noted paths that begin at the build.
dependents() {
    ninja -C "$1" -t deps 2>/dev/null | awk -v wanted="$2" -v build="$1" '
        /^[^ ].*: #deps/ { object = $1; sub(/:$/, "", object); next }
        {
            file = $1 ~ /^\// ? $1 : build "/" $1
            while (sub(/\/[^\/]+\/\.\.\//, "/", file)) {}
        }
        file == wanted { print object }'
}

# link_command BUILD PROGRAM: the one command that links it.
link_command() {
    ninja -C "$1" -t commands -s "$2" | sed 's/^: && //; s/ && .*//'
}

# archive_of OBJECT: the library that an object is put into.
archive_of() { sed -E 's|^(.*)/CMakeFiles/([^/]*)\.dir/.*|\1/lib\2.a|' <<<"$1"; }

# commands_for BUILD SCRATCH: the compile commands of all that is made from the files in the scratch copy.
commands_for() {
    local commands file
    commands=$mutants_dir/$(basename "$1").commands
    while IFS= read -r file; do
        dependents "$1" "$root/$file"
        awk -F '\t' -v file="$root/$file" '$3 == file { print $1 }' "$commands"
    done < <(cd "$2" && find src res tools -type f 2>/dev/null) | sort -u |
        awk -F '\t' 'FNR == NR { wanted[$1]; next } $1 in wanted' - "$commands"
}

# build_mutant BUILD PROGRAM SCRATCH RESULT: the program with the scratch copy's files in place of its own. A
# new object stands before the library that holds the old one, which is then not asked for.
build_mutant() {
    local from=$1 program=$2 scratch=$3 result=$4
    local link object folder source command added=() number=0
    link=$(link_command "$from" "$program")
    while IFS=$'\t' read -r object folder source command; do
        if [[ $link == *" $object "* ]]; then
            link=${link/ $object / $scratch/$number.o }
        elif [[ $link == *" $(archive_of "$object") "* ]]; then
            added+=("$scratch/$number.o")
        else
            continue
        fi
        command=${command/"$object"/"$scratch/$number.o"}
        command=${command/ "$source"/ "$(in_scratch "$source" "$scratch")"}
        command=${command/ -Werror/}  # a wrong change may look wrong
        case $command in
            *windres*) command=${command/ -I / -I "$scratch/res" -I } ;;
            *) command=${command/ -I/ -iquote "$scratch/src" -iquote "$scratch/res" -iquote "$scratch/tools" -I} ;;
        esac
        (cd "$folder" && eval "$command") || return 1
        number=$((number + 1))
    done < <(commands_for "$from" "$scratch")
    [ "$number" -gt 0 ] || { echo "the change is in nothing that $program is made of"; return 2; }
    link=$(sed -E "s|-Wl,--out-implib,[^ ]*||; s| -o [^ ]*| -o $result ${added[*]}|" <<<"$link")
    (cd "$from" && eval "$link")
}

# in_scratch FILE SCRATCH: the scratch copy of a file, or the file itself when it was not copied.
in_scratch() {
    local copy=$2/${1#"$root"/}
    if [ -f "$copy" ]; then echo "$copy"; else echo "$1"; fi
}

# list_tests RING: every test of the ring with its program, "PROGRAM TAB TEST" a line.
list_tests() {
    local program
    while IFS= read -r program; do
        run_test_program "$1" "$program" "$mutants_dir/list" --gtest_list_tests || fail "$program lists no tests"
        tr -d '\r' <"$mutants_dir/list" | awk -v program="$program" '
            /^[^ ].*\.( |$)/ { suite = $1; next }
            /^  / { print program "\t" suite $1 }'
    done < <(case $1 in
        core) find "$build/sanitize/tests/core" -type f -name 'core_*' -perm -u+x ;;
        windows) find "$build/mingw-traps/tests/windows" "$build/mingw-traps/tests/core" "$build/mingw-traps/tools" -name '*test*.exe' -o -name 'core_*.exe' ;;
        e2e) find "$build/mingw-traps/tests/e2e" -name 'ferry_e2e.exe' ;;
    esac | sort)
}

# run_test_program RING PROGRAM LOG ARGUMENTS...
run_test_program() {
    local ring=$1 program=$2 log=$3
    shift 3
    if [ "$ring" = core ]; then
        (cd "$(dirname "$program")" && timeout -k 10 "$program_seconds" "$program" "$@" >"$log" 2>&1 </dev/null) 2>/dev/null
    else
        (cd "$(dirname "$program")" && run_wine_within "$program_seconds" "$program" "$@" >"$log" 2>&1 </dev/null)
    fi
}

# matches TEST FILTER: whether one of the filter's patterns names the test.
matches() {
    local pattern patterns
    IFS=: read -r -a patterns <<<"$2"
    for pattern in "${patterns[@]}"; do
        # shellcheck disable=SC2053  # a pattern is meant
        [[ $1 != $pattern ]] || return 0
    done
    return 1
}

# programs_for RING FILTER: the programs that hold tests of the filter.
programs_for() {
    local program test
    while IFS=$'\t' read -r program test; do
        if matches "$test" "$2"; then echo "$program"; fi
    done <"$mutants_dir/$1.tests" | sort -u
}

# beside PROGRAM FOLDER: a folder in which a changed program finds what lies beside the real one.
beside() {
    local item
    mkdir -p "$2"
    for item in "$(dirname "$1")"/* "$(dirname "$1")"/.[a-z]*; do
        case $item in
            */CMakeFiles|*.cmake|*.a) ;;
            *) ln -sfn "$item" "$2/" ;;
        esac
    done
}

# judge_mutant RING PROGRAM FILTER LOG: the first test that failed; empty when all passed.
judge_mutant() {
    local status=0
    run_test_program "$1" "$2" "$4" --gtest_filter="$3" --gtest_fail_fast || status=$?
    if [ "$1" != core ] && { [ "$status" = 124 ] || [ "$status" = 137 ]; }; then restart_wine; fi
    awk -v excused="$dev_scripts/excused_skips.txt" -v status="$status" -f "$dev_scripts/judge.awk" "$4" |
        sed -n 's/^failed \([^:]*\): .*/\1/p' | sed -n 1p
}

# try_mutant PATCH WORKER: sets `state`, `killer` and `why`.
try_mutant() {
    local patch=$1 scratch=$mutants_dir/$2 ring filter program file changed built=0 status
    ring=$(head_of "$patch" Ring) filter=$(head_of "$patch" Test)
    state=survived killer='' why=
    rm -rf "$scratch"
    mkdir -p "$scratch"
    while IFS= read -r file; do
        mkdir -p "$scratch/$(dirname "$file")"
        cp "$root/$file" "$scratch/$file"
    done < <(sed -n 's|^+++ b/||p' "$patch")
    GIT_CEILING_DIRECTORIES=$mutants_dir git -C "$scratch" apply "$patch" >"$scratch/log" 2>&1 ||
        { why="it does not apply"; return 1; }
    if [ "$ring" = e2e ]; then
        install_on_c FerryTest
        rm "$wine_prefix/drive_c/FerryTest/Command/Ferry/Ferry.exe"
        build_mutant "$build/mingw" src/app/Ferry.exe "$scratch" \
            "$wine_prefix/drive_c/FerryTest/Command/Ferry/Ferry.exe" >"$scratch/log" 2>&1 ||
            { why="it does not build"; return 1; }
    fi
    for program in $(programs_for "$ring" "$filter"); do
        changed=$program
        if [ "$ring" != e2e ]; then
            changed=$scratch/run/$(basename "$program")
            beside "$program" "$scratch/run"
            rm -f "$changed"
            status=0
            build_mutant "$(build_of "$ring")" "${program#"$(build_of "$ring")"/}" "$scratch" "$changed" \
                >"$scratch/log" 2>&1 || status=$?
            # Another room's test may be called like one of this room.
            [ "$status" != 2 ] || continue
            [ "$status" = 0 ] || { why="it does not build"; return 1; }
        fi
        built=1
        killer=$(judge_mutant "$ring" "$changed" "$filter" "$scratch/log")
        [ -z "$killer" ] || { state=killed; return 0; }
    done
    [ "$built" = 1 ] || { why="no program of its tests is made of it"; return 1; }
}

# run_mutants WORKER: takes one mutant after the other until none is left or the time is over. A line for
# each goes into the results: name, ring, state, test, seconds.
run_mutants() {
    local number patch begin state killer why
    while number=$(next_part) && [ "$number" -lt "${#mutants[@]}" ]; do
        [ "$mutant_seconds" = 0 ] || [ "$SECONDS" -lt "$mutant_seconds" ] || break
        patch=${mutants[$number]} begin=$(date +%s%N)
        if ! try_mutant "$patch" "$1"; then
            state=error
            cp "$mutants_dir/$1/log" "$mutants_dir/$(name_of "$patch" | tr / -).log"
        fi
        printf '%s\t%s\t%s\t%s\t%s\n' "$(name_of "$patch")" "$(head_of "$patch" Ring)" "$state" \
            "${killer:-$why}" "$(awk -v from="$begin" -v to="$(date +%s%N)" 'BEGIN { printf "%.1f", (to - from) / 1e9 }')" \
            >>"$mutants_dir/results"
        [ "$state" = killed ] || say "$(name_of "$patch"): $state${why:+, $why}"
    done
}

# check_baseline RING FILTER: the tests that are to notice pass on the unchanged program. A sample leaves
# that to the tests.
check_baseline() {
    local program status=0 log=$mutants_dir/baseline-$1.log
    [ "$1" != e2e ] || install_on_c FerryTest
    for program in $(programs_for "$1" "$2"); do
        local failed_test
        failed_test=$(judge_mutant "$1" "$program" "$2" "$log")
        [ -z "$failed_test" ] || { say "$failed_test fails on the unchanged program; see ${log#"$root"/}"; status=1; }
    done
    return "$status"
}

# patches_without_test RING: those of the ring whose filter names none of its tests.
patches_without_test() {
    local patch
    for patch in "${mutants[@]}"; do
        [ "${heads["Ring $patch"]}" != "$1" ] || printf '%s\t%s\n' "$patch" "${heads["Test $patch"]}"
    done | awk -F '\t' '
        FNR == NR { test[++tests] = $2; next }
        {
            parts = split($2, part, ":")
            for (i = 1; i <= parts; ++i) {
                pattern = part[i]
                gsub(/[][.+()|{}^$\\]/, "\\\\&", pattern); gsub(/\*/, ".*", pattern); gsub(/\?/, ".", pattern)
                for (t = 1; t <= tests; ++t) if (test[t] ~ "^" pattern "$") next
            }
            print $1
        }' "$mutants_dir/$1.tests" -
}

# prepare_ring RING: builds it and learns its tests.
prepare_ring() {
    case $1 in
        core) need native; build_preset sanitize ;;
        *) prepare_windows; install_for_tests ;;
    esac
    compile_commands "$(build_of "$1")" >"$mutants_dir/$(basename "$(build_of "$1")").commands"
    list_tests "$1" >"$mutants_dir/$1.tests"
    local patch filters=
    while IFS= read -r patch; do
        say "$(name_of "$patch"): there is no test $(head_of "$patch" Test)"
        mutants_bad=1
    done < <(patches_without_test "$1")
    for patch in "${mutants[@]}"; do
        [ "${heads["Ring $patch"]}" != "$1" ] || filters=$filters:${heads["Test $patch"]}
    done
    [ "$mutant_limit" != 0 ] || check_baseline "$1" "${filters#:}" || mutants_bad=1
}

has_ring() {
    local patch
    for patch in "${mutants[@]}"; do [ "${heads["Ring $patch"]}" != "$1" ] || return 0; done
    return 1
}

# start_second_mutant_worker: beside us, with a Wine prefix of its own where one is needed.
start_second_mutant_worker() {
    (
        exit_actions=() xvfb_pid=
        trap run_exit_actions EXIT
        trap 'exit 143' TERM
        if [ -n "$windows_is_ready" ]; then
            use_wine_dir "$second_wine_dir"
            open_wine virtual
            install_for_tests
        fi
        run_mutants 1
    ) &
    second_worker=$!
}

# report_mutants: a table by room, and the file for other programs.
report_mutants() {
    awk -F '\t' '
        { room = $1; sub(/\/.*/, "", room); count[room]++; all++; if ($3 == "killed") { killed[room]++; allKilled++ } }
        END {
            printf "   %-14s %8s %8s %9s\n", "room", "planted", "killed", "survived"
            for (room in count) printf "   %-14s %8d %8d %9d\n", room, count[room], killed[room], count[room] - killed[room] | "sort"
            close("sort")
            printf "   %-14s %8d %8d %9d\n", "all", all, allKilled, all - allKilled
        }' "$mutants_dir/results"
    sort "$mutants_dir/results" | awk -F '\t' '
        BEGIN { print "[" }
        { name = $1; room = $1; sub(/\/.*/, "", room)
          printf "%s{\"name\": \"%s\", \"room\": \"%s\", \"ring\": \"%s\", \"state\": \"%s\", \"test\": \"%s\", \"seconds\": %s}",
                 (NR > 1 ? ",\n" : ""), name, room, $2, $3 == "killed" ? "killed" : "survived", $4, $5 }
        END { print "\n]" }' >"$build/mutants.json"
}

# try_mutants SECONDS PATCH...: all of them, or as many as that time allows; 0: no limit.
try_mutants() {
    mutant_limit=$1 mutant_seconds=0 mutants_bad=0
    local ring
    shift
    mutants=("$@")
    mkdir -p "$mutants_dir" "$build/logs"
    learn_heads "$@"
    check_mutants "${mutants[@]}" || mutants_bad=1
    for ring in core windows e2e; do ! has_ring "$ring" || prepare_ring "$ring"; done
    [ "$mutants_bad" = 0 ] || return 1
    : >"$mutants_dir/results"
    echo 0 >"$build/logs/next"
    export FERRY_TEST_SECONDS=60
    program_seconds=120
    [ "$mutant_limit" = 0 ] || mutant_seconds=$((SECONDS + mutant_limit))
    [ "$(jobs)" -lt 2 ] || start_second_mutant_worker
    run_mutants 0
    [ -z "$second_worker" ] || wait "$second_worker" || mutants_bad=1
    second_worker=
    report_mutants
    ! grep -qvP '\tkilled\t' "$mutants_dir/results" || mutants_bad=1
    [ "$mutants_bad" = 0 ] && [ -s "$mutants_dir/results" ]
}

# sample_mutants SECONDS: another few each time of those that need only the native ring.
sample_mutants() {
    local all=()
    mapfile -t all < <(find_mutants | xargs grep -lx 'Ring: core' | shuf)
    [ "${#all[@]}" -gt 0 ] || { say "there are no mutants"; return 1; }
    try_mutants "$1" "${all[@]}"
}

command_mutants() {
    [ $# -le 1 ] || fail "usage: ./dev mutants [FILTER]"
    local all
    filter='*'
    mapfile -t all < <(find_mutants "${1:-}")
    [ "${#all[@]}" -gt 0 ] || fail "there is no mutant with '${1:-}' in its name"
    at_end stop_second_worker
    try_mutants 0 "${all[@]}" || fail "a wrong change was not noticed, or could not be tried; see above"
    say "the same results are in build/mutants.json"
}
