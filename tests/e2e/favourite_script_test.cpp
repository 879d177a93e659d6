// The scripts behind the menu's entries: what they do to the dialog, and how they fail, ask and are stopped.
#include "base/utf16.h"
#include "e2e/favourite_fixture.h"

namespace ferry::e2e {
namespace {

class FavouriteScript : public FavouriteTest {
protected:
    /// One that runs until somebody stops it.
    void WriteEndless(const std::wstring& name) const { WriteScript(name, {L"do", L"while 1==1"}); }

    /// The window that says that a script runs, once it is there.
    RemoteDialog Sign() { return WaitForRunDialog(Run().FerryId(), RunDialog::Progress); }

    /// Whether Ferry tells that the script was stopped; the box is closed.
    testing::AssertionResult IsToldToBeStopped() {
        const ShownBox box = Box();
        if (box.Window == nullptr || !DismissMessageBox(box))
            return testing::AssertionFailure() << "no box came, or it stays";
        if (!box.Text.starts_with(L"The script was stopped.\n"))
            return testing::AssertionFailure() << base::ToUtf8(box.Text);
        return testing::AssertionSuccess();
    }
};

// The panes of the host have the codes 100, 200 and 300, all of which give a destination.
TEST_F(FavouriteScript, AJumpToAPaneSetsTheDestination) {
    struct {
        int Pane;
        std::wstring Folder, Shown;
    } const cases[] = {
        {0, L"C:\\to the first", L"C:\\to the first"}, {1, L"C:\\第二\\", L"C:\\第二"}, {2, L"D:\\", L"D:"}};
    ASSERT_TRUE(OpenDialog());
    for (const auto& [pane, folder, shown] : cases) {
        SCOPED_TRACE(pane);
        WriteJump(L"jump.txt", folder, pane);
        ASSERT_TRUE(Choose({L"jump.txt"}));
        EXPECT_TRUE(DestinationIs(shown));
    }
}

TEST_F(FavouriteScript, AnyOtherLineLeavesTheDialogAsItWas) {
    ASSERT_TRUE(OpenDialog());
    for (const wchar_t* line : {L"folderjump=3,C:\\fourth", L"filejump=0,C:\\a\\b.txt", L"select=*.txt",
                                L"system_command=5,C:\\five", L"// nothing at all"}) {
        SCOPED_TRACE(base::ToUtf8(line));
        WriteScript(L"other.txt", {line});
        ASSERT_TRUE(Choose({L"other.txt"}));
        EXPECT_TRUE(IsUnchanged());
    }
    EXPECT_TRUE(IsAsBefore());
}

TEST_F(FavouriteScript, WhatIsHandedOverUnderTheNumberOfAJumpIsOne) {
    ASSERT_TRUE(OpenDialog());
    for (const auto& [line, destination] :
         {std::pair{L"exrun=C:\\tool", L"C:\\tool"}, {L"system_command=200,C:\\two", L"C:\\two"}}) {
        SCOPED_TRACE(base::ToUtf8(line));
        WriteScript(L"other.txt", {line});
        ASSERT_TRUE(Choose({L"other.txt"}));
        EXPECT_TRUE(DestinationIs(destination));
    }
}

TEST_F(FavouriteScript, TheLastJumpOfAScriptDecides) {
    WriteScript(L"two.txt", {L"folderjump=0,C:\\first", L"folderjump=1,C:\\second"});
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Choose({L"two.txt"}));
    EXPECT_TRUE(DestinationIs(L"C:\\second"));
}

TEST_F(FavouriteScript, EachRunBeginsWithFreshVariablesAndWithoutASelection) {
    WriteScript(L"first.txt", {L"var @a", L"@a=left over", L"appendselectitem=C:\\left over.txt",
                               L"folderjump=0,C:\\first-?SelectedCount?"});
    WriteScript(L"second.txt", {L"var @a", L"folderjump=0,C:\\second-?SelectedCount?-@a-"});
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Choose({L"first.txt"}));
    // The item that the dialog shows is not the script's.
    EXPECT_TRUE(DestinationIs(L"C:\\first-1"));
    ASSERT_TRUE(Choose({L"second.txt"}));
    EXPECT_TRUE(DestinationIs(L"C:\\second-0--"));
}

TEST_F(FavouriteScript, AnErrorNamesTheFileAndTheLine) {
    WriteScript(L"sub\\wrong.txt", {L"// one", L"// two", L"// three", L"// four", L"// five", L"// six",
                                    L"// seven", L"folderjump=,", L"folderjump=0,C:\\behind"});
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Choose({L"sub", L"wrong.txt"}));
    const ShownBox box = Box();
    ASSERT_NE(box.Window, nullptr);
    EXPECT_EQ(box.Text, L"Syntax error!\nfolderjump=,");
    EXPECT_EQ(RemoteText(box.Window), L"Ferry - 8: wrong.txt");
    ASSERT_TRUE(DismissMessageBox(box));
    // It goes on behind its error.
    EXPECT_TRUE(DestinationIs(L"C:\\behind"));
}

TEST_F(FavouriteScript, OneThatCannotBeReadIsTold) {
    WriteJump(L"locked.txt", L"C:\\locked");
    ASSERT_TRUE(OpenDialog());
    const base::FileHandle locked = OpenAlone(Favourites(L"locked.txt"));
    ASSERT_TRUE(locked);
    ASSERT_TRUE(Choose({L"locked.txt"}));
    const ShownBox box = Box();
    ASSERT_NE(box.Window, nullptr);
    EXPECT_EQ(box.Text, L"Cannot read " + Favourites(L"locked.txt"));
    EXPECT_EQ(RemoteText(box.Window), L"Ferry - locked.txt");
    ASSERT_TRUE(DismissMessageBox(box));
    EXPECT_TRUE(IsAsBefore());
}

TEST_F(FavouriteScript, ALoopEndsAtItsLimitWithAMessage) {
    WriteScript(L"loop.txt", {L"again:", L"goto again", L"folderjump=0,C:\\never"});
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Choose({L"loop.txt"}));
    const ShownBox box = Box();
    ASSERT_NE(box.Window, nullptr);
    EXPECT_EQ(box.Text, L"The number of repetitions of up too many.(5 times)");
    EXPECT_EQ(RemoteText(box.Window), L"Ferry - 2: loop.txt");
    ASSERT_TRUE(DismissMessageBox(box));
    EXPECT_TRUE(IsAsBefore());
}

/// One that asks before it goes on.
class AskingFavourite : public FavouriteScript {
protected:
    /// Chooses it and gives the question `answer`.
    void ChooseAndAnswer(int answer) {
        WriteScript(L"ask.txt", {L"messageboxyn=資料 ですか?", L"folderjump=0,C:\\asked"});
        ASSERT_TRUE(OpenDialog());
        ASSERT_TRUE(Choose({L"ask.txt"}));
        const ShownBox box = Box();
        ASSERT_NE(box.Window, nullptr);
        EXPECT_EQ(box.Text, L"資料 ですか?");
        EXPECT_EQ(RemoteText(box.Window), L"Kiv");
        EXPECT_FALSE(IsWindowEnabled(Dialog().Window())) << "the question must be answered first";
        ASSERT_TRUE(DismissMessageBox(box, answer));
    }
};

TEST_F(AskingFavourite, GoesOnAfterYes) {
    ASSERT_NO_FATAL_FAILURE(ChooseAndAnswer(IDYES));
    EXPECT_TRUE(DestinationIs(L"C:\\asked"));
    EXPECT_TRUE(IsWindowEnabled(Dialog().Window()));
}

TEST_F(AskingFavourite, EndsAfterNo) {
    ASSERT_NO_FATAL_FAILURE(ChooseAndAnswer(IDNO));
    EXPECT_TRUE(IsAsBefore());
}

TEST_F(FavouriteScript, AnEndlessOneIsStoppedWithTheButtonOfItsSign) {
    WriteEndless(L"endless.txt");
    WriteJump(L"jump.txt", L"C:\\after");
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Choose({L"endless.txt"}));
    const RemoteDialog sign = Sign();
    ASSERT_TRUE(sign.IsOpen());
    EXPECT_EQ(sign.Text(kProgressTitle), L"endless.txt");
    EXPECT_FALSE(IsWindowEnabled(Dialog().Window()));
    sign.Click(kCancel);
    ASSERT_TRUE(WaitUntilGone(sign));
    ASSERT_TRUE(IsToldToBeStopped());
    ASSERT_TRUE(WaitUntil([&] { return GetForegroundWindow() == Dialog().Window(); }));
    EXPECT_EQ(Dialog().Destination(), kBefore);
    // The next one has the menu, the dialog and the time that it needs.
    ASSERT_TRUE(Choose({L"jump.txt"}));
    ASSERT_TRUE(DestinationIs(L"C:\\after"));
    EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
}

TEST_F(FavouriteScript, AnEndlessOneIsStoppedWithEscape) {
    WriteEndless(L"endless.txt");
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Choose({L"endless.txt"}));
    const RemoteDialog sign = Sign();
    ASSERT_TRUE(sign.IsOpen());
    ASSERT_TRUE(PressEscapeIn(sign));
    ASSERT_TRUE(IsToldToBeStopped());
    EXPECT_TRUE(IsAsBefore());
}

TEST_F(FavouriteScript, AClickDuringARunWaitsForItsEnd) {
    WriteScript(L"slow.txt", {L"wait=700", L"folderjump=0,C:\\slow"});
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Choose({L"slow.txt"}));
    Dialog().Click(kFavourites);
    ASSERT_TRUE(DestinationIs(L"C:\\slow"));
    // The click waited for the script.
    ASSERT_TRUE(Menu().WaitUntilOpen());
    EXPECT_TRUE(Menu().Cancel());
    EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
}

TEST_F(FavouriteScript, StartCopiesToTheFolderThatAFavouriteSet) {
    const std::wstring file = Tree().WriteFile(L"元\\資料.txt", "content");
    const std::wstring target = Tree().MakeFolder(L"先");
    WriteJump(L"写真\\先.txt", target);
    ASSERT_TRUE(Open(Plan({file}, {L"D:\\tab"})));
    RemoteMenu menu(Dialog().Window());
    ASSERT_TRUE(TakeForeground(Dialog().Window()));
    Dialog().Click(kFavourites);
    ASSERT_TRUE(menu.WaitUntilOpen());
    const std::vector<std::wstring> path = {L"写真", L"先.txt"};
    ASSERT_TRUE(menu.Choose(path));
    ASSERT_TRUE(DestinationIs(target));
    Dialog().Click(kStart);
    ASSERT_TRUE(EndsWell());
    EXPECT_EQ(ReadBytes(target + L"\\資料.txt"), "content");
    EXPECT_EQ(ReadBytes(file), "content");
}

}  // namespace
}  // namespace ferry::e2e
