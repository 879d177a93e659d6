// Stands in for the programs that scripts start.
#include "e2e/stand_in.h"

#include <windows.h>

#include <cstdlib>
#include <string_view>

#include "base/handles_win32.h"
#include "base/utf16.h"
#include "e2e/driver/surroundings.h"
#include "e2e/driver/temp_tree.h"

namespace {

using namespace ferry;

constexpr ULONGLONG kStepMs = 10;

std::wstring OwnPath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

std::wstring OwnFolder() {
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

void WriteDown() {
    STARTUPINFOW start = {};
    GetStartupInfoW(&start);
    const std::string line = base::ToUtf8(GetCommandLineW() + (L"\t" + OwnFolder()) + L"\t" +
                                          std::to_wstring(start.wShowWindow) + L"\n");
    // One write at the end of the file: others may be writing there, too.
    const base::FileHandle log(CreateFileW(e2e::Variable(e2e::kStandInLog).c_str(), FILE_APPEND_DATA,
                                           FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                           FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    WriteFile(log.Get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
    const std::wstring path = OwnPath();
    const base::MutexHandle mutex(
        CreateMutexW(nullptr, TRUE, e2e::StandInMutex(path.substr(path.rfind(L'\\') + 1)).c_str()));
    const std::wstring planPath = path + e2e::kPlanEnd;
    const std::string plan = e2e::ReadBytes(planPath);
    char* rest = nullptr;
    const long exitCode = std::strtol(plan.c_str(), &rest, 10);
    const ULONGLONG end = GetTickCount64() + std::strtoul(rest, nullptr, 10);
    WriteDown();
    while (GetTickCount64() < end && e2e::Exists(planPath))
        Sleep(kStepMs);
    return static_cast<int>(exitCode);
}
