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
    below["calendar"] = "base"
    below["paths"] = "base calendar"
    # Paths of any length are a matter of grammar.
    below["files"] = "base paths"
    services = "base calendar paths files"
    below["hostlink"] = below["settings"] = below["process"] = services
    # The language is a setting.
    below["lang"] = services " settings"
    below["naming"] = services
    below["completion"] = services " settings"
    engines = services " hostlink lang settings process naming"
    below["transfer"] = below["script"] = engines
    # The conversation with the person, apart from its windows.
    below["confirmation"] = engines " transfer"
    # The framework knows nothing of Ferry, only the owners and texts of the lowest room.
    below["framework"] = "base"
    below["controls"] = engines " completion transfer script framework"
    # What deals with windows that are not of its own making.
    below["desktop"] = below["controls"]
    below["dirmenu"] = below["controls"] " controls confirmation desktop"
    # The favourites button of a dialog opens the folder menu.
    below["dialogs"] = below["dirmenu"] " dirmenu"
    below["app"] = below["dialogs"] " dialogs"

    count = split("framework controls desktop dialogs dirmenu app", names, " ")
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
    # The lowest room has owners only, no adapters of the world.
    if (name ~ /_win32\.h$/ && target[1] != "base" && room != "app")
        complain("\"" name "\" is an adapter of another room; app/ makes it and lends its port")
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

# Services answer; whoever speaks to a person or touches a window stands above them.
room != "" && !(room in hasWindows) && /(^|[^A-Za-z_])(HWND|MessageBox[AW]?|FindWindow[A-Za-z]*|SendMessage[AW]?|PostMessage[AW]?)([^A-Za-z_]|$)/ {
    complain("there is no window in " room "/")
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
