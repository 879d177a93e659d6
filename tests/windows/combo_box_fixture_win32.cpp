#include "windows/combo_box_fixture_win32.h"

#include <commctrl.h>

#include <algorithm>

namespace ferry::test {
namespace {

constexpr wchar_t kClass[] = L"FerryComboBoxTest";
constexpr int kControlId = 1410;

}  // namespace

ComboBoxTest::ComboBoxTest() {
    const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_USEREX_CLASSES};
    InitCommonControlsEx(&classes);
    WNDCLASSW description{};
    description.lpfnWndProc = DefWindowProcW;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = kClass;
    RegisterClassW(&description);
    parent_.Reset(CreateWindowExW(0, kClass, L"", WS_POPUP | WS_VISIBLE, 50, 50, 400, 300, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr));
    control_ = CreateWindowExW(
        0, WC_COMBOBOXEXW, L"",
        WS_CHILD | WS_VISIBLE | CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | WS_TABSTOP, 10, 10, 260, 200,
        parent_.Get(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(kControlId)), GetModuleHandleW(nullptr),
        nullptr);
    EXPECT_NE(control_, nullptr);
    SetForegroundWindow(parent_.Get());
    HoldKeys({});
}

ComboBoxTest::~ComboBoxTest() {
    HoldKeys({});
    parent_.Reset();
    UnregisterClassW(kClass, GetModuleHandleW(nullptr));
}

void ComboBoxTest::Type(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    Type(text, length, length);
}

void ComboBoxTest::Type(const std::wstring& text, int selectionStart, int selectionEnd) {
    SetFocus(Box().Edit());
    SetWindowTextW(Box().Edit(), text.c_str());
    SendMessageW(Box().Edit(), EM_SETSEL, static_cast<WPARAM>(selectionStart), selectionEnd);
}

std::pair<int, int> ComboBoxTest::Selection() {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(Box().Edit(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return {static_cast<int>(start), static_cast<int>(end)};
}

HWND ComboBoxTest::FocusedPart() {
    const HWND focus = GetFocus();
    return focus != nullptr && IsChild(control_, focus) ? focus : Box().Edit();
}

bool ComboBoxTest::Press(int key, std::vector<int> held) {
    const bool isAltHeld = std::ranges::find(held, VK_MENU) != held.end();
    const bool isCtrlHeld = std::ranges::find(held, VK_CONTROL) != held.end();
    HoldKeys(held);
    MSG message{};
    message.hwnd = FocusedPart();
    // Alt alone makes it a system key; with Ctrl, too, Windows sends an ordinary one.
    message.message = isAltHeld && !isCtrlHeld ? WM_SYSKEYDOWN : WM_KEYDOWN;
    message.wParam = static_cast<WPARAM>(key);
    const bool wasConsumed = Box().PreTranslateMessage(message);
    HoldKeys({});
    return wasConsumed;
}

bool ComboBoxTest::Mouse(UINT message) {
    MSG mouseMessage{};
    mouseMessage.hwnd = FocusedPart();
    mouseMessage.message = message;
    return Box().PreTranslateMessage(mouseMessage);
}

Texts ComboBoxTest::Shown() {
    Texts texts;
    const auto count = static_cast<INT_PTR>(SendMessageW(control_, CB_GETCOUNT, 0, 0));
    for (INT_PTR index = 0; index < count; ++index) {
        std::wstring text(2048, L'\0');
        COMBOBOXEXITEMW item{};
        item.mask = CBEIF_TEXT;
        item.iItem = index;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        SendMessageW(control_, CBEM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        texts.emplace_back(item.pszText);
    }
    return texts;
}

std::vector<int> ComboBoxTest::PumpCommands() {
    std::vector<int> commands;
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.hwnd == parent_.Get() && message.message == WM_COMMAND) {
            commands.push_back(static_cast<int>(message.wParam));
        }
        DispatchMessageW(&message);
    }
    return commands;
}

}  // namespace ferry::test
