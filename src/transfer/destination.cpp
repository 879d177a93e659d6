// Judges the destination that the user typed and makes the folder exist.
#include "transfer/destination.h"

#include "base/text.h"
#include "paths/path_helpers.h"
#include "transfer/ports.h"

namespace ferry::transfer {
namespace {

constexpr std::wstring_view kNetworkStart = L"\\\\";
constexpr wchar_t kSeparator = L'\\';
// What ends a destination with a slash in it. Hosts that type slashes know this unit.
constexpr wchar_t kSlashSeparator = L'\x008B';

bool StartsLikeFullPath(std::wstring_view text) {
    if (text.size() < 2)
        return false;
    return (base::IsDriveLetter(text[0]) && text[1] == L':') || text.starts_with(kNetworkStart);
}

/// Whether `path` is a root in either spelling: the shell knows a drive root only with its
/// separator and a share root only without.
bool IsRootInEitherSpelling(FileSystem& fileSystem, std::wstring_view path, std::wstring_view stripped) {
    if (fileSystem.IsRoot(path))
        return true;
    // A lone server name would pass for a root as well, but nothing can be copied there.
    const bool namesShare = stripped.starts_with(kNetworkStart) &&
                            stripped.find(kSeparator, kNetworkStart.size()) != std::wstring_view::npos;
    return namesShare && fileSystem.IsRoot(stripped);
}

}  // namespace

WorkingDestination MakeWorkingDestination(std::wstring_view typed) {
    const std::wstring_view trimmed = base::Trim(typed);
    if (!StartsLikeFullPath(trimmed))
        return {{}, kMessageBadDestination};

    const wchar_t separator = trimmed.find(L'/') == std::wstring_view::npos ? kSeparator : kSlashSeparator;
    std::wstring path(trimmed);
    if (path.back() != separator)
        path += separator;
    if (path == kNetworkStart)
        return {{}, kMessageBadDestination};
    return {std::move(path), 0};
}

EnsuredFolder EnsureDestinationFolder(FileSystem& fileSystem, std::wstring_view path) {
    if (path.empty())
        return {FolderOutcome::Failed, kMessageEmptyDestination};

    const std::wstring_view folder = paths::StripTrailingSeparator(path);
    if (IsRootInEitherSpelling(fileSystem, path, folder))
        return {};
    const std::uint32_t attributes = fileSystem.Attributes(folder);
    if (attributes != kInvalidAttributes && (attributes & kAttributeDirectory) == 0)
        return {FolderOutcome::Failed, kMessageNoFolder};

    switch (fileSystem.CreateFolder(folder)) {
        case kFolderCreated:
            fileSystem.NotifyFolderMade(folder);
            return {};
        case kFolderExists:
            return {};
        case kFolderCancelled:
            return {FolderOutcome::Abandoned, 0};
        default:
            return {FolderOutcome::Failed, kMessageNoFolder};
    }
}

}  // namespace ferry::transfer
