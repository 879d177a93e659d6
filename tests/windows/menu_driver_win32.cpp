#include "windows/menu_driver_win32.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "support/menus_win32.h"
#include "support/poll_win32.h"
#include "windows/support_win32.h"

namespace ferry::test {
namespace {

constexpr UINT kAnswerMs = 1000;

BOOL CALLBACK AddMenu(HWND window, LPARAM menus) {
    wchar_t className[16] = {};
    GetClassNameW(window, className, 16);
    DWORD_PTR menu = 0;
    if (std::wstring_view(className) == kMenuClass && IsWindowVisible(window) &&
        SendMessageTimeoutW(window, kGetMenuMessage, 0, 0, SMTO_NORMAL, kAnswerMs, &menu) != 0 && menu != 0) {
        reinterpret_cast<std::vector<HMENU>*>(menus)->push_back(reinterpret_cast<HMENU>(menu));
    }
    return TRUE;
}

bool HangsOn(HMENU menu, HMENU above) {
    const int count = GetMenuItemCount(above);
    for (int index = 0; index < count; ++index) {
        if (GetSubMenu(above, index) == menu)
            return true;
    }
    return false;
}

/// The place of the selected entry.
std::optional<UINT> SelectedIndex(HMENU menu) {
    const int count = GetMenuItemCount(menu);
    for (int index = 0; index < count; ++index) {
        const UINT state = GetMenuState(menu, static_cast<UINT>(index), MF_BYPOSITION);
        if (state != UINT(-1) && (state & MF_HILITE) != 0)
            return static_cast<UINT>(index);
    }
    return std::nullopt;
}

std::wstring TextOf(HMENU menu, UINT index) {
    const int length = GetMenuStringW(menu, index, nullptr, 0, MF_BYPOSITION);
    std::wstring text(static_cast<std::size_t>(std::max(length, 0)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(
        GetMenuStringW(menu, index, text.data(), static_cast<int>(text.size()), MF_BYPOSITION)));
    return text;
}

// A window that has just come to the front may hear of it later, and a menu that is open then closes.
void Settle() {
    constexpr DWORD kQuietMs = 100;
    while (MsgWaitForMultipleObjects(0, nullptr, FALSE, kQuietMs, QS_ALLINPUT) == WAIT_OBJECT_0) {
        Pump();
    }
}

}  // namespace

std::vector<MenuEntry> EntriesOf(HMENU menu) {
    std::vector<MenuEntry> entries;
    const int count = GetMenuItemCount(menu);
    for (int index = 0; index < count; ++index) {
        MENUITEMINFOW item{};
        item.cbSize = sizeof(item);
        item.fMask = MIIM_ID | MIIM_STATE | MIIM_SUBMENU;
        const auto place = static_cast<UINT>(index);
        EXPECT_TRUE(GetMenuItemInfoW(menu, place, TRUE, &item));
        entries.push_back({TextOf(menu, place), item.wID, item.hSubMenu, (item.fState & MFS_DISABLED) == 0});
    }
    return entries;
}

std::vector<std::wstring> TextsOf(HMENU menu) {
    std::vector<std::wstring> texts;
    for (const MenuEntry& entry : EntriesOf(menu)) {
        texts.push_back(entry.Text + (entry.Submenu != nullptr ? L"\\" : L""));
    }
    return texts;
}

MenuDriver::MenuDriver(HWND window, std::function<void(const MenuDriver&)> work)
    : window_(window), threadId_(GetCurrentThreadId()) {
    Settle();
    thread_ = std::thread([this, work = std::move(work)] { Run(work); });
}

MenuDriver::~MenuDriver() {
    thread_.join();
}

void MenuDriver::Run(const std::function<void(const MenuDriver&)>& work) const {
    if (WaitForDepth(1)) {
        work(*this);
    } else {
        ADD_FAILURE() << "no menu came, or more than one";
    }
    // One at a time: a key that comes when no menu is left would end the next one.
    for (std::size_t left = OpenMenus().size(); left > 0; left = OpenMenus().size()) {
        Press(VK_ESCAPE);
        if (!WaitUntil([&] { return OpenMenus().size() < left; })) {
            ADD_FAILURE() << "a menu stays open";
            return;
        }
    }
}

std::vector<HMENU> MenuDriver::OpenMenus() const {
    std::vector<HMENU> menus;
    EnumThreadWindows(threadId_, &AddMenu, reinterpret_cast<LPARAM>(&menus));
    // Each hangs on the one before it.
    std::vector<HMENU> chain;
    while (chain.size() < menus.size()) {
        const auto next = std::ranges::find_if(menus, [&](HMENU menu) {
            return chain.empty()
                       ? std::ranges::none_of(menus, [&](HMENU above) { return HangsOn(menu, above); })
                       : HangsOn(menu, chain.back());
        });
        if (next == menus.end())
            break;
        chain.push_back(*next);
    }
    return chain;
}

std::wstring MenuDriver::Selected() const {
    const std::vector<HMENU> menus = OpenMenus();
    const auto index = menus.empty() ? std::nullopt : SelectedIndex(menus.back());
    return index ? TextOf(menus.back(), *index) : std::wstring();
}

bool MenuDriver::GoTo(const std::wstring& text, WPARAM key) const {
    const std::vector<HMENU> menus = OpenMenus();
    if (menus.empty())
        return false;
    const HMENU menu = menus.back();
    // Once round, wherever it begins.
    for (int left = GetMenuItemCount(menu) + 1; left > 0; --left) {
        const auto before = SelectedIndex(menu);
        if (before && TextOf(menu, *before) == text)
            return true;
        Press(key);
        // Between two entries nothing is selected for a moment.
        if (!WaitUntil([&] {
                const auto now = SelectedIndex(menu);
                return now && now != before;
            }))
            return false;
    }
    return false;
}

bool MenuDriver::Open(const std::wstring& text) const {
    const std::size_t depth = OpenMenus().size();
    if (!GoTo(text))
        return false;
    Press(VK_RIGHT);
    return WaitForDepth(depth + 1);
}

bool MenuDriver::Leave(WPARAM key) const {
    const std::size_t depth = OpenMenus().size();
    Press(key);
    return depth > 0 && WaitForDepth(depth - 1);
}

bool MenuDriver::Choose(const std::wstring& text, WPARAM key) const {
    return GoTo(text, key) && (Press(VK_RETURN), WaitForDepth(0));
}

void MenuDriver::Press(WPARAM key) const {
    PostMessageW(window_, WM_KEYDOWN, key, 1);
}

void MenuDriver::PressInVain(WPARAM key) const {
    constexpr int kEnoughMs = 300;
    Press(key);
    WaitUntil([&] { return OpenMenus().empty(); }, kEnoughMs);
}

bool MenuDriver::WaitForDepth(std::size_t depth) const {
    return WaitUntil([&] { return OpenMenus().size() == depth; });
}

}  // namespace ferry::test
