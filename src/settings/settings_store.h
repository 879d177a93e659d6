// The persistent settings: two keys, eight functions that never report an error.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace ferry::settings {

/// The program's own key is this text followed by the program's name.
inline constexpr wchar_t kProgramKeyPrefix[] = L"Software\\Marrowby\\KIV\\Command\\";
inline constexpr wchar_t kProgramName[] = L"Ferry";

/// The host's key, read only. Its product word is written differently, and means to be.
inline constexpr wchar_t kHostKey[] = L"Software\\Marrowby\\Kiv\\Main001\\Settings";

/// The most bytes of a text value that are read; a longer one gives the default.
inline constexpr std::uint32_t kMaxTextBytes = 32768;

/// The store as the rest of the program sees it. Reads give the default when anything goes
/// wrong; writes answer whether they succeeded. Values have no checked type.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    virtual std::wstring ReadText(std::wstring_view name, std::wstring_view defaultText) = 0;
    virtual std::uint32_t ReadNumber(std::wstring_view name, std::uint32_t defaultNumber) = 0;
    virtual bool WriteText(std::wstring_view name, std::wstring_view text) = 0;
    virtual bool WriteNumber(std::wstring_view name, std::uint32_t number) = 0;

    virtual std::wstring ReadHostText(std::wstring_view name, std::wstring_view defaultText) = 0;
    virtual std::uint32_t ReadHostNumber(std::wstring_view name) = 0;

    virtual bool WriteTextToKey(std::wstring_view key, std::wstring_view name, std::wstring_view text) = 0;
    virtual bool WriteNumberToKey(std::wstring_view key, std::wstring_view name, std::uint32_t number) = 0;
};

/// The text in a value's bytes, whatever type they were stored with: the units up to the first
/// NUL or the end, since values are written without their terminator.
std::wstring TextFromValue(std::span<const std::byte> bytes);

}  // namespace ferry::settings
