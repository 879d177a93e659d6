// The text on the clipboard of the user.
#pragma once

#include <windows.h>

#include <string>

namespace ferry::desktop {

/// How long the clipboard is waited for while another program holds it.
inline constexpr DWORD kClipboardPatienceMs = 500;

/// The text on the clipboard; empty when there is none, or the clipboard could not be had in time.
std::wstring ClipboardText();

/// Puts `text` on the clipboard. False when it could not be had in time, or does not take it.
bool SetClipboardText(const std::wstring& text);

}  // namespace ferry::desktop
