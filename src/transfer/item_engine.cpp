// Judges one file against the collision policy and transfers it.
#include "transfer/item_engine.h"

#include <cmath>
#include <string>

#include "paths/path_helpers.h"

namespace ferry::transfer {
namespace {

constexpr double kSecondsPerDay = 86400.0;
constexpr double kHalfSecondInDays = 5.787037037037037e-6;

/// The result of an operation that could not be created. Both engines stop or ask again on it.
constexpr std::int32_t kNoOperation = 1;

constexpr std::wstring_view kForbiddenInNames = L"/:*?\"><|\\";

constexpr std::uint32_t Number(CollisionPolicy policy) {
    return static_cast<std::uint32_t>(policy);
}

bool CanBeName(std::wstring_view name) {
    return name.find_first_of(kForbiddenInNames) == std::wstring_view::npos;
}

std::wstring Sibling(std::wstring_view path, std::wstring_view name) {
    std::wstring sibling(paths::ParentWithSeparator(path));
    sibling += name;
    return sibling;
}

ItemResult ResultOfUnnamed(const NameAnswer& answer) {
    return answer.EndCode == kEndForAll ? ItemResult::Stop : ItemResult::Continue;
}

/// A date value on an even scale. Before the epoch of the date type the fraction of a day still
/// counts forward, so -1.25 is a quarter past the start of day -1.
double EvenDate(double date) noexcept {
    if (date > -kHalfSecondInDays)
        return date;
    const double day = std::ceil(date);
    return day - (date - day);
}

}  // namespace

std::int64_t WholeSecondsBetween(double laterDate, double earlierDate) noexcept {
    const double days = EvenDate(laterDate) - EvenDate(earlierDate);
    const double shifted = days >= 0 ? days + kHalfSecondInDays : days - kHalfSecondInDays;
    return static_cast<std::int64_t>(shifted * kSecondsPerDay);
}

bool IsNewer(FileSystem& fileSystem, std::uint64_t later, std::uint64_t earlier, std::uint32_t precision) {
    const bool byWholeSeconds = precision == static_cast<std::uint32_t>(TimePrecision::OneSecond) ||
                                precision == static_cast<std::uint32_t>(TimePrecision::TwoSeconds);
    if (!byWholeSeconds)
        return later > earlier;
    const double laterDate = fileSystem.LocalDate(later);
    const double earlierDate = fileSystem.LocalDate(earlier);
    return WholeSecondsBetween(laterDate, earlierDate) > static_cast<std::int64_t>(precision);
}

ItemEngine::ItemEngine(FileSystem& fileSystem, ShellOperations& shell, Questions& questions,
                       Operation operation, std::uint32_t precision) noexcept
    : fileSystem_(fileSystem), shell_(shell), questions_(questions), precision_(precision) {
    record_.Function = operation == Operation::Move ? kFunctionMove : kFunctionCopy;
}

ItemResult ItemEngine::Handle(const Item& item, std::uint32_t policy) {
    if (item.Source == item.Target && policy != Number(CollisionPolicy::RenameIncoming)) {
        questions_.ShowError(kMessageSamePath);
        return ItemResult::Stop;
    }
    if (!item.Existing)
        return Transfer(item);
    switch (static_cast<CollisionPolicy>(policy)) {
        case CollisionPolicy::OverwriteOlder:
        case CollisionPolicy::OverwriteNewer:
            return TransferByTime(item, static_cast<CollisionPolicy>(policy));
        case CollisionPolicy::KeepExisting:
            return ItemResult::Continue;
        case CollisionPolicy::RenameIncoming:
            return TransferUnderNewName(item);
        case CollisionPolicy::RenameExisting:
            return TransferAfterRenaming(item);
        case CollisionPolicy::RenameAutomatically:
            return TransferRenamedByShell(item);
        default:
            return Transfer(item);
    }
}

ItemResult ItemEngine::TransferByTime(const Item& item, CollisionPolicy policy) {
    const std::optional<FoundItem> source = fileSystem_.Find(item.Source);
    // Where a time is unknown, nothing is newer or older, and what exists stays.
    if (!source || !source->IsTimeKnown || !item.Existing->IsTimeKnown)
        return ItemResult::Continue;
    const std::uint64_t sourceTime = source->LastWriteTime;
    const std::uint64_t targetTime = item.Existing->LastWriteTime;
    const bool overwrites = policy == CollisionPolicy::OverwriteOlder
                                ? IsNewer(fileSystem_, sourceTime, targetTime, precision_)
                                : IsNewer(fileSystem_, targetTime, sourceTime, precision_);
    return overwrites ? Transfer(item) : ItemResult::Continue;
}

ItemResult ItemEngine::Transfer(const Item& item) {
    record_.Flags |= kFlagNoConfirmation;
    if (fileSystem_.FileSize(item.Source) > kSilentSizeLimit)
        record_.Flags &= ~kFlagSilent;
    else
        record_.Flags |= kFlagSilent;
    const ShellOutcome outcome = TransferUnderOwnName(item, true);
    return outcome.Result == kNoOperation || outcome.Aborted ? ItemResult::Stop : ItemResult::Continue;
}

ItemResult ItemEngine::TransferRenamedByShell(const Item& item) {
    record_.Flags &= ~kFlagNoConfirmation;
    // Never cleared again: from here on every later file of the run is renamed by the shell too.
    record_.Flags |= kFlagRenameOnCollision;
    // The shell reports its failures itself, and the next file is none the worse for them.
    TransferUnderOwnName(item, false);
    record_.Flags |= kFlagNoConfirmation;
    return ItemResult::Continue;
}

ItemResult ItemEngine::TransferUnderNewName(const Item& item) {
    for (;;) {
        const NameAnswer answer = questions_.AskNewName(RenameKind::Incoming, item.Target);
        if (answer.EndCode != kEndOk)
            return ResultOfUnnamed(answer);
        // Without a name the shell would take the old one and meet the existing item again.
        if (answer.Name.empty() || !CanBeName(answer.Name))
            continue;
        const std::wstring newTarget = Sibling(item.Target, answer.Name);
        if (fileSystem_.Find(newTarget))
            continue;
        if (TransferAs(item.Source, newTarget) != kNoOperation)
            return ItemResult::Continue;
    }
}

ItemResult ItemEngine::TransferAfterRenaming(const Item& item) {
    for (;;) {
        const NameAnswer answer = questions_.AskNewName(RenameKind::Existing, item.Target);
        if (answer.EndCode != kEndOk)
            return ResultOfUnnamed(answer);
        if (!CanBeName(answer.Name))
            continue;
        if (!fileSystem_.Rename(item.Target, Sibling(item.Target, answer.Name))) {
            questions_.ShowError(kMessageRenameFailed);
            continue;
        }
        if (TransferAs(item.Source, item.Target) != kNoOperation)
            return ItemResult::Continue;
    }
}

ShellOutcome ItemEngine::TransferUnderOwnName(const Item& item, bool askAborted) {
    ShellTransfer transfer;
    transfer.Source = item.Source;
    transfer.TargetFolder = paths::ParentWithSeparator(item.Target);
    // Where the two names differ, which a destination with slashes in it brings about, the file
    // must still land on the very path that was looked at, or it would overwrite another unasked.
    const std::wstring_view name = paths::LastComponent(item.Target);
    if (name != paths::LastComponent(item.Source))
        transfer.NewName = name;
    transfer.Function = record_.Function;
    transfer.Flags = record_.Flags;
    transfer.AskAborted = askAborted;
    return shell_.TransferFile(transfer);
}

std::int32_t ItemEngine::TransferAs(std::wstring_view source, std::wstring_view target) {
    record_.Flags &= ~kFlagNoConfirmation;
    ShellTransfer transfer;
    transfer.Source = source;
    transfer.TargetFolder = paths::ParentWithSeparator(target);
    transfer.NewName = paths::LastComponent(target);
    transfer.Function = record_.Function;
    transfer.Flags = record_.Flags;
    return shell_.TransferFile(transfer).Result;
}

}  // namespace ferry::transfer
