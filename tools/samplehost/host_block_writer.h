// What a host writes: the variable's text, the block's units and the names of the shared objects.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ferry::samplehost {

/// The name of the environment variable that announces the hand-over.
inline constexpr wchar_t kVariableName[] = L"KIV_ExCommand";

/// The window class by which Ferry finds the host's main window.
inline constexpr wchar_t kHostWindowClass[] = L"{6B1D2E90-4C3A-4F85-9E21-0A7C5D38B4F6}";

/// The WM_COPYDATA tag of a block.
inline constexpr std::size_t kBlockTag = 255;

/// The fields of a block. The counts are those of the lists unless others are announced.
struct BlockFields {
    std::wstring CurrentDir;
    std::wstring Option;
    std::vector<std::wstring> Items;
    std::vector<std::wstring> Tabs;
    std::optional<std::wstring> AnnouncedItems;
    std::optional<std::wstring> AnnouncedTabs;
    bool EndsWithNul = true;
};

/// The ten fields of the variable, each as its text, so that a test can also write nonsense.
struct VariableFields {
    std::wstring WindowMode = L"0";
    std::wstring ActivateHost = L"0";
    std::wstring FirstNumber = L"1";
    std::wstring SecondNumber = L"1";
    std::wstring BlockSize = L"0";
    std::wstring Reserved[3] = {L"0", L"0", L"0"};
    std::wstring Transport = L"Share";
    std::wstring Trailing;
};

/// The units of the block: every field with its TAB, then a NUL where `fields` wants one.
std::wstring BlockUnits(const BlockFields& fields);

/// The little-endian bytes of UTF-16 `units`.
std::vector<std::byte> BytesOfUnits(std::wstring_view units);

/// The variable's value: the ten fields with ":" between them.
std::wstring VariableText(const VariableFields& fields);

/// The name of the block's file mapping, "ShareMem_<first>_<second>".
std::wstring MappingName(const VariableFields& fields);

/// The name of the mutex that guards the block.
std::wstring GuardName(const VariableFields& fields);

/// The payload of a message that carries one text: its units and a NUL.
std::vector<std::byte> TextPayload(std::wstring_view text);

}  // namespace ferry::samplehost
