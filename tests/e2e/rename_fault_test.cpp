// A new name is asked for, and something goes wrong: the shell fails, files are locked, vanish or
// appear while the dialog is open. Each test compares both trees, bytes and all.
#include "base/handles_win32.h"
#include "base/utf16.h"
#include "e2e/driver/message_file.h"
#include "e2e/driver/process_windows.h"
#include "e2e/driver/service_windows.h"
#include "e2e/run_fixture.h"

namespace ferry::e2e {
namespace {

/// Runs that copy and runs that move. A file's content is its place at the start: "元 a", "先 a".
class RenameFault : public AskingRun, public testing::WithParamInterface<bool> {
protected:
    bool IsMove() const { return GetParam(); }

    /// Three files that collide, and a run that asks for a name by `policy` with these faults.
    testing::AssertionResult StartWithFaults(int policy, const std::wstring& faults) {
        RemoveAll(Tree().Path(L"先"));
        items_.clear();
        for (const std::wstring name : {L"a", L"b", L"c"}) {
            items_.push_back(Tree().WriteFile(L"元\\" + name, base::ToUtf8(L"元 " + name)));
            Tree().WriteFile(L"先\\" + name, base::ToUtf8(L"先 " + name));
        }
        SetVariable(L"FERRY_FILEOP_FAULTS", faults);
        return Start(items_, policy, {IsMove() ? L"/m" : L"/c"});
    }

    /// What the trees hold: "元\a=元 a 先\a=先 a …", files only.
    std::wstring Everything() const {
        std::wstring lines;
        for (const auto& [name, entry] : ReadTree(Tree().Root())) {
            if (!entry.IsFolder && (name.starts_with(L"元\\") || name.starts_with(L"先\\")))
                lines += (lines.empty() ? L"" : L" ") + name + L"=" + base::FromUtf8(entry.Content);
        }
        return lines;
    }

    /// What they must hold: at the source what has not moved, and the files of 先 as told.
    std::wstring Expected(const std::wstring& target, const std::wstring& moved) const {
        std::wstring lines;
        for (const wchar_t name : std::wstring_view(L"abc")) {
            if (!IsMove() || moved.find(name) == std::wstring::npos)
                lines += std::wstring(L"元\\") + name + L"=元 " + name + L" ";
        }
        return lines + target;
    }

    /// Answers the window of the file-operation service by `button`.
    testing::AssertionResult AnswerShell(const std::wstring& title, int button) {
        const HWND window = WaitForWindowOf(Run().FerryId(), title);
        if (window == nullptr)
            return testing::AssertionFailure() << "no window of the shell came";
        PostMessageW(GetDlgItem(window, button), BM_CLICK, 0, 0);
        if (!WaitUntil([&] { return !IsWindow(window) || !IsWindowVisible(window); }))
            return testing::AssertionFailure() << "the window of the shell stays";
        return testing::AssertionSuccess();
    }

    /// Skips in whichever window the service shows about a file that is in its way.
    testing::AssertionResult SkipInShell() {
        const DWORD ferry = Run().FerryId();
        const auto isAsking = [&] {
            return FindWindowOf(ferry, kErrorTitle) || FindWindowOf(ferry, kReplaceTitle);
        };
        if (!WaitUntil(isAsking))
            return testing::AssertionFailure() << "no window of the shell came";
        return AnswerShell(FindWindowOf(ferry, kErrorTitle) ? kErrorTitle : kReplaceTitle, kSkip);
    }

    /// Reads the message that renaming failed, and closes it.
    testing::AssertionResult ToldThatRenamingFailed() {
        const ShownBox box = WaitForMessageBox(Run().FerryId());
        if (box.Text != InstalledMessage(AppFolder(), 62535))
            return testing::AssertionFailure() << "the box says: " << base::ToUtf8(box.Text);
        return DismissMessageBox(box) ? testing::AssertionSuccess()
                                      : testing::AssertionFailure() << "the message stays";
    }

    /// Whether the operation that the service counts as `number` has begun.
    bool HasBegun(std::size_t number) {
        return WaitUntil([&] { return FlagsIn(FileOps()).size() == number; });
    }

    std::wstring Source(const std::wstring& name) const { return Tree().Path(L"元\\" + name); }
    std::wstring Target(const std::wstring& name) const { return Tree().Path(L"先\\" + name); }

private:
    std::vector<std::wstring> items_;
};

INSTANTIATE_TEST_SUITE_P(CopyAndMove, RenameFault, testing::Bool(), NameOfOperation);

TEST_P(RenameFault, AFailureOrAnAbortOfTheShellUnderANewNameSkipsThatFileOnly) {
    for (const wchar_t* const fault : {L"fail@2", L"abort@2"}) {
        SCOPED_TRACE(base::ToUtf8(fault));
        ASSERT_TRUE(StartWithFaults(kRenameIncoming, fault));
        for (const wchar_t* const name : {L"a2", L"b2", L"c2"})
            ASSERT_TRUE(TypeNewName(Rename(), name));
        ASSERT_TRUE(Ends());
        EXPECT_EQ(Everything(), Expected(L"先\\a=先 a 先\\a2=元 a 先\\b=先 b 先\\c=先 c 先\\c2=元 c", L"ac"));
    }
}

TEST_P(RenameFault, AFailureOrAnAbortOfTheShellAfterTheExistingFileWasRenamedLosesNeitherOfThem) {
    for (const wchar_t* const fault : {L"fail@2", L"abort@2"}) {
        SCOPED_TRACE(base::ToUtf8(fault));
        ASSERT_TRUE(StartWithFaults(kRenameExisting, fault));
        for (const wchar_t* const name : {L"a0", L"b0", L"c0"})
            ASSERT_TRUE(TypeNewName(Rename(), name));
        ASSERT_TRUE(Ends());
        EXPECT_EQ(Everything(),
                  Expected(L"先\\a=元 a 先\\a0=先 a 先\\b0=先 b 先\\c=元 c 先\\c0=先 c", L"ac"));
    }
}

TEST_P(RenameFault, AFileThatFailedOnceIsTriedAgainInItsOwnPlace) {
    ASSERT_TRUE(StartWithFaults(kRenameIncoming, L"error@1"));
    ASSERT_TRUE(TypeNewName(Rename(), L"a2"));
    ASSERT_TRUE(AnswerShell(kErrorTitle, IDRETRY));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(Everything(), Expected(L"先\\a=先 a 先\\a2=元 a 先\\b=先 b 先\\c=先 c", L"a"));
}

TEST_P(RenameFault, SkippingOrCancellingInTheShellsErrorWindowGoesOnWithTheNextFile) {
    ASSERT_TRUE(StartWithFaults(kRenameExisting, L"error@1,error@2"));
    ASSERT_TRUE(TypeNewName(Rename(), L"a0"));
    ASSERT_TRUE(AnswerShell(kErrorTitle, kSkip));
    ASSERT_TRUE(TypeNewName(Rename(), L"b0"));
    ASSERT_TRUE(AnswerShell(kErrorTitle, kCancel));
    ASSERT_TRUE(TypeNewName(Rename(), L"c0"));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(Everything(), Expected(L"先\\a0=先 a 先\\b0=先 b 先\\c=元 c 先\\c0=先 c", L"c"));
}

TEST_P(RenameFault, ANameThatIsTakenWhileTheShellIsAtWorkIsNotOverwritten) {
    ASSERT_TRUE(StartWithFaults(kRenameIncoming, L"slow@1:1500"));
    ASSERT_TRUE(TypeNewName(Rename(), L"a2"));
    ASSERT_TRUE(HasBegun(1));
    Tree().WriteFile(L"先\\a2", "stranger");
    ASSERT_TRUE(SkipInShell());
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(Everything(), Expected(L"先\\a=先 a 先\\a2=stranger 先\\b=先 b 先\\c=先 c", L""));
}

TEST_P(RenameFault, APlaceThatIsTakenAgainAfterTheRenamingIsNotOverwritten) {
    ASSERT_TRUE(StartWithFaults(kRenameExisting, L"slow@1:1500"));
    ASSERT_TRUE(TypeNewName(Rename(), L"a0"));
    ASSERT_TRUE(HasBegun(1));
    Tree().WriteFile(L"先\\a", "stranger");
    ASSERT_TRUE(SkipInShell());
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(Everything(), Expected(L"先\\a=stranger 先\\a0=先 a 先\\b=先 b 先\\c=先 c", L""));
}

TEST_P(RenameFault, ACancelDuringASlowFileUnderANewNameTakesEffectBeforeTheNextQuestion) {
    ASSERT_TRUE(StartWithFaults(kRenameIncoming, L"slow@1:1500"));
    ASSERT_TRUE(TypeNewName(Rename(), L"a2"));
    ASSERT_TRUE(HasBegun(1));
    ProgressWindow().Click(kCancel);
    ASSERT_TRUE(Ends());
    EXPECT_EQ(Everything(), Expected(L"先\\a=先 a 先\\a2=元 a 先\\b=先 b 先\\c=先 c", L"a"));
}

TEST_P(RenameFault, AnExistingFileThatIsOpenKeepsItsNameUntilItIsClosed) {
    ASSERT_TRUE(StartWithFaults(kRenameExisting, L""));
    {
        const base::FileHandle open = OpenAlone(Target(L"a"));
        ASSERT_TRUE(open);
        ASSERT_TRUE(TypeNewName(Rename(), L"a0"));
        ASSERT_TRUE(ToldThatRenamingFailed());
    }
    EXPECT_EQ(Everything(), Expected(L"先\\a=先 a 先\\b=先 b 先\\c=先 c", L""));
    ASSERT_TRUE(TypeNewName(Rename(), L"a0"));
    const base::FileHandle open = OpenAlone(Target(L"b"));
    ASSERT_TRUE(TypeNewName(Rename(), L"b0"));
    ASSERT_TRUE(ToldThatRenamingFailed());
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(ReadBytes(Target(L"a")), base::ToUtf8(L"元 a"));
    EXPECT_EQ(ReadBytes(Target(L"a0")), base::ToUtf8(L"先 a"));
    EXPECT_EQ(NamesBelow(L"先"), L"a a0 b c");
    EXPECT_EQ(NamesBelow(L"元"), IsMove() ? L"b c" : L"a b c");
}

TEST_P(RenameFault, AnOpenSourceStaysWhileTheExistingFileHasItsNewName) {
    for (const int policy : {kRenameIncoming, kRenameExisting}) {
        SCOPED_TRACE(policy);
        ASSERT_TRUE(StartWithFaults(policy, L""));
        {
            const base::FileHandle open = OpenAlone(Source(L"a"));
            ASSERT_TRUE(TypeNewName(Rename(), L"a0"));
            ASSERT_TRUE(AnswerShell(kErrorTitle, kSkip));
            ASSERT_TRUE(PressEscapeIn(Rename()));
            ASSERT_TRUE(PressEscapeIn(Rename()));
            ASSERT_TRUE(Ends());
        }
        const std::wstring name = policy == kRenameIncoming ? L"a" : L"a0";
        EXPECT_EQ(Everything(), Expected(L"先\\" + name + L"=先 a 先\\b=先 b 先\\c=先 c", L""));
    }
}

TEST_P(RenameFault, ATargetThatVanishesWhileTheDialogIsOpenLeavesTheIncomingFileAsItIs) {
    ASSERT_TRUE(StartWithFaults(kRenameExisting, L""));
    const RemoteDialog rename = Rename();
    ASSERT_TRUE(DeleteFileW(Target(L"a").c_str()));
    ASSERT_TRUE(TypeNewName(rename, L"a0"));
    ASSERT_TRUE(ToldThatRenamingFailed());
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(TypeNewName(Rename(), L"b0"));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(Everything(), Expected(L"先\\b=元 b 先\\b0=先 b 先\\c=先 c", L"b"));
}

TEST_P(RenameFault, ATargetThatVanishesFreesItsNameForTheIncomingFile) {
    ASSERT_TRUE(StartWithFaults(kRenameIncoming, L""));
    const RemoteDialog rename = Rename();
    ASSERT_TRUE(DeleteFileW(Target(L"a").c_str()));
    ASSERT_TRUE(TypeNewName(rename, L"A"));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(Everything(), Expected(L"先\\A=元 a 先\\b=先 b 先\\c=先 c", L"a"));
}

TEST_P(RenameFault, ASourceThatVanishesWhileTheDialogIsOpenIsPassedOverAndTold) {
    for (const int policy : {kRenameIncoming, kRenameExisting}) {
        SCOPED_TRACE(policy);
        ASSERT_TRUE(StartWithFaults(policy, L""));
        const RemoteDialog rename = Rename();
        ASSERT_TRUE(MoveFileW(Source(L"a").c_str(), Tree().Path(L"gone").c_str()));
        ASSERT_TRUE(TypeNewName(rename, L"a0"));
        ASSERT_TRUE(PressEscapeIn(Rename()));
        ASSERT_TRUE(TypeNewName(Rename(), L"c0"));
        std::wstring left;
        ASSERT_TRUE(EndsWithReport(left));
        EXPECT_TRUE(left.starts_with(Source(L"a") + L"\r\n")) << testing::PrintToString(left);
        ASSERT_TRUE(MoveFileW(Tree().Path(L"gone").c_str(), Source(L"a").c_str()));
        EXPECT_EQ(Everything(),
                  Expected(policy == kRenameIncoming ? L"先\\a=先 a 先\\b=先 b 先\\c=先 c 先\\c0=元 c"
                                                     : L"先\\a0=先 a 先\\b=先 b 先\\c=元 c 先\\c0=先 c",
                           L"c"));
    }
}

TEST_P(RenameFault, AFolderThatTakesThePlaceOfTheTargetIsRenamedWithAllThatItHolds) {
    ASSERT_TRUE(StartWithFaults(kRenameExisting, L""));
    const RemoteDialog rename = Rename();
    ASSERT_TRUE(MoveFileW(Target(L"a").c_str(), Tree().Path(L"gone").c_str()));
    Tree().WriteFile(L"先\\a\\inside", "stranger");
    ASSERT_TRUE(TypeNewName(rename, L"a0"));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(Everything(), Expected(L"先\\a=元 a 先\\a0\\inside=stranger 先\\b=先 b 先\\c=先 c", L"a"));
}

TEST_P(RenameFault, TheOldNameTypedAgainForTheExistingFileLetsTheShellAsk) {
    ASSERT_TRUE(StartWithFaults(kRenameExisting, L""));
    ASSERT_TRUE(TypeNewName(Rename(), L"a"));
    ASSERT_TRUE(AnswerShell(kReplaceTitle, kSkip));
    ASSERT_TRUE(TypeNewName(Rename(), L"b"));
    ASSERT_TRUE(AnswerShell(kReplaceTitle, kReplace));
    ASSERT_TRUE(PressEscapeIn(Rename()));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(Everything(), Expected(L"先\\a=先 a 先\\b=元 b 先\\c=先 c", L"b"));
}

TEST_P(RenameFault, ARunThatIsEndedHardWhileItAsksOrRenamesHasLostNothing) {
    ASSERT_TRUE(StartWithFaults(kRenameExisting, L"slow@1:5000"));
    ASSERT_TRUE(Rename().IsOpen());
    ASSERT_TRUE(Run().EndHard());
    EXPECT_EQ(Everything(), Expected(L"先\\a=先 a 先\\b=先 b 先\\c=先 c", L""));
    ASSERT_TRUE(StartWithFaults(kRenameExisting, L"slow@1:5001"));
    ASSERT_TRUE(TypeNewName(Rename(), L"a0"));
    ASSERT_TRUE(HasBegun(1));
    ASSERT_TRUE(Run().EndHard());
    EXPECT_EQ(Everything(), Expected(L"先\\a0=先 a 先\\b=先 b 先\\c=先 c", L""));
}

}  // namespace
}  // namespace ferry::e2e
