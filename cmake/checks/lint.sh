# lint.sh BUILD: clang-tidy over every source file, portable ones as this machine's compiler sees them
# and the others as the Windows compiler does. Nearly all of the time goes into the system's headers,
# so the files of a folder are read together, as one translation unit; their unnamed namespaces
# therefore share one set of names. A folder that was clean is read again only when something changed.
set -euo pipefail
build=$(realpath "$1")
stamps=$build/lint
mkdir -p "$stamps/portable" "$stamps/windows"

# group KIND DATABASE [LEFT_OUT]: writes one file for each folder that includes the folder's sources,
# and a compilation database for these files, made from the command of a source of the folder.
group() {
    rm -f "$stamps/$1"/*.cpp
    awk -v root="$PWD" -v out="$stamps/$1" -v leftOut="${3:-}" '
        BEGIN {
            while (leftOut != "" && (getline line < leftOut) > 0) skip[line] = 1
            print "[" > (out "/compile_commands.json")
        }
        /^ *"command": / { command = $0 }
        /^ *"file": / {
            file = $0; sub(/^ *"file": "/, "", file); sub(/",?$/, "", file)
            path = substr(file, length(root) + 2)
            if (index(file, root "/") != 1 || path !~ /^(src|tools)\/.*\.cpp$/ || path ~ /^tools\/.*\/tests\// ||
                file in skip || file in taken) next
            taken[file] = 1
            folder = path; sub(/\/[^\/]*$/, "", folder); gsub(/\//, "_", folder)
            unit = out "/" folder ".cpp"
            print file > (out "/files")
            print "#include \"" file "\"" > unit
            if (folder in seen) next
            seen[folder] = 1
            at = index(command, " -c " file)
            sub(/,$/, "", command)
            command = substr(command, 1, at) "-c " unit substr(command, at + 4 + length(file))
            printf "%s{\n\"directory\": \"%s\",\n%s,\n\"file\": \"%s\"\n}", comma, out, command, unit \
                > (out "/compile_commands.json")
            comma = ",\n"
        }
        END { print "\n]" > (out "/compile_commands.json") }' "$2"
}
group portable "$build/native/compile_commands.json"
group windows "$build/mingw/compile_commands.json" "$stamps/portable/files"

newest=$(find src tools res .clang-tidy cmake/checks/lint.sh -type f -printf '%T@ %p\n' | sort -rn | sed -n 1p)
newest=${newest#* }

# The standard library of the Windows compiler: clang does not find the posix-thread one by itself.
library=$(ls -d /usr/lib/gcc/x86_64-w64-mingw32/*-posix/include/c++ | tail -n 1)
cat >"$stamps/one.sh" <<SCRIPT
#!/bin/bash
# one.sh FILE
unit=\$1
arguments=(-p "\${unit%/*}" --extra-arg=-Wno-unknown-warning-option)
case \$unit in
    */windows/*) arguments+=(--extra-arg-before=--target=x86_64-w64-mingw32 --extra-arg=-nostdinc++
        --extra-arg=-isystem$library --extra-arg=-isystem$library/x86_64-w64-mingw32) ;;
esac
if output=\$(clang-tidy --quiet --checks=-bugprone-suspicious-include "\${arguments[@]}" "\$unit" 2>&1) &&
    ! grep -q '^Skipping ' <<<"\$output"; then
    touch "\${unit%.cpp}.clean"
else
    printf '%s\n' "\$output" | grep -vE '^[0-9]+ warnings? (generated|treated)|^Suppressed|^Use -header-filter'
    exit 1
fi
SCRIPT
echo "   $(wc -l <"$stamps/portable/files") portable files, $(wc -l <"$stamps/windows/files") Windows files"
# The large ones first, so that none of them is left alone at the end.
for unit in $(ls -S "$stamps"/windows/*.cpp "$stamps"/portable/*.cpp); do
    [ "${unit%.cpp}.clean" -nt "$newest" ] || printf '%s\0' "$unit"
done | xargs -0 -r -n 1 -P "$(nproc)" bash "$stamps/one.sh"
