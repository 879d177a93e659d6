// A popup menu of another process, as a person uses it: with real keys and with the mouse.
#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace ferry::e2e {

/// One entry of a menu.
struct MenuEntry {
    std::wstring Text;  ///< As the menu was given it: "&" underlines, "&&" shows one.
    bool HasSubmenu = false;
    bool IsDisabled = false;

    bool operator==(const MenuEntry&) const = default;
};

/// The menu that a window of another process shows, with the submenus that are open in it. Every step waits
/// for its effect, with a deadline, and answers whether it came; no key is pressed twice.
class RemoteMenu {
public:
    /// For the menu of `owner`'s process; the keys need `owner` in the foreground.
    explicit RemoteMenu(HWND owner);

    /// Waits for the menu and takes the mouse out of it, which else would choose beside the keys.
    bool WaitUntilOpen();

    /// The same without touching the mouse.
    bool WaitUntilShown();

    /// Whether any menu is shown.
    bool IsShown() const;
    bool WaitUntilClosed() const;

    /// How many menus are open inside each other, by the steps that were taken.
    std::size_t Depth() const noexcept { return open_.size(); }

    /// The entries of the innermost menu.
    std::vector<MenuEntry> Entries() const;
    std::vector<std::wstring> Texts() const;
    int Count() const;

    /// The entry with this text; -1 when there is none.
    int IndexOf(const std::wstring& text) const;

    /// The entry that the next Enter chooses; -1 for none.
    int Highlighted() const;

    /// Where the entry stands on the screen.
    RECT PlaceOf(int index) const;

    /// Where the outermost menu stands on the screen.
    RECT Place() const;

    /// Moves to an entry: by Home and Down, to the last one by End.
    bool MoveTo(int index) const;

    /// Opens the submenu of an entry by moving to it and pressing Right; its first entry is highlighted.
    bool Enter(int index);

    /// Leaves the innermost submenu by `key`: Left or Escape.
    bool Leave(WORD key);

    /// Goes down the submenus and chooses the last of `path` by Enter; the menu closes.
    bool Choose(std::span<const std::wstring> path);

    /// The same with the mouse alone, which rests on a submenu until it opens. `button` is the one that
    /// clicks.
    bool ChooseWithMouse(std::span<const std::wstring> path, DWORD button = MOUSEEVENTF_LEFTDOWN);

    /// Presses Escape, once for each open menu; the menu closes.
    bool Cancel();

private:
    struct Shown {
        HWND Window = nullptr;
        HMENU Menu = nullptr;
    };

    std::vector<Shown> AllShown() const;
    bool IsMenuShown(HMENU menu) const;
    bool FindFunctions();
    HMENU SubmenuOf(int index) const;
    bool WaitForSubmenu(int index);
    bool Highlights(int index) const;
    bool PointAt(int index) const;
    std::vector<std::uintptr_t> ResultsForEach(std::uintptr_t function, std::uintptr_t lastArgument) const;

    HWND owner_;
    DWORD processId_ = 0;
    std::vector<HMENU> open_;  ///< The outermost first.
    std::uintptr_t countFunction_ = 0;
    std::uintptr_t stateFunction_ = 0;
    std::uintptr_t textFunction_ = 0;
    std::uintptr_t placeFunction_ = 0;
    std::uintptr_t submenuFunction_ = 0;
};

}  // namespace ferry::e2e
