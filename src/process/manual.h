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

}  // namespace ferry::process
