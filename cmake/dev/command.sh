# What every command of ./dev shares: speaking, failing, and the list of things to do at the end.

say() { printf '== %s\n' "$*"; }

fail() {
    printf './dev: %s\n' "$*" >&2
    exit 1
}

# at_end FUNCTION: runs FUNCTION when the command ends, however it ends; the last one first.
exit_actions=()
at_end() { exit_actions=("$1" ${exit_actions[@]+"${exit_actions[@]}"}); }
run_exit_actions() {
    local status=$? action
    trap '' INT TERM HUP
    for action in ${exit_actions[@]+"${exit_actions[@]}"}; do "$action" || true; done
    exit "$status"
}
trap run_exit_actions EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# load NAME...: reads the scripts of other commands.
load() {
    local name
    # shellcheck source=/dev/null # the check of the scripts reads them all
    for name in "$@"; do . "$dev_scripts/$name.sh"; done
}
