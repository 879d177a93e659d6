#include "settings/registry_store_win32.h"

#include <windows.h>

#include <algorithm>
#include <span>
#include <vector>

#include "base/handles_win32.h"

namespace ferry::settings {
namespace {

/// The key at `path`, made when it is missing; nothing when that fails.
base::RegistryKey OpenKey(std::wstring_view path) {
    base::RegistryKey key;
    std::wstring className;  // The interface takes a writable text for the class.
    if (RegCreateKeyExW(HKEY_CURRENT_USER, std::wstring(path).c_str(), 0, className.data(),
                        REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, key.Put(),
                        nullptr) != ERROR_SUCCESS) {
        // What a failed call leaves in the place is no key of ours.
        static_cast<void>(key.Release());
    }
    return key;
}

bool Query(const base::RegistryKey& key, std::wstring_view name, void* data, DWORD byteCount) {
    return key && RegQueryValueExW(key.Get(), std::wstring(name).c_str(), nullptr, nullptr,
                                   static_cast<BYTE*>(data), &byteCount) == ERROR_SUCCESS;
}

std::wstring ReadTextFrom(std::wstring_view keyPath, std::wstring_view name, std::wstring_view defaultText) {
    // The buffer starts as the default: a value of no bytes at all leaves it standing.
    std::vector<wchar_t> buffer(kMaxTextBytes + 1);
    const auto prefix = defaultText.substr(0, kMaxTextBytes);
    std::copy(prefix.begin(), prefix.end(), buffer.begin());
    if (!Query(OpenKey(keyPath), name, buffer.data(), kMaxTextBytes)) {
        return std::wstring(defaultText);
    }
    return TextFromValue(std::as_bytes(std::span(buffer)));
}

std::uint32_t ReadNumberFrom(std::wstring_view keyPath, std::wstring_view name, std::uint32_t defaultNumber) {
    DWORD number = defaultNumber;
    if (!Query(OpenKey(keyPath), name, &number, sizeof(number))) {
        return defaultNumber;
    }
    return number;
}

bool Write(std::wstring_view keyPath, std::wstring_view name, DWORD type, const void* data,
           std::size_t byteCount) {
    const base::RegistryKey key = OpenKey(keyPath);
    return key &&
           RegSetValueExW(key.Get(), std::wstring(name).c_str(), 0, type, static_cast<const BYTE*>(data),
                          static_cast<DWORD>(byteCount)) == ERROR_SUCCESS;
}

}  // namespace

std::wstring RegistryStore::ReadText(std::wstring_view name, std::wstring_view defaultText) {
    return ReadTextFrom(programKey_, name, defaultText);
}

std::uint32_t RegistryStore::ReadNumber(std::wstring_view name, std::uint32_t defaultNumber) {
    return ReadNumberFrom(programKey_, name, defaultNumber);
}

bool RegistryStore::WriteText(std::wstring_view name, std::wstring_view text) {
    return WriteTextToKey(programKey_, name, text);
}

bool RegistryStore::WriteNumber(std::wstring_view name, std::uint32_t number) {
    return WriteNumberToKey(programKey_, name, number);
}

std::wstring RegistryStore::ReadHostText(std::wstring_view name, std::wstring_view defaultText) {
    return ReadTextFrom(kHostKey, name, defaultText);
}

std::uint32_t RegistryStore::ReadHostNumber(std::wstring_view name) {
    return ReadNumberFrom(kHostKey, name, 0);
}

bool RegistryStore::WriteTextToKey(std::wstring_view key, std::wstring_view name, std::wstring_view text) {
    // Without the terminator: that is how the host's programs store texts, and readers cope.
    return Write(key, name, REG_SZ, text.data(), text.size() * sizeof(wchar_t));
}

bool RegistryStore::WriteNumberToKey(std::wstring_view key, std::wstring_view name, std::uint32_t number) {
    const DWORD value = number;
    return Write(key, name, REG_DWORD, &value, sizeof(value));
}

}  // namespace ferry::settings
