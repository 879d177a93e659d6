// attach [DESTINATION]: plays the person at the dialog of a Ferry that somebody else started, however that
// was.
//
// With a destination it writes that into the dialog, presses "開始" and waits until Ferry has ended well;
// without one it ends when the dialog is there.
#include <windows.h>

#include <cstdio>
#include <string>

#include "base/handles_win32.h"
#include "base/utf16.h"
#include "e2e/driver/child_process.h"
#include "e2e/driver/message_box.h"
#include "e2e/driver/remote_dialog.h"
#include "support/poll_win32.h"

namespace ferry::attach {
namespace {

/// A prefix that was made a moment ago takes long for its first program.
constexpr int kDialogMs = 120000;
constexpr int kEndMs = 120000;

BOOL CALLBACK TakeFerryDialog(HWND window, LPARAM found) {
    const e2e::RemoteDialog dialog(window);
    if (!IsWindowVisible(window) || dialog.Control(e2e::kDestination) == nullptr ||
        dialog.Control(e2e::kFavourites) == nullptr || dialog.Control(e2e::kStart) == nullptr)
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

HWND FindDialog() {
    HWND window = nullptr;
    EnumWindows(&TakeFerryDialog, reinterpret_cast<LPARAM>(&window));
    return window;
}

bool Complain(const std::string& what) {
    std::fprintf(stderr, "attach: %s\n", what.c_str());
    return false;
}

bool Attach(const std::wstring& destination) {
    HWND window = nullptr;
    if (!test::WaitUntil([&] { return (window = FindDialog()) != nullptr; }, kDialogMs))
        return Complain("no dialog of Ferry came");
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    const base::ProcessHandle ferry(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, id));
    e2e::WaitForIdleProcess(id, test::kPatienceMs);
    if (destination.empty())
        return true;
    const e2e::RemoteDialog dialog(window);
    dialog.SetDestination(destination);
    if (!test::WaitUntil([&] { return dialog.Destination() == destination; }))
        return Complain("the destination cannot be written");
    dialog.Click(e2e::kStart);
    const e2e::Ending ending = e2e::WaitForEnding(ferry, kEndMs);
    return ending.IsGood() || Complain("Ferry: " + e2e::TextOf(ending) +
                                       "; message box: " + base::ToUtf8(e2e::FindMessageBox(id).Text));
}

}  // namespace
}  // namespace ferry::attach

int wmain(int count, wchar_t** arguments) {
    return ferry::attach::Attach(count > 1 ? arguments[1] : L"") ? 0 : 1;
}
