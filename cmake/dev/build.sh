# ./dev build: cross-compiles and lays the program out as it is installed.
load setup

jobs() { nproc 2>/dev/null || echo 2; }

# configure PRESET: makes build/PRESET ready; ninja itself notices later changes to the CMake files.
configure() {
    [ -f "$build/$1/build.ninja" ] && return
    say "configuring build/$1"
    rm -f "$build/$1/CMakeCache.txt"
    (cd "$root" && cmake --preset "$1" >"$build/configure-$1.log" 2>&1) || {
        tail -n 40 "$build/configure-$1.log" >&2
        fail "configuring '$1' failed; the whole log is build/configure-$1.log"
    }
}

# build_preset PRESET [TARGET...]
build_preset() {
    local preset=$1
    shift
    mkdir -p "$build"
    configure "$preset"
    say "building build/$preset"
    local quiet=--quiet
    [ -t 1 ] && quiet=
    # shellcheck disable=SC2086
    ninja -C "$build/$preset" -j "$(jobs)" $quiet "$@" || fail "building '$preset' failed; see above"
}

# The layout is made from nothing each time, so that a file that is no longer installed goes away.
install_app() {
    rm -rf "$build/app"
    cmake --install "$build/mingw" --component app --prefix "$build/app" >/dev/null ||
        fail "installing into build/app failed"
}

# The program, what is installed beside it, and the tools that drive it; not the tests.
build_app() {
    [ -n "${app_is_built:-}" ] && return
    need build
    build_preset mingw Ferry FerryOpen ferry_texts ferry_fileop samplehost rundriver
    install_app
    app_is_built=1
}

command_build() {
    build_app
    say "build/app:"
    (cd "$build/app" 2>/dev/null && find . -type f | sort | sed 's/^\./  /') ||
        fail "nothing was installed into build/app"
}
