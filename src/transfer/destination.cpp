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

/// Whether `path` is a root in either spelling: the shell knows a drive root only with its
/// separator and a share root only without.
bool IsRootInEitherSpelling(files::FileInfo& info, std::wstring_view path, std::wstring_view stripped) {
    if (info.IsRoot(path))
        return true;
    // A lone server name would pass for a root as well, but nothing can be copied there.
    const bool namesShare = stripped.starts_with(paths::kNetworkStart) &&
                            stripped.find(kSeparator, paths::kNetworkStart.size()) != std::wstring_view::npos;
    return namesShare && info.IsRoot(stripped);
}

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
    if (IsRootInEitherSpelling(info, path, folder))
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
            return {FolderOutcome::Failed, kMessageNoFolder};
    }
}

}  // namespace ferry::transfer
