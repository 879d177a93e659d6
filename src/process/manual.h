// The address of the command's manual page.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ferry::process {

/// The confirmation dialog's page.
inline constexpr wchar_t kFerryManualPage[] = L"6.Command/2.DefaultCommand/Ferry.html";

/// The address of `page` under the manual's `base`.
/// An empty base means the manual installed beside the executable at `modulePath`, in its folder
/// "Manual"; that address is a path with backslashes.
std::wstring ManualAddress(std::wstring_view base, std::wstring_view page, std::wstring_view modulePath);

/// Where a page of the manual is looked for, the best place first.
struct ManualQuery {
    std::wstring_view Base;  ///< As ManualAddress takes it.
    std::wstring_view
        Topic;  ///< The file name of a page without ".html"; empty: the confirmation dialog's page.
    std::wstring_view Language;  ///< The user's, as the settings name it: ".ja-JP".
    std::wstring_view ModulePath;
};

/// The addresses at which the page may be, at least one. With a base there is one, which only the server
/// knows to be right. Without it they are paths of which the first that exists is the best: the user's
/// language comes first, then English, then whatever there is.
std::vector<std::wstring> ManualPlaces(const ManualQuery& query);

}  // namespace ferry::process
