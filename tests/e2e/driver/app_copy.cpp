#include "e2e/driver/app_copy.h"

#include <windows.h>

#include "e2e/driver/surroundings.h"
#include "e2e/driver/temp_tree.h"

namespace ferry::e2e {
namespace {

bool CopyFolder(const std::wstring& from, const std::wstring& to) {
    CreateDirectoryW(LongForm(to).c_str(), nullptr);  // its absence shows in the copies below
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW((from + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    bool isCopied = true;
    do {
        const std::wstring name = L"\\" + std::wstring(found.cFileName);
        if (name == L"\\." || name == L"\\..")
            continue;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            isCopied = CopyFolder(from + name, to + name) && isCopied;
        else
            isCopied = CopyFileW((from + name).c_str(), (to + name).c_str(), FALSE) && isCopied;
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return isCopied;
}

}  // namespace

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
