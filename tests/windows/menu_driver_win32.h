// Looks into menus and works them by keys, as a person does: a key, a look at what it did, the next key.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace ferry::test {

/// One entry of a menu.
struct MenuEntry {
    std::wstring Text;
    UINT Command = 0;
    HMENU Submenu = nullptr;
    bool IsEnabled = true;
};

std::vector<MenuEntry> EntriesOf(HMENU menu);

/// The texts of the entries; those of submenus with a backslash.
std::vector<std::wstring> TextsOf(HMENU menu);

/// Works the menus of the thread that makes it, from another thread, since that one waits for the menu to
/// close. No key is sent before the last one has shown what it did: a menu takes the next message from the
/// queue while it handles one, and may throw away a key that came too early.
class MenuDriver {
public:
    /// Runs `work` when a menu of this thread is open, and closes what is open afterwards. Keys go to
    /// `window`, any one of this thread.
    MenuDriver(HWND window, std::function<void(const MenuDriver&)> work);
    /// Waits for the end of `work`. It is a failure when no menu came.
    ~MenuDriver();
    MenuDriver(const MenuDriver&) = delete;
    MenuDriver& operator=(const MenuDriver&) = delete;

    // What follows is for `work`; each answers false when the menu does not follow in time.

    /// The open menus, the innermost last.
    std::vector<HMENU> OpenMenus() const;

    /// What is selected in the innermost menu; empty when nothing is.
    std::wstring Selected() const;

    /// Presses `key` until the entry called `text` is selected in the innermost menu.
    bool GoTo(const std::wstring& text, WPARAM key = VK_DOWN) const;

    /// Goes to the folder called `text` and opens its menu.
    bool Open(const std::wstring& text) const;

    /// Closes the innermost menu by `key`, left or escape.
    bool Leave(WPARAM key) const;

    /// Goes to the entry called `text` and presses Enter; the menus close.
    bool Choose(const std::wstring& text, WPARAM key = VK_DOWN) const;

    /// Presses a key that chooses nothing, and gives the menus time to take it: some systems close them then.
    void PressInVain(WPARAM key) const;

private:
    void Press(WPARAM key) const;
    void Run(const std::function<void(const MenuDriver&)>& work) const;
    bool WaitForDepth(std::size_t depth) const;

    HWND window_;
    DWORD threadId_;
    std::thread thread_;
};

}  // namespace ferry::test
