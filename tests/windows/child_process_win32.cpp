#include "windows/child_process_win32.h"

#include <windows.h>
// After windows.h, which they build on.
#include <shellapi.h>
#include <tlhelp32.h>

#include <string_view>
#include <vector>

#include "base/handles_win32.h"
#include "desktop/message_boxes_win32.h"
#include "process/module_path_win32.h"
#include "windows/shell_version_child_win32.h"
#include "windows/support_win32.h"

namespace ferry::test {
namespace {

constexpr wchar_t kChildSwitch[] = L"--ferry-child";

std::vector<std::wstring> Arguments() {
    int count = 0;
    wchar_t** const raw = CommandLineToArgvW(GetCommandLineW(), &count);
    const base::LocalText block(reinterpret_cast<wchar_t*>(raw));
    return {raw, raw + count};
}

int Report(const std::wstring& file) {
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    // Complete before it is seen under its name.
    WriteUnits(file + L".new", folder + L"\n" + std::to_wstring(startup.wShowWindow));
    return MoveFileW((file + L".new").c_str(), file.c_str()) ? 0 : 1;
}

int Wait(const std::wstring& started, const std::wstring& stop) {
    const base::EventHandle startedEvent(OpenEventW(EVENT_MODIFY_STATE, FALSE, started.c_str()));
    const base::EventHandle stopEvent(OpenEventW(SYNCHRONIZE, FALSE, stop.c_str()));
    if (!startedEvent || !stopEvent) {
        return 1;
    }
    SetEvent(startedEvent.Get());
    // A deadline, so that a failed test leaves no process behind.
    return WaitForSingleObject(stopEvent.Get(), 30000) == WAIT_OBJECT_0 ? 0 : 1;
}

std::wstring Quoted(const std::wstring& text) {
    return L"\"" + text + L"\"";
}

}  // namespace

std::wstring ExitArguments(int exitCode) {
    return std::wstring(kChildSwitch) + L" exit " + std::to_wstring(exitCode);
}

std::wstring ReportArguments(const std::wstring& file) {
    return std::wstring(kChildSwitch) + L" report " + Quoted(file);
}

std::wstring WaitArguments(const std::wstring& started, const std::wstring& stop) {
    return std::wstring(kChildSwitch) + L" wait " + Quoted(started) + L" " + Quoted(stop);
}

std::wstring ShellVersionArguments(const std::wstring& file, int major, int minor, bool isReadableAtFirst) {
    return std::wstring(kChildSwitch) + L" shell " + Quoted(file) + L" " + std::to_wstring(major) + L" " +
           std::to_wstring(minor) + (isReadableAtFirst ? L" readable" : L" unreadable");
}

bool RunAskingInABox(const process::ProgramRun& run) {
    return process::RunAndWait(
        run, [] { return desktop::MessageBoxes().Ask(process::kKillQuestion, lang::Tone::Plain); });
}

base::ProcessHandle OpenChild() {
    const std::wstring own = process::ModulePath();
    const std::wstring name = own.substr(own.find_last_of(L'\\') + 1);
    const base::FileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof(entry);
    for (BOOL found = Process32FirstW(snapshot.Get(), &entry); found;
         found = Process32NextW(snapshot.Get(), &entry)) {
        if (entry.th32ParentProcessID == GetCurrentProcessId() && name == entry.szExeFile) {
            base::ProcessHandle child(
                OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, entry.th32ProcessID));
            if (child && WaitForSingleObject(child.Get(), 0) == WAIT_TIMEOUT) {
                return child;
            }
        }
    }
    return {};
}

std::optional<int> PlayChild() {
    const std::vector<std::wstring> arguments = Arguments();
    if (arguments.size() < 4 || arguments[1] != kChildSwitch) {
        return std::nullopt;
    }
    if (arguments[2] == L"exit") {
        return std::stoi(arguments[3]);
    }
    if (arguments[2] == L"report") {
        return Report(arguments[3]);
    }
    if (arguments[2] == L"shell" && arguments.size() == 7) {
        ReportShellVersion(arguments[3], std::stoi(arguments[4]), std::stoi(arguments[5]),
                           arguments[6] == L"readable");
        return 0;
    }
    return arguments.size() == 5 ? Wait(arguments[3], arguments[4]) : 1;
}

}  // namespace ferry::test
