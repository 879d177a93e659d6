// The program for script authors: run, check, world.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

namespace ferry::scripttools {

/// How the program ends.
enum class ExitCode : int {
    Fine = 0,
    Findings = 1,   ///< Something was found, or the script told of an error.
    WrongUsage = 2  ///< The command line is wrong, or a file cannot be read or written.
};

/// What the arguments behind the program's name say; paths among them need no other form.
using Arguments = std::vector<std::filesystem::path>;

/// Runs the script at a path on this machine itself, for all to see; whether it told of an error.
using RunForReal = bool (*)(const std::wstring& script, std::vector<std::wstring> selection);

/// What the program speaks through, in UTF-8, and what it can do.
struct Console {
    std::ostream& Out;                             ///< For results.
    std::ostream& Err;                             ///< For what went wrong.
    scripttools::RunForReal RunForReal = nullptr;  ///< Without it, all scripts run in a world of pretence.
};

/// Does what `arguments` ask for.
ExitCode RunScriptProgram(const Arguments& arguments, const Console& console);

}  // namespace ferry::scripttools
