// Copies and moves files and folders so that nothing is lost when anything fails.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "fault_plan.h"
#include "ports.h"
#include "results.h"

namespace ferry::fileop {

enum class Verb { Copy, Move, Rename, NewItem };

/// One queued operation.
struct Operation {
    Verb What = Verb::Copy;
    std::wstring Source;  ///< Empty for a new item.
    std::wstring TargetFolder;
    std::wstring NewName;             ///< Empty: the source keeps its name.
    std::uint32_t NewAttributes = 0;  ///< Of a new item; bit 0x10 asks for a folder.
};

/// Performs the operations of one run, one after the other.
///
/// A file is copied into a temporary sibling of its target and takes the target's place only when
/// it is complete; a source is removed only after that. Whatever fails, the old target or the
/// source is still there and the temporary is not.
class CopyEngine {
public:
    /// The references must outlive the engine. `flags` are the operation's flags.
    CopyEngine(Disk& disk, Person& person, Journal& journal, FaultPlan& faults, std::uint32_t flags);

    /// Performs one operation; kCancelled when the run has to stop, another failure when the
    /// operation or a part of it failed, kSkippedByPerson when a part was skipped.
    Result Perform(const Operation& operation);

    /// Whether something was cancelled, skipped or given up on.
    bool HasAborted() const noexcept { return hasAborted_; }

    /// Whether the operations that are left must not be performed.
    bool MustStop() const noexcept { return mustStop_; }

private:
    struct Transfer {
        Verb What;
        const std::wstring& Source;
        std::wstring Target;
        bool Replaces = false;
    };

    using Deed = std::function<std::uint32_t()>;

    Result TransferItem(Verb verb, ItemKind kind, const std::wstring& source, std::wstring target);
    Result TransferFile(Transfer& transfer);
    Result TransferFolder(Transfer& transfer);
    Result MakeOrMoveFolder(const Transfer& transfer, bool& isMoved);
    Result TransferChildren(const Transfer& transfer);
    Result MakeNewItem(const Operation& operation);
    Result EnsureFolder(const std::wstring& folder);

    std::optional<Result> ResolveAlike(Transfer& transfer, ItemKind existing, bool isFolder);
    Result ResolveFileCollision(Transfer& transfer);
    Result ResolveFolderCollision(Transfer& transfer, bool& merges);
    Result AskCollision(Transfer& transfer);
    void PickFreeName(Transfer& transfer, bool isFolder);
    bool LiesInside(std::wstring_view folder, const std::wstring& source);

    std::uint32_t CopyFile(const Transfer& transfer);
    std::uint32_t MoveFile(const Transfer& transfer, bool& isCopied);

    Result PerformItem(const Transfer& transfer, std::wstring_view verb, const Deed& deed);
    Result Attempt(const std::wstring& path, const std::function<Result()>& deed);
    Result Refuse(const std::wstring& path, Result reason);
    Result Cancel() noexcept;
    bool Has(std::uint32_t flag) const noexcept { return (flags_ & flag) != 0; }

    Disk& disk_;
    Person& person_;
    Journal& journal_;
    FaultPlan& faults_;
    std::uint32_t flags_;
    bool hasAborted_ = false;
    bool mustStop_ = false;
};

/// The result that stands for two: a cancel outweighs a failure, a failure a skip, a skip
/// success; of two failures the first is kept.
Result Heavier(Result first, Result second) noexcept;

}  // namespace ferry::fileop
