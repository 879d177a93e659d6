// samplehost: plays the file manager that starts Ferry.
#include <windows.h>

#include <string>
#include <vector>

#include "host_log_win32.h"
#include "host_options.h"
#include "host_session_win32.h"

namespace {

constexpr int kExitWrongCommandLine = 2;

void PrintLines(ferry::samplehost::HostLog& log, const std::wstring& text) {
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = text.find(L'\n', begin);
        log.Write({text.substr(begin, end - begin)});
        begin = end == std::wstring::npos ? text.size() : end + 1;
    }
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    SetConsoleOutputCP(CP_UTF8);
    ferry::samplehost::HostOptions options;
    // The process id keeps the names of two hosts apart.
    options.Variable.FirstNumber = std::to_wstring(GetCurrentProcessId());
    const std::vector<std::wstring> given(arguments + 1, arguments + count);
    ferry::samplehost::HostLog log;
    const std::wstring mistake = ParseHostOptions(given, options);
    if (!mistake.empty()) {
        PrintLines(log, mistake + L"\nsamplehost --help lists the options.");
        return kExitWrongCommandLine;
    }
    if (options.Help) {
        PrintLines(log, ferry::samplehost::HostOptionsHelp());
        return 0;
    }
    if (!options.LogFile.empty() && !log.OpenFile(options.LogFile)) {
        PrintLines(log, L"cannot write " + options.LogFile);
        return kExitWrongCommandLine;
    }
    return ferry::samplehost::HostSession(options, log).Run();
}
