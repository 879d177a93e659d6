// Everything below one source folder, in the order in which a run handles it.
#include "transfer/source_listing.h"

#include <string>
#include <utility>
#include <vector>

#include "paths/path_helpers.h"

namespace ferry::transfer {
namespace {

constexpr wchar_t kFolderMark = L'd';
constexpr wchar_t kFileMark = L'f';

/// A folder that was read, with the entries that must wait until its subfolders were read.
struct ReadFolder {
    std::wstring Prefix;   ///< Its path with the separator, which begins the path of each entry.
    std::wstring Waiting;  ///< Entry by entry: its mark, its name, a NUL. One text, for memory's sake.
    std::size_t Next = 0;
};

class Lister {
public:
    explicit Lister(FileSystem& fileSystem) noexcept : fileSystem_(fileSystem) {}

    SourceListing List(std::wstring_view source) {
        Read(source);
        while (!open_.empty())
            Advance();
        return std::move(listing_);
    }

private:
    void Read(std::wstring_view folder) {
        listing_.Folders.Append(folder);
        ReadFolder read;
        read.Prefix = paths::WithTrailingSeparator(folder);
        fileSystem_.Enumerate(listing_.Folders[listing_.Folders.Size() - 1],
                              [&](const FoundItem& item) { Take(item, read); });
        open_.push_back(std::move(read));
    }

    // Until the first subfolder nothing has to wait, so a huge flat folder is stored only once.
    void Take(const FoundItem& item, ReadFolder& read) {
        const bool isFolder = (item.Attributes & kAttributeDirectory) != 0;
        if (!isFolder && read.Waiting.empty()) {
            listing_.Files.Append(Join(read.Prefix, item.Name));
            return;
        }
        read.Waiting += isFolder ? kFolderMark : kFileMark;
        read.Waiting += item.Name;
        read.Waiting += L'\0';
    }

    void Advance() {
        ReadFolder& read = open_.back();
        if (read.Next == read.Waiting.size()) {
            open_.pop_back();
            return;
        }
        const std::wstring_view rest = std::wstring_view(read.Waiting).substr(read.Next);
        const std::wstring_view name = rest.substr(1, rest.find(L'\0') - 1);
        read.Next += name.size() + 2;
        const std::wstring_view path = Join(read.Prefix, name);
        if (rest.front() == kFolderMark)
            Read(path);
        else
            listing_.Files.Append(path);
    }

    /// The view is good until the next call. One text serves all of them, because memory for each
    /// path would cost more than all the rest that is done for it.
    std::wstring_view Join(std::wstring_view prefix, std::wstring_view name) {
        joined_.assign(prefix).append(name);
        return joined_;
    }

    FileSystem& fileSystem_;
    SourceListing listing_;
    std::vector<ReadFolder> open_;
    std::wstring joined_;
};

}  // namespace

SourceListing ListSourceFolder(FileSystem& fileSystem, std::wstring_view folder) {
    return Lister(fileSystem).List(folder);
}

}  // namespace ferry::transfer
