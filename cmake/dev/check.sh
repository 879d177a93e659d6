# ./dev check: everything that judges the project without running its tests.
load build extensions fuzz mutants

check_failed=0
# judge NAME COMMAND...: runs one check and remembers its failure, so that one run shows them all.
judge() {
    local name=$1
    shift
    say "$name"
    "$@" || { check_failed=1; printf '   FAILED: %s\n' "$name"; }
}

sources() { (cd "$root" && find src tests tools -type f \( -name '*.h' -o -name '*.cpp' \) | sort); }

check_format() { (cd "$root" && sources | xargs clang-format-19 --dry-run -Werror); }

check_scripts() { (cd "$root" && bash cmake/checks/scripts.sh); }

check_test_logs() { bash "$root/cmake/checks/judge_test.sh"; }

check_texts() { build_preset native ferry-texts && "$build/native/tools/texts/ferry-texts" "$root" check; }

check_ferry_command() { (cd "$root" && bash cmake/checks/ferry_test.sh); }

check_promises() { (cd "$root" && bash cmake/checks/promises.sh); }

check_manual() { (cd "$root" && bash cmake/checks/manual_test.sh && bash cmake/checks/manual.sh); }

check_includes() {
    (cd "$root" && bash cmake/checks/includes_test.sh && sources | bash cmake/checks/includes.sh)
}

# know_commands PRESET...: brings up to date how these presets compile each source, without compiling any.
know_commands() {
    local preset
    for preset in "$@"; do
        configure "$preset"
        ninja -C "$build/$preset" --quiet build.ninja >/dev/null || return
    done
}

check_lint() { know_commands native fuzz && (cd "$root" && bash cmake/checks/lint.sh "$build"); }

check_docs() { (cd "$root" && bash cmake/checks/docs_test.sh && bash cmake/checks/docs.sh); }

# The sample of mutants wants this build, too.
check_docs_commands() {
    (build_preset sanitize ferry-script) &&
        (cd "$root" && bash cmake/checks/docs.sh "$build/sanitize/tools/script/ferry-script")
}

check_second_compiler() {
    know_commands native && (cd "$root" && bash cmake/checks/second_compiler.sh "$build")
}

check_executable() {
    local program bad=0
    for program in Ferry FerryOpen; do
        echo "   $program.exe"
        bash "$root/cmake/checks/executable.sh" "$build/app/Command/Ferry/$program.exe" || bad=1
    done
    [ "$bad" = 0 ]
}

command_check() {
    need build native fuzz check
    mkdir -p "$build"
    judge "layout (clang-format)" check_format
    judge "scripts (shellcheck)" check_scripts
    judge "the reading of test logs" check_test_logs
    judge "the documentation" check_docs
    judge "the command for Linux, with a Wine of pretence" check_ferry_command
    judge "the tests behind the promises" check_promises
    judge "the manual" check_manual
    judge "includes go down only" check_includes
    judge "the texts of the languages" check_texts
    judge "few files for what comes next" check_extensions
    build_app
    judge "lint (clang-tidy)" check_lint
    judge "a second compiler (clang, for Windows)" check_second_compiler
    judge "the executables' flags and imports" check_executable
    judge "a short fuzz run" fuzz_all 3
    judge "what the documentation tells to type" check_docs_commands
    judge "wrong changes, half a minute of them" sample_mutants 30
    [ "$check_failed" = 0 ] || fail "a check failed; see the lines with FAILED above"
    say "all checks passed"
}
