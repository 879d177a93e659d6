#!/usr/bin/env bash
# includes.sh: reads file names (relative to the project's root) and checks what they include.
# A room includes only itself and rooms below it, and only adapters and rooms with windows include
# an adapter or anything that standard C++ does not have. includes_test.sh beside it tries it out.
set -euo pipefail
# shellcheck disable=SC2016 # awk's own $0
xargs awk '
BEGIN {
    # Which rooms each room may include, beside itself.
    below["base"] = ""
    below["paths"] = "base"
    services = "base paths"
    below["hostlink"] = below["settings"] = below["process"] = services
    # The language is a setting.
    below["lang"] = services " settings"
    # The times of a file are asked for as any file is.
    below["naming"] = services " process"
    below["completion"] = services " settings process"
    engines = services " hostlink lang settings process naming"
    below["transfer"] = below["script"] = engines
    # The framework knows nothing of Ferry, only the owners and texts of the lowest room.
    below["framework"] = "base"
    below["controls"] = engines " completion transfer script framework"
    below["dirmenu"] = below["controls"] " controls"
    # The favourites button of a dialog opens the folder menu.
    below["dialogs"] = below["controls"] " controls dirmenu"
    below["app"] = below["dialogs"] " dialogs"

    count = split("framework controls dialogs dirmenu app", names, " ")
    for (i = 1; i <= count; ++i) hasWindows[names[i]] = 1

    # Fuzz targets and the tests of portable rooms are portable too; the other rings are for Windows.
    ring["windows"] = ring["e2e"] = 1

    standard = "algorithm any array atomic bit bitset cassert cctype cerrno cfenv cfloat charconv chrono " \
        "cinttypes climits clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp " \
        "csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception " \
        "execution filesystem forward_list fstream functional future initializer_list iomanip ios iosfwd " \
        "iostream istream iterator latch limits list locale map memory memory_resource mutex new numbers " \
        "numeric optional ostream queue random ranges ratio regex scoped_allocator semaphore set shared_mutex " \
        "source_location span sstream stack stdexcept stop_token streambuf string string_view syncstream " \
        "system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility " \
        "valarray variant vector version gtest/gtest.h gmock/gmock.h benchmark/benchmark.h"
    count = split(standard, names, " ")
    for (i = 1; i <= count; ++i) isStandard[names[i]] = 1
}

# exists NAME: whether there is such a file.
function exists(name,   line, result) {
    result = (getline line < name) >= 0
    close(name)
    return result
}

function complain(what) { printf "   %s:%d: %s\n", FILENAME, FNR, what; bad = 1 }

FNR == 1 {
    parts = split(FILENAME, path, "/")
    folder = FILENAME
    sub(/[^\/]*$/, "", folder)
    room = (path[1] == "src" && parts > 2) ? path[2] : ""
    adapter = FILENAME ~ /_win32\.(h|cpp)$/
    free = adapter || path[1] == "tools" || (path[1] == "tests" && path[2] in ring) || (room in hasWindows)
    if (path[1] == "src" && !(room in below)) complain("there is no room called \"" room "\"")
}

# fromOutside NAME: a header that is not of this project.
function fromOutside(name) {
    if (!free && !(name in isStandard)) complain("<" name "> may stand only in adapters and rooms with windows")
}

# fromRoom NAME: a header of this project, named with its folder.
function fromRoom(name,   target) {
    split(name, target, "/")
    if (!free && name ~ /_win32\.h$/)
        complain("\"" name "\" is an adapter; a portable file cannot include it")
    if (room == "") {
        if (!free && target[1] in ring) complain("\"" name "\" is for Windows; a portable test cannot include it")
        else if (!(target[1] in below) && !exists("tests/" name) && !exists("tools/" name)) fromOutside(name)
        return
    }
    if (target[1] == room) return
    if (index(" " below[room] " ", " " target[1] " ") == 0)
        complain("\"" name "\" is above " room "/, or beside it; includes go down only")
}

# fromBeside NAME: a header without a folder. Rooms name theirs with the room; tools and tests take those
# that lie beside them by the short name. Any other one is searched for among the headers of the system.
function fromBeside(name) {
    if (name == "ids.h" || name == "version.h") return
    if (room != "") {
        complain("\"" name "\" is named without its room; a header from outside stands in <>")
    } else if (!exists(folder name)) {
        fromOutside(name)
    } else if (!free && name ~ /_win32\.h$/) {
        complain("\"" name "\" is an adapter; a portable file cannot include it")
    }
}

/^[ \t]*#[ \t]*include/ {
    name = $0
    sub(/^[ \t]*#[ \t]*include[ \t]*/, "", name)
    quoted = name ~ /^"/
    if (!quoted && name !~ /^</) {
        complain("an include names its header itself, in quotes or <>")
        next
    }
    sub(/^["<]/, "", name)
    sub(/[">].*/, "", name)
    split(name, target, "/")
    if (quoted && name !~ /\.h$/) complain("\"" name "\" is no .h; only a .h can be included")
    # What the <> reach is searched for among the rooms, too.
    if (name ~ /\// && (quoted || (target[1] in below))) fromRoom(name)
    else if (quoted) fromBeside(name)
    else fromOutside(name)
}

END { exit bad }
'
