// The switches on the program's command line.
#pragma once

#include <span>
#include <string_view>

namespace ferry::app {

/// What the command line preset for the dialog.
struct CommandLineOptions {
    int TransferMode = 0;    ///< 0 copy, 1 move.
    int TabListMode = 0;     ///< 1: the list box of tab folders stands in the dialog.
    int FocusMode = 0;       ///< 1, with TabListMode: that list box has the focus at start.
    int TabFolderIndex = 0;  ///< Which tab folder is preset, modulo their number.
};

/// Reads `arguments` (without the program's name) in order; later ones override earlier ones,
/// unknown ones are ignored. Never fails.
CommandLineOptions ParseCommandLine(std::span<const std::wstring_view> arguments);

}  // namespace ferry::app
