// The ways of the program, each of which gets the arguments behind its name.
#pragma once

#include <span>
#include <string>

#include "script_program.h"

namespace ferry::scripttools {

using ArgumentsOfCommand = std::span<const std::filesystem::path>;

ExitCode RunScript(ArgumentsOfCommand arguments, const Console& console);
ExitCode CheckScripts(ArgumentsOfCommand arguments, const Console& console);
ExitCode RunWorlds(ArgumentsOfCommand arguments, const Console& console);

/// `path` in UTF-8, to be shown.
std::string ShownPath(const std::filesystem::path& path);

}  // namespace ferry::scripttools
