// Tells the user about a system error in the system's own words.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace ferry::hostlink {

/// The system's text for `error`; empty when there is none.
std::wstring SystemErrorText(DWORD error);

/// Shows the text of `error` in a message box, after `prefix` and a line break when a prefix is
/// given. With error 0 nothing is shown.
void ReportSystemError(DWORD error, std::wstring_view prefix = {});

/// ReportSystemError for the thread's last error.
void ReportLastError(std::wstring_view prefix = {});

}  // namespace ferry::hostlink
