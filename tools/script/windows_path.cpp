#include "windows_path.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "base/text.h"
#include "paths/path_grammar.h"

namespace ferry::scripttools {

namespace {

constexpr wchar_t kBackslash = L'\\';
constexpr std::wstring_view kDevicePrefix = L"\\\\.\\";
constexpr std::size_t kDriveLength = 2;

std::wstring WithBackslashes(std::wstring_view path) {
    std::wstring text(path.substr(0, path.find(L'\0')));
    std::ranges::replace(text, L'/', kBackslash);
    return text;
}

/// `path` from the top of its drive or share, not yet worked out.
std::wstring Rooted(const std::wstring& path, const std::wstring& current) {
    if (path.starts_with(paths::kNetworkStart))
        return path;
    if (!paths::StartsWithDrive(path))
        return path.starts_with(kBackslash) ? current.substr(0, RootLength(current)) + path
                                            : current + kBackslash + path;
    if (path.substr(kDriveLength).starts_with(kBackslash))
        return path;
    const std::wstring drive = path.substr(0, kDriveLength);
    const std::wstring rest = kBackslash + path.substr(kDriveLength);
    return base::EqualsIgnoringAsciiCase(drive, current.substr(0, kDriveLength)) ? current + rest
                                                                                 : drive + rest;
}

/// The end of the component that starts at `start`, or the length of the whole text.
std::size_t ComponentEnd(std::wstring_view text, std::size_t start) noexcept {
    return std::min(text.find(kBackslash, std::min(start, text.size())), text.size());
}

std::wstring_view WithoutDotsAndBlanksAtEnd(std::wstring_view name) noexcept {
    return name.substr(0, name.find_last_not_of(L". ") + 1);
}

/// A folder in the middle of a path loses one dot at its end, what stands last loses all, and its blanks.
std::wstring_view AsWritten(std::wstring_view component, bool isLast) noexcept {
    if (isLast)
        return WithoutDotsAndBlanksAtEnd(component);
    return component.ends_with(L'.') ? component.substr(0, component.size() - 1) : component;
}

/// The components below a root, with "." and ".." worked out.
std::vector<std::wstring_view> WorkedOut(std::wstring_view below) {
    std::vector<std::wstring_view> components;
    for (std::size_t start = 0; start < below.size();) {
        const std::size_t end = ComponentEnd(below, start);
        const std::wstring_view component = below.substr(start, end - start);
        if (component == L"..") {
            if (!components.empty())
                components.pop_back();
        } else if (!component.empty() && component != L".") {
            components.push_back(AsWritten(component, end == below.size()));
        }
        start = end + 1;
    }
    return components;
}

}  // namespace

std::size_t RootLength(std::wstring_view fullPath) noexcept {
    if (fullPath.starts_with(paths::kPlainPrefix) || fullPath.starts_with(kDevicePrefix)) {
        constexpr std::size_t kPrefix = paths::kPlainPrefix.size();
        return std::min(ComponentEnd(fullPath, kPrefix) + 1, fullPath.size());
    }
    if (!fullPath.starts_with(paths::kNetworkStart))
        return std::min(kDriveLength + 1, fullPath.size());
    const std::size_t server = ComponentEnd(fullPath, paths::kNetworkStart.size());
    return std::min(ComponentEnd(fullPath, server + 1) + 1, fullPath.size());
}

std::wstring FullWindowsPath(std::wstring_view path, std::wstring_view currentFolder) {
    const std::wstring text = WithBackslashes(path);
    if (text.empty())
        return {};
    const std::wstring rooted = Rooted(text, WithBackslashes(currentFolder));
    const std::size_t root = RootLength(rooted);
    std::wstring full = rooted.substr(0, root);
    for (const std::wstring_view component : WorkedOut(std::wstring_view(rooted).substr(root))) {
        if (!full.ends_with(kBackslash))
            full += kBackslash;
        full += component;
    }
    const bool hasSeparatorAtEnd = text.ends_with(kBackslash) && !full.ends_with(kBackslash);
    return hasSeparatorAtEnd ? full + kBackslash : full;
}

}  // namespace ferry::scripttools
