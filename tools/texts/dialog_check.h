// Whether the texts of a dialog are all there, fit into it, and lead to their controls.
#pragma once

#include <string>
#include <string_view>

#include "texts/dialog_source.h"
#include "texts/finding.h"

namespace ferry::texts {

/// What is wrong with the texts that `dialog` has by itself; it is described in `file`.
Findings CheckBuiltInTexts(const DialogSource& dialog, const std::wstring& file);

/// What is wrong with `text`, the content of the dialog text file `file`, as a translation of `dialog`.
Findings CheckDialogText(const DialogSource& dialog, std::wstring_view text, const std::wstring& file);

}  // namespace ferry::texts
