// What a run asks of the world. The engines decide; these do.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/clock.h"
#include "files/ports.h"
#include "transfer/request.h"

namespace ferry::transfer {

/// Flags of the shell's file operation (shellapi.h).
inline constexpr std::uint32_t kFlagSilent = 0x0004;
inline constexpr std::uint32_t kFlagRenameOnCollision = 0x0008;
inline constexpr std::uint32_t kFlagNoConfirmation = 0x0010;
inline constexpr std::uint32_t kFlagAllowUndo = 0x0040;
inline constexpr std::uint32_t kFlagNoConfirmMakeFolder = 0x0200;
inline constexpr std::uint32_t kFlagNoCopySecurity = 0x0800;
inline constexpr std::uint32_t kFlagNoConnectedElements = 0x2000;

/// What every batch has: undo, no connected items, no copied security attributes.
inline constexpr std::uint32_t kBatchFlags = kFlagAllowUndo | kFlagNoConnectedElements | kFlagNoCopySecurity;

/// One item that the shell is to transfer, in one description.
struct ShellTransfer {
    std::wstring_view Source;
    std::wstring_view TargetFolder;  ///< With its trailing separator; empty: none is named.
    std::wstring_view NewName;       ///< Empty: the source keeps its name.
    Operation What = Operation::Copy;
    std::uint32_t Flags = 0;
    bool AskAborted = false;
};

/// How an operation of the shell ended.
enum class ShellResult {
    Done,
    Failed,        ///< Performing it failed.
    NoObject,      ///< There was no operation object, or it says that it did nothing.
    NoSourceItem,  ///< The shell knows no item at the source; nothing was queued.
    NoFolderItem,  ///< The shell knows no item at the target folder; nothing was queued.
    NotQueued,     ///< The operation object did not take it.
};

/// What one operation of the shell came to.
struct ShellOutcome {
    ShellResult What = ShellResult::Done;
    std::int32_t Code = 0;  ///< The HRESULT of what failed.
    bool Aborted = false;   ///< What the object says afterwards; false when it was not asked.
};

/// A source of a batch that could not be queued.
struct LeftSource {
    std::wstring_view Source;
    ShellResult Why = ShellResult::NoSourceItem;
    std::int32_t Code = 0;
};

/// What a batch came to.
struct BatchOutcome : ShellOutcome {
    std::vector<LeftSource> Left;  ///< In the order of the sources, with views into their list.
};

/// The shell's file operation.
class ShellOperations {
public:
    virtual ~ShellOperations() = default;

    /// Transfers one item in an operation of its own.
    virtual ShellOutcome Transfer(const ShellTransfer& transfer) = 0;

    /// Transfers all `sources` as `batch` says, which names none itself, in one operation that no window
    /// owns; a source without a shell item is left out.
    virtual BatchOutcome TransferAll(const base::TextList& sources, const ShellTransfer& batch) = 0;

    /// Tells the shell that the folder was made.
    virtual void NotifyFolderMade(std::wstring_view path) = 0;
};

/// Where a run stops for a moment to hear the person.
enum class Pause { Listing, Item };

/// The person's view of a run, and the only way in for a cancel.
class Progress {
public:
    virtual ~Progress() = default;

    /// Starts a bar of `count` steps at 0; at most 65535.
    virtual void SetRange(std::uint32_t count) = 0;

    /// Handles every waiting message, then says and forgets whether the person asked to stop. At a listing,
    /// which asks for each entry, it looks now and then only.
    virtual bool DrainAndTakeCancel(Pause at) = 0;

    virtual void Step() = 0;

    /// Shows the name of the item that was just handled.
    virtual void ShowItem(std::wstring_view name) = 0;

    /// Draws what is known so far, before something that may take long. Else the newest of it is drawn as
    /// often as a person can read.
    virtual void ShowNow() = 0;
};

/// What the person wants done about an item that exists at the destination.
enum class CollisionChoice {
    ThisItem,      ///< The policy of the answer holds for this item.
    ThisAndLater,  ///< And for all later ones.
    SkipItem,
    StopRun,
};

struct CollisionAnswer {
    CollisionChoice Choice = CollisionChoice::SkipItem;
    CollisionPolicy Policy = CollisionPolicy::IfSourceIsNewer;
};

/// What the person wants done with the name that was asked for.
enum class NameChoice { Use, SkipItem, StopRun };

struct NameAnswer {
    NameChoice Choice = NameChoice::SkipItem;
    std::wstring Name;
};

/// Which item gets the new name.
enum class RenameKind { Incoming, Existing };

/// The questions that only a person can answer.
class Questions {
public:
    virtual ~Questions() = default;

    /// Asks what to do about the item `name` that exists at the destination.
    virtual CollisionAnswer AskCollision(std::wstring_view name) = 0;

    /// Asks for a new name for the item at `path`.
    virtual NameAnswer AskNewName(RenameKind kind, std::wstring_view path) = 0;

    /// Shows catalogue text `message` as an error.
    virtual void ShowError(std::uint16_t message) = 0;
};

/// The world as an item-by-item run sees it; all outlive the run.
struct RunPorts {
    files::FileInfo& Info;
    files::FolderSearch& Search;
    files::FileChanges& Changes;
    ShellOperations& Shell;
    calendar::Clock& Clock;
    Questions& Person;
    Progress& View;
};

}  // namespace ferry::transfer
