// Judges one file against the collision policy and transfers it.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "transfer/leftovers.h"
#include "transfer/ports.h"
#include "transfer/request.h"

namespace ferry::transfer {

/// Message numbers of the catalogue.
inline constexpr std::uint16_t kMessageSamePath = 6269;
inline constexpr std::uint16_t kMessageRenameFailed = 62535;

/// Files above this size may take long: where a copy goes at a megabyte a second, more than a second.
inline constexpr std::uint64_t kQuickSizeLimit = 0x100000;

/// Files above this size show the shell's own progress.
inline constexpr std::uint64_t kSilentSizeLimit = 0xA00000;

/// The flags with which a run starts.
inline constexpr std::uint32_t kRunFlags = kFlagNoConnectedElements | kFlagNoCopySecurity |
                                           kFlagNoConfirmMakeFolder | kFlagNoConfirmation | kFlagSilent;

/// What a run does, and its flags. The engine changes the flags as it goes, and a change stays in force
/// for later items.
struct OperationRecord {
    Operation What = Operation::Copy;
    std::uint32_t Flags = kRunFlags;
};

/// Whether the run goes on after an item.
enum class ItemResult { Stop = 0, Continue = 1 };

/// One file on its way.
struct Item {
    std::wstring_view Source;
    std::wstring_view Target;
    std::optional<files::FoundItem> Existing;  ///< What stands at the target, if anything.

    /// Whether something was seen at the target. Where nobody could look, nothing was.
    bool IsSeen() const noexcept { return Existing && Existing->IsTimeKnown; }
};

/// The engine of one run; keeps the run's operation record.
class ItemEngine {
public:
    /// What `ports` names and `leftovers` must outlive the engine.
    ItemEngine(const RunPorts& ports, Operation operation, std::uint32_t precision,
               Leftovers& leftovers) noexcept;

    /// Transfers, skips or asks about `item` by `policy`.
    ItemResult Handle(const Item& item, CollisionPolicy policy);

    const OperationRecord& Record() const noexcept { return record_; }

private:
    ItemResult Transfer(const Item& item);
    TimeOrder OrderOf(const Item& item);
    ItemResult TransferRenamedByShell(const Item& item);
    ItemResult TransferUnderNewName(const Item& item);
    ItemResult TransferAfterRenaming(const Item& item);
    ShellOutcome TransferUnderOwnName(const Item& item, bool askAborted);
    bool TransferAs(std::wstring_view source, std::wstring_view folder, std::wstring_view name);

    void NoteIfLeft(const ShellTransfer& transfer, const ShellOutcome& outcome);

    RunPorts ports_;
    std::uint32_t precision_;
    OperationRecord record_;
    Leftovers& leftovers_;
};

/// Whether `later` counts as newer than `earlier` (FILETIME values) at `precision`, a
/// TimePrecision number: 1 and 2 compare local date values in whole seconds, any other exactly.
bool IsNewer(calendar::Clock& clock, std::uint64_t later, std::uint64_t earlier, std::uint32_t precision);

/// The difference of two date values (days) in whole seconds, shifted by half a second towards
/// its sign before it is truncated. Dates before the type's epoch keep their day and mirror
/// their fraction.
std::int64_t WholeSecondsBetween(double laterDate, double earlierDate) noexcept;

}  // namespace ferry::transfer
