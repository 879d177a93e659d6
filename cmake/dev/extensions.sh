# ./dev extensions: what the program may get next, as patches. Each shows in how few files it is said, and all
# of them together pass the tests.
extensions_dir=$build/extensions

# copy_with_extensions: the sources with all the extensions, in a folder of their own.
copy_with_extensions() {
    local patch
    rm -rf "$extensions_dir/src" "$extensions_dir/res" "$extensions_dir/tests"
    mkdir -p "$extensions_dir"
    (cd "$root" && find . -mindepth 1 -maxdepth 1 ! -name build ! -name '.git*' \
        -exec cp -a -t "$extensions_dir" {} +) || return
    while IFS= read -r patch; do
        GIT_CEILING_DIRECTORIES=$build git -C "$extensions_dir" apply "$patch" || return
    done < <(find_extensions)
}

find_extensions() { find "$root/tests/extensions" -name '*.patch' | sort; }

# check_extensions: each says what it adds, keeps to its number of files, and still applies.
check_extensions() {
    local patch files allowed bad=0
    while IFS= read -r patch; do
        files=$(grep -c '^diff --git ' "$patch") allowed=$(sed -n '/^diff /q; s/^Files: //p' "$patch")
        printf '   %-16s %2d files, %s allowed\n' "$(basename "$patch" .patch)" "$files" "$allowed"
        grep -q '^Adds: ' "$patch" && [ "$files" -le "${allowed:-0}" ] || bad=1
    done < <(find_extensions)
    copy_with_extensions && [ "$bad" = 0 ]
}

command_extensions() {
    [ $# = 0 ] || fail "usage: ./dev extensions"
    check_extensions || fail "an extension does not apply, or touches more files than it may"
    "$extensions_dir/dev" test core || fail "a test fails with the extensions"
    "$extensions_dir/dev" test windows || fail "a test fails with the extensions"
}
