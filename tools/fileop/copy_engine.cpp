#include "copy_engine.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "item_path.h"

namespace ferry::fileop {
namespace {

constexpr std::uint32_t kAttributeDirectory = 0x10;

wchar_t Folded(wchar_t unit) noexcept {
    return unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit - L'A' + L'a') : unit;
}

// A new spelling of the same name in the same folder: the only way in which an item may be
// moved onto itself.
bool IsChangeOfCase(const std::wstring& source, const std::wstring& target) {
    const std::wstring_view from = NameOf(source);
    const std::wstring_view to = NameOf(target);
    return from != to && FolderOf(source) == FolderOf(target) &&
           std::equal(from.begin(), from.end(), to.begin(), to.end(),
                      [](wchar_t left, wchar_t right) { return Folded(left) == Folded(right); });
}

std::wstring_view WordFor(Verb verb) noexcept {
    switch (verb) {
        case Verb::Copy:
            return L"copy";
        case Verb::Move:
            return L"move";
        case Verb::Rename:
            return L"rename";
        case Verb::NewItem:
            break;
    }
    return L"new";
}

}  // namespace

CopyEngine::CopyEngine(Disk& disk, Person& person, Journal& journal, FaultPlan& faults, std::uint32_t flags)
    : disk_(disk), person_(person), journal_(journal), faults_(faults), flags_(flags) {}

Result CopyEngine::Perform(const Operation& operation) {
    if (operation.What == Verb::NewItem) {
        return MakeNewItem(operation);
    }
    const std::wstring& source = operation.Source;
    const ItemKind kind = disk_.Kind(source);
    if (kind == ItemKind::Missing) {
        return Refuse(source, FromWindowsError(kErrorFileNotFound));
    }
    const std::wstring name = operation.NewName.empty() ? std::wstring(NameOf(source)) : operation.NewName;
    if (NameOf(source).empty()) {
        return Refuse(source, kRootAsSource);
    }
    if (!IsItemName(name)) {
        return Refuse(source, FromWindowsError(kErrorInvalidName));
    }
    if (kind == ItemKind::Folder && LiesInside(operation.TargetFolder, source)) {
        return Refuse(source, kIntoItself);
    }
    const Result folder = EnsureFolder(operation.TargetFolder);
    return folder == kDone
               ? TransferItem(operation.What, kind, source, JoinPath(operation.TargetFolder, name))
               : folder;
}

Result CopyEngine::TransferItem(Verb verb, ItemKind kind, const std::wstring& source, std::wstring target) {
    Transfer transfer{verb, source, std::move(target)};
    if (kind == ItemKind::Link && verb == Verb::Copy) {
        return Refuse(source, FromWindowsError(kErrorNotSupported));
    }
    return kind == ItemKind::Folder ? TransferFolder(transfer) : TransferFile(transfer);
}

Result CopyEngine::TransferFile(Transfer& transfer) {
    if (const Result collision = ResolveFileCollision(transfer); collision != kDone) {
        return collision;
    }
    bool isCopied = false;
    return PerformItem(transfer, WordFor(transfer.What), [&] {
        return transfer.What == Verb::Copy ? CopyFile(transfer) : MoveFile(transfer, isCopied);
    });
}

Result CopyEngine::TransferFolder(Transfer& transfer) {
    bool merges = false;
    if (const Result collision = ResolveFolderCollision(transfer, merges); collision != kDone) {
        return collision;
    }
    bool isMoved = false;
    if (!merges) {
        if (const Result made = MakeOrMoveFolder(transfer, isMoved); made != kDone || isMoved) {
            return made;
        }
    }
    const Result children = TransferChildren(transfer);
    if (!merges) {
        // Only now: a read-only folder may refuse new entries. Best effort, the content is there.
        disk_.CopyFolderAttributes(transfer.Source, transfer.Target);
    }
    if (children != kDone || transfer.What == Verb::Copy) {
        return children;
    }
    return Attempt(transfer.Source, [&] { return FromWindowsError(disk_.RemoveFolder(transfer.Source)); });
}

Result CopyEngine::MakeOrMoveFolder(const Transfer& transfer, bool& isMoved) {
    const bool moves = transfer.What != Verb::Copy;
    return PerformItem(transfer, moves ? WordFor(transfer.What) : L"folder", [&] {
        if (moves) {
            const std::uint32_t code = disk_.Rename(transfer.Source, transfer.Target, false);
            if (code != kErrorNotSameDevice) {
                isMoved = code == 0;
                return code;
            }
        }
        return disk_.MakeFolder(transfer.Target);
    });
}

Result CopyEngine::TransferChildren(const Transfer& transfer) {
    std::vector<std::wstring> names;
    Result total =
        Attempt(transfer.Source, [&] { return FromWindowsError(disk_.List(transfer.Source, names)); });
    if (total != kDone) {
        return total;
    }
    const Verb verb = transfer.What == Verb::Copy ? Verb::Copy : Verb::Move;
    for (const std::wstring& name : names) {
        const std::wstring source = JoinPath(transfer.Source, name);
        total =
            Heavier(total, TransferItem(verb, disk_.Kind(source), source, JoinPath(transfer.Target, name)));
        if (mustStop_) {
            break;
        }
    }
    return total;
}

Result CopyEngine::MakeNewItem(const Operation& operation) {
    const bool isFolder = (operation.NewAttributes & kAttributeDirectory) != 0;
    const std::wstring noSource;
    Transfer transfer{Verb::NewItem, noSource, JoinPath(operation.TargetFolder, operation.NewName)};
    if (!IsItemName(operation.NewName)) {
        return Refuse(transfer.Target, FromWindowsError(kErrorInvalidName));
    }
    if (const Result folder = EnsureFolder(operation.TargetFolder); folder != kDone) {
        return folder;
    }
    if (Has(kFlagRenameOnCollision) && disk_.Kind(transfer.Target) != ItemKind::Missing) {
        PickFreeName(transfer, isFolder);
    }
    return PerformItem(transfer, WordFor(Verb::NewItem), [&] {
        return isFolder ? disk_.MakeFolder(transfer.Target)
                        : disk_.MakeFile(transfer.Target, operation.NewAttributes);
    });
}

Result CopyEngine::EnsureFolder(const std::wstring& folder) {
    const ItemKind kind = disk_.Kind(folder);
    if (kind == ItemKind::Folder || kind == ItemKind::Link) {
        return kDone;
    }
    if (kind == ItemKind::File) {
        return Refuse(folder, FromWindowsError(kErrorPathNotFound));
    }
    if (!Has(kFlagNoConfirmMakeFolder) && !Has(kFlagNoConfirmation)) {
        const bool isAllowed = person_.AskMakeFolder(folder);
        journal_.Question(folder, isAllowed ? L"make folder" : L"cancel");
        if (!isAllowed) {
            return Cancel();
        }
    }
    return Attempt(folder, [&] { return FromWindowsError(disk_.MakeFolder(folder)); });
}

// What files and folders have in common; nothing where they differ.
std::optional<Result> CopyEngine::ResolveAlike(Transfer& transfer, ItemKind existing, bool isFolder) {
    if (existing == ItemKind::Missing) {
        return kDone;
    }
    const bool isSame = disk_.IsSame(transfer.Source, transfer.Target);
    if (isSame && transfer.What != Verb::Copy) {
        return IsChangeOfCase(transfer.Source, transfer.Target) ? kDone : Refuse(transfer.Source, kSameFile);
    }
    if (Has(kFlagRenameOnCollision)) {
        PickFreeName(transfer, isFolder);
        return kDone;
    }
    if (isSame) {
        return Refuse(transfer.Source, kSameFile);
    }
    return std::nullopt;
}

Result CopyEngine::ResolveFileCollision(Transfer& transfer) {
    const ItemKind kind = disk_.Kind(transfer.Target);
    if (const auto resolved = ResolveAlike(transfer, kind, false)) {
        return *resolved;
    }
    if (kind != ItemKind::File) {
        return Refuse(transfer.Source, kFileOntoFolder);
    }
    if (Has(kFlagNoConfirmation)) {
        transfer.Replaces = true;
        return kDone;
    }
    return AskCollision(transfer);
}

Result CopyEngine::ResolveFolderCollision(Transfer& transfer, bool& merges) {
    const ItemKind kind = disk_.Kind(transfer.Target);
    if (const auto resolved = ResolveAlike(transfer, kind, true)) {
        return *resolved;
    }
    if (kind == ItemKind::File) {
        return Refuse(transfer.Source, kFolderOntoFile);
    }
    merges = true;
    return kDone;
}

Result CopyEngine::AskCollision(Transfer& transfer) {
    switch (person_.AskCollision(transfer.Source, transfer.Target)) {
        case CollisionAnswer::Replace:
            journal_.Question(transfer.Target, L"replace");
            transfer.Replaces = true;
            return kDone;
        case CollisionAnswer::Skip:
            journal_.Question(transfer.Target, L"skip");
            hasAborted_ = true;
            return kSkippedByPerson;
        case CollisionAnswer::Cancel:
            break;
    }
    journal_.Question(transfer.Target, L"cancel");
    return Cancel();
}

void CopyEngine::PickFreeName(Transfer& transfer, bool isFolder) {
    const std::wstring folder(FolderOf(transfer.Target));
    const std::wstring name(NameOf(transfer.Target));
    const bool isBeside =
        !transfer.Source.empty() && disk_.IsSame(std::wstring(FolderOf(transfer.Source)), folder);
    const FreeNameStyle style = isBeside ? FreeNameStyle::Copy : FreeNameStyle::Number;
    std::uint32_t attempt = 1;
    do {
        transfer.Target = JoinPath(folder, FreeName(name, isFolder, style, attempt));
        ++attempt;
    } while (disk_.Kind(transfer.Target) != ItemKind::Missing);
}

bool CopyEngine::LiesInside(std::wstring_view folder, const std::wstring& source) {
    for (; !folder.empty(); folder = FolderOf(folder)) {
        if (disk_.IsSame(std::wstring(folder), source)) {
            return true;
        }
    }
    return false;
}

std::uint32_t CopyEngine::CopyFile(const Transfer& transfer) {
    // A move takes the source away afterwards, so its copy has to be on the volume by then.
    const bool settles = transfer.What != Verb::Copy;
    std::wstring temporary;
    std::uint32_t code = 0;
    do {
        temporary = disk_.TemporaryBeside(transfer.Target);
        code = disk_.Copy(transfer.Source, temporary, settles, [this] { return !person_.HasCancelled(); });
        // A run that was ended hard may have left one of this name.
    } while (code == kErrorFileExists);
    if (code == 0) {
        code = disk_.Rename(temporary, transfer.Target, transfer.Replaces);
    }
    if (code != 0) {
        disk_.RemoveFile(temporary);  // it may not even be there; the first error is the one to tell
    }
    return code;
}

std::uint32_t CopyEngine::MoveFile(const Transfer& transfer, bool& isCopied) {
    if (!isCopied) {
        const std::uint32_t code = disk_.Rename(transfer.Source, transfer.Target, transfer.Replaces);
        if (code != kErrorNotSameDevice) {
            return code;
        }
        if (const std::uint32_t copied = CopyFile(transfer); copied != 0) {
            return copied;
        }
        isCopied = true;  // a retry has only the removal left to do
    }
    return disk_.RemoveFile(transfer.Source);
}

Result CopyEngine::PerformItem(const Transfer& transfer, std::wstring_view verb, const Deed& deed) {
    const std::wstring& path = transfer.Source.empty() ? transfer.Target : transfer.Source;
    person_.ShowItem(path);
    if (person_.HasCancelled()) {
        return Cancel();
    }
    const Fault fault = faults_.Next();
    if (fault.WaitMs != 0) {
        person_.Wait(fault.WaitMs);
    }
    Result result = kFailed;
    if (fault.Aborts || person_.HasCancelled()) {
        result = Cancel();
    } else if (!fault.Fails) {
        bool failsOnce = fault.FailsWithWindow;
        result = Attempt(
            path, [&] { return std::exchange(failsOnce, false) ? kFailed : FromWindowsError(deed()); });
    }
    journal_.Item({fault.Place, verb, transfer.Source, transfer.Target, result});
    return result;
}

Result CopyEngine::Attempt(const std::wstring& path, const std::function<Result()>& deed) {
    for (;;) {
        const Result result = deed();
        if (result == kDone) {
            return kDone;
        }
        if (result == FromWindowsError(kErrorRequestAborted)) {
            return Cancel();
        }
        journal_.Failure(path, result);
        if (Has(kFlagNoErrorWindow)) {
            hasAborted_ = true;
            mustStop_ = mustStop_ || Has(kFlagEarlyFailure);
            return result;
        }
        switch (person_.AskError(path, result)) {
            case ErrorAnswer::Retry:
                journal_.Question(path, L"retry");
                break;
            case ErrorAnswer::Skip:
                journal_.Question(path, L"skip");
                hasAborted_ = true;
                return kSkippedByPerson;
            case ErrorAnswer::Cancel:
                journal_.Question(path, L"cancel");
                return Cancel();
        }
    }
}

Result CopyEngine::Refuse(const std::wstring& path, Result reason) {
    return Attempt(path, [reason] { return reason; });
}

Result Heavier(Result first, Result second) noexcept {
    if (first == kCancelled || second == kCancelled) {
        return kCancelled;
    }
    return first < 0 || second == kDone ? first : second;
}

Result CopyEngine::Cancel() noexcept {
    hasAborted_ = true;
    mustStop_ = true;
    return kCancelled;
}

}  // namespace ferry::fileop
