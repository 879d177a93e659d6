// Libraries of the system that are loaded when they are first wanted. What the executable would
// import from them is looked for before any code of ours runs, and so also beside the executable,
// where anybody may have put a file of that name.
#pragma once

#include <windows.h>

#include <string>

#include "base/handles_win32.h"

namespace ferry::base {

/// The system folder, without a separator at its end; asked for once per process.
inline const std::wstring& SystemFolder() {
    static const std::wstring kFolder = [] {
        std::wstring folder(GetSystemDirectoryW(nullptr, 0), L'\0');
        folder.resize(GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size())));
        return folder;
    }();
    return kFolder;
}

/// Loads the library `name` from the system folder; nothing when there is none.
inline LibraryHandle LoadSystemLibrary(const wchar_t* name) {
    return LibraryHandle(LoadLibraryW((SystemFolder() + L"\\" + name).c_str()));
}

/// The function `name` of `library`, or null; also null without a library.
template <class Function>
Function* FindFunction(const LibraryHandle& library, const char* name) noexcept {
    if (!library) {
        return nullptr;
    }
    // Through void*, since a FARPROC is no compatible function type.
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(library.Get(), name)));
}

}  // namespace ferry::base
