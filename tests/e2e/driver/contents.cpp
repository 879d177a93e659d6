#include "e2e/driver/contents.h"

#include <windows.h>

#include "e2e/driver/temp_tree.h"
#include "e2e/driver/tree_snapshot.h"

namespace ferry::e2e {

Contents ContentsBelow(const std::wstring& root) {
    Contents contents;
    for (const auto& [name, entry] : ReadTree(root)) {
        if (!entry.IsFolder)
            ++contents[entry.Content];
    }
    return contents;
}

std::vector<std::wstring> FilesBelow(const std::wstring& root) {
    std::vector<std::wstring> files;
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW((LongForm(root) + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return files;
    do {
        const std::wstring name = found.cFileName;
        const std::wstring path = root + L'\\' + name;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            files.push_back(path);
        } else if (name != L"." && name != L"..") {
            const auto inside = FilesBelow(path);
            files.insert(files.end(), inside.begin(), inside.end());
        }
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return files;
}

}  // namespace ferry::e2e
