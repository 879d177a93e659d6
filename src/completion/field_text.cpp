// The text of a path field: what kind of path it is and how a key changes it.
#include "completion/field_text.h"

#include <algorithm>
#include <vector>

#include "base/text.h"
#include "files/ports.h"
#include "paths/path_grammar.h"

namespace ferry::completion {

namespace {

/// How many units of `path`, whose separators are backslashes, no ".." may take away: a drive with
/// its separator, or server and share with theirs.
std::size_t RootLength(std::wstring_view path) noexcept {
    if (paths::StartsWithDrive(path)) {
        return path.size() > 2 && path[2] == L'\\' ? 3 : 2;
    }
    std::size_t end = paths::kNetworkStart.size();
    for (int part = 0; part < 2; ++part) {
        const std::size_t separator = path.find(L'\\', end);
        if (separator == std::wstring_view::npos) {
            return path.size();
        }
        end = separator + 1;
    }
    return end;
}

}  // namespace

bool IsRelative(std::wstring_view text) noexcept {
    return !paths::StartsLikeFullPath(text);
}

std::wstring Canonical(std::wstring_view path) {
    std::wstring plain(path);
    if (path.starts_with(paths::kPlainPrefix)) {
        return plain;
    }
    std::ranges::replace(plain, L'/', L'\\');
    if (IsRelative(plain)) {
        return plain;
    }
    const std::size_t rootLength = RootLength(plain);
    std::vector<std::wstring_view> kept;
    for (const std::wstring_view part : base::Split(std::wstring_view(plain).substr(rootLength), L'\\')) {
        if (part == L"..") {
            if (!kept.empty()) {
                kept.pop_back();
            }
        } else if (!part.empty() && part != L".") {
            kept.push_back(part);
        }
    }
    std::wstring result = plain.substr(0, rootLength);
    for (const std::wstring_view part : kept) {
        result.append(part).push_back(L'\\');
    }
    // Every part brought a separator with it; the last one has it only where the text had it.
    if (!kept.empty() && plain.back() != L'\\') {
        result.pop_back();
    }
    return result;
}

std::wstring ResolveAgainst(std::wstring_view baseFolder, std::wstring_view text) {
    return Canonical(paths::WithTrailingSeparator(baseFolder).append(text));
}

std::optional<std::wstring> UpOneLevel(std::wstring_view text) {
    const paths::PathParts parts = paths::SplitPath(text);
    std::wstring result = std::wstring(parts.Drive).append(parts.Folder);
    if (parts.Name.empty() && parts.Extension.empty() && !result.empty()) {
        result.pop_back();
    }
    if (result.empty()) {
        return std::nullopt;
    }
    return result;
}

std::optional<std::wstring> RootFor(std::wstring_view text) {
    if (text == L"\\") {
        return std::wstring(paths::kNetworkStart);
    }
    if (text.size() == 1 && base::IsDriveLetter(text[0])) {
        return std::wstring(text).append(L":\\");
    }
    if (text.size() == 2 && paths::StartsWithDrive(text)) {
        return std::wstring(text).append(L"\\");
    }
    return std::nullopt;
}

std::wstring FieldTextOfDrop(std::wstring_view path, std::uint32_t attributes, bool foldersOnly) {
    const bool isFolder = (attributes & files::kAttributeDirectory) != 0;
    return std::wstring(foldersOnly && !isFolder ? paths::ParentWithSeparator(path) : path);
}

Offer OfferFor(std::wstring_view text, std::size_t itemCount) {
    if (RootFor(text)) {
        return Offer::PutRoot;
    }
    if (itemCount == 0 || text.size() == 1) {
        return Offer::Nothing;
    }
    return itemCount == 1 ? Offer::PutOnlyItem : Offer::OpenList;
}

int NextItem(int current, int count) noexcept {
    return count == 0 ? -1 : (current + 1) % count;
}

int PreviousItem(int current, int count) noexcept {
    return current > 0 ? current - 1 : count - 1;
}

}  // namespace ferry::completion
