// A menu of what a folder holds, without its window: what is listed, in which order, under which command.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/ports.h"

namespace ferry::dirmenu {

/// What a menu shows; each is on unless it is 0.
struct MenuOptions {
    std::uint32_t ListFiles = 0;        ///< Files, too; else folders only.
    std::uint32_t ListSelf = 0;         ///< "." of each folder, shown as "[Select Folder]".
    std::uint32_t ListParent = 0;       ///< ".." of each folder, a submenu like every folder.
    std::uint32_t ListHidden = 0;       ///< What has the attribute of hidden items, too.
    std::uint32_t OfferOpenFolder = 0;  ///< "[Open Folder]", in front of everything else.
};

inline constexpr wchar_t kOpenFolderLabel[] = L"[Open Folder]";

/// The entry of a folder in its own menu: what stands behind the carriage return is shown.
inline constexpr wchar_t kSelfEntry[] = L".\r[Select Folder]";

/// A command that stands for "[Open Folder]"; the others count from 1. Windows gives 16 bits to a command.
inline constexpr std::uint32_t kOpenFolderCommand = 65535;

/// The most entries that all menus of one tree have together: every command but those of "[Open Folder]" and
/// of no choice at all.
inline constexpr std::size_t kMaxItems = 65534;

/// The most entries that one menu has; nobody looks through more, and each costs time when the menu opens.
inline constexpr std::size_t kMaxEntries = 10000;

/// The most submenus of one tree: Windows gives a process no more than 10,000 menus and windows together.
inline constexpr std::size_t kMaxSubmenus = 8000;

/// How many submenus lie inside each other at most: a link that leads back to a folder around it goes on for
/// ever.
inline constexpr int kMaxDepth = 20;

/// What kind of entry was chosen.
enum class ChoiceKind {
    File,
    Folder,      ///< "[Select Folder]".
    OpenFolder,  ///< "[Open Folder]".
};

/// What a person chose: a file, the folder whose "[Select Folder]" it was, or the menu's own folder. The
/// paths of folders have no separator at their end, but for a drive's.
struct Choice {
    std::wstring Path;
    ChoiceKind Kind = ChoiceKind::File;

    bool operator==(const Choice&) const = default;
};

enum class EntryKind {
    File,
    Folder,  ///< A submenu.
    Self,    ///< "[Select Folder]".
};

/// One entry of a menu.
struct Entry {
    std::uint32_t Command = 0;
    std::wstring Name;  ///< What it is called, whole and without regard to what a menu makes of "&".
    EntryKind Kind = EntryKind::File;
};

/// The entries of one folder.
struct Listing {
    std::vector<Entry> Entries;
    std::size_t LeftOut = 0;  ///< How many had no place any more.
    std::uint32_t Error = 0;  ///< Why the folder could not be read, also half way; 0 when it was.
    bool IsTooDeep = false;   ///< The folder was not even looked at.
};

/// The tree of menus that grows from one folder. Only what is opened is listed.
class CDirMenuObj {
public:
    /// `search` must outlive the object. Nothing is listed yet.
    CDirMenuObj(files::FolderSearch& search, std::wstring_view folder, const MenuOptions& options);

    /// Lists the folder of the menu itself.
    Listing ListRoot();

    /// Lists the folder that has the command `folder`; nothing for any other command. Each call gives its
    /// entries new commands.
    Listing ListSubmenu(std::uint32_t folder);

    /// The full paths of all entries so far: command n has the path n - 1. That of a "[Select Folder]" ends
    /// with kSelfEntry.
    const std::vector<std::wstring>& Items() const noexcept { return items_; }

    /// What choosing `command` means: nothing for 0, which is no choice, and for unknown commands.
    std::optional<Choice> ChoiceOf(std::uint32_t command) const;

    const MenuOptions& Options() const noexcept { return options_; }

private:
    /// What an item is, and how many menus lie above its own.
    struct Place {
        EntryKind Kind = EntryKind::File;
        int Depth = 0;
    };
    struct Names;

    Listing List(std::wstring_view folder, int depth);
    void Add(Listing& listing, std::wstring_view folder, std::wstring name, const Place& place);
    bool HasRoom(const Listing& listing, EntryKind kind) const noexcept;

    files::FolderSearch& search_;
    std::wstring folder_;
    MenuOptions options_;
    std::vector<std::wstring> items_;
    std::vector<Place> places_;  ///< One for each item.
    std::size_t submenus_ = 0;
};

}  // namespace ferry::dirmenu
