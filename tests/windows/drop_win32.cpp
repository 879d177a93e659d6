#include "windows/drop_win32.h"

#include <shlobj.h>

#include <cstring>

namespace ferry::test {

HDROP MakeDrop(const std::vector<std::wstring>& paths) {
    std::wstring names;
    for (const std::wstring& path : paths) {
        names += path;
        names.push_back(L'\0');
    }
    // One NUL ends the list; without any name the system wants two.
    names.append(2, L'\0');
    const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + names.size() * sizeof(wchar_t));
    auto* const block = static_cast<DROPFILES*>(GlobalLock(memory));
    block->pFiles = sizeof(DROPFILES);
    block->fWide = TRUE;
    std::memcpy(block + 1, names.data(), names.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    return static_cast<HDROP>(memory);
}

}  // namespace ferry::test
