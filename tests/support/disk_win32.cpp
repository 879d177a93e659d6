#include "support/disk_win32.h"

#include "base/handles_win32.h"

namespace ferry::test {

std::wstring LongForm(std::wstring_view path) {
    constexpr std::wstring_view kPrefix = L"\\\\?\\";
    return path.starts_with(kPrefix) ? std::wstring(path) : std::wstring(kPrefix).append(path);
}

bool Exists(std::wstring_view path) {
    return GetFileAttributesW(LongForm(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

void MakeFolders(const std::wstring& path) {
    for (std::size_t at = path.find(L'\\', 3); at != std::wstring::npos; at = path.find(L'\\', at + 1)) {
        CreateDirectoryW(LongForm(path.substr(0, at)).c_str(), nullptr);  // most exist already
    }
    CreateDirectoryW(LongForm(path).c_str(), nullptr);
}

void RemoveAll(const std::wstring& path) {
    const std::wstring longPath = LongForm(path);
    const DWORD attributes = GetFileAttributesW(longPath.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return;
    SetFileAttributesW(longPath.c_str(), FILE_ATTRIBUTE_NORMAL);
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        DeleteFileW(longPath.c_str());
        return;
    }
    VisitEntries(longPath, [&](const FolderEntry& entry) { RemoveAll(longPath + L'\\' + entry.Name); });
    RemoveDirectoryW(longPath.c_str());
}

bool VisitEntries(const std::wstring& folder, const std::function<void(const FolderEntry&)>& visit) {
    WIN32_FIND_DATAW found = {};
    const base::FindHandle search(FindFirstFileW((LongForm(folder) + L"\\*").c_str(), &found));
    if (!search)
        return false;
    do {
        const FILETIME& time = found.ftLastWriteTime;
        const FolderEntry entry{found.cFileName, found.dwFileAttributes,
                                (std::uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime};
        if (entry.Name != L"." && entry.Name != L"..")
            visit(entry);
    } while (FindNextFileW(search.Get(), &found));
    return true;
}

}  // namespace ferry::test
