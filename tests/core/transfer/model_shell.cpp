// The shell, the person and the progress view of the model.
#include <cwchar>
#include <iterator>
#include <utility>

#include "core/transfer/model_ports.h"

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
    switch (world_.Enter(copies ? L"Copy" : L"Move", transfer.Source, details)) {
        case Fault::Fail:
            return {kUnspecified, false};
        case Fault::NoObject:
            return {1, false};
        case Fault::Cancel:
            return {0, transfer.AskAborted};
        case Fault::DoNothing:
            return {0, false};
        default:
            return Perform(transfer);
    }
}

ShellOutcome ModelShell::Perform(const ShellTransfer& transfer) {
    Node* const source = world_.Files.At(transfer.Source);
    if (source == nullptr || source->IsFolder)
        return {kNotFound, false};
    Node* const folder = world_.Files.At(transfer.TargetFolder);
    if (folder == nullptr || !folder->IsFolder)
        return {kNoPath, false};
    std::wstring name(transfer.NewName.empty() ? std::wstring_view(source->Name) : transfer.NewName);
    if (name.find_first_of(kForbidden) != std::wstring::npos)
        return {kBadName, false};

    const Node* const existing = Tree::Child(*folder, name);
    if (existing == nullptr)
        return Place(transfer, *source, *folder, name, false);
    if ((transfer.Flags & kFlagRenameOnCollision) != 0)
        return Place(transfer, *source, *folder, FreshName(*folder, name), false);
    if (existing == source || existing->IsFolder)
        return {kSameFile, false};
    if ((transfer.Flags & kFlagNoConfirmation) != 0)
        return Place(transfer, *source, *folder, name, false);
    switch (Answer ? Answer() : ShellAnswer::Skip) {
        case ShellAnswer::Abort:
            return {0, transfer.AskAborted};
        case ShellAnswer::Overwrite:
            return Place(transfer, *source, *folder, name, true);
        default:
            return {0, false};
    }
}

ShellOutcome ModelShell::Place(const ShellTransfer& transfer, Node& source, Node& folder,
                               const std::wstring& name, bool personAgreed) {
    Transferred record;
    record.Source = transfer.Source;
    record.Target = std::wstring(transfer.TargetFolder) + name;
    record.Content = source.Content;
    record.SourceTime = source.LastWriteTime;
    record.PersonAgreed = personAgreed;
    record.Policy = world_.EffectivePolicy();
    auto placed = CopyOf(source, name);
    if (const Node* const existing = Tree::Child(folder, name); existing != nullptr && existing != &source) {
        record.Overwritten = existing->Content;
        record.OverwrittenTime = existing->LastWriteTime;
        world_.Files.Detach(record.Target);
    }
    if (transfer.Function != kFunctionCopy)
        world_.Files.Detach(transfer.Source);
    folder.Children.push_back(std::move(placed));
    world_.Transfers.push_back(std::move(record));
    return {0, false};
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
        Perform({source, destination, {}, function, flags, false});
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
    if (world_.EnterPlain(L"AskCollision", name) != Fault::None || !Collision)
        return {};
    const CollisionAnswer answer = Collision();
    if (answer.EndCode == kEndOk)
        world_.PolicyForOne = answer.Policy;
    if (answer.EndCode == kEndForAll)
        world_.RunPolicy = answer.Policy;
    return answer;
}

NameAnswer ModelQuestions::AskNewName(RenameKind kind, std::wstring_view path) {
    const bool incoming = kind == RenameKind::Incoming;
    if (world_.EnterPlain(incoming ? L"AskNameForIncoming" : L"AskNameForExisting", path) != Fault::None ||
        !NewName)
        return {};
    return NewName();
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
    const Fault fault = world_.EnterPlain(L"Drain");
    return std::exchange(CancelRequested, false) || fault == Fault::Cancel;
}

void ModelProgress::Step() {
    world_.EnterPlain(L"Step");
    ++Steps.back();
}

void ModelProgress::ShowItem(std::wstring_view name) {
    world_.EnterPlain(L"Show", name);
}

}  // namespace ferry::transfer::model
