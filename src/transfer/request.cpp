// The remembered choices of a transfer and where they are stored.
#include "transfer/request.h"

namespace ferry::transfer {
namespace {

using Choice = std::uint32_t TransferSettings::*;

/// One remembered choice: its value name in the store and the field it fills.
struct StoredChoice {
    std::wstring_view ValueName;
    Choice Field;
};

// "1" really is the whole name of the no-ask value.
constexpr StoredChoice kStoredChoices[] = {
    {L"Mode", &TransferSettings::Mode},
    {L"Name", &TransferSettings::Policy},
    {L"1", &TransferSettings::NoAsk},
    {L"OpenTarget", &TransferSettings::OpenTarget},
    {L"TimeCmpType", &TransferSettings::TimeCmpType},
};

}  // namespace

TransferSettings LoadTransferSettings(settings::SettingsStore& store) {
    TransferSettings loaded;
    for (const auto& [valueName, field] : kStoredChoices)
        loaded.*field = store.ReadNumber(valueName, 0);
    return loaded;
}

void SaveTransferSettings(settings::SettingsStore& store, const TransferSettings& settings) {
    for (const auto& [valueName, field] : kStoredChoices)
        store.WriteNumber(valueName, settings.*field);
}

}  // namespace ferry::transfer
