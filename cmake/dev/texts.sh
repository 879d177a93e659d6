# ./dev texts: checks the texts of the languages, and starts new ones.
load build

# 1 means that something is wrong with a text.
command_texts() {
    (need native && build_preset native ferry-texts) >&2 || exit 2
    "$build/native/tools/texts/ferry-texts" "$root" "$@"
}
