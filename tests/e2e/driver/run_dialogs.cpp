#include "e2e/driver/run_dialogs.h"

#include "e2e/driver/keys.h"
#include "e2e/driver/message_box.h"
#include "samplehost/process_windows_win32.h"
#include "support/poll_win32.h"

namespace ferry::e2e {

using test::WaitUntil;
namespace {

/// A control that only this dialog has.
int TellingControl(RunDialog kind) {
    switch (kind) {
        case RunDialog::Collision:
            return ChoiceControl(6);
        case RunDialog::Rename:
            return 1108;
        case RunDialog::Report:
            return 1910;
        default:
            return 1290;
    }
}

}  // namespace

RemoteDialog FindRunDialog(DWORD processId, RunDialog kind) {
    const int id = TellingControl(kind);
    return RemoteDialog(samplehost::FindVisibleWindow(
        processId, [id](HWND window) { return GetDlgItem(window, id) != nullptr; }));
}

RemoteDialog WaitForRunDialog(DWORD processId, RunDialog kind) {
    RemoteDialog dialog;
    WaitUntil([&] { return (dialog = FindRunDialog(processId, kind)).IsOpen(); });
    if (dialog.IsOpen() && kind != RunDialog::Progress && !TakeForeground(dialog.Window()))
        return {};
    return dialog;
}

bool WaitUntilGone(const RemoteDialog& dialog) {
    return WaitUntil([&] { return !dialog.IsOpen() || !IsWindowVisible(dialog.Window()); });
}

HWND FocusOf(HWND window) {
    GUITHREADINFO info = {};
    info.cbSize = sizeof(info);
    GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
    return info.hwndFocus;
}

std::wstring NamesIn(const RemoteDialog& rename) {
    return rename.Text(kNewName) + L"|" + rename.Text(kExtension);
}

bool TypeNewName(const RemoteDialog& rename, const std::wstring& text, bool withShift) {
    if (!TakeForeground(rename.Window()) || !rename.WaitForFocus(rename.Control(kNewName)))
        return false;
    if (text.empty())
        PressKey(VK_DELETE);
    TypeText(text);
    if (!WaitUntil([&] { return rename.Text(kNewName) == text; }))
        return false;
    PressKey(VK_RETURN, withShift);
    return WaitUntilGone(rename);
}

bool PressEscapeIn(const RemoteDialog& dialog) {
    if (!TakeForeground(dialog.Window()))
        return false;
    PressKey(VK_ESCAPE);
    return WaitUntilGone(dialog);
}

}  // namespace ferry::e2e
