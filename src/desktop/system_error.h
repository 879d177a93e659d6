// System errors in the system's own words.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace ferry::desktop {

/// The system's text for `error`; empty when there is none.
std::wstring SystemErrorText(DWORD error);

/// What a person is told about `error`: its text, after `prefix` and a line break when a prefix is given.
/// Empty for error 0, of which there is nothing to tell.
std::wstring SystemErrorMessage(DWORD error, std::wstring_view prefix = {});

}  // namespace ferry::desktop
