// Judges the destination that the user typed and makes the folder exist.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "files/ports.h"

namespace ferry::transfer {

class ShellOperations;

/// Message numbers of the catalogue.
inline constexpr std::uint16_t kMessageBadDestination = 62304;
inline constexpr std::uint16_t kMessageNoFolder = 62306;
inline constexpr std::uint16_t kMessageEmptyDestination = 62314;

/// A typed destination made into the working destination, or the message that says why not.
struct WorkingDestination {
    std::wstring Path;          ///< With its trailing separator; empty when Message is set.
    std::uint16_t Message = 0;  ///< 0: Path is good.
};

/// The working destination of `typed`: trimmed, checked for a drive or a network start, and with
/// a trailing separator. A text that contains "/" anywhere is tested for and gets U+008B instead
/// of a backslash.
WorkingDestination MakeWorkingDestination(std::wstring_view typed);

/// How making the destination folder ended.
enum class FolderOutcome { Ready, Failed, Abandoned };

/// The outcome and, for Failed, the message to show. Abandoned: the user cancelled, say nothing.
struct EnsuredFolder {
    FolderOutcome Outcome = FolderOutcome::Ready;
    std::uint16_t Message = 0;
};

/// Makes the folder of working destination `path` exist, with all its parents, and tells the
/// shell when it was made. Roots are taken as they are.
EnsuredFolder EnsureDestinationFolder(files::FileInfo& info, files::FileChanges& changes,
                                      ShellOperations& shell, std::wstring_view path);

}  // namespace ferry::transfer
