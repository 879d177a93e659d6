// What the program's start presets for the confirmation dialog.
#pragma once

namespace ferry::dialogs {

/// The presets; all 0 until somebody sets them.
struct StartOptions {
    int TransferMode = 0;    ///< 0 copy, 1 move.
    int TabListMode = 0;     ///< 1: the list box of tab folders stands in the dialog.
    int FocusMode = 0;       ///< 1, with TabListMode: that list box has the focus at start.
    int TabFolderIndex = 0;  ///< Which tab folder is preset, modulo their number.
};

}  // namespace ferry::dialogs
