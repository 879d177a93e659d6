#include <windows.h>

#include <array>
#include <stdexcept>

#include "base/handles_win32.h"
#include "run_program.h"

namespace ferry::bench {

std::string OutputOf(const std::vector<std::filesystem::path>& arguments) {
    std::wstring line;
    for (const std::filesystem::path& argument : arguments) {
        line += (line.empty() ? L"\"" : L" \"") + argument.native() + L"\"";
    }
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    base::FileHandle readEnd;
    base::FileHandle writeEnd;
    if (!CreatePipe(readEnd.Put(), writeEnd.Put(), &inherited, 0))
        throw std::runtime_error("no pipe");
    SetHandleInformation(readEnd.Get(), HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = writeEnd.Get();
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr,
                        &start, &process)) {
        throw std::runtime_error("a program cannot be started");
    }
    const base::ThreadHandle thread(process.hThread);
    const base::ProcessHandle program(process.hProcess);
    writeEnd.Reset();
    std::string output;
    std::array<char, 4096> block;
    for (DWORD count = 0;
         ReadFile(readEnd.Get(), block.data(), static_cast<DWORD>(block.size()), &count, nullptr) &&
         count > 0;) {
        output.append(block.data(), count);
    }
    WaitForSingleObject(program.Get(), INFINITE);
    return output;
}

}  // namespace ferry::bench
