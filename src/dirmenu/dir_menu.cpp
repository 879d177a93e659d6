// A menu of what a folder holds, without its window.
#include "dirmenu/dir_menu.h"

#include <utility>

#include "dirmenu/name_order.h"
#include "paths/path_grammar.h"

namespace ferry::dirmenu {

namespace {

constexpr std::wstring_view kSelf = L".";
constexpr std::wstring_view kParent = L"..";

constexpr std::uint32_t kAttributeHidden = 2;

std::wstring FolderText(std::wstring_view folder) {
    return std::wstring(paths::StripTrailingSeparator(folder));
}

/// The full path of `name` in `folder`.
std::wstring PathOf(std::wstring_view folder, std::wstring_view name) {
    if (name == kParent) {
        return FolderText(paths::ParentWithSeparator(paths::StripTrailingSeparator(folder)));
    }
    return paths::WithTrailingSeparator(folder).append(name);
}

/// What an entry with the text `name` is called.
std::wstring_view ShownName(std::wstring_view name) noexcept {
    const std::size_t label = name.find(L'\r');
    return label == std::wstring_view::npos ? name : name.substr(label + 1);
}

}  // namespace

/// What a search found, sorted into folders and files.
struct CDirMenuObj::Names {
    bool HasSelf = false;
    bool HasParent = false;
    std::vector<std::wstring> Folders;
    std::vector<std::wstring> Files;

    void Take(const files::Match& match, const MenuOptions& options) {
        // Whoever asks for these two wants them in a hidden folder as well, whose attribute they bear.
        if (match.Name == kSelf) {
            HasSelf = options.ListSelf != 0;
        } else if (match.Name == kParent) {
            HasParent = options.ListParent != 0;
        } else if ((match.Attributes & kAttributeHidden) != 0 && options.ListHidden == 0) {
            return;
        } else if (files::IsFolder(match.Attributes)) {
            Folders.emplace_back(match.Name);
        } else if (options.ListFiles != 0) {
            Files.emplace_back(match.Name);
        }
    }
};

CDirMenuObj::CDirMenuObj(files::FolderSearch& search, std::wstring_view folder, const MenuOptions& options)
    : search_(search), folder_(FolderText(folder)), options_(options) {}

Listing CDirMenuObj::ListRoot() {
    return List(folder_, 0);
}

Listing CDirMenuObj::ListSubmenu(std::uint32_t folder) {
    if (folder == 0 || folder > items_.size() || places_[folder - 1].Kind != EntryKind::Folder) {
        return {};
    }
    // A copy: the items grow.
    const std::wstring path = items_[folder - 1];
    return List(path, places_[folder - 1].Depth + 1);
}

Listing CDirMenuObj::List(std::wstring_view folder, int depth) {
    Listing listing;
    if (depth > kMaxDepth) {
        listing.IsTooDeep = true;
        return listing;
    }
    Names names;
    listing.Error =
        search_.Search(paths::WithTrailingSeparator(folder) + L'*', [&](const files::Match& match) {
            names.Take(match, options_);
            return true;
        });
    SortNames(names.Folders);
    SortNames(names.Files);
    // These two lead the way out, and stand where they are looked for whatever else there is.
    if (names.HasSelf) {
        Add(listing, folder, kSelfEntry, {EntryKind::Self, depth});
    }
    if (names.HasParent) {
        Add(listing, folder, std::wstring(kParent), {EntryKind::Folder, depth});
    }
    for (std::wstring& name : names.Folders) {
        Add(listing, folder, std::move(name), {EntryKind::Folder, depth});
    }
    for (std::wstring& name : names.Files) {
        Add(listing, folder, std::move(name), {EntryKind::File, depth});
    }
    return listing;
}

bool CDirMenuObj::HasRoom(const Listing& listing, EntryKind kind) const noexcept {
    return items_.size() < kMaxItems && listing.Entries.size() < kMaxEntries &&
           (kind != EntryKind::Folder || submenus_ < kMaxSubmenus);
}

void CDirMenuObj::Add(Listing& listing, std::wstring_view folder, std::wstring name, const Place& place) {
    if (!HasRoom(listing, place.Kind)) {
        ++listing.LeftOut;
        return;
    }
    items_.push_back(PathOf(folder, name));
    places_.push_back(place);
    submenus_ += place.Kind == EntryKind::Folder ? 1 : 0;
    const auto command = static_cast<std::uint32_t>(items_.size());
    name.erase(0, name.size() - ShownName(name).size());
    listing.Entries.push_back({command, std::move(name), place.Kind});
}

std::optional<Choice> CDirMenuObj::ChoiceOf(std::uint32_t command) const {
    if (command == kOpenFolderCommand) {
        return Choice{folder_, ChoiceKind::OpenFolder};
    }
    if (command == 0 || command > items_.size()) {
        return std::nullopt;
    }
    std::wstring_view path = items_[command - 1];
    if (places_[command - 1].Kind == EntryKind::File) {
        return Choice{std::wstring(path), ChoiceKind::File};
    }
    if (path.ends_with(kSelfEntry)) {
        path.remove_suffix(std::wstring_view(kSelfEntry).size());
    }
    return Choice{FolderText(path), ChoiceKind::Folder};
}

}  // namespace ferry::dirmenu
