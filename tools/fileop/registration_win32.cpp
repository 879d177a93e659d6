#include "registration_win32.h"

#include <olectl.h>

#include <optional>
#include <string>

#include "base/handles_win32.h"
#include "module_win32.h"

namespace ferry::fileop {
namespace {

// CLSID_FileOperation (shobjidl.h). The same entry under HKEY_CURRENT_USER is not looked at.
constexpr wchar_t kServerKey[] =
    L"Software\\Classes\\CLSID\\{3AD05575-8857-4850-9277-11B85BDB8E09}\\InprocServer32";
constexpr wchar_t kPreviousPath[] = L"FerryPrevious";
constexpr wchar_t kPreviousModel[] = L"FerryPreviousThreadingModel";
constexpr wchar_t kModel[] = L"ThreadingModel";

bool IsWine() noexcept {
    const HMODULE library = GetModuleHandleW(L"ntdll.dll");
    return library != nullptr && GetProcAddress(library, "wine_get_version") != nullptr;
}

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(ModuleHandle(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

std::optional<std::wstring> ReadText(HKEY key, const wchar_t* name) {
    DWORD size = 0;
    if (RegGetValueW(key, nullptr, name, RRF_RT_REG_SZ, nullptr, nullptr, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::wstring text(size / sizeof(wchar_t), L'\0');
    if (RegGetValueW(key, nullptr, name, RRF_RT_REG_SZ, nullptr, text.data(), &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    text.resize(wcslen(text.c_str()));
    return text;
}

LSTATUS WriteText(HKEY key, const wchar_t* name, const std::wstring& text) {
    return RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

LSTATUS KeepPrevious(HKEY key, const std::wstring& own) {
    const auto path = ReadText(key, nullptr);
    if (!path || *path == own || ReadText(key, kPreviousPath)) {
        return ERROR_SUCCESS;
    }
    const LSTATUS status = WriteText(key, kPreviousPath, *path);
    return status != ERROR_SUCCESS
               ? status
               : WriteText(key, kPreviousModel, ReadText(key, kModel).value_or(L"Apartment"));
}

}  // namespace

HRESULT RegisterClassServer() {
    if (!IsWine()) {
        return SELFREG_E_CLASS;
    }
    base::RegistryKey key;
    LSTATUS status = RegCreateKeyExW(HKEY_LOCAL_MACHINE, kServerKey, 0, nullptr, 0, KEY_READ | KEY_WRITE,
                                     nullptr, key.Put(), nullptr);
    const std::wstring own = ModulePath();
    if (status == ERROR_SUCCESS) {
        status = KeepPrevious(key.Get(), own);
    }
    if (status == ERROR_SUCCESS) {
        status = WriteText(key.Get(), nullptr, own);
    }
    if (status == ERROR_SUCCESS) {
        status = WriteText(key.Get(), kModel, L"Both");
    }
    return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

HRESULT UnregisterClassServer() {
    base::RegistryKey key;
    LSTATUS status = RegOpenKeyExW(HKEY_LOCAL_MACHINE, kServerKey, 0, KEY_READ | KEY_WRITE, key.Put());
    const auto path = status == ERROR_SUCCESS ? ReadText(key.Get(), kPreviousPath) : std::nullopt;
    if (!path) {
        return S_OK;
    }
    status = WriteText(key.Get(), nullptr, *path);
    if (status == ERROR_SUCCESS) {
        status = WriteText(key.Get(), kModel, ReadText(key.Get(), kPreviousModel).value_or(L"Apartment"));
    }
    if (status == ERROR_SUCCESS) {
        status = RegDeleteValueW(key.Get(), kPreviousPath);
    }
    if (status == ERROR_SUCCESS) {
        RegDeleteValueW(key.Get(), kPreviousModel);  // best effort: without the path it means nothing
    }
    return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

}  // namespace ferry::fileop
