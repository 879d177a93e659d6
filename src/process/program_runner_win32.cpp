#include "process/program_runner_win32.h"

#include <windows.h>

#include <string>
#include <utility>

#include "base/handles_win32.h"

namespace ferry::process {
namespace {

class SystemProgram final : public RunningProgram {
public:
    explicit SystemProgram(base::ProcessHandle process) noexcept : process_(std::move(process)) {}

    bool Wait(std::uint32_t limitMs) override {
        return WaitForSingleObject(process_.Get(), limitMs) != WAIT_TIMEOUT;
    }

    std::uint32_t ExitCode() override {
        DWORD code = kStillRuns;
        GetExitCodeProcess(process_.Get(), &code);
        return code;
    }

    void Kill(std::uint32_t exitCode) override { TerminateProcess(process_.Get(), exitCode); }

private:
    base::ProcessHandle process_;
};

}  // namespace

std::unique_ptr<RunningProgram> SystemPrograms::Start(const ProgramStart& start) {
    // Writable, since the call may scribble in it.
    std::wstring commandLine = start.CommandLine;
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = start.ShowMode;
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        start.WorkingFolder.empty() ? nullptr : start.WorkingFolder.c_str(), &startup,
                        &started)) {
        return nullptr;
    }
    const base::ThreadHandle thread(started.hThread);
    return std::make_unique<SystemProgram>(base::ProcessHandle(started.hProcess));
}

bool RunAndWait(const ProgramRun& run, const std::function<bool()>& mayKill) {
    const auto program =
        SystemPrograms().Start({.CommandLine = std::wstring(run.Program) + L" " + std::wstring(run.Arguments),
                                .WorkingFolder = std::wstring(run.WorkingFolder),
                                .ShowMode = run.ShowMode,
                                .IsWaitedFor = true});
    if (!program) {
        return false;
    }
    if (program->Wait(run.TimeLimitMs)) {
        return true;
    }
    if (mayKill()) {
        program->Kill(kKilledExitCode);
    }
    return false;
}

}  // namespace ferry::process
