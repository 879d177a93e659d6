// Shows the menu of a folder and waits for a choice.
#include "dirmenu/dir_menu_window.h"

#include <exception>
#include <unordered_map>
#include <utility>

#include "base/text.h"
#include "dirmenu/labels.h"
#include "dirmenu/menu_font.h"
#include "framework/handles.h"

namespace ferry::dirmenu {

using framework::Answer;
using framework::MenuHandle;
using framework::OnMessage;
using framework::Route;

namespace {

// The number of the window among the owner's children; it has no other meaning.
constexpr INT_PTR kWindowId = 500;

constexpr UINT kTrackFlags = TPM_RETURNCMD | TPM_CENTERALIGN | TPM_VCENTERALIGN | TPM_RIGHTBUTTON;

/// The middle of a window's client area, on the screen.
POINT MiddleOf(HWND window) noexcept {
    RECT client{};
    GetClientRect(window, &client);
    POINT middle{client.right / 2, client.bottom / 2};
    ClientToScreen(window, &middle);
    return middle;
}

/// Appends an entry; a null `submenu` makes one that is a command. False when there is no memory for it.
bool Append(HMENU menu, std::uint32_t command, std::wstring text, HMENU submenu, UINT state) noexcept {
    MENUITEMINFOW item{};
    item.cbSize = sizeof(item);
    item.fMask = MIIM_ID | MIIM_STRING | MIIM_STATE | (submenu == nullptr ? 0U : MIIM_SUBMENU);
    item.fState = state;
    item.wID = command;
    item.hSubMenu = submenu;
    item.dwTypeData = text.data();
    return InsertMenuItemW(menu, static_cast<UINT>(GetMenuItemCount(menu)), TRUE, &item) != FALSE;
}

/// Shows the clock while a folder is listed: a server may take its time.
class WaitCursor {
public:
    WaitCursor() noexcept : old_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~WaitCursor() { SetCursor(old_); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    HCURSOR old_;
};

}  // namespace

/// The menus of one showing. Those of folders are empty until they are opened.
class CDirMenuWnd::Tree {
public:
    Tree(files::FolderSearch& search, const std::wstring& folder, const MenuOptions& options,
         const MenuTexts& texts, int widestName)
        : menu_(CreatePopupMenu()), object_(search, folder, options), texts_(texts), widestName_(widestName) {
        if (options.OfferOpenFolder != 0) {
            Append(menu_.Get(), kOpenFolderCommand, MenuText(kOpenFolderLabel), nullptr, MFS_ENABLED);
        }
        const WaitCursor waiting;
        Fill(menu_.Get(), object_.ListRoot());
    }

    HMENU Menu() const noexcept { return menu_.Get(); }

    /// Fills the menu of a folder that is opened for the first time.
    void Open(HMENU menu) {
        const auto found = unopened_.find(menu);
        if (found == unopened_.end()) {
            return;
        }
        const std::uint32_t folder = found->second;
        unopened_.erase(found);
        const WaitCursor waiting;
        Fill(menu, object_.ListSubmenu(folder));
    }

    std::optional<Choice> ChoiceOf(std::uint32_t command) const { return object_.ChoiceOf(command); }

    /// What went wrong in a procedure of a window, which an exception must not leave.
    std::exception_ptr Failure;

private:
    void Fill(HMENU menu, Listing listing) {
        for (const Entry& entry : listing.Entries) {
            listing.LeftOut += AppendEntry(menu, entry) ? 0 : 1;
        }
        if (listing.IsTooDeep) {
            AppendNotice(menu, texts_.TooDeep);
        } else if (listing.Error != 0) {
            AppendNotice(menu, texts_.Unreadable);
        }
        if (listing.LeftOut > 0) {
            AppendNotice(menu,
                         base::ReplaceAll(texts_.LeftOut, kPlaceOfCount, std::to_wstring(listing.LeftOut)));
        }
        // A menu without any entry would not even show.
        if (GetMenuItemCount(menu) == 0) {
            AppendNotice(menu, texts_.Empty);
        }
    }

    bool AppendEntry(HMENU menu, const Entry& entry) {
        const std::wstring name = Shortened(
            entry.Name, [this](std::wstring_view text) { return font_.WidthOf(text) <= widestName_; });
        MenuHandle submenu(entry.Kind == EntryKind::Folder ? CreatePopupMenu() : nullptr);
        if ((entry.Kind == EntryKind::Folder && !submenu) ||
            !Append(menu, entry.Command, MenuText(name), submenu.Get(), MFS_ENABLED)) {
            return false;
        }
        // It goes with the menu that it hangs on.
        if (const HMENU hung = submenu.Release(); hung != nullptr) {
            unopened_.emplace(hung, entry.Command);
        }
        return true;
    }

    static void AppendNotice(HMENU menu, const std::wstring& text) {
        Append(menu, 0, MenuText(text), nullptr, MFS_GRAYED);
    }

    MenuHandle menu_;
    MenuFont font_;
    CDirMenuObj object_;
    const MenuTexts& texts_;
    int widestName_;
    std::unordered_map<HMENU, std::uint32_t> unopened_;  ///< The commands of folders, by their menus.
};

/// Lets the window find the tree for as long as it lives.
class CDirMenuWnd::Shown {
public:
    Shown(Tree*& place, Tree& tree) noexcept : place_(place) { place_ = &tree; }
    ~Shown() { place_ = nullptr; }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;

private:
    Tree*& place_;
};

CDirMenuWnd::CDirMenuWnd(HWND owner, files::FolderSearch& search, MenuTexts texts)
    : owner_(owner), search_(search), texts_(std::move(texts)) {}

std::span<const Route> CDirMenuWnd::Routes() const {
    static constexpr Route kRoutes[] = {
        OnMessage<&CDirMenuWnd::OnInitMenuPopup>(WM_INITMENUPOPUP),
    };
    return kRoutes;
}

std::optional<Choice> CDirMenuWnd::Track(const std::wstring& folder, const MenuOptions& options) {
    if (tree_ != nullptr) {
        return std::nullopt;
    }
    Tree tree(search_, folder, options, texts_, WidestName(owner_));
    const framework::WindowHandle window(CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0,
                                                         owner_, reinterpret_cast<HMENU>(kWindowId), nullptr,
                                                         nullptr));
    if (!Attach(window.Get())) {
        return std::nullopt;
    }
    const Shown shown(tree_, tree);
    const POINT middle = MiddleOf(owner_);
    SetCursorPos(middle.x, middle.y);  // best effort: the menu stands there wherever the mouse is
    const BOOL command = TrackPopupMenu(tree.Menu(), kTrackFlags, middle.x, middle.y, 0, Handle(), nullptr);
    if (tree.Failure) {
        std::rethrow_exception(tree.Failure);
    }
    return tree.ChoiceOf(static_cast<std::uint32_t>(command));
}

Answer CDirMenuWnd::OnInitMenuPopup(WPARAM wParam, LPARAM) {
    if (tree_ == nullptr) {
        return std::nullopt;
    }
    try {
        tree_->Open(reinterpret_cast<HMENU>(wParam));
    } catch (...) {
        tree_->Failure = std::current_exception();
        EndMenu();
    }
    return 0;
}

}  // namespace ferry::dirmenu
