// Files and folders in memory, as a script sees them.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "effects.h"
#include "files/ports.h"
#include "script/ports.h"

namespace ferry::scripttools {

/// A disk that may be looked at and is never changed. Paths are full ones.
class DiskBelow {
public:
    virtual ~DiskBelow() = default;

    /// The attribute bits, or files::kInvalidAttributes.
    virtual std::uint32_t Attributes(const std::wstring& path) const = 0;

    /// What the file holds; nothing when it cannot be read.
    virtual std::optional<Bytes> Read(const std::wstring& path) const = 0;

    /// The names of what is in the folder.
    virtual std::vector<std::wstring> Names(const std::wstring& folder) const = 0;
};

/// A disk in memory. Capitals and small letters are not told apart, nor are "/" and "\"; relative paths count
/// from the current folder. What it does not have may be on a disk below, of which it keeps what it reads.
/// Everything that opens a file for writing, writes, or makes a folder is written down as an effect.
class PretendedDisk final : public files::FileInfo,
                            public files::FolderSearch,
                            public files::FileChanges,
                            public script::ByteFiles {
public:
    /// `log` and `below`, which may be null, must live longer.
    PretendedDisk(std::wstring currentFolder, EffectLog& log, const DiskBelow* below);

    /// Adds what is there from the beginning. The folders that it lies in are there, too.
    void AddFolder(std::wstring_view path);
    void AddFile(std::wstring_view path, Bytes content);

    /// Sets the times of what is there; nothing else does.
    void SetTimes(std::wstring_view path, const files::ItemTimes& times);

    /// All files but those that were only read from the disk below, by their paths as they were first
    /// written.
    std::map<std::wstring, Bytes> Files() const;

    /// The absolute form of `path`.
    std::wstring FullPath(std::wstring_view path) const;

    std::uint32_t Attributes(std::wstring_view path) override;
    std::optional<files::FoundItem> Find(std::wstring_view path) override;
    std::uint64_t Size(std::wstring_view path) override;
    bool IsRoot(std::wstring_view path) override;
    std::optional<files::ItemId> Identity(std::wstring_view path) override;

    std::uint32_t Search(std::wstring_view pattern,
                         const std::function<bool(const files::Match&)>& visit) override;

    bool SetAttributes(std::wstring_view path, std::uint32_t attributes) override;
    int MakeFolder(std::wstring_view path) override;
    bool RemoveFolder(std::wstring_view path) override;
    bool Rename(std::wstring_view from, std::wstring_view to) override;
    void LetOthersClose() override {}

    std::unique_ptr<script::InFile> OpenToRead(std::wstring_view path) override;
    std::unique_ptr<script::OutFile> OpenToWrite(std::wstring_view path, script::OpenMode mode) override;

    /// A file or folder.
    struct Entry {
        std::wstring Path;  ///< As it was first written.
        std::uint32_t Attributes = 0;
        Bytes Content;
        files::ItemTimes Times = {};
        bool IsFromBelow = false;
        int Readers = 0;         ///< How many have it open for reading,
        bool IsWritten = false;  ///< and whether somebody has it open for writing.
    };
    using EntryPtr = std::shared_ptr<Entry>;

private:
    /// What entries are told apart by: full paths in small letters, without a separator at their end.
    using Key = std::wstring;

    Key KeyOf(std::wstring_view path) const;
    EntryPtr At(std::wstring_view path);
    EntryPtr FromBelow(const std::wstring& fullPath);
    bool IsFolderAt(std::wstring_view path);
    EntryPtr AddEntry(std::wstring path, std::uint32_t attributes);
    EntryPtr FirstBelow(const Key& folder) const;
    std::vector<std::wstring> NamesIn(const std::wstring& folder);

    std::wstring currentFolder_;
    EffectLog& log_;
    const DiskBelow* below_;
    std::map<Key, EntryPtr> entries_;
};

}  // namespace ferry::scripttools
