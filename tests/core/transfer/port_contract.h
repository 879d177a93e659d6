// What a run relies on in its file system and in the shell. The model and the adapters are held
// against the same tests, so that what is proved on the model means something on a disk.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/utf16.h"
#include "support/contract.h"
#include "transfer/ports.h"

namespace ferry::transfer::contract {

/// A file system under test and the shell on it, with a folder of its own to work in.
class Place {
public:
    virtual ~Place() = default;

    virtual files::FileInfo& Info() = 0;
    virtual files::FolderSearch& Search() = 0;
    virtual files::FileChanges& Changes() = 0;
    virtual ShellOperations& Shell() = 0;

    /// Whether this shell can transfer files; one that cannot keeps no contract.
    virtual bool HasShell() const = 0;

    /// The folder: empty, of a full path, without a trailing separator.
    virtual std::wstring Root() const = 0;

    /// Writes a file by other means than the port; its folder exists.
    virtual void WriteFile(const std::wstring& path, const std::string& content, std::uint64_t time) = 0;

    /// Sets the time at which the item at `path` was last written, by other means than the port.
    virtual void SetTime(const std::wstring& path, std::uint64_t time) = 0;

    /// The bytes of a file, by other means than the port; nothing when there is no such file.
    virtual std::optional<std::string> ReadFile(const std::wstring& path) = 0;
};

/// Times that every file system keeps: whole seconds, some years ago.
inline constexpr std::uint64_t kSecond = 10'000'000;
inline constexpr std::uint64_t kSomeTime = 132'539'328'000'000'000;

inline constexpr std::uint32_t kReadOnly = 0x1;
inline constexpr std::uint32_t kHidden = 0x2;
inline constexpr std::uint32_t kSystem = 0x4;

/// The attributes that a run depends on; the others differ between file systems.
inline constexpr std::uint32_t kKeptAttributes = kReadOnly | kHidden | kSystem | files::kAttributeDirectory;

class PortContract : public test::ContractOf<Place> {
protected:
    using Names = std::vector<std::wstring>;

    /// The path of `relative` below the place's folder.
    std::wstring Path(std::wstring_view relative) const {
        return AtPlace().Root() + L"\\" + std::wstring(relative);
    }

    std::wstring AddFolder(std::wstring_view relative) {
        EXPECT_EQ(Changes().MakeFolder(Path(relative)), files::kFolderMade);
        return Path(relative);
    }

    std::wstring AddFile(std::wstring_view relative, const std::string& content,
                         std::uint64_t time = kSomeTime) {
        AtPlace().WriteFile(Path(relative), content, time);
        return Path(relative);
    }

    /// A file whose content is its own.
    std::wstring AddFile(std::wstring_view relative) {
        return AddFile(relative, "bytes of " + base::ToUtf8(relative));
    }

    bool IsThere(std::wstring_view relative) {
        return Info().Attributes(Path(relative)) != files::kInvalidAttributes;
    }

    /// The attributes that a run depends on; files::kInvalidAttributes when there is nothing.
    std::uint32_t AttributesOf(std::wstring_view relative) {
        const std::uint32_t all = Info().Attributes(Path(relative));
        return all == files::kInvalidAttributes ? all : all & kKeptAttributes;
    }

    std::string ContentOf(std::wstring_view relative) {
        return AtPlace().ReadFile(Path(relative)).value_or("nothing");
    }

    /// The time at which the item was last written.
    std::uint64_t TimeOf(std::wstring_view relative) { return Info().Find(Path(relative))->LastWriteTime; }
    void SetTime(std::wstring_view relative, std::uint64_t time) { AtPlace().SetTime(Path(relative), time); }

    /// The name of the item at `path` as a search gives it; empty when there is none.
    std::wstring NameOf(std::wstring_view path) {
        std::wstring name;
        Search().Search(path, [&name](const files::Match& match) {
            name = match.Name;
            return false;
        });
        return name;
    }

    /// The names in a folder of the place, sorted.
    Names NamesIn(std::wstring_view relative);

    /// The root of the drive that the place lies on, and of one that is not there.
    std::wstring Drive() const { return Root().substr(0, Root().find(L'\\') + 1); }
    std::wstring MissingDrive();

    /// Calls `visit` for every entry of `folder`; the error of the search.
    std::uint32_t VisitEntries(std::wstring_view folder,
                               const std::function<void(const files::Match&)>& visit);

    /// `path` as one types it who knows Unix.
    static std::wstring WithSlashes(std::wstring path) {
        std::ranges::replace(path, L'\\', L'/');
        return path;
    }

    files::FileInfo& Info() { return AtPlace().Info(); }
    files::FolderSearch& Search() { return AtPlace().Search(); }
    files::FileChanges& Changes() { return AtPlace().Changes(); }
    ShellOperations& Shell() { return AtPlace().Shell(); }
    bool HasShell() const { return AtPlace().HasShell(); }
    std::wstring Root() const { return AtPlace().Root(); }
};

class FileSystemContract : public PortContract {};

class ShellContract : public PortContract {
protected:
    void SetUp() override {
        ASSERT_TRUE(HasShell()) << "this system's file operation does not copy";
        AddFolder(L"to");
    }

    /// Transfers a file of the place into its folder "to", without any window.
    ShellOutcome Transfer(std::wstring_view relative, Operation what, std::wstring_view newName = {},
                          std::uint32_t flags = kFlagNoConfirmation) {
        return TransferInto(L"to\\", relative, what, newName, flags);
    }

    ShellOutcome TransferInto(std::wstring_view folder, std::wstring_view relative, Operation what,
                              std::wstring_view newName = {}, std::uint32_t flags = kFlagNoConfirmation) {
        return TransferPath(Path(relative), Path(folder), what, newName, flags);
    }

    ShellOutcome TransferPath(std::wstring_view source, std::wstring_view folder, Operation what,
                              std::wstring_view newName = {}, std::uint32_t flags = kFlagNoConfirmation) {
        return Shell().Transfer(
            {source, folder, newName, what, flags | kFlagSilent | kFlagNoErrorWindow, true});
    }

    /// Transfers all of `sources` into a folder of the place, without any window.
    BatchOutcome TransferAll(const base::TextList& sources, std::wstring_view relative, Operation what) {
        const std::wstring folder = Path(relative) + L"\\";
        return Shell().TransferAll(sources, {{}, folder, {}, what, kFlagSilent | kFlagNoConfirmation, false});
    }

    static constexpr std::uint32_t kFlagNoErrorWindow = 0x0400;  // shellapi.h
};

}  // namespace ferry::transfer::contract
