// Everything below one source folder, in the order in which a run handles it.
#include "transfer/source_listing.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "paths/path_grammar.h"

namespace ferry::transfer {
namespace {

constexpr wchar_t kFolderMark = L'd';
constexpr wchar_t kLinkMark = L'l';
constexpr wchar_t kFileMark = L'f';

/// A folder that was read, with the entries that must wait until its subfolders were read.
struct ReadFolder {
    std::wstring Prefix;   ///< Its path with the separator, which begins the path of each entry.
    std::wstring Waiting;  ///< Entry by entry: its mark, its name, a NUL. One text, for memory's sake.
    std::size_t Next = 0;
};

wchar_t MarkOf(std::uint32_t attributes) noexcept {
    if (!files::IsFolder(attributes))
        return kFileMark;
    return (attributes & files::kAttributeLink) != 0 ? kLinkMark : kFolderMark;
}

class Lister {
public:
    Lister(files::FolderSearch& search, files::FileInfo& info, const std::function<bool()>& goesOn) noexcept
        : search_(search), info_(info), goesOn_(goesOn) {}

    SourceListing List(std::wstring_view source) {
        Read(source);
        while (!open_.empty() && !listing_.IsStopped)
            Advance();
        return std::move(listing_);
    }

private:
    void Read(std::wstring_view folder) {
        listing_.Folders.Append(folder);
        // The one that was given may be the text of the next join.
        folder = listing_.Folders[listing_.Folders.Size() - 1];
        ReadFolder read;
        read.Prefix = paths::WithTrailingSeparator(folder);
        const std::uint32_t error = files::ForEachEntry(search_, folder, [&](const files::Match& match) {
            Take(match, read);
            listing_.IsStopped = !goesOn_();
            return !listing_.IsStopped;
        });
        if (error != 0)
            Leave(folder, LeftReason::NotListed, error);
        open_.push_back(std::move(read));
    }

    void Leave(std::wstring_view folder, LeftReason why, std::uint32_t code) {
        listing_.Left.push_back({std::wstring(folder), why, code});
    }

    // Until the first subfolder nothing has to wait, so a huge flat folder is stored only once.
    void Take(const files::Match& item, ReadFolder& read) {
        const bool isFolder = files::IsFolder(item.Attributes);
        if (!isFolder && read.Waiting.empty()) {
            listing_.Files.Append(Join(read.Prefix, item.Name));
            return;
        }
        read.Waiting += MarkOf(item.Attributes);
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
        if (rest.front() == kFileMark)
            listing_.Files.Append(path);
        else if (rest.front() == kLinkMark && LeadsBack(path))
            Leave(path, LeftReason::LeadsBack, 0);
        else
            Read(path);
    }

    /// Whether `link` is one of the folders that lead to it; who follows it comes here again.
    bool LeadsBack(std::wstring_view link) {
        const std::optional<files::ItemId> id = info_.Identity(link);
        const auto isIt = [&](const ReadFolder& folder) { return id == info_.Identity(folder.Prefix); };
        return id && std::ranges::any_of(open_, isIt);
    }

    /// The view is good until the next call. One text serves all of them, because memory for each
    /// path would cost more than all the rest that is done for it.
    std::wstring_view Join(std::wstring_view prefix, std::wstring_view name) {
        joined_.assign(prefix).append(name);
        return joined_;
    }

    files::FolderSearch& search_;
    files::FileInfo& info_;
    const std::function<bool()>& goesOn_;
    SourceListing listing_;
    std::vector<ReadFolder> open_;
    std::wstring joined_;
};

}  // namespace

SourceListing ListSourceFolder(files::FolderSearch& search, files::FileInfo& info, std::wstring_view folder,
                               const std::function<bool()>& goesOn) {
    return Lister(search, info, goesOn).List(folder);
}

}  // namespace ferry::transfer
