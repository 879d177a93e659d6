#!/usr/bin/env bash
# includes_test.sh: tries includes.sh with made-up files, those that it must complain about and those that
# it must not.
set -euo pipefail
check=$(dirname "$(realpath "$0")")/includes.sh
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
tried=0
bad=0

# try FILE INCLUDE: what the check says about a file with this line; an end with an error is part of it.
try() {
    mkdir -p "$(dirname "$1")"
    printf '#pragma once\n#include %s\n' "$2" >"$1"
    { bash "$check" <<<"$1" || echo "ended with an error"; } 2>&1
    rm "$1"
}

# accepts FILE INCLUDE
accepts() {
    local said
    said=$(try "$1" "$2")
    [ -z "$said" ] || { bad=1; printf '   %s: #include %s should be accepted:\n%s\n' "$1" "$2" "$said"; }
    tried=$((tried + 1))
}

# refuses FILE INCLUDE REASON: the complaint names the file and holds the words of the reason.
refuses() {
    local said
    said=$(try "$1" "$2")
    if [[ $said != *"$1:"[12]": "*"$3"*"ended with an error"* ]]; then
        bad=1
        printf '   %s: #include %s should be refused for "%s"; said was:\n%s\n' "$1" "$2" "$3" "$said"
    fi
    tried=$((tried + 1))
}

# Headers that lie beside those who include them by their short names.
mkdir -p src/base tests/core/naming tests/fuzz tools/samplehost src/transfer
touch src/base/handles_win32.h src/base/text.h tests/core/naming/cases.h tests/fuzz/disk_win32.h
touch src/transfer/other_win32.h tools/samplehost/delivery_win32.h

# A portable file: standard C++, its own room and the rooms below.
accepts src/base/probe.cpp '<string>'
accepts src/base/probe.cpp '"base/text.h"'
accepts src/paths/probe.h '"base/text.h"'
accepts src/transfer/probe.cpp '"naming/name_edits.h"'
accepts src/dialogs/probe.cpp '"ids.h"'
accepts src/app/probe.cpp '"version.h"'
refuses src/base/probe.cpp '<windows.h>' 'may stand only in adapters'
refuses src/base/probe.cpp '<sys/stat.h>' 'may stand only in adapters'
refuses src/base/probe.cpp '"windows.h"' 'named without its room'
refuses src/base/probe.cpp '"handles_win32.h"' 'named without its room'
refuses src/base/probe.cpp '"base/handles_win32.h"' 'is an adapter'
refuses src/base/probe.cpp '<base/handles_win32.h>' 'is an adapter'
refuses src/base/probe.h '"base/handles_win32.h"' 'is an adapter'
# This adapter includes no header of Windows, and so a compiler for another system takes it.
refuses src/transfer/probe.cpp '"transfer/other_win32.h"' 'is an adapter'
refuses src/completion/probe.h '"files/disk_win32.h"' 'is an adapter'

# Rooms: downwards only, in adapters and rooms with windows too.
refuses src/base/probe.cpp '"paths/path_grammar.h"' 'includes go down only'
refuses src/base/probe.cpp '<paths/path_grammar.h>' 'includes go down only'
refuses src/lang/probe.cpp '"process/manual.h"' 'includes go down only'
refuses src/paths/probe_win32.cpp '"transfer/request.h"' 'includes go down only'
refuses src/framework/probe.cpp '"transfer/request.h"' 'includes go down only'
refuses src/base/probe.cpp '"../paths/path_grammar.h"' 'includes go down only'
refuses src/base/probe.cpp '"no_such_room/text.h"' 'includes go down only'
refuses src/cellar/probe.cpp '<string>' 'there is no room called'
refuses src/probe.cpp '<string>' 'there is no room called'

# Adapters and rooms with windows.
accepts src/base/probe_win32.cpp '<windows.h>'
accepts src/base/probe_win32.h '"base/handles_win32.h"'
accepts src/transfer/probe_win32.cpp '"transfer/other_win32.h"'
accepts src/dialogs/probe.cpp '<commctrl.h>'
accepts src/dialogs/probe.cpp '"base/handles_win32.h"'
# What the world is made of is chosen at one place.
accepts src/app/probe.cpp '"files/disk_win32.h"'
refuses src/dialogs/probe.cpp '"files/disk_win32.h"' 'an adapter of another room'
refuses src/transfer/probe_win32.cpp '"files/disk_win32.h"' 'an adapter of another room'
refuses src/dialogs/probe.cpp '"windows.h"' 'named without its room'

# The tests of portable rooms and the fuzz targets are portable; the other rings and the tools are for Windows.
accepts tests/core/naming/probe.cpp '"cases.h"'
accepts tests/core/naming/probe.cpp '<gtest/gtest.h>'
accepts tests/core/naming/probe.cpp '"core/naming/cases.h"'
accepts tests/windows/probe.cpp '<windows.h>'
accepts tests/windows/probe.cpp '"core/naming/cases.h"'
accepts tests/windows/probe.cpp '"base/handles_win32.h"'
accepts tools/samplehost/probe.cpp '"delivery_win32.h"'
accepts tools/samplehost/probe.cpp '"base/handles_win32.h"'
accepts tools/samplehost/probe.cpp '"windows.h"'
refuses tests/core/naming/probe.cpp '<windows.h>' 'may stand only in adapters'
refuses tests/core/naming/probe.cpp '"windows.h"' 'may stand only in adapters'
refuses tests/core/naming/probe.cpp '"sys/stat.h"' 'may stand only in adapters'
refuses tests/core/naming/probe.cpp '"base/handles_win32.h"' 'is an adapter'
refuses tests/core/naming/probe.cpp '"samplehost/delivery_win32.h"' 'is an adapter'
refuses tests/core/naming/probe.cpp '"windows/fixture.h"' 'a portable test cannot include it'
refuses tests/fuzz/probe.cpp '"disk_win32.h"' 'is an adapter'

# Forms of the line itself.
accepts src/base/probe.cpp '<string>  // not "windows.h"'
refuses src/base/probe.cpp 'HEADER' 'names its header itself'
refuses src/base/probe.cpp '"base/table.inc"' 'is no .h'
refuses src/base/probe.cpp '  "base/handles_win32.h"  // for the owners' 'is an adapter'

# shows FILE LINE: a line of code in place of an include.
shows() {
    local said
    mkdir -p "$(dirname "$1")"
    printf '%s\n' "$2" >"$1"
    said=$({ bash "$check" <<<"$1" || echo "ended with an error"; } 2>&1)
    rm "$1"
    printf '%s\n' "$said"
}

# Below the rooms with windows nobody has one, or speaks to a person.
for line in 'void Place(HWND window);' 'int x = MessageBoxW(nullptr, L"", L"", 0);' '    SendMessageW(a, b, c, d);'; do
    for file in src/hostlink/probe_win32.cpp src/lang/probe.h src/transfer/probe_win32.h; do
        [[ $(shows "$file" "$line") == *"there is no window in"*"ended with an error"* ]] ||
            { bad=1; echo "   $file: '$line' should be refused"; }
        tried=$((tried + 1))
    done
    [ -z "$(shows src/desktop/probe.cpp "$line")" ] || { bad=1; echo "   src/desktop: '$line' should be accepted"; }
    tried=$((tried + 1))
done
[ -z "$(shows src/lang/probe.cpp 'bool TheHWNDs = MessageBoxing();')" ] || { bad=1; echo "   names that only look like it"; }
tried=$((tried + 1))

[ "$bad" = 0 ] && echo "   $tried made-up files judged as they should be"
exit "$bad"
