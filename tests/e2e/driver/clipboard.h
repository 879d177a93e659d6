// The clipboard of the desktop that the tests share with the program.
#pragma once

#include <string>

namespace ferry::e2e {

/// The text on the clipboard; empty when there is none.
std::wstring ClipboardText();

/// Puts `text` on the clipboard; an empty one leaves it empty. False when another program keeps it.
bool SetClipboardText(const std::wstring& text);

}  // namespace ferry::e2e
