#include "e2e/driver/child_process.h"

#include <winternl.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "samplehost/process_windows_win32.h"

namespace ferry::e2e {
namespace {

/// Where the process block of a 64-bit process holds the address of the table of graphics objects.
constexpr std::uintptr_t kGraphicsTableOffset = 0xF8;

std::wstring Quoted(const std::wstring& argument) {
    std::wstring text = L"\"";
    for (const wchar_t unit : argument) {
        if (unit == L'"')
            text += L'\\';
        text += unit;
    }
    if (text.ends_with(L'\\'))
        text += L'\\';
    return text + L'"';
}

JobHandle MakeJob() {
    JobHandle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof(limits));
    return job;
}

}  // namespace

std::string TextOf(const Ending& ending) {
    if (!ending.HasEnded)
        return "still running";
    char text[32] = {};
    std::snprintf(text, sizeof(text), "exit code 0x%lX", ending.ExitCode);
    return text;
}

Ending WaitForEnding(const base::ProcessHandle& process, int timeoutMs) {
    Ending ending;
    ending.HasEnded = WaitForSingleObject(process.Get(), static_cast<DWORD>(timeoutMs)) == WAIT_OBJECT_0;
    if (ending.HasEnded)
        GetExitCodeProcess(process.Get(), &ending.ExitCode);
    return ending;
}

ChildProcess::ChildProcess(const std::wstring& path, const std::vector<std::wstring>& arguments, HANDLE input)
    : job_(MakeJob()) {
    // Wine starts the process of its desktop for the first program that asks for it. It must not be a
    // child of this one, whose job would take it down.
    GetDesktopWindow();
    std::wstring line = Quoted(path);
    for (const std::wstring& argument : arguments) {
        line += L' ' + Quoted(argument);
    }
    STARTUPINFOW start = {};
    start.cb = sizeof(start);
    if (input != nullptr) {
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdInput = input;
        start.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
        start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    }
    PROCESS_INFORMATION info = {};
    if (!samplehost::StartProcess(path, line, CREATE_SUSPENDED, start, info))
        return;
    process_.Reset(info.hProcess);
    const base::ThreadHandle thread(info.hThread);
    AssignProcessToJobObject(job_.Get(), process_.Get());
    ResumeThread(thread.Get());
    id_ = info.dwProcessId;
}

bool ChildProcess::IsRunning() const noexcept {
    return IsStarted() && !WaitForEnd(0).HasEnded;
}

Ending ChildProcess::WaitForEnd(int timeoutMs) const noexcept {
    return WaitForEnding(process_, timeoutMs);
}

void WaitForIdleProcess(DWORD processId, int timeoutMs) {
    const base::ProcessHandle process(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, processId));
    // Best effort: it only spares the tests the messages that a dialog posts to itself at its start.
    WaitForInputIdle(process.Get(), static_cast<DWORD>(timeoutMs));
}

bool HasGraphics(DWORD processId) {
    const base::ProcessHandle process(
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, processId));
    PROCESS_BASIC_INFORMATION information = {};
    if (!process || NtQueryInformationProcess(process.Get(), ProcessBasicInformation, &information,
                                              sizeof(information), nullptr) < 0)
        return false;
    const auto* const place =
        reinterpret_cast<const std::byte*>(information.PebBaseAddress) + kGraphicsTableOffset;
    void* table = nullptr;
    return ReadProcessMemory(process.Get(), place, &table, sizeof(table), nullptr) && table != nullptr;
}

}  // namespace ferry::e2e
