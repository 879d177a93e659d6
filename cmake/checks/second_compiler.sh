#!/usr/bin/env bash
# second_compiler.sh BUILD [UNIT]: clang reads, as for Windows, every source that is built for Windows. Its
# warnings stand in for those of Visual C++ at /W4 that GCC does not give. What was clean is read again only when
# its contents changed, as in lint.sh.
set -euo pipefail
here=$(dirname "$(realpath "$0")")
# shellcheck source=cmake/checks/units.sh
. "$here/units.sh"
build=$(realpath "$1")
out=$build/second_compiler

folders="src tools tests/support tests/core tests/windows tests/e2e tests/bench"

# Beside each the warnings of Visual C++ that it stands for. GCC sees to the formats of printf (C4477), and to names
# that hide names (C4456 to C4459): here the sources of a unit would seem to hide those of each other.
warnings=(
    -Wall -Wextra                       # most of /W4
    -Wimplicit-int-conversion           # C4244, C4242: into fewer bits
    -Wfloat-conversion                  # C4244: from a floating type
    -Wimplicit-float-conversion         # C4305: into a smaller floating type
    -Wshorten-64-to-32                  # C4267: std::size_t into 32 bits
    -Wconstant-conversion               # C4309, C4310: a constant that does not fit
    -Wbitfield-constant-conversion      # C4463
    -Wsign-compare                      # C4018, C4388, C4389
    -Wunused -Wunused-parameter         # C4100, C4101, C4102, C4189
    -Wunused-but-set-variable           # C4189
    -Wunreachable-code -Wunreachable-code-return  # C4702
    -Wtautological-compare              # C4127, C4296: a condition that is always the same
    -Wtautological-unsigned-zero-compare -Wtautological-type-limit-compare  # C4296
    -Wconditional-uninitialized -Wsometimes-uninitialized  # C4701, C4703
    -Wparentheses                       # C4554, C4706
    -Wempty-body                        # C4390
    -Wmismatched-tags                   # C4099
    -Wdelete-non-virtual-dtor           # C5205
    -Wdeprecated                        # C4996
    -Wdeprecated-pragma                 # C4996: what unsafe_crt.h marks
    -Wdeprecated-enum-enum-conversion   # C5054: | between the values of different enumerations
    -Wdeprecated-anon-enum-enum-conversion
    -Wdeprecated-enum-float-conversion  # C5055
    -Wdeprecated-array-compare          # C5056
    -Wgnu-anonymous-struct -Wnested-anon-types  # C4201
    -Wzero-length-array -Wflexible-array-extensions  # C4200
    -Wcomma                             # C4709
    -Wmacro-redefined                   # C4005
    -Wunknown-pragmas                   # C4068
    -Wextra-semi                        # none; an empty declaration says nothing
)

reading=("$clang" "${windows_target[@]}" -include "$here/unsafe_crt.h" -Wno-unknown-warning-option
    "${warnings[@]}" -ferror-limit=0 -fsyntax-only)

# read_unit UNIT: reads one unit, unless all is as it was when it was clean.
read_unit() {
    local unit=$1 name=${1%.cpp} flags
    is_as_it_was "$name.clean" && return
    # The warnings of the build are GCC's.
    mapfile -t flags < <(grep -v '^-W' "$name.flags")
    # What is read is noted before: it may change meanwhile.
    sha256sum "$name.flags" "$here/second_compiler.sh" "$here/units.sh" "$out/versions" >"$name.read"
    inputs "${reading[@]}" "${flags[@]}" "$unit" >>"$name.read" || return
    "${reading[@]}" "${flags[@]}" -Werror "$unit" || return
    mv "$name.read" "$name.clean"
}

# try_samples: a source full of mistakes, each of which must be noticed; a warning may be called otherwise in
# another version of clang.
try_samples() {
    local said line number bad=0
    said=$("${reading[@]}" -std=c++20 "$here/second_compiler_samples.cpp" 2>&1) || true
    while IFS=: read -r number line; do
        if ! grep -q "second_compiler_samples.cpp:$number:.*warning:" <<<"$said"; then
            printf '   clang says nothing of: %s\n' "$line"
            bad=1
        fi
    done < <(grep -n '// C[0-9]' "$here/second_compiler_samples.cpp")
    return "$bad"
}

if [ $# -gt 1 ]; then
    read_unit "$2"
    exit
fi

try_samples
mkdir -p "$out"
versions "$clang" >"$out/versions"
make_units "$out/native" "$build/native/compile_commands.json" "$folders"
make_units "$out/windows" "$build/mingw/compile_commands.json" "$folders" "$out/native/files"
make_units "$out/portable" "$build/mingw/compile_commands.json" "$folders" "$out/windows/files"
echo "   $(cat "$out"/{windows,portable}/files | wc -l) files"
each_unit "$here/second_compiler.sh" "$build" "$out/windows" "$out/portable"
