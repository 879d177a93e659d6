// Judges one file against the collision policy and transfers it.
#include "transfer/item_engine.h"

#include <cmath>
#include <string>

#include "paths/path_grammar.h"

namespace ferry::transfer {
namespace {

constexpr double kSecondsPerDay = 86400.0;
constexpr double kHalfSecondInDays = 5.787037037037037e-6;

constexpr std::wstring_view kForbiddenInNames = L"/:*?\"><|\\";

bool CanBeName(std::wstring_view name) {
    return name.find_first_of(kForbiddenInNames) == std::wstring_view::npos;
}

std::wstring Sibling(std::wstring_view path, std::wstring_view name) {
    std::wstring sibling(paths::ParentWithSeparator(path));
    sibling += name;
    return sibling;
}

ItemResult ResultOfUnnamed(const NameAnswer& answer) {
    return answer.Choice == NameChoice::StopRun ? ItemResult::Stop : ItemResult::Continue;
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

bool IsNewer(calendar::Clock& clock, std::uint64_t later, std::uint64_t earlier, std::uint32_t precision) {
    const bool byWholeSeconds = precision == static_cast<std::uint32_t>(TimePrecision::OneSecond) ||
                                precision == static_cast<std::uint32_t>(TimePrecision::TwoSeconds);
    if (!byWholeSeconds)
        return later > earlier;
    const double laterDate = clock.LocalDate(later);
    const double earlierDate = clock.LocalDate(earlier);
    return WholeSecondsBetween(laterDate, earlierDate) > static_cast<std::int64_t>(precision);
}

ItemEngine::ItemEngine(const RunPorts& ports, Operation operation, std::uint32_t precision,
                       Leftovers& leftovers) noexcept
    : ports_(ports), precision_(precision), record_{operation, kRunFlags}, leftovers_(leftovers) {}

ItemResult ItemEngine::Handle(const Item& item, CollisionPolicy policy) {
    if (item.Source == item.Target && policy != CollisionPolicy::RenameIncoming) {
        ports_.Person.ShowError(kMessageSamePath);
        return ItemResult::Stop;
    }
    if (!item.IsSeen())
        return Transfer(item);
    switch (Decide(policy, ComparesTimes(policy) ? OrderOf(item) : TimeOrder::Neither)) {
        case Decision::Transfer:
            return Transfer(item);
        case Decision::Keep:
            return ItemResult::Continue;
        case Decision::NameIncoming:
            return TransferUnderNewName(item);
        case Decision::NameExisting:
            return TransferAfterRenaming(item);
        case Decision::LetShellName:
            return TransferRenamedByShell(item);
    }
    return ItemResult::Continue;
}

TimeOrder ItemEngine::OrderOf(const Item& item) {
    const std::optional<files::FoundItem> source = ports_.Info.Find(item.Source);
    // Where a time is unknown, nothing is newer or older, and what exists stays.
    if (!source || !source->IsTimeKnown) {
        leftovers_.Add(item.Source, LeftReason::NotSeen, 0);
        return TimeOrder::Neither;
    }
    const std::uint64_t sourceTime = source->LastWriteTime;
    const std::uint64_t targetTime = item.Existing->LastWriteTime;
    if (IsNewer(ports_.Clock, sourceTime, targetTime, precision_))
        return TimeOrder::SourceIsNewer;
    return IsNewer(ports_.Clock, targetTime, sourceTime, precision_) ? TimeOrder::SourceIsOlder
                                                                     : TimeOrder::Neither;
}

ItemResult ItemEngine::Transfer(const Item& item) {
    // Nothing that nobody could look at is overwritten unasked.
    if (item.Existing && !item.IsSeen())
        record_.Flags &= ~kFlagNoConfirmation;
    else
        record_.Flags |= kFlagNoConfirmation;
    const std::uint64_t size = ports_.Info.Size(item.Source);
    if (size > kQuickSizeLimit)
        ports_.View.ShowNow();
    if (size > kSilentSizeLimit)
        record_.Flags &= ~kFlagSilent;
    else
        record_.Flags |= kFlagSilent;
    const ShellOutcome outcome = TransferUnderOwnName(item, true);
    return outcome.What == ShellResult::NoObject || outcome.Aborted ? ItemResult::Stop : ItemResult::Continue;
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
        const NameAnswer answer = ports_.Person.AskNewName(RenameKind::Incoming, item.Target);
        if (answer.Choice != NameChoice::Use)
            return ResultOfUnnamed(answer);
        // Without a name the shell would take the old one and meet the existing item again.
        if (answer.Name.empty() || !CanBeName(answer.Name))
            continue;
        const std::optional<files::FoundItem> taken = ports_.Info.Find(Sibling(item.Target, answer.Name));
        if (taken && taken->IsTimeKnown)
            continue;
        if (TransferAs(item.Source, paths::ParentWithSeparator(item.Target), answer.Name))
            return ItemResult::Continue;
    }
}

ItemResult ItemEngine::TransferAfterRenaming(const Item& item) {
    for (;;) {
        const NameAnswer answer = ports_.Person.AskNewName(RenameKind::Existing, item.Target);
        if (answer.Choice != NameChoice::Use)
            return ResultOfUnnamed(answer);
        if (!CanBeName(answer.Name))
            continue;
        if (!ports_.Changes.Rename(item.Target, Sibling(item.Target, answer.Name))) {
            ports_.Person.ShowError(kMessageRenameFailed);
            continue;
        }
        if (TransferAs(item.Source, paths::ParentWithSeparator(item.Target),
                       paths::LastComponent(item.Target)))
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
    transfer.What = record_.What;
    transfer.Flags = record_.Flags;
    transfer.AskAborted = askAborted;
    const ShellOutcome outcome = ports_.Shell.Transfer(transfer);
    NoteIfLeft(transfer, outcome);
    return outcome;
}

/// False when there was no operation object, so that the person is asked again.
bool ItemEngine::TransferAs(std::wstring_view source, std::wstring_view folder, std::wstring_view name) {
    record_.Flags &= ~kFlagNoConfirmation;
    const ShellTransfer transfer{source, folder, name, record_.What, record_.Flags, false};
    const ShellOutcome outcome = ports_.Shell.Transfer(transfer);
    if (outcome.What == ShellResult::NoObject)
        return false;
    NoteIfLeft(transfer, outcome);
    return true;
}

/// Notes what never reached the shell; of the rest it has told the person.
void ItemEngine::NoteIfLeft(const ShellTransfer& transfer, const ShellOutcome& outcome) {
    if (outcome.What != ShellResult::Done && outcome.What != ShellResult::Failed)
        leftovers_.Add(transfer.Source, ReasonOf(outcome.What), static_cast<std::uint32_t>(outcome.Code));
}

}  // namespace ferry::transfer
