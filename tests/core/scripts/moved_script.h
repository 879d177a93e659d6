// Test scripts in another place: what one does when it is chosen in the menu of an installed program.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/scripts/script_file.h"

namespace ferry::scripttools {

/// Where the folders of test scripts lie instead. The folder of the scripts themselves, C:\s, is `Scripts`;
/// everything else on a drive lies below `Drives`, in a folder for each letter.
struct MovedPlaces {
    std::wstring Scripts;
    std::wstring Drives;
};

/// `text` with every path of a test script in it moved.
std::wstring WithMovedPaths(std::wstring_view text, const MovedPlaces& places);

/// Reads the test script `text` with all that its lines and the usual world say moved.
ScriptFile ReadMovedScript(std::wstring_view text, const MovedPlaces& places);

/// What an installed program runs scripts in, as far as a test cannot choose it.
struct InstalledWorld {
    std::wstring MenuFolder;     ///< Whose files the menu has; no separator.
    std::wstring ProgramFolder;  ///< With its separator.
    std::map<std::wstring, std::wstring> Environment;
    std::map<std::wstring, HostSetting> HostSettings;
    std::function<int(int)> Metric;
    std::function<std::string(const std::wstring&)> Narrow;
};

/// A box that a script shows, and what is pressed in it.
struct RehearsedBox {
    std::wstring Kind;  ///< As in effects: "msg", "err" or "ask".
    std::wstring Text;
    std::uint32_t Style = 0;  ///< Of a "msg".
    int Button = 0;
};

/// What the script did when it was rehearsed.
struct Rehearsal {
    std::vector<Effect> Effects;
    std::vector<RehearsedBox> Boxes;
    std::vector<script::ProgramStart> Started;  ///< Those that could be.
    std::map<std::wstring, Bytes> Files;        ///< All that there are afterwards.
};

/// Why a script does not take part.
enum class Hindrance {
    None,
    NotInTheMenu,       ///< It lies outside the folder of the scripts.
    TouchesNothing,     ///< It does nothing to the world.
    NeedsAnotherWorld,  ///< In this world it does not do what its lines say: a selection, another clock, no
                        ///< host.
    AsksTheShell,       ///< Which program opens a document is a matter of the machine.
    AsksForNoSuchBox,   ///< Its box has buttons that no system knows.
    Speaks,             ///< Nothing hears it.
    TakesLong,          ///< It waits for longer than a test should.
};

/// Rehearses the moved `file` in a pretended world that is like the installed one: nothing
/// is selected, the host has a window, nobody traces, and the clock shows another time. It must do there what
/// its lines say, whatever chance brings and when programs take a little longer. Boxes alone count only for a
/// script that is about them, since nearly every one shows in them what it has found out.
Hindrance Rehearse(const ScriptFile& file, bool isAboutBoxes, const InstalledWorld& installed,
                   Rehearsal& rehearsal);

}  // namespace ferry::scripttools
