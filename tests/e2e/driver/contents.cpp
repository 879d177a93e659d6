#include "e2e/driver/contents.h"

#include "e2e/driver/temp_tree.h"
#include "e2e/driver/tree_snapshot.h"
#include "support/disk_win32.h"

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
    test::VisitEntries(LongForm(root), [&](const test::FolderEntry& entry) {
        const std::wstring path = root + L'\\' + entry.Name;
        if (!entry.IsFolder()) {
            files.push_back(path);
        } else {
            const auto inside = FilesBelow(path);
            files.insert(files.end(), inside.begin(), inside.end());
        }
    });
    return files;
}

}  // namespace ferry::e2e
