// Presses a button of the next message box, from a thread of its own.
#include <windows.h>
#include <gtest/gtest.h>

#include <cwchar>

#include "samplehost/process_windows_win32.h"
#include "windows/support_win32.h"

namespace ferry::test {
namespace {

// The control with a message box's text; a dialog of the program has none of this number.
constexpr int kBoxTextId = 0xFFFF;

bool IsBox(HWND window) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    return std::wcscmp(name, L"#32770") == 0 && GetDlgItem(window, kBoxTextId) != nullptr;
}

HWND FindBox() {
    return samplehost::FindVisibleWindow(GetCurrentProcessId(), IsBox);
}

/// The number of the button that `wanted` means in `box`; nothing when it has none.
std::optional<int> ButtonOf(HWND box, int wanted) {
    if (GetDlgItem(box, wanted) != nullptr) {
        return wanted;
    }
    // Windows gives the OK of a box that has nothing else the number of Cancel, so that Esc presses it.
    const HWND only = GetDlgItem(box, IDCANCEL);
    const bool isAlone = only != nullptr && FindWindowExW(box, nullptr, L"Button", nullptr) == only &&
                         FindWindowExW(box, only, L"Button", nullptr) == nullptr;
    return wanted == IDOK && isAlone ? std::optional(IDCANCEL) : std::nullopt;
}

/// Presses the first button that there is.
void CloseBox(HWND box) {
    const HWND button = FindWindowExW(box, nullptr, L"Button", nullptr);
    PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(GetDlgCtrlID(button)), 0);
}

std::wstring BoxText(HWND box) {
    HWND label = nullptr;
    while ((label = FindWindowExW(box, label, L"Static", nullptr)) != nullptr) {
        if (std::wstring text = TextOfWindow(label); !text.empty()) {
            return text;
        }
    }
    return {};
}

}  // namespace

std::future<std::wstring> AnswerNextBox(int button, std::function<void()> whileOpen) {
    return std::async(std::launch::async, [button, action = std::move(whileOpen)]() -> std::wstring {
        HWND box = nullptr;
        std::wstring text;
        // The text comes after the window.
        if (!WaitUntil([&] { return (box = FindBox()) != nullptr && !(text = BoxText(box)).empty(); })) {
            return {};
        }
        if (action) {
            action();
        }
        if (const std::optional<int> number = ButtonOf(box, button)) {
            PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(*number), 0);
        } else {
            ADD_FAILURE() << "the box has no button " << button;
            CloseBox(box);
        }
        WaitUntil([box] { return !IsWindow(box); });
        return text;
    });
}

}  // namespace ferry::test
