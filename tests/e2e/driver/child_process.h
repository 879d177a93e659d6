// A program that a test starts, and the programs that it starts in turn.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "base/handles_win32.h"

namespace ferry::e2e {

using JobHandle = base::KernelObject<struct JobKind>;

/// How a process ended, or that it has not.
struct Ending {
    bool HasEnded = false;
    DWORD ExitCode = STILL_ACTIVE;

    /// Whether it ended by itself and says that all is well. A crash leaves its exception's number.
    bool IsGood() const noexcept { return HasEnded && ExitCode == 0; }
};

/// What there is to say of an ending: "still running", "exit code 0xC0000005".
std::string TextOf(const Ending& ending);

/// How a process ends within `timeoutMs`.
Ending WaitForEnding(const base::ProcessHandle& process, int timeoutMs);

/// A started process. It and its children end with this object at the latest.
class ChildProcess {
public:
    /// Starts `path` with `arguments`, each quoted as needed. `input`, a handle that can be inherited,
    /// becomes its standard input when it is given.
    ChildProcess(const std::wstring& path, const std::vector<std::wstring>& arguments,
                 HANDLE input = nullptr);

    bool IsStarted() const noexcept { return static_cast<bool>(process_); }
    bool IsRunning() const noexcept;

    /// Waits for the end of the process, but no longer than `timeoutMs`.
    Ending WaitForEnd(int timeoutMs) const noexcept;

    DWORD Id() const noexcept { return id_; }

private:
    JobHandle job_;
    base::ProcessHandle process_;
    DWORD id_ = 0;
};

/// Waits until the process has handled what was in its message queue at its start.
void WaitForIdleProcess(DWORD processId, int timeoutMs);

/// Whether the process has its table of graphics objects, which every process with windows gets before its
/// own code runs. Once in thousands of starts Wine fails to load its graphics library into a process: that
/// one can show nothing, and how it ends says nothing about the program.
bool HasGraphics(DWORD processId);

}  // namespace ferry::e2e
