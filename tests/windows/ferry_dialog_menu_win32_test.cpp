// The menu of the other tabs' folders: its texts, its place and its choices.
#include <windows.h>

#include <cstdlib>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "samplehost/host_block_writer.h"
#include "windows/ferry_dialog_fixture_win32.h"
#include "windows/menu_driver_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dialogs {
namespace {

using Texts = std::vector<std::wstring>;
using MenuWork = std::function<void(const test::MenuDriver&)>;

/// Leaves the menu by Escape.
void Cancel(const test::MenuDriver& menu) {
    EXPECT_TRUE(menu.Leave(VK_ESCAPE));
}

/// The commands of its entries, in their order.
std::vector<UINT> CommandsOf(const test::MenuDriver& menu) {
    std::vector<UINT> commands;
    for (const test::MenuEntry& entry : test::EntriesOf(menu.OpenMenus().front()))
        commands.push_back(entry.Command);
    return commands;
}

class TabMenu : public FerryDialogTest {
protected:
    void OpenWithTabs(std::vector<std::wstring> tabs) {
        SetCursorPos(0, 0);  // the pointer would select what lies under it
        Open({});
        samplehost::BlockFields fields;
        fields.Tabs = std::move(tabs);
        std::wstring block = samplehost::BlockUnits(fields);
        COPYDATASTRUCT data{samplehost::kBlockTag, static_cast<DWORD>(block.size() * sizeof(wchar_t)),
                            block.data()};
        ASSERT_EQ(SendMessageW(Window(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data)), TRUE);
        SetWindowTextW(Edit(), L"");
    }

    /// Presses the button and does `work` in its menu. Comes back when the menu has closed and what was
    /// chosen there is done.
    void PressAndDo(MenuWork work) {
        const test::MenuDriver driver(Window(), std::move(work));
        SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(IDC_OTHER_TABS, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(Window(), IDC_OTHER_TABS)));
    }
};

TEST_F(TabMenu, ShowsEveryFolderAsItIsCalled) {
    OpenWithTabs({L"D:\\R&D", L"D:\\&first", L"D:\\a && b", L"D:\\日本", L"D:\\plain"});
    std::vector<UINT> commands;
    Texts texts;
    PressAndDo([&](const test::MenuDriver& menu) {
        commands = CommandsOf(menu);
        texts = test::TextsOf(menu.OpenMenus().front());
        Cancel(menu);
    });
    EXPECT_EQ(commands, (std::vector<UINT>{1, 2, 3, 4, 5}));
    EXPECT_EQ(texts, (Texts{L"D:\\R&&D", L"D:\\&&first", L"D:\\a &&&& b", L"D:\\日本", L"D:\\plain"}));
}

TEST_F(TabMenu, StandsAtTheCentreOfItsButton) {
    OpenWithTabs({L"D:\\one", L"D:\\two"});
    SetWindowPos(Window(), nullptr, 200, 100, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    RECT first{};
    RECT last{};
    PressAndDo([&](const test::MenuDriver& menu) {
        const HMENU shown = menu.OpenMenus().front();
        EXPECT_TRUE(GetMenuItemRect(nullptr, shown, 0, &first));
        EXPECT_TRUE(GetMenuItemRect(nullptr, shown, 1, &last));
        Cancel(menu);
    });
    RECT button{};
    GetWindowRect(GetDlgItem(Window(), IDC_OTHER_TABS), &button);
    EXPECT_LE(std::abs((first.left + first.right) - (button.left + button.right)), 4);
    EXPECT_LE(std::abs((first.top + last.bottom) - (button.top + button.bottom)), 4);
}

TEST_F(TabMenu, AnAmpersandOfAFolderReachesTheDestination) {
    OpenWithTabs({L"D:\\R&D", L"D:\\other"});
    PressAndDo([](const test::MenuDriver& menu) {
        EXPECT_EQ(CommandsOf(menu).size(), 2U);
        EXPECT_TRUE(menu.Choose(L"D:\\R&&D"));
    });
    EXPECT_EQ(Destination(), L"D:\\R&D\\");
}

TEST_F(TabMenu, EscapeChangesNothing) {
    OpenWithTabs({L"D:\\one", L"D:\\two"});
    PressAndDo([](const test::MenuDriver& menu) {
        EXPECT_EQ(CommandsOf(menu).size(), 2U);
        EXPECT_TRUE(menu.GoTo(L"D:\\one"));
        Cancel(menu);
    });
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
    PressAndDo(&Cancel);
    PressAndDo([](const test::MenuDriver& menu) { EXPECT_TRUE(menu.Choose(L"D:\\one")); });
    EXPECT_EQ(make.Calls().size(), 2U);
    EXPECT_TRUE(menus.empty());
}

TEST_F(TabMenu, TheLastOfManyFoldersCanBeChosen) {
    std::vector<std::wstring> tabs;
    for (int index = 0; index < 300; ++index) {
        tabs.push_back(L"D:\\tab " + std::to_wstring(index));
    }
    OpenWithTabs(tabs);
    std::vector<UINT> commands;
    PressAndDo([&](const test::MenuDriver& menu) {
        commands = CommandsOf(menu);
        EXPECT_TRUE(menu.Choose(L"D:\\tab 299", VK_UP));
    });
    ASSERT_EQ(commands.size(), 300U);
    EXPECT_EQ(commands.back(), 300U);
    EXPECT_EQ(Destination(), L"D:\\tab 299\\");
}

}  // namespace
}  // namespace ferry::dialogs
