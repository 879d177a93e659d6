#include "e2e/driver/message_box.h"

#include "e2e/driver/ask.h"
#include "samplehost/process_windows_win32.h"
#include "support/poll_win32.h"

namespace ferry::e2e {

using test::WaitUntil;
namespace {

/// The control with a message box's text.
constexpr int kTextId = 0xFFFF;
constexpr wchar_t kDialogClass[] = L"#32770";
constexpr int kSourceListId = 1200;

bool IsMessageBox(HWND window) {
    return ClassOf(window) == kDialogClass && GetDlgItem(window, kTextId) != nullptr &&
           GetDlgItem(window, kSourceListId) == nullptr;
}

}  // namespace

std::wstring RemoteText(HWND window) {
    const LRESULT length = Ask(window, WM_GETTEXTLENGTH);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied = Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

std::wstring ClassOf(HWND window) {
    wchar_t name[257] = {};  // a class name has at most 256 characters
    GetClassNameW(window, name, 257);
    return name;
}

ShownBox FindMessageBox(DWORD processId) {
    const HWND box = samplehost::FindVisibleWindow(processId, IsMessageBox);
    if (box == nullptr)
        return {};
    return {box, RemoteText(GetDlgItem(box, kTextId))};
}

ShownBox WaitForMessageBox(DWORD processId) {
    ShownBox box;
    WaitUntil([&] { return (box = FindMessageBox(processId)).Window != nullptr; });
    return box;
}

bool DismissMessageBox(const ShownBox& box, int id) {
    const HWND button =
        id == 0 ? FindWindowExW(box.Window, nullptr, L"Button", nullptr) : GetDlgItem(box.Window, id);
    PostMessageW(button, BM_CLICK, 0, 0);
    return WaitUntil([&] { return !IsWindow(box.Window) || !IsWindowVisible(box.Window); });
}

}  // namespace ferry::e2e
