// The host's main window and the messages that the program sends to it.
#pragma once

#include <windows.h>

#include <string_view>

namespace ferry::desktop {

/// The window class of the host's main window.
inline constexpr wchar_t kHostWindowClass[] = L"{6B1D2E90-4C3A-4F85-9E21-0A7C5D38B4F6}";

/// The data tag that tells the host to show a folder.
inline constexpr ULONG_PTR kShowFolderCode = 200;

/// The host's main window, or null when no host runs.
HWND FindHostWindow() noexcept;

/// Sends `text` to `receiver` as WM_COPYDATA with tag `code`, on behalf of the window `sender`,
/// and waits until it was handled. The announced size is 8 bytes per unit of the text and its
/// terminator, four times what it needs; the receiver reads up to the NUL.
void SendText(HWND receiver, HWND sender, ULONG_PTR code, std::wstring_view text);

/// SendText of "<number>/<text>".
void SendNumberedText(HWND receiver, HWND sender, ULONG_PTR code, int number, std::wstring_view text);

}  // namespace ferry::desktop
