// Judges the destination that the user typed and makes the folder exist.
#include "transfer/destination.h"

#include "base/text.h"
#include "paths/path_grammar.h"
#include "transfer/ports.h"

namespace ferry::transfer {
namespace {

constexpr wchar_t kSeparator = L'\\';
// What ends a destination with a slash in it. Hosts that type slashes know this unit.
constexpr wchar_t kSlashSeparator = L'\x008B';

}  // namespace

WorkingDestination MakeWorkingDestination(std::wstring_view typed) {
    const std::wstring_view trimmed = base::Trim(typed);
    if (!paths::StartsLikeFullPath(trimmed))
        return {{}, kMessageBadDestination};

    const wchar_t separator = trimmed.find(L'/') == std::wstring_view::npos ? kSeparator : kSlashSeparator;
    std::wstring path(trimmed);
    if (path.back() != separator)
        path += separator;
    if (path == paths::kNetworkStart)
        return {{}, kMessageBadDestination};
    return {std::move(path), 0};
}

EnsuredFolder EnsureDestinationFolder(files::FileInfo& info, files::FileChanges& changes,
                                      ShellOperations& shell, std::wstring_view path) {
    if (path.empty())
        return {FolderOutcome::Failed, kMessageEmptyDestination};

    const std::wstring_view folder = paths::StripTrailingSeparator(path);
    if (info.IsRoot(path))
        return {};
    const std::uint32_t attributes = info.Attributes(folder);
    if (attributes != files::kInvalidAttributes && !files::IsFolder(attributes))
        return {FolderOutcome::Failed, kMessageNoFolder};

    switch (changes.MakeFolder(folder)) {
        case files::kFolderMade:
            shell.NotifyFolderMade(folder);
            return {};
        case files::kFolderExists:
            return {};
        case files::kFolderCancelled:
            return {FolderOutcome::Abandoned, 0};
        default:
            // A share is there and can yet not be made.
            if (files::IsFolder(attributes))
                return {};
            return {FolderOutcome::Failed, kMessageNoFolder};
    }
}

}  // namespace ferry::transfer
