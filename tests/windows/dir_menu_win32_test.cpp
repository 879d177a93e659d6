// What the menus of a folder hold, and how Windows is asked to show them. Nobody sees these menus: a test
// stands in for the system when one is to be shown.
#include <windows.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>

#include "dirmenu/menu_font.h"
#include "files/disk_win32.h"
#include "windows/dir_menu_fixture_win32.h"
#include "windows/folder_link_win32.h"
#include "windows/menu_driver_win32.h"
#include "windows/resource_counts_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dirmenu {
namespace {

using test::EntriesOf;
using test::MenuEntry;
using test::TextsOf;
using test::WatchedImport;

constexpr MenuOptions kFiles = {.ListFiles = 1};
constexpr MenuOptions kFilesAndOpen = {.ListFiles = 1, .OfferOpenFolder = 1};

/// A menu that is being shown.
struct ShownMenu {
    HMENU Menu = nullptr;
    HWND Window = nullptr;

    /// Opens the submenu of entry `index`, counted from 0, as the system tells it.
    HMENU Open(HMENU menu, int index) const {
        const HMENU submenu = GetSubMenu(menu, index);
        SendMessageW(Window, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(submenu), MAKELPARAM(index, FALSE));
        return submenu;
    }
};

class DirMenuWindowTest : public DirMenuFixture {
protected:
    /// Shows the menu of a folder; `look` answers the chosen command.
    std::optional<Choice> Track(const MenuOptions& options, const std::function<UINT(const ShownMenu&)>& look,
                                const std::wstring& folder = L"C:\\Bar") {
        return Track(menu_, options, look, folder);
    }

    std::optional<Choice> Track(CDirMenuWnd& window, const MenuOptions& options,
                                const std::function<UINT(const ShownMenu&)>& look,
                                const std::wstring& folder) {
        const WatchedImport<&TrackPopupMenu> track(
            "TrackPopupMenu",
            [&](HMENU menu, UINT flags, int x, int y, int, HWND owner, const RECT*) -> BOOL {
                flags_ = flags;
                place_ = {x, y};
                ++shown_;
                return static_cast<BOOL>(look({menu, owner}));
            });
        return window.Track(folder, options);
    }

    /// The texts of the menu itself.
    Texts RootTexts(const MenuOptions& options) {
        Texts texts;
        Track(options, [&](const ShownMenu& shown) {
            texts = TextsOf(shown.Menu);
            return 0U;
        });
        return texts;
    }

    POINT MiddleOfButton() const {
        RECT area{};
        GetWindowRect(Button(), &area);
        return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    }

    UINT flags_ = 0;
    POINT place_{};
    int shown_ = 0;
};

TEST_F(DirMenuWindowTest, ItsMenuStandsAtTheMiddleOfItsOwnerAndTakesTheRightButton) {
    Track(kFiles, [](const ShownMenu&) { return 0U; });
    EXPECT_EQ(flags_, 278U);
    EXPECT_EQ(place_.x, MiddleOfButton().x);
    EXPECT_EQ(place_.y, MiddleOfButton().y);
}

TEST_F(DirMenuWindowTest, TheMouseIsMovedThereBefore) {
    const WatchedImport<&SetCursorPos> move("SetCursorPos", [](int, int) { return TRUE; });
    Track(kFiles, [&](const ShownMenu&) {
        EXPECT_EQ(move.OnlyCall(), std::make_tuple(static_cast<int>(MiddleOfButton().x),
                                                   static_cast<int>(MiddleOfButton().y)));
        return 0U;
    });
    EXPECT_EQ(shown_, 1);
}

TEST_F(DirMenuWindowTest, TheMenuBelongsToAnInvisibleChildOfTheOwner) {
    HWND window = nullptr;
    Track(kFiles, [&](const ShownMenu& shown) {
        window = shown.Window;
        wchar_t className[16] = {};
        GetClassNameW(window, className, 16);
        EXPECT_STREQ(CharUpperW(className), L"STATIC");
        EXPECT_EQ(GetParent(window), Button());
        EXPECT_EQ(GetDlgCtrlID(window), 500);
        EXPECT_EQ(GetWindowLongPtrW(window, GWL_STYLE) & (WS_CHILD | WS_VISIBLE), WS_CHILD | WS_VISIBLE);
        RECT area{};
        GetWindowRect(window, &area);
        EXPECT_TRUE(IsRectEmpty(&area));
        return 0U;
    });
    EXPECT_NE(window, nullptr);
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(DirMenuWindowTest, NamesAreMeasuredInTheFontThatTheSettingsGiveToMenus) {
    const WatchedImport<&SystemParametersInfoW> settings("SystemParametersInfoW");
    const WatchedImport<&CreateFontIndirectW> make("CreateFontIndirectW", [&](const LOGFONTW* font) {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof(metrics);
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
        EXPECT_EQ(font->lfHeight, metrics.lfMenuFont.lfHeight);
        EXPECT_EQ(font->lfWeight, metrics.lfMenuFont.lfWeight);
        EXPECT_STREQ(font->lfFaceName, metrics.lfMenuFont.lfFaceName);
        return make.CallReal(font);
    });
    Track(kFiles, [](const ShownMenu&) { return 0U; });
    EXPECT_EQ(make.Calls().size(), 1U);
    ASSERT_FALSE(settings.Calls().empty());
    EXPECT_EQ(std::get<0>(settings.Calls().front()), 41U);
    EXPECT_EQ(std::get<1>(settings.Calls().front()), 504U);
}

TEST_F(DirMenuWindowTest, ShowsFoldersAsSubmenusAndFilesAsCommands) {
    Track(kFiles, [](const ShownMenu& shown) {
        const std::vector<MenuEntry> entries = EntriesOf(shown.Menu);
        EXPECT_EQ(TextsOf(shown.Menu), (Texts{L"alpha\\", L"beta\\", L"one.txt", L"two.txt"}));
        for (std::size_t index = 0; index < entries.size(); ++index) {
            EXPECT_EQ(entries[index].Command, index + 1);
            EXPECT_TRUE(entries[index].IsEnabled);
        }
        return 0U;
    });
    EXPECT_EQ(shown_, 1);
}

TEST_F(DirMenuWindowTest, OpenFolderStandsInFrontAndGivesTheFolder) {
    const auto choice = Track(kFilesAndOpen, [](const ShownMenu& shown) {
        const MenuEntry first = EntriesOf(shown.Menu).front();
        EXPECT_EQ(first.Text, L"[Open Folder]");
        EXPECT_EQ(first.Command, 65535U);
        EXPECT_EQ(EntriesOf(shown.Menu)[1].Command, 1U);
        return 65535U;
    });
    EXPECT_EQ(choice, (Choice{L"C:\\Bar", ChoiceKind::OpenFolder}));
}

TEST_F(DirMenuWindowTest, ACommandGivesItsFileAndNoCommandNothing) {
    EXPECT_EQ(Track(kFiles, [](const ShownMenu&) { return 4U; }),
              (Choice{L"C:\\Bar\\two.txt", ChoiceKind::File}));
    EXPECT_EQ(Track(kFiles, [](const ShownMenu&) { return 0U; }), std::nullopt);
}

TEST_F(DirMenuWindowTest, ASubmenuIsFilledWhenItIsOpenedAndOnlyThen) {
    const auto choice = Track(kFiles, [&](const ShownMenu& shown) {
        EXPECT_EQ(GetMenuItemCount(GetSubMenu(shown.Menu, 1)), 0);
        EXPECT_EQ(folders_.Patterns.size(), 1U);
        const HMENU beta = shown.Open(shown.Menu, 1);
        EXPECT_EQ(TextsOf(beta), (Texts{L"alpha\\", L"beta\\", L"one.txt", L"two.txt"}));
        EXPECT_EQ(GetMenuItemCount(GetSubMenu(shown.Menu, 0)), 0);
        // Opened once more in the same menu it is as it was.
        shown.Open(shown.Menu, 1);
        EXPECT_EQ(GetMenuItemCount(beta), 4);
        const HMENU below = shown.Open(beta, 0);
        return EntriesOf(below).back().Command;
    });
    EXPECT_EQ(choice, (Choice{L"C:\\Bar\\beta\\alpha\\two.txt", ChoiceKind::File}));
    EXPECT_EQ(folders_.Patterns, (Texts{L"C:\\Bar\\*", L"C:\\Bar\\beta\\*", L"C:\\Bar\\beta\\alpha\\*"}));
}

TEST_F(DirMenuWindowTest, TheMenuItselfIsNotFilledTwice) {
    Track(kFiles, [](const ShownMenu& shown) {
        SendMessageW(shown.Window, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(shown.Menu), 0);
        EXPECT_EQ(GetMenuItemCount(shown.Menu), 4);
        return 0U;
    });
    EXPECT_EQ(shown_, 1);
}

TEST_F(DirMenuWindowTest, TheNextMenuLooksAnew) {
    EXPECT_EQ(RootTexts(kFiles).size(), 4U);
    folders_.Items.push_back({L"three.txt", false});
    EXPECT_EQ(RootTexts(kFiles).size(), 5U);
}

TEST_F(DirMenuWindowTest, SelectFolderInASubmenuGivesItsFolder) {
    const auto choice = Track({.ListSelf = 1}, [](const ShownMenu& shown) {
        EXPECT_EQ(TextsOf(shown.Menu), (Texts{L"[Select Folder]", L"alpha\\", L"beta\\"}));
        const HMENU alpha = shown.Open(shown.Menu, 1);
        EXPECT_EQ(EntriesOf(alpha).front().Text, L"[Select Folder]");
        return EntriesOf(alpha).front().Command;
    });
    EXPECT_EQ(choice, (Choice{L"C:\\Bar\\alpha", ChoiceKind::Folder}));
}

TEST_F(DirMenuWindowTest, AnEmptyFolderShowsOpenFolderAlone) {
    folders_.Items.clear();
    EXPECT_EQ(RootTexts(kFilesAndOpen), Texts{L"[Open Folder]"});
}

TEST_F(DirMenuWindowTest, AMenuWithNothingToChooseSaysSo) {
    folders_.Items.clear();
    Track(kFiles, [](const ShownMenu& shown) {
        EXPECT_EQ(TextsOf(shown.Menu), Texts{L"(nothing)"});
        EXPECT_FALSE(EntriesOf(shown.Menu).front().IsEnabled);
        EXPECT_EQ(EntriesOf(shown.Menu).front().Command, 0U);
        return 0U;
    });
    EXPECT_EQ(shown_, 1);
}

TEST_F(DirMenuWindowTest, AFolderThatCannotBeReadSaysSo) {
    folders_.OnlyFolder = L"C:\\Bar\\";
    Track(kFiles, [](const ShownMenu& shown) {
        const HMENU alpha = shown.Open(shown.Menu, 0);
        EXPECT_EQ(TextsOf(alpha), Texts{L"(unread)"});
        EXPECT_FALSE(EntriesOf(alpha).front().IsEnabled);
        return 0U;
    });
    EXPECT_EQ(shown_, 1);
}

TEST_F(DirMenuWindowTest, AFolderReadHalfWaySaysSoBehindWhatWasFound) {
    folders_.ErrorAtEnd = ERROR_ACCESS_DENIED;
    EXPECT_EQ(RootTexts(kFiles), (Texts{L"alpha\\", L"beta\\", L"one.txt", L"two.txt", L"(unread)"}));
}

TEST_F(DirMenuWindowTest, WhatFindsNoRoomIsCountedInTheLastEntry) {
    for (int number = 0; number < 9999; ++number) {
        folders_.Items.push_back({std::to_wstring(number), false});
    }
    Track(kFiles, [](const ShownMenu& shown) {
        const std::vector<MenuEntry> entries = EntriesOf(shown.Menu);
        EXPECT_EQ(entries.size(), kMaxEntries + 1);
        EXPECT_EQ(entries.back().Text, L"(3 && more)");
        EXPECT_FALSE(entries.back().IsEnabled);
        return 0U;
    });
    EXPECT_EQ(shown_, 1);
}

TEST_F(DirMenuWindowTest, AFolderThatTheSystemHasNoMenuForIsCountedToo) {
    int menus = 0;
    const WatchedImport<&CreatePopupMenu> make("CreatePopupMenu",
                                               [&] { return ++menus == 2 ? nullptr : make.CallReal(); });
    EXPECT_EQ(RootTexts(kFiles), (Texts{L"beta\\", L"one.txt", L"two.txt", L"(1 && more)"}));
}

TEST_F(DirMenuWindowTest, NamesAreShownAsTheyAre) {
    folders_.Items = {{L"R&D", true}, {L"&first.txt", false}, {L"\x65E5\x672C\x8A9E", false}};
    EXPECT_EQ(RootTexts(kFiles), (Texts{L"R&&D\\", L"&&first.txt", L"\x65E5\x672C\x8A9E"}));
}

TEST_F(DirMenuWindowTest, AVeryLongNameIsShortenedInItsMiddleAndChosenWhole) {
    const std::wstring name = L"begin" + std::wstring(240, L'\x9577') + L"end.txt";
    folders_.Items = {{name, false}};
    const auto choice = Track(kFiles, [](const ShownMenu& shown) {
        const MenuEntry entry = EntriesOf(shown.Menu).front();
        EXPECT_TRUE(entry.Text.starts_with(L"begin"));
        EXPECT_TRUE(entry.Text.ends_with(L"end.txt"));
        EXPECT_NE(entry.Text.find(L'\x2026'), std::wstring::npos);
        const MenuFont font;
        const int widest = WidestName(shown.Window);
        EXPECT_LE(font.WidthOf(entry.Text), widest);
        // Not much room is left over.
        EXPECT_GT(font.WidthOf(entry.Text + std::wstring(3, L'\x9577')), widest);
        return entry.Command;
    });
    EXPECT_EQ(choice, (Choice{L"C:\\Bar\\" + name, ChoiceKind::File}));
}

TEST_F(DirMenuWindowTest, ThreeMenusOfLongNamesFitBesideEachOther) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(Button(), MONITOR_DEFAULTTONEAREST), &monitor);
    EXPECT_LE(WidestName(Button()) * 3, monitor.rcWork.right - monitor.rcWork.left);
    EXPECT_GT(WidestName(Button()), 100);
}

TEST_F(DirMenuWindowTest, ANameHasTheSameRoomOnAMonitorOfAnotherScaling) {
    // The font is that of the system; a window of twice its scaling has twice the pixels for as much.
    const int usual = WidestName(Button());
    const WatchedImport<&GetDpiForSystem> system("GetDpiForSystem", [] { return 96U; });
    {
        const WatchedImport<&GetDpiForWindow> window("GetDpiForWindow", [](HWND) { return 192U; });
        const int half = usual / 2;
        EXPECT_NEAR(WidestName(Button()), half, 1);
    }
    const WatchedImport<&GetDpiForWindow> window("GetDpiForWindow", [](HWND) { return 96U; });
    EXPECT_EQ(WidestName(Button()), usual);
}

TEST_F(DirMenuWindowTest, AnExceptionClosesTheMenuAndComesToWhoeverShowedIt) {
    class Failing final : public files::FolderSearch {
    public:
        std::uint32_t Search(std::wstring_view pattern,
                             const std::function<bool(const files::Match&)>& visit) override {
            if (pattern.ends_with(L"sub\\*"))
                throw std::runtime_error("no memory");
            visit({L"sub", files::kAttributeDirectory, {}});
            return 0;
        }
    };
    Failing failing;
    CDirMenuWnd menu(Button(), failing, texts_);
    const WatchedImport<&EndMenu> end("EndMenu");
    HWND window = nullptr;
    const auto openTheFailingOne = [&] {
        Track(
            menu, kFiles,
            [&](const ShownMenu& shown) {
                window = shown.Window;
                shown.Open(shown.Menu, 0);  // would end this process if it let the exception out
                return 0U;
            },
            L"C:\\Bar");
    };
    EXPECT_THROW(openTheFailingOne(), std::runtime_error);
    EXPECT_EQ(end.Calls().size(), 1U);
    EXPECT_FALSE(IsWindow(window));
    // It can be shown again.
    Track(menu, kFiles, [](const ShownMenu&) { return 0U; }, L"C:\\Bar");
    EXPECT_EQ(shown_, 2);
}

TEST_F(DirMenuWindowTest, OneMenuAtATime) {
    Track(kFiles, [this](const ShownMenu& shown) {
        if (shown_ > 1) {
            return 0U;
        }
        EXPECT_EQ(menu_.Track(L"C:\\Bar", kFiles), std::nullopt);
        // The first one works on.
        EXPECT_EQ(GetMenuItemCount(shown.Open(shown.Menu, 0)), 4);
        return 0U;
    });
    EXPECT_EQ(shown_, 1);
}

TEST_F(DirMenuWindowTest, WithoutItsOwnerThereIsNoMenu) {
    test::TestWindow gone(
        CreateWindowExW(0, L"Button", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr));
    CDirMenuWnd menu(gone.Get(), folders_, texts_);
    gone.Reset();
    EXPECT_EQ(Track(menu, kFiles, [](const ShownMenu&) { return 1U; }, L"C:\\Bar"), std::nullopt);
    EXPECT_EQ(shown_, 0);
}

TEST_F(DirMenuWindowTest, MenusAndFontsAreGoneAfterwards) {
    constexpr std::size_t kRounds = 40;
    const auto show = [this] {
        Track(kFiles, [](const ShownMenu& shown) {
            shown.Open(shown.Menu, 0);
            return 0U;
        });
    };
    show();
    const test::ResourceCounts before = test::CountResources();
    for (std::size_t round = 0; round < kRounds; ++round) {
        show();
    }
    const test::ResourceCounts after = test::CountResources();
    EXPECT_LT(after.UserObjects, before.UserObjects + kRounds / 2);
    EXPECT_LT(after.GdiObjects, before.GdiObjects + kRounds / 2);
}

TEST_F(DirMenuWindowTest, ALinkThatLeadsBackEndsSomewhere) {
    const test::TempFolder folder;
    test::MakeFolders(folder / L"sub");
    const test::FolderLink link(folder / L"sub\\back", folder.Path());
    if (!link.IsMade()) {
        GTEST_SKIP() << "this account makes no links";
    }
    files::DiskSearch disk;
    CDirMenuWnd menu(Button(), disk, texts_);
    int opened = 0;
    const auto choice = Track(
        menu, {.ListSelf = 1},
        [&](const ShownMenu& shown) {
            HMENU inner = shown.Menu;
            // Each holds itself and one folder, until there is nothing but the word that it ends.
            while (GetMenuItemCount(inner) == 2 && opened < 100) {
                inner = shown.Open(inner, 1);
                ++opened;
            }
            EXPECT_FALSE(EntriesOf(inner).back().IsEnabled);
            const HMENU sub = GetSubMenu(shown.Menu, 1);
            const HMENU back = GetSubMenu(sub, 1);
            return EntriesOf(back).front().Command;
        },
        folder.Path());
    EXPECT_GT(opened, 5);
    EXPECT_LE(opened, kMaxDepth + 1);
    EXPECT_EQ(choice, (Choice{folder / L"sub\\back", ChoiceKind::Folder}));
}

}  // namespace
}  // namespace ferry::dirmenu
