// How files and folders are looked at, listed and changed. Paths are given in their plain form, at any
// length; the adapters apply the long-path form.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace ferry::files {

inline constexpr std::uint32_t kAttributeDirectory = 0x10;
inline constexpr std::uint32_t kAttributeLink = 0x400;  ///< A reparse point: leads elsewhere, most of them.
inline constexpr std::uint32_t kInvalidAttributes = 0xFFFFFFFF;

/// Whether these are the attribute bits of a folder. The invalid value has every bit set, the folder's too.
constexpr bool IsFolder(std::uint32_t attributes) noexcept {
    return attributes != kInvalidAttributes && (attributes & kAttributeDirectory) != 0;
}

/// The times of an item: FILETIME values, 100 ns units since 1601-01-01 UTC.
struct ItemTimes {
    std::uint64_t Created = 0;
    std::uint64_t LastAccess = 0;
    std::uint64_t LastWrite = 0;
};

/// An item that was looked for by its path.
struct FoundItem {
    std::uint32_t Attributes = 0;
    std::uint64_t LastWriteTime = 0;
    bool IsTimeKnown = true;  ///< False where nobody could look: there may be an item or none.
};

/// What tells an item from every other, by whatever path it was reached: its volume and its place there.
struct ItemId {
    std::uint64_t Volume = 0;
    std::uint64_t Place = 0;

    bool operator==(const ItemId&) const = default;
};

/// Looks at single items.
class FileInfo {
public:
    virtual ~FileInfo() = default;

    /// The attribute bits, or kInvalidAttributes.
    virtual std::uint32_t Attributes(std::wstring_view path) = 0;

    /// The item at `path`, or nothing when there surely is none. A place that cannot be looked at,
    /// by a network that fails or a right that lacks, counts as taken: by an item of unknown time.
    virtual std::optional<FoundItem> Find(std::wstring_view path) = 0;

    /// The size in bytes; 0 when the file cannot be opened for reading.
    virtual std::uint64_t Size(std::wstring_view path) = 0;

    /// Whether `path` is a drive root or the root of a network share (PathIsRoot).
    virtual bool IsRoot(std::wstring_view path) = 0;

    /// Which item is at `path`; nothing when that cannot be told, also because there is none.
    virtual std::optional<ItemId> Identity(std::wstring_view path) = 0;
};

/// One match of a search; the name is valid during the call that gets it.
struct Match {
    std::wstring_view Name;
    std::uint32_t Attributes = 0;
    ItemTimes Times;
};

/// Lists folders.
class FolderSearch {
public:
    virtual ~FolderSearch() = default;

    /// Calls `visit` for every match of `pattern`, "." and ".." included, in the order of the search,
    /// until it answers false. The error of a search that failed, also half way; 0 for one that ended, also
    /// where nothing matched. `visit` may search in turn.
    virtual std::uint32_t Search(std::wstring_view pattern,
                                 const std::function<bool(const Match&)>& visit) = 0;
};

/// Calls `visit` for every entry of `folder` except "." and "..", until it answers false; the error of the
/// search.
std::uint32_t ForEachEntry(FolderSearch& search, std::wstring_view folder,
                           const std::function<bool(const Match&)>& visit);

/// Results of FileChanges::MakeFolder that have a meaning of their own (SHCreateDirectory).
inline constexpr int kFolderMade = 0;
inline constexpr int kFolderExists = 183;
inline constexpr int kFolderCancelled = 1223;

/// Changes single items.
class FileChanges {
public:
    virtual ~FileChanges() = default;

    /// False when it failed; then nothing changed. The folder's own bit is neither set nor taken.
    virtual bool SetAttributes(std::wstring_view path, std::uint32_t attributes) = 0;

    /// Makes the folder with its missing parents; a result code as of SHCreateDirectory.
    virtual int MakeFolder(std::wstring_view path) = 0;

    /// Removes an empty folder; false when it is still there.
    virtual bool RemoveFolder(std::wstring_view path) = 0;

    /// Gives a file or folder a new path on the same volume. False when it failed, also because
    /// something is at the new path already, which then stays.
    virtual bool Rename(std::wstring_view from, std::wstring_view to) = 0;

    /// Waits for the moment in which scanners and windows close what they have just looked at.
    virtual void LetOthersClose() = 0;
};

}  // namespace ferry::files
