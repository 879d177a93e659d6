// How far a script may go. Scripts of people stay far below; what runs wild ends in a message.
#pragma once

#include <cstddef>

namespace ferry::script {

/// The most units of a line: a buffer of 65,536 bytes without its terminator. The rest of a line is dropped.
inline constexpr std::size_t kMaxLineUnits = 32767;

/// The most bytes of a script file; a larger one cannot be read.
inline constexpr std::size_t kMaxScriptBytes = 67108864;

/// The most units of a text: of a value, and of a statement's text with its variables and words replaced.
inline constexpr std::size_t kMaxValueUnits = 1048576;

/// How often one text is searched for variables.
inline constexpr int kMaxSubstitutionPasses = 10;

/// How deep includes may nest below the script that is run.
inline constexpr int kMaxIncludeDepth = 32;

/// The most variables, and the most units of all their names.
inline constexpr std::size_t kMaxVariables = 65536;
inline constexpr std::size_t kMaxNamesUnits = 1048576;

/// The most units of all values of variables, and of all selected items together, that a script may gather.
inline constexpr std::size_t kMaxGatheredUnits = 64 * kMaxValueUnits;

/// The most selected items that a script may gather.
inline constexpr std::size_t kMaxItems = 1048576;

/// The most comparisons of a unit with a pattern's that one condition may take: a fraction of a second.
inline constexpr std::size_t kMaxLikeSteps = 64 * kMaxValueUnits;

/// The most blocks of one kind that may be open: jumps out of blocks leave them open.
inline constexpr std::size_t kMaxOpenBlocks = 4194304;

}  // namespace ferry::script
