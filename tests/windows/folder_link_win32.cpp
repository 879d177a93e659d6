#include "windows/folder_link_win32.h"

#include <windows.h>

#include "base/handles_win32.h"
#include "support/disk_win32.h"
#include "support/poll_win32.h"

namespace ferry::test {
namespace {

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
    return {name.begin(), name.end()};  // a test's own folder has an ASCII path
}

/// Runs a command of the system below Wine and waits until `isDone` holds.
template <class Condition>
void RunBelowWine(const std::wstring& command, Condition isDone) {
    std::wstring line = L"start.exe /unix /bin/sh -c \"" + command + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    PROCESS_INFORMATION info{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &info))
        return;
    const base::ThreadHandle thread(info.hThread);
    const base::ProcessHandle process(info.hProcess);
    WaitForSingleObject(process.Get(), kPatienceMs);
    WaitUntil(isDone);
}

bool IsBelowWine() {
    return !UnixPath(L"C:\\").empty();
}

}  // namespace

FolderLink::FolderLink(const std::wstring& path, const std::wstring& target) : path_(path) {
    if (IsBelowWine()) {
        // The link's own name is not there yet, that of its folder is.
        const std::size_t name = path.rfind(L'\\');
        const std::wstring link = UnixPath(path.substr(0, name)) + L"/" + path.substr(name + 1);
        RunBelowWine(L"ln -s '" + UnixPath(target) + L"' '" + link + L"'", [this] { return IsMade(); });
    } else {
        constexpr DWORD kUnprivileged = 2;
        CreateSymbolicLinkW(path.c_str(), target.c_str(), SYMBOLIC_LINK_FLAG_DIRECTORY | kUnprivileged);
    }
}

FolderLink::~FolderLink() {
    if (!IsMade())
        return;
    if (IsBelowWine()) {
        RunBelowWine(L"rm '" + UnixPath(path_) + L"'", [this] { return !IsMade(); });
    } else {
        RemoveDirectoryW(path_.c_str());
    }
}

bool FolderLink::IsMade() const {
    return Exists(path_);
}

}  // namespace ferry::test
