#include "completion/folder_lookup_win32.h"

#include "process/file_search_win32.h"

namespace ferry::completion {

void WindowsFolderLookup::Search(std::wstring_view pattern, const std::function<bool(const Match&)>& visit) {
    WIN32_FIND_DATAW data;
    const base::FindHandle search = process::FindFirst(pattern, data);
    if (!search) {
        return;
    }
    do {
        if (!visit({data.cFileName, (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0})) {
            return;
        }
    } while (FindNextFileW(search.Get(), &data) != FALSE);
}

std::uint32_t WindowsFolderLookup::Attributes(std::wstring_view path) {
    return process::FileAttributes(path);
}

}  // namespace ferry::completion
