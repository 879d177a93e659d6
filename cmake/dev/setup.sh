# ./dev setup: installs by apt what is missing, by groups that the other commands name.
# shellcheck disable=SC2034 # need finds the groups by their names

# Cross-compiling, and the sources of the test framework and of the JSON library that every configuration reads.
packages_build=(cmake ninja-build g++-mingw-w64-x86-64-posix googletest nlohmann-json3-dev)
# Running Windows programs on a virtual display; libxrender1 and the other X libraries are opened
# by Wine at run time, and fonts look jagged or the mouse is dead without them. fonts-wine has the signs on the
# buttons of title bars, which are letters otherwise.
packages_wine=(wine64 fonts-wine xvfb fonts-ipafont-gothic imagemagick locales libxrender1 libxcursor1 libxi6 libxrandr2
    libxinerama1 libxcomposite1 libxfixes3)
packages_native=(g++ cmake ninja-build googletest nlohmann-json3-dev)
packages_fuzz=(clang-19 libclang-rt-19-dev cmake ninja-build nlohmann-json3-dev)
packages_check=(clang-19 clang-format-19 clang-tidy-19 shellcheck)
# What scripts are measured against.
packages_bench=(tcl)
# makensis compiles installers; python3 packs zips with names in UTF-8.
packages_package=(nsis python3 unzip)

# missing_packages NAME...: those of them that are not installed.
missing_packages() {
    local installed
    installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null |
        awk '$2 == "installed" { print $1 }') || true  # it fails where it knows none of them
    comm -23 <(printf '%s\n' "$@" | sort -u) <(sort -u <<<"$installed")
}

as_root() {
    if [ "$(id -u)" = 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        fail "not root and no sudo: run this as root: $*"
    fi
}

# need GROUP...: makes sure that the packages of these groups are installed.
# FERRY_NO_SETUP=1 trusts the machine as it is, for systems without apt.
need() {
    local group names=() missing=()
    [ "${FERRY_NO_SETUP:-}" = 1 ] && return
    for group in "$@"; do
        local -n members=packages_$group
        names+=("${members[@]}")
    done
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        fail "this is not a Debian system; install the counterparts of these packages and set" \
            "FERRY_NO_SETUP=1: $(printf '%s\n' "${names[@]}" | sort -u | tr '\n' ' ')"
    fi
    mapfile -t missing < <(missing_packages "${names[@]}")
    [ "${#missing[@]}" -gt 0 ] || return 0
    say "installing ${missing[*]}"
    as_root apt-get update -q || fail "apt-get update failed; check the network and run this again"
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -q -y --no-install-recommends "${missing[@]}" ||
        fail "apt-get could not install ${missing[*]}"
}

command_setup() {
    need build wine native fuzz check bench package
    say "everything that the project needs is installed"
}
