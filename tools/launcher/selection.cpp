#include "launcher/selection.h"

#include <algorithm>
#include <utility>

#include "base/case_order.h"
#include "paths/path_grammar.h"

namespace ferry::launcher {
namespace {

/// `path` without the prefix for long paths: Ferry's own grammar puts it where it is needed.
std::wstring WithoutPrefix(std::wstring_view path) {
    if (path.starts_with(paths::kPlainNetworkPrefix))
        return std::wstring(paths::kNetworkStart).append(path.substr(paths::kPlainNetworkPrefix.size()));
    if (path.starts_with(paths::kPlainPrefix))
        path.remove_prefix(paths::kPlainPrefix.size());
    return std::wstring(path);
}

/// `path` with a backslash for a quote at its end: in "C:\folder\" the backslash keeps the quote from
/// closing, as command lines are read, and the quote stands in its place.
std::wstring WithoutStrayQuote(std::wstring_view path) {
    std::wstring text(path);
    if (text.ends_with(L'"'))
        text.back() = L'\\';
    return text;
}

/// Whether it has a character that no path can have. A TAB would end the field of a block.
bool IsMalformed(std::wstring_view path) noexcept {
    return path.empty() || std::ranges::any_of(path, [](wchar_t unit) {
               return unit < L' ' || std::wstring_view(L"\"<>|").find(unit) != std::wstring_view::npos;
           });
}

/// Whether the system would give `path` back as it is when asked for the full path: from a drive on, without
/// anything to resolve or to trim. A list may have a hundred thousand of them.
bool IsFullAndPlain(std::wstring_view path) noexcept {
    if (!paths::StartsWithDrive(path) || path.find(L'/') != std::wstring_view::npos)
        return false;
    path.remove_prefix(std::wstring_view(L"C:").size());
    if (!path.starts_with(L'\\'))
        return false;
    wchar_t before = L'\0';
    for (const wchar_t unit : path) {
        if (unit == L'\\' && (before == L'\\' || before == L'.' || before == L' '))
            return false;
        before = unit;
    }
    return before != L'.' && before != L' ';
}

}  // namespace

void SelectionMaker::AddItem(std::wstring_view path) {
    std::wstring full = FullPathOf(path);
    if (full.empty())
        return;
    full = paths::StripTrailingSeparator(full);
    const std::size_t unitsWith = units_ + full.size() + 1;
    if (selection_.Items.size() == mostItems_ || unitsWith > kMostUnits) {
        ++selection_.TooMany;
        return;
    }
    std::wstring key = base::SmallLetters(full);
    if (taken_.contains(key))
        return;
    if (!surroundings_.Exists(full)) {
        selection_.Refusals.push_back({std::wstring(path), Reason::Missing});
        return;
    }
    taken_.insert(std::move(key));
    units_ = unitsWith;
    selection_.Items.push_back(std::move(full));
}

void SelectionMaker::AddTab(std::wstring_view path) {
    std::wstring full = FullPathOf(path);
    if (!full.empty() && !HasTab(full))
        selection_.Tabs.push_back(std::move(full));
}

void SelectionMaker::AddLastFolders(const std::vector<std::wstring>& folders) {
    std::size_t count = 0;
    for (const std::wstring& folder : folders) {
        if (count == kMostLastFolders)
            break;
        if (IsMalformed(folder) || !paths::StartsLikeFullPath(folder) || HasTab(folder))
            continue;
        selection_.Tabs.push_back(folder);
        ++count;
    }
}

void SelectionMaker::AddUnreadableList(std::wstring_view name) {
    selection_.Refusals.push_back({std::wstring(name), Reason::UnreadableList});
}

Selection SelectionMaker::Take() {
    taken_.clear();
    units_ = 0;
    return std::exchange(selection_, {});
}

std::wstring SelectionMaker::FullPathOf(std::wstring_view path) {
    std::wstring plain = WithoutPrefix(WithoutStrayQuote(path));
    if (IsMalformed(plain)) {
        selection_.Refusals.push_back({std::wstring(path), Reason::Malformed});
        return {};
    }
    if (plain.find_first_of(L"*?") != std::wstring::npos) {
        selection_.Refusals.push_back({std::wstring(path), Reason::Wildcard});
        return {};
    }
    if (IsFullAndPlain(plain))
        return plain;
    std::wstring full = surroundings_.FullPath(plain);
    if (full.empty())
        selection_.Refusals.push_back({std::wstring(path), Reason::Malformed});
    return full;
}

bool SelectionMaker::HasTab(std::wstring_view path) const {
    return std::ranges::any_of(selection_.Tabs,
                               [&](const std::wstring& tab) { return paths::IsSamePath(tab, path); });
}

}  // namespace ferry::launcher
