// The menu of the registered folders: what it shows, and how an entry is chosen.
#include <algorithm>
#include <array>
#include <cstdlib>

#include "base/utf16.h"
#include "e2e/driver/folder_link.h"
#include "e2e/driver/message_file.h"
#include "e2e/driver/surroundings.h"
#include "e2e/favourite_fixture.h"

namespace ferry::e2e {
namespace {

using Texts = std::vector<std::wstring>;

class Favourite : public FavouriteTest {};

TEST_F(Favourite, WithoutAFolderAMessageSaysSoAndNothingElseHappens) {
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(TakeForeground(Dialog().Window()));
    Dialog().Click(kFavourites);
    const ShownBox box = Box();
    ASSERT_NE(box.Window, nullptr);
    EXPECT_EQ(box.Text, InstalledMessage(AppFolder(), 62402) + InstalledMessage(AppFolder(), 62325));
    EXPECT_EQ(box.Text, L"登録フォルダーがありません。");
    ASSERT_TRUE(DismissMessageBox(box));
    EXPECT_FALSE(Exists(Favourites())) << "it must not be made";
    EXPECT_TRUE(IsAsBefore());
}

TEST_F(Favourite, WithoutAFolderTheMessageComesInEnglish) {
    WriteText(kHostKey, L"NLS", L".en-US");
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(TakeForeground(Dialog().Window()));
    Dialog().Click(kFavourites);
    const ShownBox box = Box();
    ASSERT_NE(box.Window, nullptr);
    EXPECT_EQ(box.Text, InstalledMessage(AppFolder(), 62402, L"en-US") +
                            InstalledMessage(AppFolder(), 62325, L"en-US"));
    EXPECT_TRUE(std::ranges::all_of(box.Text, [](wchar_t unit) { return unit < 0x80; }))
        << base::ToUtf8(box.Text);
    ASSERT_TRUE(DismissMessageBox(box));
    EXPECT_TRUE(IsAsBefore());
}

TEST_F(Favourite, AFileInThePlaceOfTheFolderIsNoFolder) {
    Tree().WriteFile(L"user\\Bar\\Favorite", "a file");
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(TakeForeground(Dialog().Window()));
    Dialog().Click(kFavourites);
    const ShownBox box = Box();
    ASSERT_NE(box.Window, nullptr);
    EXPECT_EQ(box.Text, L"登録フォルダーがありません。");
    ASSERT_TRUE(DismissMessageBox(box));
    EXPECT_TRUE(IsAsBefore());
}

TEST_F(Favourite, AnEmptyFolderHasNothingToChoose) {
    MakeFolders(Favourites());
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(OpenMenu());
    for (const MenuEntry& entry : Menu().Entries())
        EXPECT_TRUE(entry.IsDisabled || entry.Text == L"[Open Folder]") << base::ToUtf8(entry.Text);
    EXPECT_LE(Menu().Count(), 1);
    EXPECT_TRUE(Menu().Cancel());
    EXPECT_TRUE(IsAsBefore());
}

/// Two folders and three files, made in another order than they are shown in.
class FilledFavourite : public FavouriteTest {
protected:
    void SetUp() override {
        WriteJump(L"b.txt", L"C:\\b");
        WriteJump(L"z folder\\in z.txt", L"C:\\z");
        WriteJump(L"A.txt", L"C:\\a");
        WriteJump(L"Near\\far\\down.txt", L"C:\\down");
        WriteJump(L"Near\\top.txt", L"C:\\top");
        WriteJump(L"c.txt", L"C:\\c");
        ASSERT_TRUE(OpenDialog());
    }

    static inline const Texts kShown = {L"Near", L"z folder", L"A.txt", L"b.txt", L"c.txt"};

    /// The entries without those that the menu adds of its own accord.
    Texts Names() {
        Texts texts = Menu().Texts();
        std::erase_if(texts, [](const std::wstring& text) { return text.empty() || text.starts_with(L'['); });
        return texts;
    }
};

TEST_F(FilledFavourite, FoldersStandBeforeFilesAndBothInOrder) {
    ASSERT_TRUE(OpenMenu());
    EXPECT_EQ(Names(), kShown);
    for (const MenuEntry& entry : Menu().Entries())
        EXPECT_EQ(entry.HasSubmenu, entry.Text == L"Near" || entry.Text == L"z folder");
    EXPECT_TRUE(Menu().Cancel());
    EXPECT_TRUE(IsAsBefore());
}

TEST_F(FilledFavourite, ItStandsAtTheMiddleOfItsButton) {
    SetWindowPos(Dialog().Window(), nullptr, 200, 150, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    ASSERT_TRUE(OpenMenu());
    RECT button = {};
    GetWindowRect(Dialog().Control(kFavourites), &button);
    const RECT menu = Menu().Place();
    EXPECT_LE(std::abs((menu.left + menu.right) - (button.left + button.right)), 4);
    EXPECT_LE(std::abs((menu.top + menu.bottom) - (button.top + button.bottom)), 4);
    EXPECT_TRUE(Menu().Cancel());
}

TEST_F(FilledFavourite, TheMouseIsMovedToTheMiddleOfItsButton) {
    MovePointerTo({0, 0});
    ASSERT_TRUE(TakeForeground(Dialog().Window()));
    Dialog().Click(kFavourites);
    ASSERT_TRUE(Menu().WaitUntilShown());
    RECT button = {};
    GetWindowRect(Dialog().Control(kFavourites), &button);
    POINT pointer = {};
    EXPECT_TRUE(WaitUntil([&] {
        GetCursorPos(&pointer);
        return std::abs(2 * pointer.x - (button.left + button.right)) <= 4 &&
               std::abs(2 * pointer.y - (button.top + button.bottom)) <= 4;
    })) << pointer.x
        << ',' << pointer.y;
    ASSERT_TRUE(Menu().WaitUntilOpen());
    EXPECT_TRUE(Menu().Cancel());
    EXPECT_TRUE(IsAsBefore());
}

TEST_F(FilledFavourite, AnEntryOfASubmenuIsChosenWithTheKeys) {
    ASSERT_TRUE(Choose({L"Near", L"far", L"down.txt"}));
    EXPECT_TRUE(DestinationIs(L"C:\\down"));
}

TEST_F(FilledFavourite, AnEntryOfASubmenuIsChosenWithTheMouse) {
    ASSERT_TRUE(OpenMenu());
    ASSERT_TRUE(Menu().ChooseWithMouse(std::array<std::wstring, 3>{L"Near", L"far", L"down.txt"}));
    EXPECT_TRUE(DestinationIs(L"C:\\down"));
}

TEST_F(FilledFavourite, TheRightButtonChoosesToo) {
    ASSERT_TRUE(OpenMenu());
    ASSERT_TRUE(Menu().ChooseWithMouse(std::array<std::wstring, 1>{L"b.txt"}, MOUSEEVENTF_RIGHTDOWN));
    EXPECT_TRUE(DestinationIs(L"C:\\b"));
}

TEST_F(FilledFavourite, KeysAloneOpenTheMenuLeaveSubmenusAndChoose) {
    ASSERT_TRUE(Dialog().PressWithKeys(kFavourites));
    ASSERT_TRUE(Menu().WaitUntilOpen());
    ASSERT_TRUE(Menu().Enter(Menu().IndexOf(L"Near")));
    ASSERT_TRUE(Menu().Enter(Menu().IndexOf(L"far")));
    EXPECT_EQ(Names(), Texts{L"down.txt"});
    ASSERT_TRUE(Menu().Leave(VK_LEFT));
    ASSERT_TRUE(Menu().Leave(VK_ESCAPE));
    EXPECT_EQ(Names(), kShown);
    EXPECT_EQ(Dialog().Destination(), kBefore);
    ASSERT_TRUE(Menu().Choose(std::array<std::wstring, 1>{L"c.txt"}));
    EXPECT_TRUE(DestinationIs(L"C:\\c"));
}

TEST_F(FilledFavourite, TheLetterOfTheButtonOpensTheMenu) {
    ASSERT_TRUE(Dialog().Focus(Dialog().Control(kCancel)));
    PressChord({VK_MENU, 'X'});
    ASSERT_TRUE(Menu().WaitUntilOpen());
    ASSERT_TRUE(Menu().Choose(std::array<std::wstring, 1>{L"b.txt"}));
    EXPECT_TRUE(DestinationIs(L"C:\\b"));
}

TEST_F(FilledFavourite, EscapeLeavesTheDialogAsItWas) {
    ASSERT_TRUE(OpenMenu());
    ASSERT_TRUE(Menu().Enter(Menu().IndexOf(L"Near")));
    ASSERT_TRUE(Menu().Cancel());
    EXPECT_TRUE(IsAsBefore());
}

TEST_F(FilledFavourite, AClickBesideTheMenuLeavesTheDialogAsItWas) {
    ASSERT_TRUE(OpenMenu());
    POINT corner = {1, 1};
    ClientToScreen(Dialog().Window(), &corner);
    ClickAt(corner);
    ASSERT_TRUE(Menu().WaitUntilClosed());
    EXPECT_TRUE(IsAsBefore());
}

TEST_F(FilledFavourite, EachOpeningShowsTheFolderAnew) {
    ASSERT_TRUE(Choose({L"b.txt"}));
    ASSERT_TRUE(DestinationIs(L"C:\\b"));
    RemoveAll(Favourites(L"b.txt"));
    WriteJump(L"Near\\late.txt", L"C:\\late");
    ASSERT_TRUE(OpenMenu());
    EXPECT_EQ(Menu().IndexOf(L"b.txt"), -1);
    ASSERT_TRUE(Menu().Choose(std::array<std::wstring, 2>{L"Near", L"late.txt"}));
    EXPECT_TRUE(DestinationIs(L"C:\\late"));
}

TEST_F(Favourite, NamesOfEveryKindAreShownAndChosen) {
    // Wine's host file systems count bytes, so the long name is of one-byte characters.
    const std::wstring longName = std::wstring(180, L'l') + L" end.txt";
    WriteJump(L"R&D\\&first && last.txt", L"C:\\amp");
    WriteJump(L"資料\\夏休みの写真.txt", L"C:\\写真");
    WriteJump(longName, L"C:\\long");
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Choose({L"R&&D", L"&&first &&&& last.txt"}));
    EXPECT_TRUE(DestinationIs(L"C:\\amp"));
    ASSERT_TRUE(Choose({L"資料", L"夏休みの写真.txt"}));
    EXPECT_TRUE(DestinationIs(L"C:\\写真"));
    ASSERT_TRUE(OpenMenu());
    const RECT menu = Menu().Place();
    EXPECT_GE(menu.left, 0) << "its names must be on the screen";
    EXPECT_LE(menu.right, GetSystemMetrics(SM_CXSCREEN));
    const std::wstring shown = Menu().Texts().back();
    EXPECT_TRUE(shown.starts_with(L"llll") && shown.ends_with(L" end.txt")) << base::ToUtf8(shown);
    ASSERT_TRUE(Menu().Choose(std::array<std::wstring, 1>{shown}));
    EXPECT_TRUE(DestinationIs(L"C:\\long"));
}

TEST_F(Favourite, HiddenOnesAreLeftOut) {
    WriteJump(L"seen.txt", L"C:\\seen");
    WriteJump(L"hidden.txt", L"C:\\hidden");
    WriteJump(L"hidden folder\\a.txt", L"C:\\a");
    for (const wchar_t* name : {L"hidden.txt", L"hidden folder"})
        ASSERT_TRUE(SetFileAttributesW(Favourites(name).c_str(), FILE_ATTRIBUTE_HIDDEN));
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(OpenMenu());
    EXPECT_NE(Menu().IndexOf(L"seen.txt"), -1);
    EXPECT_EQ(Menu().IndexOf(L"hidden.txt"), -1);
    EXPECT_EQ(Menu().IndexOf(L"hidden folder"), -1);
    EXPECT_TRUE(Menu().Cancel());
}

TEST_F(Favourite, AnEmptySubmenuHasNothingToChoose) {
    MakeFolders(Favourites(L"empty"));
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(OpenMenu());
    ASSERT_TRUE(Menu().MoveTo(Menu().IndexOf(L"empty")));
    PressKey(VK_RETURN);
    EXPECT_TRUE(StillHolds([&] { return Dialog().Destination() == kBefore; }));
    EXPECT_TRUE(Menu().Cancel());
    EXPECT_TRUE(IsAsBefore());
}

TEST_F(Favourite, ALinkBackToAFolderAroundItHangsNothing) {
    WriteJump(L"in\\end.txt", L"C:\\end");
    const std::wstring link = Favourites(L"in\\back");
    ASSERT_TRUE(MakeFolderLink(link, Favourites()));
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Choose({L"in", L"back", L"in", L"back", L"in", L"end.txt"}));
    EXPECT_TRUE(DestinationIs(L"C:\\end"));
    EXPECT_TRUE(RemoveFolderLink(link));
}

TEST_F(Favourite, FiveThousandEntriesOpenAtOnceAndTheLastIsChosen) {
    constexpr int kEntries = 5000;
    MakeFolders(Favourites());
    for (int number = 1; number < kEntries; ++number) {
        const std::wstring path = Favourites(std::to_wstring(10000 + number));
        const base::FileHandle file(
            CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    }
    WriteJump(L"last", L"C:\\last");
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(TakeForeground(Dialog().Window()));
    const ULONGLONG start = GetTickCount64();
    Dialog().Click(kFavourites);
    ASSERT_TRUE(Menu().WaitUntilShown());
    // Less than a second where nothing else runs.
    EXPECT_LE(GetTickCount64() - start, 4000U);
    ASSERT_TRUE(Menu().WaitUntilOpen());
    const int count = Menu().Count();
    EXPECT_GE(count, kEntries);
    EXPECT_LE(count, kEntries + 1);
    PressKey(VK_END);
    ASSERT_TRUE(WaitUntil([&] { return Menu().Highlighted() == count - 1; }));
    PressKey(VK_RETURN);
    ASSERT_TRUE(Menu().WaitUntilClosed());
    EXPECT_TRUE(DestinationIs(L"C:\\last"));
}

}  // namespace
}  // namespace ferry::e2e
