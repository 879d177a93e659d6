# ./dev clean: removes everything that was built, the Wine prefix included.

command_clean() {
    if [ -d "$build/wine" ]; then
        exec 9>"$build/wine/lock"
        flock -n 9 || fail "another ./dev is using the Wine prefix; let it end first"
    fi
    rm -rf "$build"
    say "build/ is gone"
}
