// What the practice dialog does when it is told to, beside what a dialog does anyway.
#pragma once

#include <windows.h>

namespace ferry::e2e::practice {

/// Ends at once with the exit code in the first parameter.
inline constexpr UINT kEnd = WM_APP;

/// Hangs for ever, and has the property kHangs from then on.
inline constexpr UINT kHang = WM_APP + 1;
inline constexpr wchar_t kHangs[] = L"hangs";

/// Does nothing else for so many milliseconds.
inline constexpr UINT kLinger = WM_APP + 2;

/// Shows a menu: "one", a line, "&more" with "in&ner" and "deep", and "last", which cannot be chosen. Ends
/// with 1 for "one", 2 and 3 for those of the submenu; goes on when nothing was chosen.
inline constexpr UINT kShowMenu = WM_APP + 3;

}  // namespace ferry::e2e::practice
