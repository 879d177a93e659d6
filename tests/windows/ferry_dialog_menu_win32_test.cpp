// The menu of the other tabs' folders: its texts, its place and its choices.
#include <windows.h>

#include <cstdlib>
#include <set>

#include "samplehost/host_block_writer.h"
#include "windows/ferry_dialog_fixture_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dialogs {
namespace {

constexpr wchar_t kMenuClass[] = L"#32768";
/// Asks a menu's window for its menu; MinGW's headers do not name it.
constexpr UINT kGetMenuMessage = 0x01E1;

/// What the menu looked like when it was open.
struct SeenMenu {
    std::vector<std::wstring> Texts;
    std::vector<UINT> Ids;
    RECT Place{};
};

class TabMenu : public FerryDialogTest {
protected:
    void OpenWithTabs(std::vector<std::wstring> tabs) {
        Open({});
        samplehost::BlockFields fields;
        fields.Tabs = std::move(tabs);
        std::wstring block = samplehost::BlockUnits(fields);
        COPYDATASTRUCT data{samplehost::kBlockTag, static_cast<DWORD>(block.size() * sizeof(wchar_t)),
                            block.data()};
        ASSERT_EQ(SendMessageW(Window(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data)), TRUE);
        SetWindowTextW(Edit(), L"");
    }

    /// Presses the button, looks at the menu and then presses `keys` in it.
    SeenMenu OpenMenu(std::vector<WPARAM> keys) {
        seen_ = {};
        keys_ = std::move(keys);
        current_ = this;
        constexpr UINT kStepMs = 10;
        const UINT_PTR timer = SetTimer(nullptr, 0, kStepMs, &Look);
        // Comes back when the menu has closed.
        SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(IDC_OTHER_TABS, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(Window(), IDC_OTHER_TABS)));
        KillTimer(nullptr, timer);
        return seen_;
    }

    std::wstring Destination() const { return test::TextOfWindow(Edit()); }

private:
    HWND Edit() const {
        return reinterpret_cast<HWND>(
            SendDlgItemMessageW(Window(), IDC_DESTINATION, CBEM_GETEDITCONTROL, 0, 0));
    }

    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
        const HWND window = FindWindowW(kMenuClass, nullptr);
        if (window == nullptr || !IsWindowVisible(window) || !current_->seen_.Ids.empty()) {
            return;
        }
        const auto menu = reinterpret_cast<HMENU>(SendMessageW(window, kGetMenuMessage, 0, 0));
        for (int index = 0; index < GetMenuItemCount(menu); ++index) {
            wchar_t text[512] = {};
            GetMenuStringW(menu, static_cast<UINT>(index), text, 512, MF_BYPOSITION);
            current_->seen_.Texts.emplace_back(text);
            current_->seen_.Ids.push_back(GetMenuItemID(menu, index));
        }
        GetWindowRect(window, &current_->seen_.Place);
        for (const WPARAM key : current_->keys_) {
            PostMessageW(current_->Window(), WM_KEYDOWN, key, 1);
        }
    }

    static inline TabMenu* current_ = nullptr;
    SeenMenu seen_;
    std::vector<WPARAM> keys_;
};

TEST_F(TabMenu, ShowsEveryFolderAsItIsCalled) {
    OpenWithTabs({L"D:\\R&D", L"D:\\&first", L"D:\\a && b", L"D:\\日本", L"D:\\plain"});
    const SeenMenu menu = OpenMenu({VK_ESCAPE});
    EXPECT_EQ(menu.Ids, (std::vector<UINT>{1, 2, 3, 4, 5}));
    EXPECT_EQ(menu.Texts, (std::vector<std::wstring>{L"D:\\R&&D", L"D:\\&&first", L"D:\\a &&&& b",
                                                     L"D:\\日本", L"D:\\plain"}));
}

TEST_F(TabMenu, StandsAtTheCentreOfItsButton) {
    OpenWithTabs({L"D:\\one", L"D:\\two"});
    SetWindowPos(Window(), nullptr, 200, 100, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    const SeenMenu menu = OpenMenu({VK_ESCAPE});
    RECT button{};
    GetWindowRect(GetDlgItem(Window(), IDC_OTHER_TABS), &button);
    EXPECT_LE(std::abs((menu.Place.left + menu.Place.right) - (button.left + button.right)), 4);
    EXPECT_LE(std::abs((menu.Place.top + menu.Place.bottom) - (button.top + button.bottom)), 4);
}

TEST_F(TabMenu, AnAmpersandOfAFolderReachesTheDestination) {
    OpenWithTabs({L"D:\\R&D", L"D:\\other"});
    ASSERT_EQ(OpenMenu({VK_DOWN, VK_RETURN}).Ids.size(), 2U);
    EXPECT_EQ(Destination(), L"D:\\R&D\\");
}

TEST_F(TabMenu, EscapeChangesNothing) {
    OpenWithTabs({L"D:\\one", L"D:\\two"});
    ASSERT_EQ(OpenMenu({VK_DOWN, VK_ESCAPE}).Ids.size(), 2U);
    EXPECT_EQ(Destination(), L"");
}

TEST_F(TabMenu, LeavesNoMenuBehind) {
    OpenWithTabs({L"D:\\one", L"D:\\two"});
    std::set<HMENU> menus;
    const test::WatchedImport<&CreatePopupMenu> make("CreatePopupMenu", [&] {
        const HMENU menu = make.CallReal();
        menus.insert(menu);
        return menu;
    });
    const test::WatchedImport<&DestroyMenu> end("DestroyMenu", [&](HMENU menu) {
        menus.erase(menu);
        return end.CallReal(menu);
    });
    OpenMenu({VK_ESCAPE});
    OpenMenu({VK_DOWN, VK_RETURN});
    EXPECT_EQ(make.Calls().size(), 2U);
    EXPECT_TRUE(menus.empty());
}

TEST_F(TabMenu, TheLastOfManyFoldersCanBeChosen) {
    std::vector<std::wstring> tabs;
    for (int index = 0; index < 300; ++index) {
        tabs.push_back(L"D:\\tab " + std::to_wstring(index));
    }
    OpenWithTabs(tabs);
    const SeenMenu menu = OpenMenu({VK_UP, VK_RETURN});
    ASSERT_EQ(menu.Ids.size(), 300U);
    EXPECT_EQ(menu.Ids.back(), 300U);
    EXPECT_EQ(Destination(), L"D:\\tab 299\\");
}

}  // namespace
}  // namespace ferry::dialogs
