// What a menu of a folder lists, and what its commands mean.
#include "dirmenu/dir_menu.h"

#include <gtest/gtest.h>

#include <set>

#include "core/files/fake_folders.h"

namespace ferry::dirmenu {
namespace {

using Texts = std::vector<std::wstring>;

constexpr std::uint32_t kHidden = 2;
constexpr std::uint32_t kAccessDenied = 5;

constexpr MenuOptions kEverything = {1, 1, 1, 1, 1};

/// The names of the entries; those of submenus with a backslash.
Texts NamesOf(const Listing& listing) {
    Texts names;
    for (const Entry& entry : listing.Entries) {
        names.push_back(entry.Name + (entry.Kind == EntryKind::Folder ? L"\\" : L""));
    }
    return names;
}

class DirMenuTest : public testing::Test {
protected:
    DirMenuTest() {
        folders_.Items = {{L"readme.txt", false}, {L"Tools", true},
                          {L"10 last", false},    {L"shadow.txt", false, {}, kHidden},
                          {L"archive", true},     {L"Shade", true, {}, kHidden},
                          {L"2 first", false}};
    }

    CDirMenuObj Menu(const MenuOptions& options, std::wstring_view folder = L"C:\\Bar") {
        return {folders_, folder, options};
    }

    Texts RootNames(const MenuOptions& options) {
        CDirMenuObj menu = Menu(options);
        return NamesOf(menu.ListRoot());
    }

    test::FakeFolders folders_;
};

TEST_F(DirMenuTest, ListsOnlyFoldersThatAreNotHiddenUnlessItIsToldMore) {
    EXPECT_EQ(RootNames({}), (Texts{L"archive\\", L"Tools\\"}));
}

TEST_F(DirMenuTest, ListsFoldersBeforeFilesAndEachInTheirOrder) {
    EXPECT_EQ(RootNames({.ListFiles = 1}),
              (Texts{L"archive\\", L"Tools\\", L"2 first", L"10 last", L"readme.txt"}));
}

TEST_F(DirMenuTest, ListsHiddenOnesWhenAskedFor) {
    EXPECT_EQ(RootNames({.ListHidden = 1}), (Texts{L"archive\\", L"Shade\\", L"Tools\\"}));
    EXPECT_EQ(
        RootNames({.ListFiles = 1, .ListHidden = 1}),
        (Texts{L"archive\\", L"Shade\\", L"Tools\\", L"2 first", L"10 last", L"readme.txt", L"shadow.txt"}));
}

TEST_F(DirMenuTest, ListsTheFolderItselfAndTheOneAboveInFront) {
    folders_.Items = {{L"!a", true}, {L"!b", false}};
    EXPECT_EQ(RootNames({.ListFiles = 1, .ListSelf = 1}), (Texts{L"[Select Folder]", L"!a\\", L"!b"}));
    EXPECT_EQ(RootNames({.ListParent = 1}), (Texts{L"..\\", L"!a\\"}));
    EXPECT_EQ(RootNames({.ListSelf = 1, .ListParent = 1}), (Texts{L"[Select Folder]", L"..\\", L"!a\\"}));
}

TEST_F(DirMenuTest, AFolderThatIsHiddenItselfHasThemAsWell) {
    folders_.OwnAttributes = kHidden;
    folders_.Items.clear();
    EXPECT_EQ(RootNames({.ListSelf = 1, .ListParent = 1}), (Texts{L"[Select Folder]", L"..\\"}));
}

TEST_F(DirMenuTest, TakesAnyNumberButNoughtForYes) {
    EXPECT_EQ(
        RootNames({.ListFiles = 0x80000000, .ListSelf = 2, .ListParent = 0xFFFFFFFF, .ListHidden = 4}).size(),
        9U);
}

TEST_F(DirMenuTest, OffersToOpenTheFolderWithoutAnEntryInTheList) {
    // The window puts it in front; the commands count without it.
    CDirMenuObj menu = Menu({.ListFiles = 1, .OfferOpenFolder = 1});
    const Listing listing = menu.ListRoot();
    EXPECT_EQ(listing.Entries.front().Command, 1U);
    EXPECT_EQ(listing.Entries.size(), 5U);
}

TEST_F(DirMenuTest, CountsItsCommandsFromOneInTheOrderOfTheMenu) {
    CDirMenuObj menu = Menu(kEverything);
    const Listing listing = menu.ListRoot();
    ASSERT_EQ(listing.Entries.size(), 9U);
    for (std::size_t index = 0; index < listing.Entries.size(); ++index) {
        EXPECT_EQ(listing.Entries[index].Command, index + 1);
    }
    EXPECT_EQ(menu.Items(), (Texts{L"C:\\Bar\\.\r[Select Folder]", L"C:\\", L"C:\\Bar\\archive",
                                   L"C:\\Bar\\Shade", L"C:\\Bar\\Tools", L"C:\\Bar\\2 first",
                                   L"C:\\Bar\\10 last", L"C:\\Bar\\readme.txt", L"C:\\Bar\\shadow.txt"}));
}

TEST_F(DirMenuTest, GoesOnCountingInSubmenus) {
    CDirMenuObj menu = Menu({.ListFiles = 1});
    EXPECT_EQ(menu.ListRoot().Entries[1].Name, L"Tools");
    const Listing tools = menu.ListSubmenu(2);
    EXPECT_EQ(tools.Entries.front().Command, 6U);
    EXPECT_EQ(menu.Items()[5], L"C:\\Bar\\Tools\\archive");
    const Listing below = menu.ListSubmenu(6);
    EXPECT_EQ(below.Entries.back().Command, 15U);
    EXPECT_EQ(menu.Items().back(), L"C:\\Bar\\Tools\\archive\\readme.txt");
}

TEST_F(DirMenuTest, ListsAFolderOnlyWhenItIsOpened) {
    CDirMenuObj menu = Menu(kEverything);
    EXPECT_TRUE(folders_.Patterns.empty());
    menu.ListRoot();
    EXPECT_EQ(folders_.Patterns, Texts{L"C:\\Bar\\*"});
    menu.ListSubmenu(3);
    EXPECT_EQ(folders_.Patterns, (Texts{L"C:\\Bar\\*", L"C:\\Bar\\archive\\*"}));
}

TEST_F(DirMenuTest, OnlyFoldersHaveASubmenu) {
    CDirMenuObj menu = Menu(kEverything);
    menu.ListRoot();
    // The folder itself, a file, and commands that are none.
    for (const std::uint32_t command : {1U, 6U, 0U, 10U, kOpenFolderCommand, 0xFFFFFFFFU}) {
        EXPECT_TRUE(menu.ListSubmenu(command).Entries.empty()) << command;
    }
    EXPECT_EQ(folders_.Patterns.size(), 1U);
}

TEST_F(DirMenuTest, ASeparatorBehindTheFolderDoesNotShow) {
    CDirMenuObj menu = Menu({.ListSelf = 1, .ListParent = 1}, L"C:\\User\\Bar\\");
    menu.ListRoot();
    EXPECT_EQ(menu.Items()[0], L"C:\\User\\Bar\\.\r[Select Folder]");
    EXPECT_EQ(menu.Items()[1], L"C:\\User");
    EXPECT_EQ(menu.ChoiceOf(kOpenFolderCommand)->Path, L"C:\\User\\Bar");
}

TEST_F(DirMenuTest, ADriveKeepsItsSeparator) {
    CDirMenuObj menu = Menu({.ListFiles = 1, .ListSelf = 1}, L"C:\\");
    menu.ListRoot();
    EXPECT_EQ(menu.Items().back(), L"C:\\readme.txt");
    EXPECT_EQ(menu.ChoiceOf(1), (Choice{L"C:\\", ChoiceKind::Folder}));
    EXPECT_EQ(menu.ChoiceOf(kOpenFolderCommand)->Path, L"C:\\");
}

TEST_F(DirMenuTest, AChosenFileIsItsPath) {
    CDirMenuObj menu = Menu({.ListFiles = 1});
    menu.ListRoot();
    EXPECT_EQ(menu.ChoiceOf(3), (Choice{L"C:\\Bar\\2 first", ChoiceKind::File}));
    EXPECT_EQ(menu.ChoiceOf(5), (Choice{L"C:\\Bar\\readme.txt", ChoiceKind::File}));
}

TEST_F(DirMenuTest, SelectFolderIsTheFolderOfItsOwnMenu) {
    CDirMenuObj menu = Menu({.ListSelf = 1});
    menu.ListRoot();
    EXPECT_EQ(menu.ChoiceOf(1), (Choice{L"C:\\Bar", ChoiceKind::Folder}));
    const Listing archive = menu.ListSubmenu(2);
    EXPECT_EQ(menu.ChoiceOf(archive.Entries.front().Command),
              (Choice{L"C:\\Bar\\archive", ChoiceKind::Folder}));
}

TEST_F(DirMenuTest, OpenFolderIsTheFolderOfTheMenu) {
    CDirMenuObj menu = Menu(kEverything);
    menu.ListRoot();
    menu.ListSubmenu(3);
    EXPECT_EQ(menu.ChoiceOf(65535), (Choice{L"C:\\Bar", ChoiceKind::OpenFolder}));
}

TEST_F(DirMenuTest, NoCommandAndUnknownOnesChooseNothing) {
    CDirMenuObj menu = Menu(kEverything);
    menu.ListRoot();
    for (const std::uint32_t command : {0U, 10U, 65534U, 65536U, 0xFFFFFFFFU}) {
        EXPECT_EQ(menu.ChoiceOf(command), std::nullopt) << command;
    }
}

TEST_F(DirMenuTest, AFolderThatCannotBeReadIsEmptyAndSaysWhy) {
    folders_.OnlyFolder = L"C:\\Other\\";
    CDirMenuObj menu = Menu(kEverything);
    const Listing listing = menu.ListRoot();
    EXPECT_TRUE(listing.Entries.empty());
    EXPECT_NE(listing.Error, 0U);
    EXPECT_TRUE(menu.Items().empty());
}

TEST_F(DirMenuTest, AFolderReadHalfWayShowsWhatWasFound) {
    folders_.ErrorAtEnd = kAccessDenied;
    CDirMenuObj menu = Menu({.ListFiles = 1});
    const Listing listing = menu.ListRoot();
    EXPECT_EQ(listing.Entries.size(), 5U);
    EXPECT_EQ(listing.Error, kAccessDenied);
}

TEST_F(DirMenuTest, AnEmptyFolderHasNoEntry) {
    folders_.Items.clear();
    CDirMenuObj menu = Menu({.ListFiles = 1, .ListHidden = 1, .OfferOpenFolder = 1});
    const Listing listing = menu.ListRoot();
    EXPECT_TRUE(listing.Entries.empty());
    EXPECT_EQ(listing.Error, 0U);
    EXPECT_EQ(listing.LeftOut, 0U);
}

TEST_F(DirMenuTest, ALinkThatLeadsBackIsFollowedSoFarAndNoFurther) {
    folders_.Items = {{L"again", true, {}, files::kAttributeLink}};
    CDirMenuObj menu = Menu({});
    Listing listing = menu.ListRoot();
    int opened = 0;
    while (!listing.IsTooDeep) {
        ASSERT_EQ(listing.Entries.size(), 1U);
        ASSERT_LE(++opened, 100);
        listing = menu.ListSubmenu(listing.Entries.front().Command);
    }
    EXPECT_EQ(opened, kMaxDepth + 1);
    EXPECT_TRUE(listing.Entries.empty());
    // The last one was not even looked at.
    EXPECT_EQ(folders_.Patterns.size(), static_cast<std::size_t>(opened));
}

TEST_F(DirMenuTest, TheWayUpIsAsLongAsTheWayDown) {
    folders_.Items.clear();
    CDirMenuObj menu = Menu({.ListParent = 1}, L"C:\\a\\b");
    std::uint32_t command = menu.ListRoot().Entries.front().Command;
    EXPECT_EQ(menu.Items().back(), L"C:\\a");
    command = menu.ListSubmenu(command).Entries.front().Command;
    EXPECT_EQ(menu.Items().back(), L"C:\\");
    EXPECT_EQ(menu.ListSubmenu(command).Entries.size(), 1U);
}

TEST_F(DirMenuTest, OneMenuHasTenThousandEntriesAndCountsTheRest) {
    folders_.Items.clear();
    for (int number = 0; number < 10007; ++number) {
        folders_.Items.push_back({std::to_wstring(number), false});
    }
    CDirMenuObj menu = Menu({.ListFiles = 1});
    const Listing listing = menu.ListRoot();
    ASSERT_EQ(listing.Entries.size(), 10000U);
    EXPECT_EQ(listing.Entries.back().Name, L"9999");
    EXPECT_EQ(listing.LeftOut, 7U);
}

TEST_F(DirMenuTest, FoldersThatFindNoMenuLeaveRoomForFiles) {
    folders_.Items = {{L"file", false}};
    for (int number = 0; number < 8005; ++number) {
        folders_.Items.push_back({std::to_wstring(number), true});
    }
    CDirMenuObj menu = Menu({.ListFiles = 1});
    const Listing listing = menu.ListRoot();
    ASSERT_EQ(listing.Entries.size(), kMaxSubmenus + 1);
    EXPECT_EQ(listing.Entries.back().Name, L"file");
    EXPECT_EQ(listing.LeftOut, 5U);
    // Those of a submenu count, too.
    EXPECT_EQ(menu.ListSubmenu(1).LeftOut, 8005U);
}

TEST_F(DirMenuTest, NoCommandIsUsedTwiceAndNoneIsThatOfOpenFolder) {
    folders_.Items = {{L"again", true}};
    for (int number = 0; number < 9000; ++number) {
        folders_.Items.push_back({std::to_wstring(number), false});
    }
    CDirMenuObj menu = Menu({.ListFiles = 1});
    std::set<std::uint32_t> commands;
    std::size_t leftOut = 0;
    Listing listing = menu.ListRoot();
    for (int level = 0; level < 8; ++level) {
        for (const Entry& entry : listing.Entries) {
            ASSERT_TRUE(commands.insert(entry.Command).second);
        }
        leftOut += listing.LeftOut;
        listing = menu.ListSubmenu(static_cast<std::uint32_t>(level * 9001 + 1));
    }
    EXPECT_EQ(commands.size(), 65534U);
    EXPECT_EQ(*commands.begin(), 1U);
    EXPECT_EQ(*commands.rbegin(), 65534U);
    EXPECT_EQ(leftOut, 8 * 9001 - 65534U);
    EXPECT_EQ(menu.ChoiceOf(65534)->Kind, ChoiceKind::File);
}

}  // namespace
}  // namespace ferry::dirmenu
