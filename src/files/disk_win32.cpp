#include "files/disk_win32.h"

#include <windows.h>
// After windows.h, which these build on.
#include <shlobj.h>
#include <shlwapi.h>

#include <cstdio>
#include <string>

#include "base/handles_win32.h"
#include "files/find_call.h"
#include "files/shell_version_win32.h"
#include "paths/path_grammar.h"

namespace ferry::files {
namespace {

std::uint64_t Number(const FILETIME& time) noexcept {
    return (static_cast<std::uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

FoundItem ItemOf(DWORD attributes, const FILETIME& lastWrite) noexcept {
    return {attributes, Number(lastWrite), true};
}

/// Whether `error`, of a call that looks at a path, says that there surely is nothing.
bool MeansMissing(DWORD error) noexcept {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_NO_MORE_FILES:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_FILENAME_EXCED_RANGE:
        case ERROR_DIRECTORY:  // what stands above is a file
            return true;
        default:
            return false;
    }
}

/// The item at `path` where a search failed: some folders may be used but not listed.
std::optional<FoundItem> FindWithoutSearch(std::wstring_view path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(paths::LongPathText(path).c_str(), GetFileExInfoStandard, &data)) {
        return ItemOf(data.dwFileAttributes, data.ftLastWriteTime);
    }
    return MeansMissing(GetLastError()) ? std::nullopt : std::optional(FoundItem{0, 0, false});
}

/// Starts a search for `pattern` and puts the first match into `data`. Owns nothing when there is no match;
/// the last error says why. The short name in `data` is not filled.
base::FindHandle FindFirst(std::wstring_view pattern, WIN32_FIND_DATAW& data) {
    const std::wstring path = paths::LongPathText(pattern);
    if (UsesPlainFindFirst(CombinedShellVersion())) {
        return base::FindHandle(FindFirstFileW(path.c_str(), &data));
    }
    return base::FindHandle(FindFirstFileExW(path.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch,
                                             nullptr, FIND_FIRST_EX_LARGE_FETCH));
}

/// The error of a search that found nothing more.
std::uint32_t SearchError() noexcept {
    const DWORD error = GetLastError();
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_NO_MORE_FILES ? 0 : error;
}

int LastError() noexcept {
    return static_cast<int>(GetLastError());
}

/// Makes the folder at `path`, in its prefixed form, after its missing parents.
int MakeLongFolder(const std::wstring& path) {
    if (CreateDirectoryW(path.c_str(), nullptr)) {
        return ERROR_SUCCESS;
    }
    const int error = LastError();
    const std::size_t separator = path.find_last_of(L'\\', path.size() - 2);
    if (error != ERROR_PATH_NOT_FOUND || separator == std::wstring::npos) {
        return error;
    }
    const int parent = MakeLongFolder(path.substr(0, separator));
    if (parent != ERROR_SUCCESS && parent != ERROR_ALREADY_EXISTS) {
        return parent;
    }
    return CreateDirectoryW(path.c_str(), nullptr) ? ERROR_SUCCESS : LastError();
}

}  // namespace

std::uint32_t DiskInfo::Attributes(std::wstring_view path) {
    return GetFileAttributesW(paths::LongPathText(path).c_str());
}

std::optional<FoundItem> DiskInfo::Find(std::wstring_view path) {
    WIN32_FIND_DATAW data;
    if (!FindFirst(path, data)) {
        return MeansMissing(GetLastError()) ? std::nullopt : FindWithoutSearch(path);
    }
    return ItemOf(data.dwFileAttributes, data.ftLastWriteTime);
}

std::uint64_t DiskInfo::Size(std::wstring_view path) {
    const base::FileHandle file(CreateFileW(paths::LongPathText(path).c_str(), GENERIC_READ,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!file || !GetFileSizeEx(file.Get(), &size)) {
        return 0;
    }
    return static_cast<std::uint64_t>(size.QuadPart);
}

bool DiskInfo::IsRoot(std::wstring_view path) {
    return PathIsRootW(std::wstring(path).c_str()) != FALSE;
}

std::optional<ItemId> DiskInfo::Identity(std::wstring_view path) {
    // Folders, too, and nobody is kept from anything meanwhile.
    const base::FileHandle item(CreateFileW(paths::LongPathText(path).c_str(), FILE_READ_ATTRIBUTES,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                            OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION info{};
    if (!item || !GetFileInformationByHandle(item.Get(), &info))
        return std::nullopt;
    const std::uint64_t place = Number({info.nFileIndexLow, info.nFileIndexHigh});
    // Some servers number nothing.
    return place == 0 ? std::nullopt : std::optional(ItemId{info.dwVolumeSerialNumber, place});
}

std::uint32_t DiskSearch::Search(std::wstring_view pattern, const std::function<bool(const Match&)>& visit) {
    WIN32_FIND_DATAW data;
    const base::FindHandle search = FindFirst(pattern, data);
    if (!search) {
        return SearchError();
    }
    do {
        const ItemTimes times{Number(data.ftCreationTime), Number(data.ftLastAccessTime),
                              Number(data.ftLastWriteTime)};
        if (!visit({data.cFileName, data.dwFileAttributes, times})) {
            return 0;
        }
    } while (FindNextFileW(search.Get(), &data) != FALSE);
    return SearchError();
}

bool DiskChanges::SetAttributes(std::wstring_view path, std::uint32_t attributes) {
    return SetFileAttributesW(paths::LongPathText(path).c_str(), attributes) != FALSE;
}

int DiskChanges::MakeFolder(std::wstring_view path) {
    const paths::LongPath target = paths::ToLongPath(path);
    // The shell's function refuses prefixed paths, or even cuts them and makes a wrong folder.
    if (target.Form != paths::LongPathForm::Unchanged)
        return MakeLongFolder(target.Text);
    const int made = SHCreateDirectory(nullptr, target.Text.c_str());
    // A folder needs room for a short name in it: without the prefix its path may have 247 units only.
    return made == ERROR_FILENAME_EXCED_RANGE ? MakeLongFolder(paths::WithPlainPrefix(path).Text) : made;
}

bool DiskChanges::RemoveFolder(std::wstring_view path) {
    return RemoveDirectoryW(paths::LongPathText(path).c_str()) != FALSE;
}

void DiskChanges::LetOthersClose() {
    constexpr DWORD kMomentMs = 50;
    Sleep(kMomentMs);
}

bool DiskChanges::Rename(std::wstring_view from, std::wstring_view to) {
    return _wrename(paths::LongPathText(from).c_str(), paths::LongPathText(to).c_str()) == 0;
}

}  // namespace ferry::files
