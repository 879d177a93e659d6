#include "e2e/driver/app_copy.h"

#include <windows.h>

#include "e2e/driver/surroundings.h"
#include "e2e/driver/temp_tree.h"
#include "support/disk_win32.h"

namespace ferry::e2e {
bool CopyFolder(const std::wstring& from, const std::wstring& to) {
    CreateDirectoryW(LongForm(to).c_str(), nullptr);  // its absence shows in the copies below
    bool isCopied = true;
    const bool isListed = test::VisitEntries(from, [&](const test::FolderEntry& entry) {
        const std::wstring source = from + L'\\' + entry.Name;
        const std::wstring target = to + L'\\' + entry.Name;
        const bool isEntryCopied = entry.IsFolder()
                                       ? CopyFolder(source, target)
                                       : CopyFileW(source.c_str(), target.c_str(), FALSE) != FALSE;
        isCopied = isEntryCopied && isCopied;
    });
    return isListed && isCopied;
}

bool CopyApp(const std::wstring& folder) {
    // Only the program and its texts: the layout may stand inside a build folder.
    CreateDirectoryW(folder.c_str(), nullptr);
    CreateDirectoryW((folder + L"\\Command").c_str(), nullptr);
    return CopyFolder(ProgramFolder(AppFolder()), ProgramFolder(folder)) &&
           CopyFolder(AppFolder() + L"\\Lang", folder + L"\\Lang");
}

std::wstring ProgramFolder(const std::wstring& appFolder) {
    return appFolder + L"\\Command\\Ferry";
}

}  // namespace ferry::e2e
