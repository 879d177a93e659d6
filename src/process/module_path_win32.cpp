#include "process/module_path_win32.h"

#include <windows.h>

namespace ferry::process {

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    // A full buffer means that the path was cut.
    while (length >= path.size()) {
        path.resize(path.size() * 2);
        length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    }
    path.resize(length);
    return path;
}

}  // namespace ferry::process
