# shellcheck shell=bash
# What lint.sh and second_compiler.sh share. Nearly all of their time goes into the headers of the system and
# of the test framework, so the sources of a folder are read together, as one translation unit; their unnamed
# namespaces therefore share one set of names.

# The same version on every system: what it finds, and how it lays code out, differs from one to the next.
# shellcheck disable=SC2034 # for the scripts that read this one
clang="clang++-19"

# The standard library of the Windows compiler, which clang does not find by itself.
mingw=x86_64-w64-mingw32
library=$("$mingw-g++-posix" -print-file-name=include/c++)
# shellcheck disable=SC2034 # for the scripts that read this one
windows_target=("--target=$mingw" -nostdinc++ -isystem "$library" -isystem "$library/$mingw")

# words FILE: the words of shell commands, a line each.
words() { xargs printf '%s\n' <"$1"; }

# make_units OUT DATABASE FOLDERS [LEFT_OUT]: for each of the FOLDERS OUT/FOLDER.cpp, which includes all
# sources below it that the compilation database DATABASE knows, and OUT/FOLDER.flags, the flags that any of
# them is compiled with. A folder that ends in "/apart" gets a unit for each source. The files in the list
# LEFT_OUT are left out; those that were taken go into OUT/files.
make_units() {
    local out=$1 commands
    mkdir -p "$out"
    rm -f "$out"/*.cpp "$out"/*.flags
    : >"$out/files"
    awk -v root="$PWD" -v out="$out" -v folders="$3" -v leftOut="${4:-}" '
        BEGIN {
            count = split(folders, folder, " ")
            while (leftOut != "" && (getline line < leftOut) > 0) skip[line] = 1
            entry = "^(extern \"C\" )?int (WINAPI )?(main|wmain|wWinMain|LLVMFuzzerTestOneInput)\\("
        }
        function unitOf(path,   i, name) {
            for (i = 1; i <= count; ++i) {
                name = folder[i]
                if (sub(/\/apart$/, "", name)) {
                    if (index(path, name "/") == 1) return substr(path, 1, length(path) - 4)
                } else if (index(path, name "/") == 1) return name
            }
            return ""
        }
        # startOf FILE: the name of the function that a program begins with, when it stands there.
        function startOf(file,   line, name) {
            while ((getline line < file) > 0) {
                if (line !~ entry) continue
                name = line
                sub(/\(.*/, "", name)
                sub(/.* /, "", name)
                break
            }
            close(file)
            return name
        }
        # unquoted TEXT: what a JSON string stands for, as far as paths and commands need it.
        function unquoted(text) {
            gsub(/\\\\/, "\001", text); gsub(/\\"/, "\"", text); gsub(/\001/, "\\", text)
            return text
        }
        /^ *"command": / { command = $0; sub(/^ *"command": "/, "", command); sub(/",?$/, "", command) }
        /^ *"file": / {
            file = $0; sub(/^ *"file": "/, "", file); sub(/",?$/, "", file)
            path = substr(file, length(root) + 2)
            if (index(file, root "/") != 1 || path !~ /\.cpp$/ || path in skip) next
            unit = unitOf(path)
            if (unit == "") next
            # Those that may use what others may not stand apart.
            if (index(command, "-D_CRT_SECURE_NO_WARNINGS ")) unit = unit "_unsafe"
            gsub(/\//, "_", unit)
            unit = out "/" unit
            # A source can belong to several programs.
            print unquoted(command) > (unit ".commands")
            if (path in taken) next
            taken[path] = 1
            print path > (out "/files")
            start = startOf(file)
            # Several programs stand in one unit, each with an entry of its own.
            if (start != "") printf "#define %s %s_%d  // NOLINT\n", start, start, ++starts > (unit ".cpp")
            printf "#include \"%s\"\n", file > (unit ".cpp")
            if (start != "") printf "#undef %s\n", start > (unit ".cpp")
        }' "$2"
    for commands in "$out"/*.commands; do
        [ -e "$commands" ] || continue
        # Definitions, folders of headers, the language and the warnings; what else is there is about the
        # making of object files, or precompiled for another compiler.
        words "$commands" | awk '
            takesNext { $0 = "-isystem\n" $0; takesNext = 0 }
            $0 == "-isystem" { takesNext = 1; next }
            /^-(D|I|std=|W|isystem\n)/ && $0 != "-Winvalid-pch" && !seen[$0]++' >"${commands%.commands}.flags"
        rm "$commands"
    done
}

# inputs COMPILER ARGUMENTS...: the files of the project that this run reads, with hashes of their contents.
# The headers of the system change with a compiler only; "versions" speaks for them.
inputs() {
    local files
    files=$("$@" -w -MM -MT inputs) || return
    sed 's/^inputs://; s/\\$//' <<<"$files" | xargs realpath | sort -u | xargs sha256sum
}

# is_as_it_was LIST: whether all files of a list of hashes have the contents that they had then.
is_as_it_was() { [ -s "$1" ] && sha256sum --check --status "$1" 2>/dev/null; }

# versions PROGRAM...: of them and of the compilers whose headers are read.
versions() {
    local program
    for program in "$@" g++ "$mingw-g++-posix"; do "$program" --version; done
}

# each_unit SCRIPT BUILD FOLDERS_OF_UNITS...: SCRIPT BUILD UNIT for all units, as many at a time as there are
# processors; the large ones first, so that none of them is left alone at the end.
each_unit() {
    local script=$1 build=$2
    shift 2
    find "$@" -name '*.cpp' -printf '%s %p\0' | sort -z -rn | sed -z 's/^[0-9]* //' |
        xargs -0 -r -n 1 -P "$(nproc)" bash "$script" "$build"
}
