#include "windows/support_win32.h"

#include <array>
#include <atomic>
#include <cstring>

#include "base/handles_win32.h"
#include "base/utf16.h"

namespace ferry::test {
void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        DispatchMessageW(&message);
    }
}

bool PumpUntil(const std::function<bool()>& isTrue) {
    return WaitUntil([&] {
        Pump();
        return isTrue();
    });
}

std::wstring UniqueName(std::wstring_view prefix) {
    static std::atomic<int> counter = 0;
    return std::wstring(prefix) + L"_" + std::to_wstring(GetCurrentProcessId()) + L"_" +
           std::to_wstring(++counter);
}

TempFolder::TempFolder() {
    std::wstring folder(MAX_PATH + 1, L'\0');
    folder.resize(GetTempPathW(static_cast<DWORD>(folder.size()), folder.data()));
    std::wstring full(GetLongPathNameW(folder.c_str(), nullptr, 0), L'\0');
    full.resize(GetLongPathNameW(folder.c_str(), full.data(), static_cast<DWORD>(full.size())));
    path_ = full + UniqueName(L"ferry");
    CreateDirectoryW(path_.c_str(), nullptr);
}

TempFolder::~TempFolder() {
    RemoveAll(path_);
}

std::wstring TempFolder::operator/(std::wstring_view name) const {
    return path_ + L"\\" + std::wstring(name);
}

std::wstring TempFolder::LongFolder() const {
    std::wstring path = path_;
    while (path.size() <= 300) {
        path += L"\\" + std::wstring(60, L'd');
    }
    MakeFolders(path);
    return path;
}

void WriteBytes(const std::wstring& path, const std::vector<std::byte>& bytes) {
    const base::FileHandle file(
        CreateFileW(LongForm(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    DWORD written = 0;
    WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

void WriteUnits(const std::wstring& path, std::wstring_view units) {
    WriteBytes(path, base::BytesFromUnits(units));
}

std::optional<std::vector<std::byte>> ReadBytes(const std::wstring& path) {
    const base::FileHandle file(CreateFileW(LongForm(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                            OPEN_EXISTING, 0, nullptr));
    LARGE_INTEGER size{};
    if (!file || !GetFileSizeEx(file.Get(), &size)) {
        return std::nullopt;
    }
    std::vector<std::byte> bytes(static_cast<std::size_t>(size.QuadPart));
    DWORD read = 0;
    ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    return bytes;
}

std::wstring ReadUnits(const std::wstring& path) {
    return base::UnitsFromBytes(ReadBytes(path).value_or(std::vector<std::byte>()));
}

bool ShellTransfers() {
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    if (GetProcAddress(system, "wine_get_version") == nullptr) {
        return true;
    }
    std::wstring server(512, L'\0');
    auto size = static_cast<DWORD>(server.size() * sizeof(wchar_t));
    constexpr wchar_t kServerKey[] =
        L"Software\\Classes\\CLSID\\{3AD05575-8857-4850-9277-11B85BDB8E09}\\InprocServer32";
    return RegGetValueW(HKEY_LOCAL_MACHINE, kServerKey, nullptr, RRF_RT_REG_SZ, nullptr, server.data(),
                        &size) == ERROR_SUCCESS &&
           server.find(L"ferry_fileop") != std::wstring::npos;
}

void HoldKeys(const std::vector<int>& keys) {
    std::array<BYTE, 256> state{};
    for (const int key : keys) {
        state[static_cast<std::size_t>(key)] = 0x80;
    }
    SetKeyboardState(state.data());
}

ForegroundLockKeeper::ForegroundLockKeeper() noexcept {
    SystemParametersInfoW(SPI_GETFOREGROUNDLOCKTIMEOUT, 0, &lockMs_, 0);
}

ForegroundLockKeeper::~ForegroundLockKeeper() {
    SystemParametersInfoW(SPI_SETFOREGROUNDLOCKTIMEOUT, 0,
                          reinterpret_cast<void*>(static_cast<ULONG_PTR>(lockMs_)), 0);
}

bool MayTakeForeground() {
    const TestWindow window(CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr,
                                            nullptr, GetModuleHandleW(nullptr), nullptr));
    SetForegroundWindow(window.Get());
    return GetForegroundWindow() == window.Get();
}

std::wstring TextOfWindow(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

}  // namespace ferry::test
