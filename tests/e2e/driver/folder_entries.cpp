#include "e2e/driver/folder_entries.h"

#include "base/handles_win32.h"

namespace ferry::e2e {

bool VisitEntries(const std::wstring& folder, const std::function<void(const FolderEntry&)>& visit) {
    WIN32_FIND_DATAW found = {};
    const base::FindHandle search(FindFirstFileW((folder + L"\\*").c_str(), &found));
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

}  // namespace ferry::e2e
