#include "e2e/driver/settings_guard.h"

#include <cstring>
#include <span>

#include "base/utf16.h"

namespace ferry::e2e {
namespace {

void ReplaceValues(const wchar_t* key, const StoredValues& values) {
    for (const auto& [name, value] : ReadValues(key)) {
        DeleteValue(key, name);
    }
    for (const auto& [name, value] : values) {
        WriteValue(key, name, value);
    }
}

}  // namespace

StoredValues ReadValues(const wchar_t* key) {
    StoredValues values;
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, key, 0, KEY_READ, &opened) != ERROR_SUCCESS)
        return values;
    for (DWORD index = 0;; ++index) {
        std::wstring name(16384, L'\0');  // the registry's limit for a value's name
        auto nameLength = static_cast<DWORD>(name.size());
        DWORD size = 0;
        StoredValue value;
        if (RegEnumValueW(opened, index, name.data(), &nameLength, nullptr, &value.Type, nullptr, &size) !=
            ERROR_SUCCESS) {
            break;
        }
        name.resize(nameLength);
        value.Bytes.resize(size);
        RegQueryValueExW(opened, name.c_str(), nullptr, &value.Type, value.Bytes.data(), &size);
        values.emplace(name, std::move(value));
    }
    RegCloseKey(opened);
    return values;
}

std::optional<DWORD> ReadNumber(const wchar_t* key, const std::wstring& name) {
    const StoredValues values = ReadValues(key);
    const auto found = values.find(name);
    if (found == values.end() || found->second.Type != REG_DWORD ||
        found->second.Bytes.size() != sizeof(DWORD))
        return std::nullopt;
    DWORD number = 0;
    std::memcpy(&number, found->second.Bytes.data(), sizeof(number));
    return number;
}

std::optional<std::wstring> ReadText(const wchar_t* key, const std::wstring& name) {
    const StoredValues values = ReadValues(key);
    const auto found = values.find(name);
    if (found == values.end() || found->second.Type != REG_SZ)
        return std::nullopt;
    const std::wstring text = base::UnitsFromBytes(std::as_bytes(std::span(found->second.Bytes)));
    return text.substr(0, text.find(L'\0'));
}

void WriteNumber(const wchar_t* key, const std::wstring& name, DWORD number) {
    RegSetKeyValueW(HKEY_CURRENT_USER, key, name.c_str(), REG_DWORD, &number, sizeof(number));
}

void WriteText(const wchar_t* key, const std::wstring& name, const std::wstring& text) {
    RegSetKeyValueW(HKEY_CURRENT_USER, key, name.c_str(), REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

void WriteValue(const wchar_t* key, const std::wstring& name, const StoredValue& value) {
    RegSetKeyValueW(HKEY_CURRENT_USER, key, name.c_str(), value.Type, value.Bytes.data(),
                    static_cast<DWORD>(value.Bytes.size()));
}

void DeleteValue(const wchar_t* key, const std::wstring& name) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, key, name.c_str());
}

SettingsGuard::SettingsGuard() : program_(ReadValues(kProgramKey)), host_(ReadValues(kHostKey)) {
    ReplaceValues(kProgramKey, {});
    ReplaceValues(kHostKey, {});
}

SettingsGuard::~SettingsGuard() {
    ReplaceValues(kProgramKey, program_);
    ReplaceValues(kHostKey, host_);
}

}  // namespace ferry::e2e
