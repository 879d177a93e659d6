#include "hostlink/last_error_win32.h"

#include "base/handles_win32.h"
#include "base/message_box_win32.h"

namespace ferry::hostlink {

std::wstring SystemErrorText(DWORD error) {
    base::LocalText text;
    // With this flag the parameter takes the place of the buffer that the call allocates.
    auto* const place = reinterpret_cast<wchar_t*>(text.Put());
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        error, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), place, 0, nullptr);
    return length == 0 ? std::wstring() : std::wstring(text.Get(), length);
}

void ReportSystemError(DWORD error, std::wstring_view prefix) {
    if (error == ERROR_SUCCESS) {
        return;
    }
    std::wstring text = SystemErrorText(error);
    if (!prefix.empty()) {
        text = std::wstring(prefix) + L"\n" + text;
    }
    base::ShowMessageBox(text, MB_OK);
}

void ReportLastError(std::wstring_view prefix) {
    ReportSystemError(GetLastError(), prefix);
}

}  // namespace ferry::hostlink
