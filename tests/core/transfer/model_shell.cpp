// The shell, the person and the progress view of the model.
#include <cwchar>
#include <iterator>
#include <utility>

#include "base/case_order.h"
#include "core/transfer/model_ports.h"
#include "paths/path_grammar.h"

namespace ferry::transfer::model {
namespace {

constexpr std::int32_t kNothingQueued = static_cast<std::int32_t>(0x8000FFFF);
constexpr std::int32_t kCancelled = static_cast<std::int32_t>(0x80270000);
constexpr std::int32_t kRefused = static_cast<std::int32_t>(0x80270003);
constexpr std::int32_t kNotFound = static_cast<std::int32_t>(0x80070002);
constexpr std::int32_t kUnspecified = static_cast<std::int32_t>(0x80004005);

constexpr ShellOutcome kFailed{ShellResult::Failed, kUnspecified, false};
constexpr ShellOutcome kNoObject{ShellResult::NoObject, 1, false};

std::wstring FreshName(const Node& folder, const std::wstring& name) {
    for (int number = 2;; ++number) {
        std::wstring fresh = name + L" (" + std::to_wstring(number) + L")";
        if (Tree::Child(folder, fresh) == nullptr)
            return fresh;
    }
}

std::wstring Hexadecimal(std::uint32_t flags) {
    wchar_t digits[16];
    std::swprintf(digits, std::size(digits), L"%04X", static_cast<unsigned>(flags));
    return digits;
}

std::wstring Details(const ShellTransfer& transfer) {
    std::wstring text = L"> ";
    text += transfer.TargetFolder;
    if (!transfer.NewName.empty())
        text.append(L" as ").append(transfer.NewName);
    text.append(L" flags ").append(Hexadecimal(transfer.Flags));
    if (transfer.AskAborted)
        text += L" asked";
    return text;
}

std::unique_ptr<Node> CopyOf(const Node& node, const std::wstring& name) {
    auto copy = std::make_unique<Node>();
    copy->Name = name;
    copy->IsFolder = node.IsFolder;
    copy->Attributes = node.Attributes;
    copy->LastWriteTime = node.LastWriteTime;
    copy->Content = node.Content;
    copy->ExtraSize = node.ExtraSize;
    return copy;
}

}  // namespace

ShellOutcome ModelShell::Transfer(const ShellTransfer& transfer) {
    const bool copies = transfer.What == Operation::Copy;
    const std::wstring details = world_.Logging ? Details(transfer) : std::wstring();
    const std::wstring_view name =
        transfer.NewName.empty() ? paths::LastComponent(transfer.Source) : transfer.NewName;
    const std::wstring target = std::wstring(transfer.TargetFolder).append(name);
    const Fault fault = world_.Enter(copies ? L"Copy" : L"Move", transfer.Source, details, target);
    ShellOutcome outcome;
    if (fault == Fault::Fail)
        outcome = kFailed;
    else if (fault == Fault::NoObject)
        outcome = kNoObject;
    else if (fault == Fault::Cancel)
        outcome.Aborted = transfer.AskAborted;
    else if (fault != Fault::DoNothing)
        outcome = Perform(transfer, fault);
    if (fault == Fault::Late || fault == Fault::LateNoObject)
        outcome = fault == Fault::Late ? kFailed : kNoObject;
    // Only the transfer under the file's own name asks, and it ends the run without an object too.
    world_.HasStopped = world_.HasStopped ||
                        (transfer.AskAborted && (outcome.Aborted || outcome.What == ShellResult::NoObject));
    return outcome;
}

ShellOutcome ModelShell::Perform(const ShellTransfer& transfer, Fault fault) {
    Node* const source = world_.Files.At(transfer.Source);
    Node* const folder = world_.Files.At(transfer.TargetFolder);
    // The shell makes no item of a path with a slash in it.
    const auto hasSlash = [](std::wstring_view path) { return path.find(L'/') != std::wstring_view::npos; };
    if (source == nullptr || hasSlash(transfer.Source))
        return {ShellResult::NoSourceItem, kNotFound, false};
    if (folder == nullptr || hasSlash(transfer.TargetFolder))
        return {ShellResult::NoFolderItem, kNotFound, false};
    // What is refused the person has to skip, and that counts as an abort.
    const ShellOutcome refused{ShellResult::Failed, kRefused, transfer.AskAborted};
    Placing placing{transfer, *source, *folder, source->Name, false, fault};
    if (!transfer.NewName.empty())
        placing.Name = TakenName(transfer.NewName);
    if (!folder->IsFolder || IsForbiddenName(placing.Name))
        return refused;
    const Node* const existing = Tree::Child(*folder, placing.Name);
    if (existing == source && transfer.What == Operation::Move)
        return refused;
    if (existing != nullptr && (transfer.Flags & kFlagRenameOnCollision) != 0)
        placing.Name = FreshName(*folder, placing.Name);
    else if (existing != nullptr && (existing == source || existing->IsFolder != source->IsFolder))
        return refused;
    else if (existing != nullptr && !source->IsFolder && (transfer.Flags & kFlagNoConfirmation) == 0)
        return PlaceIfAgreed(placing);
    return source->IsFolder ? PlaceFolder(placing) : Place(placing);
}

ShellOutcome ModelShell::PlaceIfAgreed(Placing& placing) {
    const ShellAnswer answer = Answer ? Answer() : ShellAnswer::Skip;
    if (answer != ShellAnswer::Overwrite)
        return answer == ShellAnswer::Abort
                   ? ShellOutcome{ShellResult::Failed, kCancelled, placing.Transfer.AskAborted}
                   : ShellOutcome{ShellResult::Done, 0, placing.Transfer.AskAborted};
    placing.PersonAgreed = true;
    return Place(placing);
}

ShellOutcome ModelShell::PlaceFolder(const Placing& placing) {
    const ShellTransfer& transfer = placing.Transfer;
    const std::wstring source = PlainPath(transfer.Source);
    const std::wstring target = paths::WithTrailingSeparator(transfer.TargetFolder) + placing.Name + L'\\';
    if (base::SmallLetters(target).starts_with(base::SmallLetters(source) + L'\\'))
        return {ShellResult::Failed, kRefused, transfer.AskAborted};
    world_.FoldersHandedOver.insert(base::SmallLetters(source));
    world_.Touch(world_.Files.AddFolder(target));
    world_.Touch(placing.Folder);
    std::vector<std::wstring> names;
    for (const auto& child : placing.Source.Children)
        names.push_back(child->Name);
    ShellOutcome whole;
    for (const std::wstring& name : names) {
        const std::wstring path = source + L'\\' + name;
        const ShellOutcome one =
            Perform({path, target, {}, transfer.What, transfer.Flags, transfer.AskAborted}, placing.What);
        const bool aborted = one.Aborted || whole.Aborted;
        whole = one.What == ShellResult::Done ? whole : one;
        whole.Aborted = aborted;
    }
    if (transfer.What == Operation::Move && placing.Source.Children.empty()) {
        world_.Touch(*world_.Files.ParentOf(source));
        world_.Files.Detach(source);
    }
    return whole;
}

ShellOutcome ModelShell::Place(const Placing& placing) {
    const ShellTransfer& transfer = placing.Transfer;
    const bool isHalf = placing.What == Fault::Half;
    Transferred record;
    record.Source = transfer.Source;
    record.Target = std::wstring(transfer.TargetFolder) + placing.Name;
    record.Content = placing.Source.Content;
    record.SourceTime = placing.Source.LastWriteTime;
    record.Flags = transfer.Flags;
    record.PersonAgreed = placing.PersonAgreed;
    record.TargetWasSeen = world_.TargetWasSeen.value_or(false);
    record.TargetWasHidden = world_.TargetWasHidden;
    // The shell may have picked a name beside the one that it was given.
    const std::wstring asked =
        std::wstring(transfer.TargetFolder)
            .append(transfer.NewName.empty() ? placing.Name : TakenName(transfer.NewName));
    record.IsInRenamedPlace = world_.ToldRenamed.contains(base::SmallLetters(asked));
    record.WasDeclined = world_.HasDeclined;
    record.SourceStays = transfer.What == Operation::Copy || isHalf || placing.What == Fault::KeepSource;
    record.Policy = world_.EffectivePolicy();
    auto placed = CopyOf(placing.Source, placing.Name);
    if (isHalf)
        placed->Content = "half of " + placed->Content;
    const Node* const existing = Tree::Child(placing.Folder, placing.Name);
    if (existing != nullptr && existing != &placing.Source) {
        record.Overwritten = existing->Content;
        record.OverwrittenTime = existing->LastWriteTime;
        world_.Files.Detach(record.Target);
    }
    const bool fails = isHalf || placing.What == Fault::KeepSource;
    if (!record.SourceStays) {
        world_.Touch(*world_.Files.ParentOf(transfer.Source));
        world_.Files.Detach(transfer.Source);
    }
    placing.Folder.Children.push_back(std::move(placed));
    world_.Touch(placing.Folder);
    world_.Transfers.push_back(std::move(record));
    return fails ? kFailed : ShellOutcome{};
}

BatchOutcome ModelShell::TransferAll(const base::TextList& sources, const ShellTransfer& batch) {
    std::wstring details = batch.What == Operation::Copy ? L"copy" : L"move";
    for (const std::wstring_view source : sources)
        details.append(L" ").append(source);
    const Fault fault =
        world_.Enter(L"Batch", batch.TargetFolder, details + L" flags " + Hexadecimal(batch.Flags));
    if (fault == Fault::NoObject)
        return {kNoObject, {}};
    if (fault == Fault::Fail)
        return {kFailed, {}};
    BatchOutcome whole{{ShellResult::Failed, kNothingQueued, false}, {}};
    bool isFirst = true;
    for (const std::wstring_view source : sources) {
        ShellTransfer transfer = batch;
        transfer.Source = source;
        const ShellOutcome one = Perform(transfer, Fault::None);
        // What cannot be queued is left out.
        if (one.What == ShellResult::NoSourceItem || one.What == ShellResult::NoFolderItem) {
            whole.Left.push_back({source, one.What, one.Code});
            continue;
        }
        if (std::exchange(isFirst, false) || whole.What == ShellResult::Done)
            static_cast<ShellOutcome&>(whole) = one;
    }
    return whole;
}

CollisionAnswer ModelQuestions::AskCollision(std::wstring_view name) {
    CollisionAnswer answer;
    if (!Stops(world_.EnterPlain(L"AskCollision", name)) && Collision)
        answer = Collision();
    const auto policy = static_cast<std::uint32_t>(answer.Policy);
    if (answer.Choice == CollisionChoice::ThisItem)
        world_.PolicyForOne = policy;
    else if (answer.Choice == CollisionChoice::ThisAndLater)
        world_.RunPolicy = policy;
    else
        Refuse(answer.Choice == CollisionChoice::StopRun);
    return answer;
}

NameAnswer ModelQuestions::AskNewName(RenameKind kind, std::wstring_view path) {
    const bool incoming = kind == RenameKind::Incoming;
    NameAnswer answer;
    if (!Stops(world_.EnterPlain(incoming ? L"AskNameForIncoming" : L"AskNameForExisting", path)) && NewName)
        answer = NewName();
    if (answer.Choice != NameChoice::Use)
        Refuse(answer.Choice == NameChoice::StopRun);
    return answer;
}

void ModelQuestions::Refuse(bool stops) {
    world_.HasDeclined = true;
    world_.HasStopped = world_.HasStopped || stops;
}

void ModelQuestions::ShowError(std::uint16_t message) {
    world_.EnterPlain(L"ShowError", std::to_wstring(message));
    Errors.push_back(message);
}

void ModelProgress::SetRange(std::uint32_t count) {
    world_.EnterPlain(L"SetRange", std::to_wstring(count));
    Ranges.push_back(count);
    Steps.push_back(0);
    FoldersRemovedAtRange = world_.RemovedFolders.size();
}

bool ModelProgress::DrainAndTakeCancel(Pause at) {
    if (at == Pause::Listing)
        return ++Asked == StopAtAsking || std::exchange(CancelRequested, false);
    world_.PolicyForOne.reset();
    world_.HasDeclined = false;
    world_.TargetWasSeen.reset();
    world_.TargetWasHidden = false;
    const Fault fault = world_.EnterPlain(L"Drain");
    const bool isCancelled = std::exchange(CancelRequested, false) || fault == Fault::Cancel;
    world_.HasStopped = world_.HasStopped || isCancelled;
    return isCancelled;
}

void ModelProgress::Step() {
    world_.EnterPlain(L"Step");
    ++Steps.back();
}

void ModelProgress::ShowNow() {
    Shown.push_back(std::to_wstring(Steps.empty() ? 0 : Steps.back()) + L" " + Line);
}

void ModelProgress::ShowItem(std::wstring_view name) {
    world_.EnterPlain(L"Show", name);
    Line = name;
}

void ModelShell::NotifyFolderMade(std::wstring_view path) {
    world_.Enter(L"NotifyFolderMade", path);
}

}  // namespace ferry::transfer::model
