// The shell, the person and the progress view of the model.
#include <cwchar>
#include <iterator>
#include <utility>

#include "core/transfer/model_ports.h"
#include "paths/path_helpers.h"

namespace ferry::transfer::model {
namespace {

constexpr std::int32_t kNotFound = static_cast<std::int32_t>(0x80070002);
constexpr std::int32_t kNoPath = static_cast<std::int32_t>(0x80070003);
constexpr std::int32_t kBadName = static_cast<std::int32_t>(0x8007007B);
constexpr std::int32_t kSameFile = static_cast<std::int32_t>(0x80270003);
constexpr std::int32_t kUnspecified = static_cast<std::int32_t>(0x80004005);
constexpr std::wstring_view kForbidden = L"/:*?\"><|\\";

std::wstring FreshName(const Node& folder, const std::wstring& name) {
    for (int number = 2;; ++number) {
        std::wstring fresh = name + L" (" + std::to_wstring(number) + L")";
        if (Tree::Child(folder, fresh) == nullptr)
            return fresh;
    }
}

std::wstring Details(const ShellTransfer& transfer) {
    wchar_t flags[16];
    std::swprintf(flags, std::size(flags), L"%04X", static_cast<unsigned>(transfer.Flags));
    std::wstring text = L"> ";
    text += transfer.TargetFolder;
    if (!transfer.NewName.empty())
        text.append(L" as ").append(transfer.NewName);
    text.append(L" flags ").append(flags);
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

ShellOutcome ModelShell::TransferFile(const ShellTransfer& transfer) {
    const bool copies = transfer.Function == kFunctionCopy;
    const std::wstring details = world_.Logging ? Details(transfer) : std::wstring();
    const std::wstring_view name =
        transfer.NewName.empty() ? paths::LastComponent(transfer.Source) : transfer.NewName;
    const std::wstring target = std::wstring(transfer.TargetFolder).append(name);
    const Fault fault = world_.Enter(copies ? L"Copy" : L"Move", transfer.Source, details, target);
    ShellOutcome outcome;
    if (fault == Fault::Fail)
        outcome.Result = kUnspecified;
    else if (fault == Fault::NoObject)
        outcome.Result = 1;
    else if (fault == Fault::Cancel)
        outcome.Aborted = transfer.AskAborted;
    else if (fault != Fault::DoNothing)
        outcome = Perform(transfer, fault);
    if (fault == Fault::Late || fault == Fault::LateNoObject)
        outcome.Result = fault == Fault::Late ? kUnspecified : 1;
    // Only the transfer under the file's own name asks, and it ends the run without an object too.
    world_.HasStopped =
        world_.HasStopped || (transfer.AskAborted && (outcome.Aborted || outcome.Result == 1));
    return outcome;
}

ShellOutcome ModelShell::Perform(const ShellTransfer& transfer, Fault fault) {
    Node* const source = world_.Files.At(transfer.Source);
    if (source == nullptr || source->IsFolder)
        return {kNotFound, false};
    Node* const folder = world_.Files.At(transfer.TargetFolder);
    if (folder == nullptr || !folder->IsFolder)
        return {kNoPath, false};
    Placing placing{transfer, *source, *folder, source->Name, false, fault};
    if (!transfer.NewName.empty())
        placing.Name = TakenName(transfer.NewName);
    if (placing.Name.empty() || placing.Name.find_first_of(kForbidden) != std::wstring::npos)
        return {kBadName, false};

    const Node* const existing = Tree::Child(*folder, placing.Name);
    if (existing == nullptr)
        return Place(placing);
    if ((transfer.Flags & kFlagRenameOnCollision) != 0) {
        placing.Name = FreshName(*folder, placing.Name);
        return Place(placing);
    }
    if (existing == source || existing->IsFolder)
        return {kSameFile, false};
    if ((transfer.Flags & kFlagNoConfirmation) != 0)
        return Place(placing);
    switch (Answer ? Answer() : ShellAnswer::Skip) {
        case ShellAnswer::Abort:
            return {0, transfer.AskAborted};
        case ShellAnswer::Overwrite:
            placing.PersonAgreed = true;
            return Place(placing);
        default:
            return {0, false};
    }
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
    record.IsInRenamedPlace = world_.ToldRenamed.contains(Fold(record.Target));
    record.WasDeclined = world_.HasDeclined;
    record.SourceStays = transfer.Function == kFunctionCopy || isHalf || placing.What == Fault::KeepSource;
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
    if (!record.SourceStays)
        world_.Files.Detach(transfer.Source);
    placing.Folder.Children.push_back(std::move(placed));
    world_.Transfers.push_back(std::move(record));
    return {fails ? kUnspecified : 0, false};
}

std::int32_t ModelShell::TransferBatch(const base::TextList& sources, std::wstring_view destination,
                                       std::uint32_t function, std::uint32_t flags) {
    const Fault fault = world_.Enter(L"Batch", destination, std::to_wstring(function));
    if (fault == Fault::NoObject)
        return 1;
    if (fault == Fault::Fail)
        return kUnspecified;
    for (const std::wstring_view source : sources) {
        if (world_.Files.At(source) != nullptr)
            TransferTree(std::wstring(source), std::wstring(destination), function, flags);
    }
    return 0;
}

void ModelShell::TransferTree(const std::wstring& source, const std::wstring& destination,
                              std::uint32_t function, std::uint32_t flags) {
    const Node* const node = world_.Files.At(source);
    if (!node->IsFolder) {
        Perform({source, destination, {}, function, flags, false}, Fault::None);
        return;
    }
    const std::wstring target = destination + node->Name + L'\\';
    world_.Files.AddFolder(target);
    std::vector<std::wstring> names;
    for (const auto& child : node->Children)
        names.push_back(child->Name);
    for (const auto& name : names)
        TransferTree(source + L'\\' + name, target, function, flags);
    if (function == kFunctionMove && node->Children.empty())
        world_.Files.Detach(source);
}

CollisionAnswer ModelQuestions::AskCollision(std::wstring_view name) {
    CollisionAnswer answer;
    if (!Stops(world_.EnterPlain(L"AskCollision", name)) && Collision)
        answer = Collision();
    if (answer.EndCode == kEndOk)
        world_.PolicyForOne = answer.Policy;
    else if (answer.EndCode == kEndForAll)
        world_.RunPolicy = answer.Policy;
    else
        Refuse(answer.EndCode == kEndStopAll);
    return answer;
}

NameAnswer ModelQuestions::AskNewName(RenameKind kind, std::wstring_view path) {
    const bool incoming = kind == RenameKind::Incoming;
    NameAnswer answer;
    if (!Stops(world_.EnterPlain(incoming ? L"AskNameForIncoming" : L"AskNameForExisting", path)) && NewName)
        answer = NewName();
    if (answer.EndCode != kEndOk)
        Refuse(answer.EndCode == kEndForAll);
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

bool ModelProgress::DrainAndTakeCancel() {
    world_.PolicyForOne.reset();
    world_.HasDeclined = false;
    world_.TargetWasSeen.reset();
    const Fault fault = world_.EnterPlain(L"Drain");
    const bool isCancelled = std::exchange(CancelRequested, false) || fault == Fault::Cancel;
    world_.HasStopped = world_.HasStopped || isCancelled;
    return isCancelled;
}

void ModelProgress::Step() {
    world_.EnterPlain(L"Step");
    ++Steps.back();
}

void ModelProgress::ShowItem(std::wstring_view name) {
    world_.EnterPlain(L"Show", name);
}

}  // namespace ferry::transfer::model
