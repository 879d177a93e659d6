// Test scripts: scripts whose comments say in which world they run and what they are to do there.
#pragma once

#include <map>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "script/engine.h"
#include "script/pretended_world.h"

namespace ferry::scripttools {

/// A test script that was read. Lines of these forms say more than the script does, which takes them for
/// comments; in their texts U+2424, U+240D, U+2409 and U+2420 stand for line feed, carriage return, tab and
/// blank:
///     // A sentence        the first line: the rule that is tested
///     //@ KEY VALUE        something of the world before the run
///     //> KIND TEXT        one effect; these are all effects, in their order
///     //= file PATH|HEX    what a file holds afterwards
///     //= nofile PATH      a file that is not there afterwards
///     //= result NUMBER    how the run ends; 0 where nothing is said
struct ScriptFile {
    WorldDescription World;
    std::vector<Effect> Effects;
    std::map<std::wstring, Bytes> Files;
    std::set<std::wstring> MissingFiles;
    script::RunResult Result = script::RunResult::Ended;
    std::vector<std::string> Mistakes;  ///< Lines that say nothing that is understood; UTF-8.
};

/// Reads the test script `text`, whose lines end in line feeds. The script itself gets what scripts have: a
/// mark, and carriage returns.
ScriptFile ReadScriptFile(std::wstring_view text);

/// How what was done differs from what was expected, a line for each effect; empty when it does not.
std::string Difference(std::span<const Effect> expected, std::span<const Effect> done);

/// Runs the test script and says in which ways it did otherwise; empty when all is as it says. UTF-8.
using RunScriptIn = script::RunResult (*)(PretendedWorld& world);
std::string Judge(const ScriptFile& file, RunScriptIn run);

}  // namespace ferry::scripttools
