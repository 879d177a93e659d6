#include "process/file_search_win32.h"

#include <string>

#include "paths/path_helpers.h"
#include "process/manual.h"
#include "process/shell_version_win32.h"

namespace ferry::process {

base::FindHandle FindFirst(std::wstring_view pattern, WIN32_FIND_DATAW& data) {
    const std::wstring path = paths::LongPathText(pattern);
    if (UsesPlainFindFirst(CombinedShellVersion())) {
        return base::FindHandle(FindFirstFileW(path.c_str(), &data));
    }
    return base::FindHandle(FindFirstFileExW(path.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch,
                                             nullptr, FIND_FIRST_EX_LARGE_FETCH));
}

DWORD FileAttributes(std::wstring_view path) {
    return GetFileAttributesW(paths::LongPathText(path).c_str());
}

}  // namespace ferry::process
