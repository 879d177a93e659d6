// The registry values of the program and of the host, put back when a test ends.
#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace ferry::e2e {

inline constexpr wchar_t kProgramKey[] = L"Software\\Marrowby\\KIV\\Command\\Ferry";
inline constexpr wchar_t kHostKey[] = L"Software\\Marrowby\\Kiv\\Main001\\Settings";

/// One value as the registry holds it.
struct StoredValue {
    DWORD Type = REG_NONE;
    std::vector<BYTE> Bytes;

    bool operator==(const StoredValue&) const = default;
};

using StoredValues = std::map<std::wstring, StoredValue>;

/// All values of a key below the current user's hive.
StoredValues ReadValues(const wchar_t* key);

/// A number, when the value exists and is one.
std::optional<DWORD> ReadNumber(const wchar_t* key, const std::wstring& name);

/// A text, when the value exists and is one.
std::optional<std::wstring> ReadText(const wchar_t* key, const std::wstring& name);

void WriteNumber(const wchar_t* key, const std::wstring& name, DWORD number);
void WriteText(const wchar_t* key, const std::wstring& name, const std::wstring& text);
void WriteValue(const wchar_t* key, const std::wstring& name, const StoredValue& value);
void DeleteValue(const wchar_t* key, const std::wstring& name);

/// Empties both keys, so that a test starts as a fresh user, and restores them at the end.
class SettingsGuard {
public:
    SettingsGuard();
    ~SettingsGuard();
    SettingsGuard(const SettingsGuard&) = delete;
    SettingsGuard& operator=(const SettingsGuard&) = delete;

private:
    StoredValues program_;
    StoredValues host_;
};

}  // namespace ferry::e2e
