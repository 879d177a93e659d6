#include "transfer/file_system_win32.h"

#include <windows.h>
// After windows.h, which these build on.
#include <oleauto.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <cstdio>

#include "base/handles_win32.h"
#include "paths/folders_win32.h"
#include "paths/path_helpers.h"
#include "process/file_search_win32.h"

namespace ferry::transfer {
namespace {

std::uint64_t Number(const FILETIME& time) noexcept {
    return (static_cast<std::uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
}

/// Overwrites `item`, so that a long enumeration uses one text over and over.
void Describe(const WIN32_FIND_DATAW& data, FoundItem& item) {
    item.Name.assign(data.cFileName);
    item.Attributes = data.dwFileAttributes;
    item.LastWriteTime = Number(data.ftLastWriteTime);
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
    const std::wstring longPath = paths::LongPathText(path);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    const BOOL isRead = GetFileAttributesExW(longPath.c_str(), GetFileExInfoStandard, &data);
    if (!isRead && MeansMissing(GetLastError())) {
        return std::nullopt;
    }
    FoundItem item{std::wstring(paths::LastComponent(path)), 0, 0, isRead != FALSE};
    if (item.IsTimeKnown) {
        item.Attributes = data.dwFileAttributes;
        item.LastWriteTime = Number(data.ftLastWriteTime);
    }
    return item;
}

bool IsDots(const wchar_t* name) noexcept {
    return name[0] == L'.' && (name[1] == L'\0' || (name[1] == L'.' && name[2] == L'\0'));
}

}  // namespace

std::uint32_t WindowsFileSystem::Attributes(std::wstring_view path) {
    return process::FileAttributes(path);
}

bool WindowsFileSystem::SetAttributes(std::wstring_view path, std::uint32_t attributes) {
    return SetFileAttributesW(paths::LongPathText(path).c_str(), attributes) != FALSE;
}

void WindowsFileSystem::Enumerate(std::wstring_view folder,
                                  const std::function<void(const FoundItem&)>& visit) {
    std::wstring pattern = paths::WithTrailingSeparator(folder);
    pattern += L'*';
    WIN32_FIND_DATAW data;
    const base::FindHandle search = process::FindFirst(pattern, data);
    if (!search) {
        return;
    }
    FoundItem item;
    do {
        if (!IsDots(data.cFileName)) {
            Describe(data, item);
            visit(item);
        }
    } while (FindNextFileW(search.Get(), &data));
}

std::optional<FoundItem> WindowsFileSystem::Find(std::wstring_view path) {
    WIN32_FIND_DATAW data;
    if (!process::FindFirst(path, data)) {
        return MeansMissing(GetLastError()) ? std::nullopt : FindWithoutSearch(path);
    }
    FoundItem item;
    Describe(data, item);
    return item;
}

std::uint64_t WindowsFileSystem::FileSize(std::wstring_view path) {
    const base::FileHandle file(CreateFileW(paths::LongPathText(path).c_str(), GENERIC_READ,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!file || !GetFileSizeEx(file.Get(), &size)) {
        return 0;
    }
    return static_cast<std::uint64_t>(size.QuadPart);
}

int WindowsFileSystem::CreateFolder(std::wstring_view path) {
    return paths::MakeFolder(path);
}

void WindowsFileSystem::NotifyFolderMade(std::wstring_view path) {
    SHChangeNotify(SHCNE_MKDIR, SHCNF_PATHW, std::wstring(path).c_str(), nullptr);
}

bool WindowsFileSystem::RemoveFolder(std::wstring_view path) {
    return RemoveDirectoryW(paths::LongPathText(path).c_str()) != FALSE;
}

bool WindowsFileSystem::Rename(std::wstring_view from, std::wstring_view to) {
    return _wrename(paths::LongPathText(from).c_str(), paths::LongPathText(to).c_str()) == 0;
}

bool WindowsFileSystem::IsRoot(std::wstring_view path) {
    return PathIsRootW(std::wstring(path).c_str()) != FALSE;
}

double WindowsFileSystem::LocalDate(std::uint64_t fileTime) {
    const FILETIME utc{static_cast<DWORD>(fileTime), static_cast<DWORD>(fileTime >> 32)};
    FILETIME local{};
    SYSTEMTIME parts{};
    double date = 0;
    if (!FileTimeToLocalFileTime(&utc, &local) || !FileTimeToSystemTime(&local, &parts) ||
        !SystemTimeToVariantTime(&parts, &date)) {
        return 0;
    }
    return date;
}

}  // namespace ferry::transfer
