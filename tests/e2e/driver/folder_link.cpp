#include "e2e/driver/folder_link.h"

#include <windows.h>

#include "base/handles_win32.h"
#include "support/disk_win32.h"
#include "support/poll_win32.h"

namespace ferry::e2e {
namespace {

/// Has the system below Wine do something.
constexpr wchar_t kUnixShell[] = L"start.exe /unix /bin/sh -c ";

/// `path` as the system below Wine calls it; empty elsewhere.
std::wstring UnixPath(const std::wstring& path) {
    using Function = char*(CDECL*)(const wchar_t*);
    const auto function = reinterpret_cast<Function>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    char* const text = function == nullptr ? nullptr : function(path.c_str());
    if (text == nullptr)
        return {};
    const std::string name(text);
    HeapFree(GetProcessHeap(), 0, text);
    return {name.begin(), name.end()};  // the test's own folder has an ASCII path
}

/// The same for what is not there yet, in a folder that is.
std::wstring UnixPathOfNew(const std::wstring& path) {
    const std::size_t name = path.rfind(L'\\');
    const std::wstring parent = UnixPath(path.substr(0, name));
    return parent.empty() ? parent : parent + L'/' + path.substr(name + 1);
}

/// Starts a program without a window; one of the system below Wine cannot be waited for.
bool Starts(std::wstring line) {
    STARTUPINFOW start = {};
    start.cb = sizeof(start);
    PROCESS_INFORMATION info = {};
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr,
                       &start, &info) == FALSE)
        return false;
    const base::ProcessHandle process(info.hProcess);
    const base::ThreadHandle thread(info.hThread);
    return true;
}

}  // namespace

bool MakeFolderLink(const std::wstring& link, const std::wstring& target) {
    const std::wstring unixLink = UnixPathOfNew(link);
    const std::wstring line =
        unixLink.empty() ? L"cmd.exe /c mklink /j \"" + link + L"\" \"" + target + L"\""
                         : kUnixShell + (L"\"ln -s '" + UnixPath(target)) + L"' '" + unixLink + L"'\"";
    return Starts(line) &&
           test::WaitUntil([&] { return test::VisitEntries(link, [](const test::FolderEntry&) {}); });
}

bool RemoveFolderLink(const std::wstring& link) {
    const std::wstring unixLink = UnixPathOfNew(link);
    if (unixLink.empty())
        return RemoveDirectoryW(link.c_str()) != FALSE;
    return Starts(kUnixShell + (L"\"rm '" + unixLink) + L"'\"") &&
           test::WaitUntil([&] { return !test::Exists(link); });
}

}  // namespace ferry::e2e
