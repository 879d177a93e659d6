// The program for translators: check, new.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <vector>

namespace ferry::texts {

/// How the program ends.
enum class ExitCode : int {
    Fine = 0,
    FaultsFound = 1,  ///< Something is wrong with a text.
    WrongUsage = 2    ///< The command line is wrong, or a file cannot be read or written.
};

/// What the arguments behind the program's name say; the first is the project's root.
using Arguments = std::vector<std::filesystem::path>;

/// Does what `arguments` ask for; results go to `out`, what went wrong to `err`, both in UTF-8.
ExitCode RunTextsProgram(const Arguments& arguments, std::ostream& out, std::ostream& err);

}  // namespace ferry::texts
