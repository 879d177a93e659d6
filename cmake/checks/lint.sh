# lint.sh BUILD: clang-tidy over every source file, portable ones as this machine's compiler sees them
# and the others as the Windows compiler does. A file that was clean is read again only when it, a
# header or the settings changed.
set -euo pipefail
build=$1
stamps=$build/lint
mkdir -p "$stamps"

# files_of DATABASE: the project's own files in a compilation database.
files_of() {
    sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "$1" | grep -E "^$PWD/(src|tools)/.*\.cpp$" |
        grep -v "^$PWD/tools/.*/tests/" | sort -u
}

files_of "$build/native/compile_commands.json" >"$stamps/portable"
files_of "$build/mingw/compile_commands.json" | grep -vxFf "$stamps/portable" >"$stamps/windows" || true

newest=$(find src tools .clang-tidy cmake/checks/lint.sh \( -name '*.h' -o -name '.clang-tidy' -o -name lint.sh \) \
    -printf '%T@ %p\n' | sort -rn | sed -n 1p)
newest=${newest#* }

# stale LIST: those files of the list that need reading.
stale() {
    local file stamp
    while IFS= read -r file; do
        stamp=$stamps/${file//\//_}.clean
        [ "$stamp" -nt "$file" ] && [ "$stamp" -nt "$newest" ] || printf '%s\n' "$file"
    done <"$1"
}

# The standard library of the Windows compiler: clang does not find the posix-thread one by itself.
library=$(ls -d /usr/lib/gcc/x86_64-w64-mingw32/*-posix/include/c++ | tail -n 1)
cat >"$stamps/one.sh" <<SCRIPT
#!/bin/bash
# one.sh portable|windows FILE
arguments=(-p "$build/native" --extra-arg=-Wno-unknown-warning-option)
[ "\$1" = windows ] && arguments=(-p "$build/mingw" --extra-arg=-Wno-unknown-warning-option --extra-arg-before=--target=x86_64-w64-mingw32
    --extra-arg=-nostdinc++ --extra-arg=-isystem$library --extra-arg=-isystem$library/x86_64-w64-mingw32)
file=\$2
if output=\$(clang-tidy --quiet "\${arguments[@]}" "\$file" 2>&1); then
    touch "$stamps/\${file//\//_}.clean"
else
    printf '%s\n' "\$output" | grep -vE '^[0-9]+ warnings? (generated|treated)|^Suppressed|^Use -header-filter'
    exit 1
fi
SCRIPT
echo "   $(wc -l <"$stamps/portable") portable files, $(wc -l <"$stamps/windows") Windows files"
{
    stale "$stamps/portable" | sed 's/^/portable\n/'
    stale "$stamps/windows" | sed 's/^/windows\n/'
} | tr '\n' '\0' | xargs -0 -r -n 2 -P "$(nproc)" bash "$stamps/one.sh"
