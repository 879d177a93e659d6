// Programs that are written the same way as a script and in another language.
#pragma once

#include <string>
#include <vector>

namespace ferry::bench {

/// What a program is written for.
enum class Language { Script, Tcl, Batch };

/// A program, which prints `Result` in each language.
struct Program {
    std::string Name;
    std::string Script;
    std::string Tcl;
    std::string Batch;  ///< Empty where a batch file takes longer than anybody waits.
    std::string Result;
    bool TakesItems = false;  ///< Whether it goes through the items of a list.

    const std::string& In(Language language) const {
        return language == Language::Script ? Script : language == Language::Tcl ? Tcl : Batch;
    }
};

/// A counting loop of `rounds` with an addition and a comparison, beside `spare` variables that it does not
/// name.
Program CountingLoop(int rounds, int spare = 0);

/// A loop that builds `texts` texts of `pieces` pieces each, one after the other.
Program TextLoop(int texts, int pieces);

/// A loop over `items` files that takes their names apart.
Program ItemLoop(int items);

/// A loop over `count` variables, each of which is counted on in each of `rounds`.
Program ManyVariables(int count, int rounds);

/// A program of `lines` lines that goes from its end to its start, `rounds` times.
Program LongJump(int lines, int rounds);

/// The full paths of the items of ItemLoop.
std::vector<std::string> Items(int count);

}  // namespace ferry::bench
