// What the user asked for: the values that both ways of transferring work from.
#pragma once

#include <cstdint>
#include <string>

#include "base/text_list.h"
#include "settings/settings_store.h"
#include "transfer/policy.h"

namespace ferry::transfer {

enum class Operation { Copy = 0, Move = 1 };

enum class WorkingMode { Batch = 0, Individual = 1 };

/// How exactly two times are compared.
enum class TimePrecision : std::uint32_t {
    Exact = 0,
    OneSecond = 1,   ///< Whole local seconds; a difference of 1 counts as equal.
    TwoSeconds = 2,  ///< Whole local seconds; a difference of 2 counts as equal.
};

/// The five remembered choices, as stored. Numbers out of range are kept as they are.
struct TransferSettings {
    std::uint32_t Mode = 0;         ///< WorkingMode
    std::uint32_t Policy = 0;       ///< CollisionPolicy, read by PolicyOf
    std::uint32_t NoAsk = 0;        ///< Batch mode asks no confirmation.
    std::uint32_t OpenTarget = 0;   ///< The host shows the destination when the transfer starts.
    std::uint32_t TimeCmpType = 0;  ///< TimePrecision

    friend bool operator==(const TransferSettings&, const TransferSettings&) = default;
};

/// The remembered choices; 0 for each that is missing.
TransferSettings LoadTransferSettings(settings::SettingsStore& store);

/// Remembers the choices. Failures are silent: the transfer matters more.
void SaveTransferSettings(settings::SettingsStore& store, const TransferSettings& settings);

/// Everything that a run needs.
struct TransferRequest {
    base::TextList Sources;    ///< Full paths in list order.
    std::wstring Destination;  ///< The working destination, with its separator.
    Operation What = Operation::Copy;
    TransferSettings Settings;
};

}  // namespace ferry::transfer
