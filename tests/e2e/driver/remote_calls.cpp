#include "e2e/driver/remote_calls.h"

// After windows.h, which it builds on.
#include <tlhelp32.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/handles_win32.h"
#include "e2e/driver/remote_memory.h"
#include "support/menus_win32.h"
#include "support/poll_win32.h"

namespace ferry::e2e {
namespace {

/// The procedure that makes the calls, in a library beside this program.
struct Caller {
    Caller() {
        wchar_t path[1024] = {};
        GetModuleFileNameW(nullptr, path, 1024);
        const std::wstring_view whole = path;
        Library =
            LoadLibraryW((std::wstring(whole.substr(0, whole.rfind(L'\\') + 1)) + kCallsLibrary).c_str());
        if (Library != nullptr)
            Procedure =
                reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(GetProcAddress(Library, kCallsProcedure)));
    }

    HMODULE Library = nullptr;  ///< Stays for as long as the program runs.
    HOOKPROC Procedure = nullptr;
};

/// The file name of the library that holds `address` in this process.
std::wstring LibraryAt(std::uintptr_t address, HMODULE& library) {
    if (GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<const wchar_t*>(address), &library) == FALSE)
        return {};
    wchar_t path[1024] = {};
    GetModuleFileNameW(library, path, 1024);
    const std::wstring_view whole = path;
    return std::wstring(whole.substr(whole.rfind(L'\\') + 1));
}

/// Where process `processId` has the library with this file name; 0 when it has none.
std::uintptr_t BaseOf(DWORD processId, const std::wstring& library) {
    base::FileHandle snapshot;
    // It fails while the process is loading a library.
    test::WaitUntil([&] {
        snapshot.Reset(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, processId));
        return snapshot || GetLastError() != ERROR_BAD_LENGTH;
    });
    MODULEENTRY32W entry = {};
    entry.dwSize = sizeof(entry);
    for (BOOL isThere = Module32FirstW(snapshot.Get(), &entry); isThere != FALSE;
         isThere = Module32NextW(snapshot.Get(), &entry)) {
        if (lstrcmpiW(entry.szModule, library.c_str()) == 0)
            return reinterpret_cast<std::uintptr_t>(entry.modBaseAddr);
    }
    return 0;
}

}  // namespace

std::uintptr_t RemoteFunction(DWORD processId, const wchar_t* library, const char* name) {
    const auto here = reinterpret_cast<std::uintptr_t>(GetProcAddress(LoadLibraryW(library), name));
    // A library may hand a function on to another one.
    HMODULE holder = nullptr;
    const std::wstring file = here == 0 ? L"" : LibraryAt(here, holder);
    const std::uintptr_t base = file.empty() ? 0 : BaseOf(processId, file);
    return base == 0 ? 0 : base + (here - reinterpret_cast<std::uintptr_t>(holder));
}

bool CallRemotely(HWND window, std::span<RemoteCall> calls) {
    static const Caller caller;
    std::vector<RemoteCall> all(calls.begin(), calls.end());
    all.emplace_back();  // without a function
    const std::size_t size = all.size() * sizeof(RemoteCall);
    const RemoteMemory data(window, size);
    if (caller.Procedure == nullptr || data.Place() == nullptr || !data.Write(all.data(), size))
        return false;
    const test::HookHandle hook(SetWindowsHookExW(WH_CALLWNDPROC, caller.Procedure, caller.Library,
                                                  GetWindowThreadProcessId(window, nullptr)));
    DWORD_PTR answer = 0;
    // Without the hook the message, when it comes late, means nothing to anybody.
    return hook &&
           SendMessageTimeoutW(window, RegisterWindowMessageW(kCallsMessage), 0,
                               reinterpret_cast<LPARAM>(data.Place()), SMTO_NORMAL, test::kPatienceMs,
                               &answer) != 0 &&
           data.Read(0, calls.data(), calls.size_bytes());
}

}  // namespace ferry::e2e
