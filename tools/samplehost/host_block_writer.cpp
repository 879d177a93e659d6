#include "host_block_writer.h"

namespace ferry::samplehost {
namespace {

void AppendField(std::wstring& units, std::wstring_view field) {
    units += field;
    units += L'\t';
}

}  // namespace

std::wstring BlockUnits(const BlockFields& fields) {
    std::wstring units;
    AppendField(units, fields.AnnouncedItems.value_or(std::to_wstring(fields.Items.size())));
    AppendField(units, fields.AnnouncedTabs.value_or(std::to_wstring(fields.Tabs.size())));
    AppendField(units, fields.CurrentDir);
    AppendField(units, fields.Option);
    for (const std::wstring& item : fields.Items) {
        AppendField(units, item);
    }
    for (const std::wstring& tab : fields.Tabs) {
        AppendField(units, tab);
    }
    if (fields.EndsWithNul) {
        units += L'\0';
    }
    return units;
}

std::vector<std::byte> BytesOfUnits(std::wstring_view units) {
    std::vector<std::byte> bytes;
    bytes.reserve(units.size() * 2);
    for (const wchar_t unit : units) {
        const auto value = static_cast<unsigned>(unit);
        bytes.push_back(static_cast<std::byte>(value & 0xFF));
        bytes.push_back(static_cast<std::byte>((value >> 8) & 0xFF));
    }
    return bytes;
}

std::wstring VariableText(const VariableFields& fields) {
    std::wstring text;
    for (const std::wstring* field : {&fields.WindowMode, &fields.ActivateHost, &fields.FirstNumber,
                                      &fields.SecondNumber, &fields.BlockSize, &fields.Reserved[0],
                                      &fields.Reserved[1], &fields.Reserved[2], &fields.Transport}) {
        text += *field;
        text += L':';
    }
    return text + fields.Trailing;
}

std::wstring MappingName(const VariableFields& fields) {
    return L"ShareMem_" + fields.FirstNumber + L"_" + fields.SecondNumber;
}

std::wstring GuardName(const VariableFields& fields) {
    return MappingName(fields) + L"_Mutex";
}

std::vector<std::byte> TextPayload(std::wstring_view text) {
    std::wstring units(text);
    units += L'\0';
    return BytesOfUnits(units);
}

}  // namespace ferry::samplehost
