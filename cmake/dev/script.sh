# ./dev script: tries out scripts of the host on this machine, in a world of pretence.
load build

# A result may go into a pipe, so whatever is said of the build goes beside it; and 1 means that something is
# wrong with a script.
command_script() {
    (need native && build_preset native ferry-script) >&2 || exit 2
    "$build/native/tools/script/ferry-script" "$@"
}
