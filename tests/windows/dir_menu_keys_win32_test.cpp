// The menus of a folder, shown by the system and worked by keys.
#include <windows.h>
#include <gtest/gtest.h>

#include "files/disk_win32.h"
#include "windows/dir_menu_fixture_win32.h"
#include "windows/menu_driver_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dirmenu {
namespace {

using test::MenuDriver;
using test::TextsOf;

constexpr MenuOptions kEverything = {.ListFiles = 1, .ListSelf = 1, .OfferOpenFolder = 1};

class DirMenuKeys : public DirMenuFixture {
protected:
    std::optional<Choice> Track(const std::function<void(const MenuDriver&)>& work,
                                const MenuOptions& options = kEverything) {
        // The mouse stays where it is: over the menu it would select what is under it.
        const test::WatchedImport<&SetCursorPos> move("SetCursorPos", [](int, int) { return TRUE; });
        test::Pump();
        SetForegroundWindow(Parent());  // best effort: the keys come by messages
        const MenuDriver driver(Parent(), work);
        return menu_.Track(L"C:\\Bar", options);
    }
};

TEST_F(DirMenuKeys, AFileIsChosenByArrowsAndEnter) {
    EXPECT_EQ(Track([](const MenuDriver& driver) { EXPECT_TRUE(driver.Choose(L"one.txt")); }),
              (Choice{L"C:\\Bar\\one.txt", ChoiceKind::File}));
    EXPECT_EQ(Track([](const MenuDriver& driver) { EXPECT_TRUE(driver.Choose(L"two.txt", VK_UP)); }),
              (Choice{L"C:\\Bar\\two.txt", ChoiceKind::File}));
}

TEST_F(DirMenuKeys, SubmenusOpenOneInTheOther) {
    const auto choice = Track([](const MenuDriver& driver) {
        EXPECT_TRUE(driver.Open(L"beta"));
        EXPECT_TRUE(driver.Open(L"alpha"));
        EXPECT_TRUE(driver.Open(L"beta"));
        EXPECT_EQ(driver.OpenMenus().size(), 4U);
        EXPECT_TRUE(driver.Choose(L"two.txt"));
    });
    EXPECT_EQ(choice, (Choice{L"C:\\Bar\\beta\\alpha\\beta\\two.txt", ChoiceKind::File}));
}

TEST_F(DirMenuKeys, ASubmenuThatWasLeftOpensAgainAsItWas) {
    const auto choice = Track([](const MenuDriver& driver) {
        EXPECT_TRUE(driver.Open(L"alpha"));
        EXPECT_TRUE(driver.Leave(VK_LEFT));
        EXPECT_EQ(driver.Selected(), L"alpha");
        EXPECT_TRUE(driver.Open(L"beta"));
        EXPECT_TRUE(driver.Leave(VK_LEFT));
        EXPECT_TRUE(driver.Open(L"alpha"));
        EXPECT_EQ(TextsOf(driver.OpenMenus().back()),
                  (Texts{L"[Select Folder]", L"alpha\\", L"beta\\", L"one.txt", L"two.txt"}));
        EXPECT_TRUE(driver.Choose(L"one.txt"));
    });
    EXPECT_EQ(choice, (Choice{L"C:\\Bar\\alpha\\one.txt", ChoiceKind::File}));
    EXPECT_EQ(folders_.Patterns.size(), 3U);
}

TEST_F(DirMenuKeys, TheTwoEntriesInBracketsAreChosenLikeOthers) {
    EXPECT_EQ(Track([](const MenuDriver& driver) { EXPECT_TRUE(driver.Choose(L"[Open Folder]")); }),
              (Choice{L"C:\\Bar", ChoiceKind::OpenFolder}));
    const auto choice = Track([](const MenuDriver& driver) {
        EXPECT_TRUE(driver.Open(L"beta"));
        EXPECT_TRUE(driver.Choose(L"[Select Folder]"));
    });
    EXPECT_EQ(choice, (Choice{L"C:\\Bar\\beta", ChoiceKind::Folder}));
}

TEST_F(DirMenuKeys, EscapeChoosesNothing) {
    EXPECT_EQ(Track([](const MenuDriver& driver) {
                  EXPECT_TRUE(driver.GoTo(L"one.txt"));
                  EXPECT_TRUE(driver.Leave(VK_ESCAPE));
              }),
              std::nullopt);
}

TEST_F(DirMenuKeys, EscapeClosesOneMenuAfterTheOther) {
    const auto choice = Track([](const MenuDriver& driver) {
        EXPECT_TRUE(driver.Open(L"beta"));
        EXPECT_TRUE(driver.Leave(VK_ESCAPE));
        EXPECT_EQ(driver.OpenMenus().size(), 1U);
        EXPECT_TRUE(driver.Leave(VK_ESCAPE));
    });
    EXPECT_EQ(choice, std::nullopt);
}

TEST_F(DirMenuKeys, WhatCannotBeChosenIsNot) {
    folders_.OnlyFolder = L"C:\\Bar\\";
    const auto choice = Track([](const MenuDriver& driver) {
        EXPECT_TRUE(driver.Open(L"beta"));
        EXPECT_EQ(TextsOf(driver.OpenMenus().back()), Texts{L"(unread)"});
        driver.PressInVain(VK_RETURN);
    });
    EXPECT_EQ(choice, std::nullopt);
}

TEST_F(DirMenuKeys, ManyMenusInARowEachGiveWhatWasChosenInThem) {
    for (int round = 0; round < 5; ++round) {
        SCOPED_TRACE(round);
        EXPECT_EQ(Track([](const MenuDriver& driver) {
                      EXPECT_TRUE(driver.Open(L"alpha"));
                      EXPECT_TRUE(driver.Choose(L"one.txt"));
                  }),
                  (Choice{L"C:\\Bar\\alpha\\one.txt", ChoiceKind::File}));
        EXPECT_EQ(Track([](const MenuDriver& driver) { EXPECT_TRUE(driver.Choose(L"two.txt")); }),
                  (Choice{L"C:\\Bar\\two.txt", ChoiceKind::File}));
    }
}

/// How long a menu may take until it can be seen, even on a machine that has a good deal else to do.
constexpr ULONGLONG kAtOnceMs = 5000;

TEST_F(DirMenuKeys, FiveThousandFilesOpenAtOnceAndTheLastCanBeChosen) {
    folders_.Items.clear();
    for (int number = 1; number <= 5000; ++number) {
        folders_.Items.push_back({L"script " + std::to_wstring(number) + L".txt", false});
    }
    const ULONGLONG start = GetTickCount64();
    const auto choice = Track([&](const MenuDriver& driver) {
        EXPECT_LT(GetTickCount64() - start, kAtOnceMs);
        EXPECT_EQ(GetMenuItemCount(driver.OpenMenus().back()), 5002);
        EXPECT_TRUE(driver.Choose(L"script 5000.txt", VK_END));
    });
    EXPECT_EQ(choice, (Choice{L"C:\\Bar\\script 5000.txt", ChoiceKind::File}));
}

TEST_F(DirMenuKeys, FiveThousandFoldersOpenAtOnceAndTheLastOneOpens) {
    folders_.Items.clear();
    for (int number = 1; number <= 5000; ++number) {
        folders_.Items.push_back({L"folder " + std::to_wstring(number), true});
    }
    folders_.OnlyFolder = L"C:\\Bar\\";
    const ULONGLONG start = GetTickCount64();
    const auto choice = Track([&](const MenuDriver& driver) {
        EXPECT_LT(GetTickCount64() - start, kAtOnceMs);
        EXPECT_TRUE(driver.GoTo(L"folder 5000", VK_END));
        EXPECT_TRUE(driver.Open(L"folder 5000"));
    });
    EXPECT_EQ(choice, std::nullopt);
}

}  // namespace
}  // namespace ferry::dirmenu
