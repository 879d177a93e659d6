#include "app/dll_search_path.h"

#include <windows.h>

#include "base/system_library_win32.h"

namespace ferry::app {

void RestrictDllSearchPath() {
    const base::LibraryHandle kernel = base::LoadSystemLibrary(L"Kernel32.dll");
    auto* const setDirectories =
        base::FindFunction<decltype(SetDefaultDllDirectories)>(kernel, "SetDefaultDllDirectories");
    if (setDirectories != nullptr) {
        setDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    }
}

}  // namespace ferry::app
