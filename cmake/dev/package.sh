# ./dev package: one archive of the installed layout.
load build

command_package() {
    local version archive
    need package
    build_app
    version=$(sed -n 's/^CMAKE_PROJECT_VERSION:[^=]*=//p' "$build/mingw/CMakeCache.txt")
    archive=$build/Ferry-$version.zip
    rm -f "$archive"
    (cd "$build/app" && zip -q -r -X "$archive" .) || fail "packing $archive failed"
    say "packed ${archive#"$root/"}:"
    unzip -l "$archive" 2>/dev/null || du -h "$archive"
}
