// The address of the command's manual page.
#pragma once

#include <string>
#include <string_view>

namespace ferry::process {

/// The confirmation dialog's page.
inline constexpr wchar_t kFerryManualPage[] = L"6.Command/2.DefaultCommand/Ferry.html";

/// The address of `page` under the manual's `base`.
/// An empty base means the manual installed beside the executable at `modulePath`, in its folder
/// "Manual"; that address is a path with backslashes.
std::wstring ManualAddress(std::wstring_view base, std::wstring_view page, std::wstring_view modulePath);

/// Whether shell version `combined` (major x 100 + minor) takes the plain find-first call.
/// Only 501 and 600 do; all others, an unknown 0 included, take the extended call.
constexpr bool UsesPlainFindFirst(int combined) noexcept {
    return combined == 501 || combined == 600;
}

}  // namespace ferry::process
