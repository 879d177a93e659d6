#include "launcher/launch_session_win32.h"

#include <shellapi.h>

#include <cstdint>
#include <span>
#include <utility>

#include "paths/path_grammar.h"
#include "samplehost/host_block_writer.h"

namespace ferry::launcher {
namespace {

/// How often the launcher looks whether a host has been started.
constexpr DWORD kLookForHostMs = 1000;

void DispatchMessages() {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace

SessionEnd LaunchSession::Run(const Start& start, Selection selection) {
    if (!Share(start.CurrentFolder, std::move(selection)))
        return {FailedStep::Share, GetLastError()};
    window_.Create();
    if (!StartFerry(start))
        return {FailedStep::Start, GetLastError()};
    WaitForEnd();
    SessionEnd end;
    GetExitCodeProcess(ferry_.Get(), &end.ExitCode);
    return end;
}

bool LaunchSession::Share(const std::wstring& currentFolder, Selection selection) {
    samplehost::BlockFields fields;
    fields.CurrentDir = currentFolder;
    fields.Items = std::move(selection.Items);
    fields.Tabs = std::move(selection.Tabs);
    const std::wstring units = BlockUnits(fields);
    const auto bytes = std::as_bytes(std::span(units));
    samplehost::VariableFields variable;
    variable.FirstNumber = std::to_wstring(GetCurrentProcessId());
    variable.BlockSize = std::to_wstring(bytes.size());
    return block_.Create(variable, bytes, static_cast<std::uint32_t>(bytes.size()), false) &&
           SetEnvironmentVariableW(samplehost::kVariableName, VariableText(variable).c_str());
}

bool LaunchSession::StartFerry(const Start& start) {
    const std::wstring folder(paths::ParentWithSeparator(start.Program));
    // A folder cannot be moved while a program has it as its current one; and who sends a selection from the
    // Explorer starts the launcher inside the folder that it lies in.
    SetCurrentDirectoryW(folder.c_str());
    std::wstring line = L"\"" + start.Program + (start.IsMove ? L"\" /m" : L"\" /c");
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION info = {};
    if (!CreateProcessW(start.Program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &info))
        return false;
    const base::ThreadHandle thread(info.hThread);
    ferry_.Reset(info.hProcess);
    // The click that started the launcher lets it take the foreground; it hands that on.
    AllowSetForegroundWindow(info.dwProcessId);
    return true;
}

void LaunchSession::WaitForEnd() {
    const HANDLE ferry = ferry_.Get();
    while (true) {
        const DWORD what = MsgWaitForMultipleObjects(1, &ferry, FALSE, kLookForHostMs, QS_ALLINPUT);
        DispatchMessages();
        ShowFolder();
        if (what == WAIT_OBJECT_0 || what == WAIT_FAILED)
            return;
        if (what == WAIT_TIMEOUT)
            window_.GiveWayToHost();
    }
}

void LaunchSession::ShowFolder() {
    const auto folder = window_.TakeFolder();
    if (!folder)
        return;
    SHELLEXECUTEINFOW info = {};
    info.cbSize = sizeof(info);
    // The launcher may end before a shell that works in the background has begun.
    info.fMask = SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
    info.lpFile = folder->c_str();
    info.nShow = SW_SHOWNORMAL;
    // Best effort: the transfer does not depend on it.
    ShellExecuteExW(&info);
}

}  // namespace ferry::launcher
