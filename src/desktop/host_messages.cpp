#include "desktop/host_messages.h"

#include <cstring>
#include <string>
#include <vector>

namespace ferry::desktop {

HWND FindHostWindow() noexcept {
    return FindWindowW(kHostWindowClass, nullptr);
}

void SendText(HWND receiver, HWND sender, ULONG_PTR code, std::wstring_view text) {
    // The system copies all announced bytes, so they have to be there.
    std::vector<std::byte> payload(8 * text.size() + 8);
    std::memcpy(payload.data(), text.data(), text.size() * sizeof(wchar_t));
    COPYDATASTRUCT data{};
    data.dwData = code;
    data.cbData = static_cast<DWORD>(payload.size());
    data.lpData = payload.data();
    SendMessageW(receiver, WM_COPYDATA, reinterpret_cast<WPARAM>(sender), reinterpret_cast<LPARAM>(&data));
}

void SendNumberedText(HWND receiver, HWND sender, ULONG_PTR code, int number, std::wstring_view text) {
    SendText(receiver, sender, code, std::to_wstring(number) + L"/" + std::wstring(text));
}

}  // namespace ferry::desktop
