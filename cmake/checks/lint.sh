#!/usr/bin/env bash
# lint.sh BUILD [UNIT]: clang-tidy over the sources, portable ones as this machine's compiler sees them and the
# others as the Windows compiler does. What was clean is read again only when the contents of a source changed,
# or of a header that it includes, the rules, the flags, this script or a compiler.
set -euo pipefail
here=$(dirname "$(realpath "$0")")
# shellcheck source=cmake/checks/units.sh
. "$here/units.sh"
build=$(realpath "$1")
out=$build/lint

folders="src tools/fileop/tests tools tests/fuzz tests/bench tests/support tests/e2e tests/core tests/windows"

# read_unit UNIT: reads one unit, unless all is as it was when it was clean.
read_unit() {
    local unit=$1 name=${1%.cpp} rules=.clang-tidy flags output
    is_as_it_was "$name.clean" && return
    mapfile -t flags <"$name.flags"
    [[ $unit == "$out"/windows/* ]] && flags+=("${windows_target[@]}")
    [[ ${unit##*/} == *tests* ]] && rules=tests/.clang-tidy
    # What is read is noted before: it may change meanwhile.
    sha256sum "$name.flags" .clang-tidy "$rules" "$here/lint.sh" "$here/units.sh" "$out/versions" >"$name.read"
    inputs "$clang" "${flags[@]}" "$unit" >>"$name.read" || return
    # bugprone-suspicious-include means the unit itself, which includes sources, and -Wshadow the names in another
    # source of the unit; GCC reads each by itself.
    if output=$(clang-tidy-19 --quiet --config-file="$rules" --checks=-bugprone-suspicious-include "$unit" -- \
            "${flags[@]}" -Wno-shadow -Wno-unknown-warning-option 2>&1); then
        mv "$name.read" "$name.clean"
    else
        printf '%s\n' "$output" | grep -vE '^[0-9]+ (warning|error)|^Suppressed|^Use -header-filter'
        return 1
    fi
}

if [ $# -gt 1 ]; then
    read_unit "$2"
    exit
fi

mkdir -p "$out"
versions clang-tidy-19 "$clang" >"$out/versions"
make_units "$out/portable" "$build/native/compile_commands.json" "$folders"
make_units "$out/fuzz" "$build/fuzz/compile_commands.json" "tests/fuzz"
sort "$out/portable/files" "$out/fuzz/files" >"$out/portable_files"
make_units "$out/windows" "$build/mingw/compile_commands.json" "$folders" "$out/portable_files"

# A source that no target builds would not be read either.
read -r -a below <<<"${folders//\/apart/}"
missing=$(find "${below[@]}" -name '*.cpp' | sort -u | comm -23 - <(sort "$out/portable_files" "$out/windows/files"))
if [ -n "$missing" ]; then
    echo "   no target builds"
    printf '%s\n' "$missing" | sed 's/^/      /'
    exit 1
fi
echo "   $(wc -l <"$out/portable_files") portable files, $(wc -l <"$out/windows/files") Windows files"
each_unit "$here/lint.sh" "$build" "$out/portable" "$out/fuzz" "$out/windows"
