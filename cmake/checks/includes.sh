# includes.sh: reads file names (relative to the project's root) and checks what they include.
# A room includes only itself and rooms below it, and only adapters and rooms with windows include
# anything that standard C++ does not have.
set -euo pipefail
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

function complain(what) { printf "   %s:%d: %s\n", FILENAME, FNR, what; bad = 1 }

FNR == 1 {
    parts = split(FILENAME, path, "/")
    room = (path[1] == "src" && parts > 2) ? path[2] : ""
    adapter = FILENAME ~ /_win32\.(h|cpp)$/
    # Fuzz targets and the tests of portable rooms are portable too; the other rings are for Windows.
    free = adapter || path[1] == "tools" || FILENAME ~ /^tests\/(windows|e2e|bench)\// || (room in hasWindows)
    if (path[1] == "src" && !(room in below)) complain("there is no room called \"" room "\"")
}

/^[ \t]*#[ \t]*include[ \t]*</ {
    name = $0
    sub(/^[^<]*</, "", name)
    sub(/>.*/, "", name)
    if (!free && !(name in isStandard)) complain("<" name "> may stand only in adapters and rooms with windows")
}

/^[ \t]*#[ \t]*include[ \t]*"/ {
    name = $0
    sub(/^[^"]*"/, "", name)
    sub(/".*/, "", name)
    if (room == "") next
    if (split(name, target, "/") < 2) next
    if (target[1] == room || target[1] == "res") next
    if (index(" " below[room] " ", " " target[1] " ") == 0)
        complain("\"" name "\" is above " room "/, or beside it; includes go down only")
    else if (!free && name ~ /_win32\.h$/)
        complain("\"" name "\" is an adapter; a portable file cannot include it")
}

END { exit bad }
'
