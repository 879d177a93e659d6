#include "shown_program_win32.h"

#include "base/handles_win32.h"
#include "frames_win32.h"
#include "samplehost/process_windows_win32.h"
#include "support/poll_win32.h"

namespace ferry::rundriver {
namespace {

struct Started {
    base::ProcessHandle Process;
    DWORD Id = 0;
};

/// No process when the start failed.
Started Start(const std::wstring& path, std::wstring line) {
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION info = {};
    Started started;
    if (samplehost::StartProcess(path, line, 0, start, info)) {
        CloseHandle(info.hThread);
        started.Process = base::ProcessHandle(info.hProcess);
        started.Id = info.dwProcessId;
    }
    return started;
}

bool WaitForEnd(const Started& started) {
    return WaitForSingleObject(started.Process.Get(), test::kPatienceMs) == WAIT_OBJECT_0;
}

/// Shows the window and closes it.
bool ShowWindowOf(const Started& program, const Wishes& wishes) {
    HWND window = nullptr;
    test::WaitUntil([&] {
        window = samplehost::FindVisibleWindow(program.Id, [](HWND) { return true; });
        return window != nullptr;
    });
    if (window == nullptr)
        return Complain("the program shows no window");
    if (!wishes.Beside.empty()) {
        const Started beside = Start(wishes.Beside.substr(0, wishes.Beside.find(L' ')), wishes.Beside);
        if (beside.Id == 0 || !WaitForEnd(beside))
            return Complain("what runs beside the window does not end");
    }
    if (wishes.PausesAt)
        PauseFor("window", program.Id);
    PostMessageW(window, WM_CLOSE, 0, 0);
    return WaitForEnd(program) || Complain("the program does not end with its window");
}

}  // namespace

bool ShowProgram(const Wishes& wishes) {
    std::wstring line;
    for (const std::wstring& part : wishes.Items)
        line += (line.empty() ? L"\"" : L" \"") + part + L'"';
    const Started program = Start(wishes.Items.front(), line);
    if (program.Id == 0)
        return Complain("the program cannot be started");
    const bool isShown = ShowWindowOf(program, wishes);
    if (!isShown)
        TerminateProcess(program.Process.Get(), 1);
    return isShown;
}

}  // namespace ferry::rundriver
