#include "desktop/system_error.h"

#include "base/handles_win32.h"

namespace ferry::desktop {

std::wstring SystemErrorText(DWORD error) {
    base::LocalText text;
    // With this flag the parameter takes the place of the buffer that the call allocates.
    auto* const place = reinterpret_cast<wchar_t*>(text.Put());
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        error, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), place, 0, nullptr);
    return length == 0 ? std::wstring() : std::wstring(text.Get(), length);
}

std::wstring SystemErrorMessage(DWORD error, std::wstring_view prefix) {
    if (error == ERROR_SUCCESS)
        return {};
    const std::wstring text = SystemErrorText(error);
    return prefix.empty() ? text : std::wstring(prefix) + L"\n" + text;
}

}  // namespace ferry::desktop
