// What the user asked for: the values that both ways of transferring work from.
#pragma once

#include <cstdint>
#include <string>

#include "base/text_list.h"
#include "settings/settings_store.h"

namespace ferry::transfer {

enum class Operation { Copy = 0, Move = 1 };

enum class WorkingMode { Batch = 0, Individual = 1 };

/// What happens to a name that exists at the destination. The numbers are the stored ones and
/// the places of the choices in both dialogs. Any higher number acts like Overwrite.
enum class CollisionPolicy : std::uint32_t {
    OverwriteOlder = 0,       ///< Overwrite only when the source is newer.
    OverwriteNewer = 1,       ///< Overwrite only when the source is older.
    KeepExisting = 2,         ///< Do not copy an item whose name exists.
    Overwrite = 3,            ///< Overwrite unconditionally.
    RenameIncoming = 4,       ///< The user names the incoming item.
    RenameExisting = 5,       ///< The user renames the existing item first.
    RenameAutomatically = 6,  ///< The shell picks a new name.
    AskEach = 7,              ///< The collision dialog decides.
};

/// How exactly two times are compared.
enum class TimePrecision : std::uint32_t {
    Exact = 0,
    OneSecond = 1,   ///< Whole local seconds; a difference of 1 counts as equal.
    TwoSeconds = 2,  ///< Whole local seconds; a difference of 2 counts as equal.
};

/// The five remembered choices, as stored. Numbers out of range are kept as they are.
struct TransferSettings {
    std::uint32_t Mode = 0;         ///< WorkingMode
    std::uint32_t Policy = 0;       ///< CollisionPolicy
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
