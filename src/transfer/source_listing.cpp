// Everything below one source folder, in the order in which a run handles it.
#include "transfer/source_listing.h"

#include <string>
#include <utility>
#include <vector>

#include "paths/path_grammar.h"

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
    explicit Lister(files::FolderSearch& search) noexcept : search_(search) {}

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
        files::ForEachEntry(search_, listing_.Folders[listing_.Folders.Size() - 1],
                            [&](const files::Match& match) { Take(match, read); });
        open_.push_back(std::move(read));
    }

    // Until the first subfolder nothing has to wait, so a huge flat folder is stored only once.
    void Take(const files::Match& item, ReadFolder& read) {
        const bool isFolder = files::IsFolder(item.Attributes);
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

    files::FolderSearch& search_;
    SourceListing listing_;
    std::vector<ReadFolder> open_;
    std::wstring joined_;
};

}  // namespace

SourceListing ListSourceFolder(files::FolderSearch& search, std::wstring_view folder) {
    return Lister(search).List(folder);
}

}  // namespace ferry::transfer
