// Finds what is wrong in a script before anything of it runs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "script/ports.h"

namespace ferry::script {

/// What is wrong at a place.
enum class FindingKind : std::uint8_t {
    CannotRead,       ///< The script, or one that it includes, cannot be read.
    UndefinedLabel,   ///< A jump to a label that is nowhere.
    DoubledLabel,     ///< A label that is there already.
    UnclosedBlock,    ///< A block whose end is missing.
    UnopenedBlock,    ///< A word that ends or parts a block, or leaves a loop, where none is open.
    UnknownLine,      ///< No command, option or declared variable.
    UnknownFunction,  ///< A call of a function that there is not.
    ReservedName,     ///< A variable called like a word of the language.
    DoubledName,      ///< A variable that is declared already.
    OverlappingName,  ///< A variable's name that contains another, or is contained.
    ArgumentCount,    ///< Too few or too many arguments.
    WrongForm,        ///< A statement that is not written as it has to be.
    LeavesBranch,     ///< A jump out of an "if", which stays open: allowed, and seldom meant.
};

/// One thing that is wrong.
struct Finding {
    std::wstring File;
    std::size_t Line = 0;    ///< Counted from 1.
    std::size_t Column = 0;  ///< Counted from 1.
    FindingKind Kind = FindingKind::WrongForm;
    std::wstring Text;  ///< What the finding is about: a name, a label, a statement.

    bool operator==(const Finding&) const = default;
};

/// Whether a script with such a finding runs as its author may well have meant it.
bool IsWarning(FindingKind kind) noexcept;

/// The word for `kind` in output that other programs read.
const char* NameOf(FindingKind kind) noexcept;

/// What `kind` means, for people.
const char* Describe(FindingKind kind) noexcept;

/// Checks the script at `path` and those that it includes by a fixed path: what is found, file by file, in
/// the order of the lines. Texts that variables make are taken for right.
std::vector<Finding> Check(ByteFiles& files, const std::wstring& path);

}  // namespace ferry::script
