// How wide texts are in dialogs, by estimate.
#pragma once

#include <string_view>

#include "texts/dialog_source.h"

namespace ferry::texts {

/// About how wide `text` is in the font of dialogs, in tenths of a dialog unit. The "&" before a mnemonic
/// takes no room where there are mnemonics.
int TextWidth(std::wstring_view text, bool hasMnemonics);

/// By how many tenths of a dialog unit `text` is too long for `control`; 0 when it fits.
int WidthBeyond(std::wstring_view text, const ControlSource& control);

/// The same for the title of a dialog that is `width` dialog units wide.
int TitleWidthBeyond(std::wstring_view title, int width);

}  // namespace ferry::texts
