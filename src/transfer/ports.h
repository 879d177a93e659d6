// What a run asks of the world. The engines decide; these do.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "transfer/request.h"

namespace ferry::transfer {

/// What a directory search says about an item. Times are FILETIME values: 100 ns units since
/// 1601-01-01 UTC.
struct FoundItem {
    std::wstring Name;
    std::uint32_t Attributes = 0;
    std::uint64_t LastWriteTime = 0;
    bool IsTimeKnown = true;  ///< False for an item that is, or may be, there but cannot be read.
};

inline constexpr std::uint32_t kAttributeDirectory = 0x10;
inline constexpr std::uint32_t kInvalidAttributes = 0xFFFFFFFF;

/// Results of FileSystem::CreateFolder that have a meaning of their own (SHCreateDirectory).
inline constexpr int kFolderCreated = 0;
inline constexpr int kFolderExists = 183;
inline constexpr int kFolderCancelled = 1223;

/// The file system. Paths are given in their plain form; the adapter applies the long-path form.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// The attribute bits, or kInvalidAttributes.
    virtual std::uint32_t Attributes(std::wstring_view path) = 0;
    virtual bool SetAttributes(std::wstring_view path, std::uint32_t attributes) = 0;

    /// Calls `visit` for every entry of `folder` except "." and "..", in the order of the
    /// search. A folder that cannot be read has no entries. `visit` may enumerate in turn.
    virtual void Enumerate(std::wstring_view folder, const std::function<void(const FoundItem&)>& visit) = 0;

    /// The item at `path`, or nothing when there surely is none. A place that cannot be looked at,
    /// by a network that fails or a right that lacks, counts as taken: by an item of unknown time.
    virtual std::optional<FoundItem> Find(std::wstring_view path) = 0;

    /// The size in bytes; 0 when the file cannot be opened for reading.
    virtual std::uint64_t FileSize(std::wstring_view path) = 0;

    /// Makes the folder with its missing parents; a result code as of SHCreateDirectory.
    virtual int CreateFolder(std::wstring_view path) = 0;

    /// Tells the shell that the folder was made.
    virtual void NotifyFolderMade(std::wstring_view path) = 0;

    /// Removes an empty folder.
    virtual bool RemoveFolder(std::wstring_view path) = 0;

    /// Gives a file or folder a new path on the same volume.
    virtual bool Rename(std::wstring_view from, std::wstring_view to) = 0;

    /// Whether `path` is a drive root or the root of a network share (PathIsRoot).
    virtual bool IsRoot(std::wstring_view path) = 0;

    /// The local date value of a FILETIME in days since 1899-12-30, without milliseconds;
    /// 0 when a conversion fails.
    virtual double LocalDate(std::uint64_t fileTime) = 0;
};

/// Flags of the shell's file operation (shellapi.h).
inline constexpr std::uint32_t kFlagSilent = 0x0004;
inline constexpr std::uint32_t kFlagRenameOnCollision = 0x0008;
inline constexpr std::uint32_t kFlagNoConfirmation = 0x0010;
inline constexpr std::uint32_t kFlagAllowUndo = 0x0040;
inline constexpr std::uint32_t kFlagNoConfirmMakeFolder = 0x0200;
inline constexpr std::uint32_t kFlagNoCopySecurity = 0x0800;
inline constexpr std::uint32_t kFlagNoConnectedElements = 0x2000;

/// Functions of the shell's file operation (shellapi.h).
inline constexpr std::uint32_t kFunctionMove = 1;
inline constexpr std::uint32_t kFunctionCopy = 2;

/// What one shell operation came to. Result is an HRESULT, or 1 when there was no operation
/// object; Aborted is what the object says afterwards, false when it was not asked.
struct ShellOutcome {
    std::int32_t Result = 0;
    bool Aborted = false;
};

/// One transfer of one file by the shell.
struct ShellTransfer {
    std::wstring_view Source;
    std::wstring_view TargetFolder;  ///< With its trailing separator.
    std::wstring_view NewName;       ///< Empty: the source keeps its name.
    std::uint32_t Function = kFunctionCopy;
    std::uint32_t Flags = 0;
    bool AskAborted = false;
};

/// The shell's file operation.
class ShellOperations {
public:
    virtual ~ShellOperations() = default;

    /// Transfers one file in an operation of its own.
    virtual ShellOutcome TransferFile(const ShellTransfer& transfer) = 0;

    /// Transfers all sources into `destination` as one operation; sources that the shell cannot
    /// parse are left out. The result of performing it, or 1 without an operation object.
    virtual std::int32_t TransferBatch(const base::TextList& sources, std::wstring_view destination,
                                       std::uint32_t function, std::uint32_t flags) = 0;
};

/// The person's view of a run, and the only way in for a cancel.
class Progress {
public:
    virtual ~Progress() = default;

    /// Starts a bar of `count` steps at 0; at most 65535.
    virtual void SetRange(std::uint32_t count) = 0;

    /// Handles every waiting message, then says and forgets whether the person asked to stop.
    virtual bool DrainAndTakeCancel() = 0;

    virtual void Step() = 0;

    /// Shows the name of the item that was just handled.
    virtual void ShowItem(std::wstring_view name) = 0;
};

/// End codes of the dialogs that a run shows (dialog button numbers).
inline constexpr int kEndOk = 1;
inline constexpr int kEndCancel = 2;
inline constexpr int kEndForAll = 5;
inline constexpr int kEndStopAll = 7;

struct CollisionAnswer {
    int EndCode = kEndCancel;
    std::uint32_t Policy = 0;
};

struct NameAnswer {
    int EndCode = kEndCancel;
    std::wstring Name;
};

/// Which label of the confirmation dialog captions the rename dialog.
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

}  // namespace ferry::transfer
