#include "e2e/driver/folder_entries.h"

#include "base/handles_win32.h"

namespace ferry::e2e {

bool VisitEntries(const std::wstring& folder, const std::function<void(const FolderEntry&)>& visit) {
    WIN32_FIND_DATAW found = {};
    const base::FindHandle search(FindFirstFileW((folder + L"\\*").c_str(), &found));
    if (!search)
        return false;
    do {
        const FolderEntry entry{found.cFileName, found.dwFileAttributes};
        if (entry.Name != L"." && entry.Name != L"..")
            visit(entry);
    } while (FindNextFileW(search.Get(), &found));
    return true;
}

}  // namespace ferry::e2e
