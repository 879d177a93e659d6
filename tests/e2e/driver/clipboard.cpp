#include "e2e/driver/clipboard.h"

#include <windows.h>

#include <cstring>

#include "support/poll_win32.h"

namespace ferry::e2e {

std::wstring ClipboardText() {
    if (OpenClipboard(nullptr) == FALSE)
        return {};
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    const auto* const text = static_cast<const wchar_t*>(GlobalLock(data));
    const std::wstring copied = text == nullptr ? L"" : text;
    GlobalUnlock(data);
    CloseClipboard();
    return copied;
}

bool SetClipboardText(const std::wstring& text) {
    if (!test::WaitUntil([] { return OpenClipboard(nullptr) != FALSE; }))
        return false;
    bool isSet = EmptyClipboard() != FALSE;
    if (isSet && !text.empty()) {
        const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
        const HGLOBAL data = GlobalAlloc(GMEM_MOVEABLE, size);
        std::memcpy(GlobalLock(data), text.c_str(), size);
        GlobalUnlock(data);
        isSet = SetClipboardData(CF_UNICODETEXT, data) != nullptr;  // now the clipboard's own
    }
    CloseClipboard();
    return isSet;
}

}  // namespace ferry::e2e
