#include "process/program_runner_win32.h"

#include <windows.h>

#include <string>

#include "base/handles_win32.h"

namespace ferry::process {

bool RunAndWait(const ProgramRun& run, const std::function<bool()>& mayKill) {
    // Writable, since the call may scribble in it.
    std::wstring commandLine = std::wstring(run.Program) + L" " + std::wstring(run.Arguments);
    const std::wstring folder(run.WorkingFolder);
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = run.ShowMode;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        folder.empty() ? nullptr : folder.c_str(), &startup, &started)) {
        return false;
    }
    const base::ThreadHandle thread(started.hThread);
    const base::ProcessHandle process(started.hProcess);
    if (WaitForSingleObject(process.Get(), run.TimeLimitMs) != WAIT_TIMEOUT) {
        return true;
    }
    if (mayKill()) {
        // Best effort: the program may have ended by itself meanwhile.
        TerminateProcess(process.Get(), kKilledExitCode);
    }
    return false;
}

}  // namespace ferry::process
