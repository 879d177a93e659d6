#include "app/dll_search_path.h"

#include <windows.h>

#include <string>

#include "base/handles_win32.h"

namespace ferry::app {

namespace {

std::wstring SystemFolder() {
    std::wstring folder(GetSystemDirectoryW(nullptr, 0), L'\0');
    folder.resize(GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size())));
    return folder;
}

}  // namespace

void RestrictDllSearchPath() {
    static const std::wstring kSystemFolder = SystemFolder();
    const base::LibraryHandle kernel(LoadLibraryW((kSystemFolder + L"\\Kernel32.dll").c_str()));
    if (!kernel) {
        return;
    }
    using SetDirectories = BOOL(WINAPI*)(DWORD);
    // Through void*, since a FARPROC has no compatible function type.
    const auto setDirectories = reinterpret_cast<SetDirectories>(
        reinterpret_cast<void*>(GetProcAddress(kernel.Get(), "SetDefaultDllDirectories")));
    if (setDirectories != nullptr) {
        setDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    }
}

}  // namespace ferry::app
