// Typing a new name for the incoming file, or for the one that is there already.
#include <span>

#include "base/utf16.h"
#include "e2e/driver/app_copy.h"
#include "e2e/driver/message_file.h"
#include "e2e/run_fixture.h"

namespace ferry::e2e {
namespace {

constexpr int kInsertWeekday = 1108;
constexpr DWORD kLastWrite = 2;  // of the four dates that a tool can insert

class RenamingIncoming : public AskingRun {};

TEST_F(RenamingIncoming, TheTypedNameIsGivenToTheIncomingFile) {
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kRenameIncoming));
    const RemoteDialog rename = Rename();
    ASSERT_TRUE(rename.IsOpen());
    EXPECT_EQ(rename.Title(), L"名前を変更する(R)");
    EXPECT_EQ(rename.Text(kCurrentName), L"a.txt");
    EXPECT_EQ(NamesIn(rename), L"a|txt");
    ASSERT_TRUE(TypeNewName(rename, L"新しい"));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(NamesBelow(L"先"), L"a.txt 新しい.txt");
    EXPECT_EQ(At(L"a.txt"), Existing(L"a.txt"));
    EXPECT_EQ(At(L"新しい.txt"), Incoming(L"a.txt"));
    EXPECT_EQ(FlagsIn(FileOps()), (std::vector<unsigned long>{0x2A04}));
}

TEST_F(RenamingIncoming, AMoveTakesTheSourceAway) {
    const std::wstring source = Colliding(L"a.txt");
    ASSERT_TRUE(Start({source}, kRenameIncoming, {L"/m"}));
    ASSERT_TRUE(TypeNewName(Rename(), L"b"));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(L"b.txt"), Incoming(L"a.txt"));
    EXPECT_EQ(At(L"a.txt"), Existing(L"a.txt"));
    EXPECT_FALSE(Exists(source));
}

TEST_F(RenamingIncoming, EveryCollisionIsAskedAndFilesWithoutOneAreNot) {
    ASSERT_TRUE(Start({Colliding(L"a.txt"), Free(L"b.txt"), Colliding(L"c.txt")}, kRenameIncoming));
    ASSERT_TRUE(TypeNewName(Rename(), L"a2"));
    const RemoteDialog second = Rename();
    EXPECT_EQ(second.Text(kCurrentName), L"c.txt");
    EXPECT_EQ(At(L"b.txt"), Incoming(L"b.txt"));
    ASSERT_TRUE(TypeNewName(second, L"c2"));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(NamesBelow(L"先"), L"a.txt a2.txt b.txt c.txt c2.txt");
}

TEST_F(RenamingIncoming, ABackslashBringsTheDialogBackUnchangedWithoutAMessage) {
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kRenameIncoming));
    for (const wchar_t* name : {L"x\\y", L"x/y", L"x:y", L"x*", L"x?", L"\"x\"", L"<x>", L"x|y"}) {
        ASSERT_TRUE(TypeNewName(Rename(), name));
        const RemoteDialog again = Rename();
        ASSERT_TRUE(again.IsOpen());
        EXPECT_EQ(NamesIn(again), L"a|txt");
        EXPECT_EQ(again.Title(), L"名前を変更する(R)");
        EXPECT_EQ(FindMessageBox(Run().FerryId()).Window, nullptr);
    }
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(NamesBelow(L"先"), L"a.txt");
}

TEST_F(RenamingIncoming, ANameThatIsTakenAsksAgain) {
    Tree().WriteFile(L"先\\taken.txt", "other");
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kRenameIncoming));
    ASSERT_TRUE(TypeNewName(Rename(), L"TAKEN"));
    ASSERT_TRUE(TypeNewName(Rename(), L"a"));
    ASSERT_TRUE(TypeNewName(Rename(), L"free"));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(L"taken.txt"), "other");
    EXPECT_EQ(At(L"a.txt"), Existing(L"a.txt"));
    EXPECT_EQ(At(L"free.txt"), Incoming(L"a.txt"));
}

TEST_F(RenamingIncoming, AnEmptyNameAsksAgain) {
    ASSERT_TRUE(Start({Colliding(L"archive")}, kRenameIncoming));
    ASSERT_TRUE(TypeNewName(Rename(), L""));
    ASSERT_TRUE(TypeNewName(Rename(), L"free"));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(NamesBelow(L"先"), L"archive free");
}

TEST_F(RenamingIncoming, ADotAtTheEndOfTheTypedNameDoesNotCount) {
    ASSERT_TRUE(Start({Colliding(L"archive")}, kRenameIncoming));
    ASSERT_TRUE(TypeNewName(Rename(), L"archive."));
    ASSERT_TRUE(TypeNewName(Rename(), L"."));
    ASSERT_TRUE(TypeNewName(Rename(), L"free."));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(NamesBelow(L"先"), L"archive free");
    EXPECT_EQ(At(L"archive"), Existing(L"archive"));
    EXPECT_EQ(At(L"free"), Incoming(L"archive"));
}

TEST_F(RenamingIncoming, EscapeSkipsTheFileAndGoesOn) {
    ASSERT_TRUE(Start({Colliding(L"a.txt"), Free(L"b.txt")}, kRenameIncoming, {L"/m"}));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(L"a.txt"), Existing(L"a.txt"));
    EXPECT_EQ(At(L"b.txt"), Incoming(L"b.txt"));
    EXPECT_EQ(NamesBelow(L"元"), L"a.txt");
}

TEST_F(RenamingIncoming, TheCancelButtonAndTheCloseBoxSkipTheFileToo) {
    ASSERT_TRUE(Start({Colliding(L"a.txt"), Colliding(L"b.txt")}, kRenameIncoming));
    const RemoteDialog first = Rename();
    ASSERT_TRUE(first.PressWithKeys(kCancel));
    ASSERT_TRUE(WaitUntilGone(first));
    PostMessageW(Rename().Window(), WM_SYSCOMMAND, SC_CLOSE, 0);
    ASSERT_TRUE(Ends());
    EXPECT_EQ(NamesBelow(L"先"), L"a.txt b.txt");
}

TEST_F(RenamingIncoming, CopyingAFileOntoItselfAsksForAName) {
    const std::wstring source = Free(L"a.txt");
    ASSERT_TRUE(Start({source}, kRenameIncoming, {}, L"元"));
    ASSERT_TRUE(TypeNewName(Rename(), L"b"));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(NamesBelow(L"元"), L"a.txt b.txt");
    EXPECT_EQ(ReadBytes(Tree().Path(L"元\\b.txt")), Incoming(L"a.txt"));
}

TEST_F(RenamingIncoming, CopyingAFolderOntoItselfAsksForEachOfItsFiles) {
    Free(L"folder\\a.txt");
    Free(L"folder\\b.txt");
    ASSERT_TRUE(Start({Tree().Path(L"元\\folder")}, kRenameIncoming, {}, L"元"));
    ASSERT_TRUE(TypeNewName(Rename(), L"c"));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(NamesBelow(L"元\\folder"), L"a.txt b.txt c.txt");
}

/// A Thursday, as the user's language calls it.
std::wstring Thursday() {
    SYSTEMTIME day = {};
    day.wYear = 2020;
    day.wMonth = 1;
    day.wDay = 2;
    wchar_t text[80] = {};
    GetDateFormatW(LOCALE_USER_DEFAULT, 0, &day, L"ddd", text, 80);
    return text;
}

// Japanese on this ground, another language elsewhere.
TEST_F(RenamingIncoming, WeekdaysAndCapitalsAreThoseOfTheUsersLanguage) {
    constexpr double kNoon = 9 * 3600;  // the same day in nearly every time zone
    const std::wstring name = L"ａé.txt";
    Tree().WriteFile(L"先\\" + name, Existing(name));
    WriteNumber(kProgramKey, L"DateType", kLastWrite);
    ASSERT_TRUE(Start({Tree().WriteFile(L"元\\" + name, Incoming(name), kNoon)}, kRenameIncoming));
    const RemoteDialog rename = Rename();
    ASSERT_TRUE(rename.PressWithKeys(kUpperCase));
    EXPECT_TRUE(WaitUntil([&] { return NamesIn(rename) == L"ＡÉ|TXT"; }))
        << testing::PrintToString(NamesIn(rename));
    ASSERT_TRUE(rename.Focus(rename.Control(kNewName)));
    ASSERT_TRUE(rename.PressWithKeys(kInsertWeekday));
    const std::wstring expected = Thursday() + L"|TXT";
    EXPECT_TRUE(WaitUntil([&] { return NamesIn(rename) == expected; }))
        << testing::PrintToString(NamesIn(rename));
}

TEST_F(RenamingIncoming, TheOptionsAreRememberedForTheNextQuestion) {
    ASSERT_TRUE(Start({Colliding(L"a.txt"), Colliding(L"b.txt")}, kRenameIncoming));
    const RemoteDialog first = Rename();
    ASSERT_TRUE(first.PressWithKeys(kSplitFiles));
    ASSERT_TRUE(WaitUntil([&] { return first.Text(kNewName) == L"a.txt"; }));
    ASSERT_TRUE(first.PressWithKeys(kStart));
    ASSERT_TRUE(WaitUntilGone(first));
    const RemoteDialog again = Rename();
    EXPECT_EQ(ReadNumber(kProgramKey, L"FileNameSep"), 0U);
    EXPECT_EQ(NamesIn(again), L"a.txt|");
    EXPECT_FALSE(again.IsShown(kExtension));
    EXPECT_EQ(ReadText(kProgramKey, L"DateTime"), L"%Y-%m-%d");
    EXPECT_EQ(ReadText(kProgramKey, L"Time"), L"%H-%M-%S");
    EXPECT_EQ(ReadText(kProgramKey, L"Week"), L"%a");
    EXPECT_EQ(ReadNumber(kProgramKey, L"DirNameSep"), 0U);
    EXPECT_EQ(ReadNumber(kProgramKey, L"DateType"), 0U);
    EXPECT_EQ(ReadNumber(kProgramKey, L"RenameUndo"), 0U);
}

TEST_F(RenamingIncoming, EnterWithShiftHeldRenamesAndRemembersNothing) {
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kRenameIncoming));
    const RemoteDialog rename = Rename();
    ASSERT_TRUE(rename.Choose(kSplitFolders));
    Ask(rename.Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(rename.Control(kNewName)), TRUE);
    ASSERT_TRUE(TypeNewName(rename, L"b", true));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(L"b.txt"), Incoming(L"a.txt"));
    EXPECT_FALSE(ReadNumber(kProgramKey, L"DirNameSep").has_value());
    EXPECT_FALSE(ReadNumber(kProgramKey, L"RenameUndo").has_value());
    EXPECT_FALSE(ReadText(kProgramKey, L"DateTime").has_value());
}

class RenamingExisting : public AskingRun {};

TEST_F(RenamingExisting, TheExistingFileGetsTheTypedNameAndTheIncomingOneItsPlace) {
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kRenameExisting));
    const RemoteDialog rename = Rename();
    ASSERT_TRUE(rename.IsOpen());
    EXPECT_EQ(rename.Title(), L"元ファイルの名前を変更(B)");
    EXPECT_EQ(rename.Text(kCurrentName), L"a.txt");
    ASSERT_TRUE(TypeNewName(rename, L"old"));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(NamesBelow(L"先"), L"a.txt old.txt");
    EXPECT_EQ(At(L"a.txt"), Incoming(L"a.txt"));
    EXPECT_EQ(At(L"old.txt"), Existing(L"a.txt"));
}

TEST_F(RenamingExisting, AFailureIsSaidAndTheDialogComesBack) {
    Tree().WriteFile(L"先\\taken.txt", "other");
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kRenameExisting));
    ASSERT_TRUE(TypeNewName(Rename(), L"taken"));
    const ShownBox box = WaitForMessageBox(Run().FerryId());
    EXPECT_EQ(box.Text, InstalledMessage(AppFolder(), 62535));
    EXPECT_EQ(FindRunDialog(Run().FerryId(), RunDialog::Rename).Window(), nullptr);
    ASSERT_TRUE(DismissMessageBox(box));
    const RemoteDialog again = Rename();
    EXPECT_EQ(NamesIn(again), L"a|txt");
    EXPECT_EQ(At(L"a.txt"), Existing(L"a.txt"));
    ASSERT_TRUE(TypeNewName(again, L"old"));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(L"a.txt"), Incoming(L"a.txt"));
    EXPECT_EQ(At(L"old.txt"), Existing(L"a.txt"));
    EXPECT_EQ(At(L"taken.txt"), "other");
}

TEST_F(RenamingExisting, AForbiddenCharacterBringsTheDialogBackWithoutAMessage) {
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kRenameExisting));
    ASSERT_TRUE(TypeNewName(Rename(), L"x\\y"));
    const RemoteDialog again = Rename();
    ASSERT_TRUE(again.IsOpen());
    EXPECT_EQ(FindMessageBox(Run().FerryId()).Window, nullptr);
    ASSERT_TRUE(PressEscapeIn(again));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(L"a.txt"), Existing(L"a.txt"));
}

TEST_F(RenamingExisting, EscapeSkipsTheFileAndGoesOn) {
    ASSERT_TRUE(Start({Colliding(L"a.txt"), Free(L"b.txt")}, kRenameExisting));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(NamesBelow(L"先"), L"a.txt b.txt");
    EXPECT_EQ(At(L"a.txt"), Existing(L"a.txt"));
}

TEST_F(RenamingExisting, CopyingAFileOntoItselfIsRefusedAndStopsTheRun) {
    Tree().MakeFolder(L"先");
    ASSERT_TRUE(Start({Free(L"a.txt"), Free(L"b.txt")}, kRenameExisting, {}, L"元"));
    const ShownBox box = WaitForMessageBox(Run().FerryId());
    EXPECT_EQ(box.Text, InstalledMessage(AppFolder(), 6269));
    ASSERT_TRUE(DismissMessageBox(box));
    ASSERT_TRUE(Ends());
    EXPECT_TRUE(FileOps().empty());
}

/// A copy of the program without any text file of the rename dialog.
class RenameTexts : public AskingRun {
protected:
    void SetUp() override {
        AskingRun::SetUp();
        if (IsSkipped())
            return;
        app_ = Tree().Path(L"app");
        ASSERT_TRUE(CopyApp(app_));
        RemoveAll(TextFile());
        WriteText(kHostKey, L"NLS", L".en-US");
    }

    RemoteDialog AskForName() {
        WriteNumber(kProgramKey, L"Mode", 1);
        WriteNumber(kProgramKey, L"Name", kRenameIncoming);
        RunPlan plan = Plan({Colliding(L"a.txt")});
        plan.AppFolder = app_;
        if (!Open(plan))
            return {};
        Dialog().SetDestination(Tree().Path(L"先"));
        Dialog().Click(kStart);
        return Rename();
    }

    std::wstring TextFile() const { return ProgramFolder(app_) + L"\\.en-US\\Ferry\\133.txt"; }

    std::wstring TextFileText() const {
        const std::string bytes = ReadBytes(TextFile());
        return base::UnitsFromBytes(std::as_bytes(std::span(bytes)));
    }

    std::wstring app_;
};

TEST_F(RenameTexts, AMissingTextFileIsWrittenWithTheListsAndWithoutTheNames) {
    ASSERT_TRUE(AskForName().IsOpen());
    const std::wstring text = TextFileText();
    EXPECT_TRUE(text.starts_with(L"\uFEFF名前の変更\r\n"));
    EXPECT_NE(text.find(L"1170\tComboBoxStart\r\n1170\tComboBox\t%Y-%m-%d\r\n1170\tComboBox\t%Y%m%d\r\n"),
              std::wstring::npos);
    EXPECT_NE(text.find(L"1172\tComboBox\tアクセス日時\r\n"), std::wstring::npos);
    EXPECT_NE(text.find(L"1032\tButton\t元に戻すを有効にする\\n（速度が遅く、メモリを多く消費します）\r\n"),
              std::wstring::npos);
    EXPECT_EQ(text.find(L"1001\t"), std::wstring::npos);
}

TEST_F(RenameTexts, AListOfTheTextFileTakesThePlaceOfTheBuiltInOne) {
    WriteUtf16(TextFile(),
               L"Rename\r\n1170\tComboBoxStart\r\n1170\tComboBox\t%d.%m.%Y\r\n1170\tComboBox\t%Y\r\n");
    WriteText(kProgramKey, L"DateTime", L"%Y");
    const RemoteDialog rename = AskForName();
    EXPECT_EQ(Ask(rename.Control(1170), CB_GETCOUNT), 2);
    EXPECT_EQ(Ask(rename.Control(1170), CB_GETCURSEL), 1);
    EXPECT_EQ(Ask(rename.Control(1171), CB_GETCOUNT), 6);
    EXPECT_EQ(rename.Text(1900), L"新しい名前(&F)");
}

}  // namespace
}  // namespace ferry::e2e
