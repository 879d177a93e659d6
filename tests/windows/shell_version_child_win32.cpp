#include "windows/shell_version_child_win32.h"

#include <windows.h>

#include <cwchar>
#include <optional>
#include <string_view>

#include "base/system_library_win32.h"
#include "files/disk_win32.h"
#include "files/shell_version_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::test {
namespace {

constexpr DWORD kBlockBytes = 1000;
constexpr DWORD kBuild = 2600;

/// What the functions of version.dll answer, which have no place for it of their own.
VS_FIXEDFILEINFO shell{};
std::wstring askedFile;
int readings = 0;

DWORD WINAPI SizeOfInfo(LPCWSTR file, LPDWORD) {
    askedFile = file;
    return kBlockBytes;
}

BOOL WINAPI ReadInfo(LPCWSTR file, DWORD, DWORD size, LPVOID) {
    ++readings;
    return size == kBlockBytes && askedFile == file;
}

BOOL WINAPI QueryInfo(LPCVOID, LPCWSTR block, LPVOID* info, PUINT size) {
    *info = &shell;
    *size = sizeof(shell);
    return std::wcscmp(block, L"\\") == 0;
}

template <class Function>
FARPROC ProcOf(Function* function) {
    return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(function));
}

FARPROC FakeFunction(std::string_view name) {
    if (name == "GetFileVersionInfoSizeW")
        return ProcOf(&SizeOfInfo);
    if (name == "GetFileVersionInfoW")
        return ProcOf(&ReadInfo);
    return name == "VerQueryValueW" ? ProcOf(&QueryInfo) : nullptr;
}

std::wstring Name(const std::optional<files::ShellVersionNumber>& version) {
    return version ? std::to_wstring(version->Major) + L"." + std::to_wstring(version->Minor) : L"unknown";
}

std::wstring Combined() {
    return L", combined " + std::to_wstring(files::CombinedShellVersion());
}

std::wstring ReportUnreadable() {
    const WatchedImport<&LoadLibraryW> load("LoadLibraryW", [](LPCWSTR) { return HMODULE{nullptr}; });
    std::wstring report = Name(files::ShellVersion());
    report += L", " + Name(files::ShellVersion());
    report += L" after " + std::to_wstring(load.Calls().size()) + L" attempts";
    return report + Combined() + L", ";
}

std::wstring ReportReadable() {
    const WatchedImport<&GetProcAddress> find("GetProcAddress", [&](HMODULE library, LPCSTR name) {
        const FARPROC fake = FakeFunction(name);
        return fake != nullptr ? fake : find.CallReal(library, name);
    });
    const auto version = files::ShellVersion();
    std::wstring report = Name(version) + L" build " + std::to_wstring(version ? version->Build : 0);
    report += askedFile == base::SystemFolder() + L"\\shell32.dll" ? L" of shell32.dll in the system folder"
                                                                   : L" of " + askedFile;
    report += L", " + Name(files::ShellVersion());
    report += L" after " + std::to_wstring(readings) + L" reading";
    return report + Combined();
}

std::wstring ReportSearch() {
    const WatchedImport<&FindFirstFileW> plain("FindFirstFileW");
    const WatchedImport<&FindFirstFileExW> extended("FindFirstFileExW");
    files::DiskSearch().Search(L"C:\\*", [](const files::Match&) { return false; });
    if (!plain.Calls().empty())
        return L", plain search";
    const auto [path, level, found, kind, filter, flags] = extended.OnlyCall();
    return std::wstring(L", extended search") + (kind == FindExSearchNameMatch ? L" by name" : L"") +
           (level == FindExInfoBasic ? L", basic" : L"") + (flags == 2 ? L", large fetch" : L"");
}

}  // namespace

void ReportShellVersion(const std::wstring& file, int major, int minor, bool isReadableAtFirst) {
    shell.dwFileVersionMS = static_cast<DWORD>(MAKELONG(minor, major));
    shell.dwFileVersionLS = static_cast<DWORD>(MAKELONG(1, kBuild));
    std::wstring report;
    if (!isReadableAtFirst)
        report = ReportUnreadable();
    report += ReportReadable();
    report += ReportSearch();
    WriteUnits(file, report);
}

}  // namespace ferry::test
