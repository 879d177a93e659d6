// What stands in the way or cannot be reached: files against folders, a tree inside itself, locked
// files, odd names, long paths.
#include <string>

#include "base/handles_win32.h"
#include "e2e/driver/contents.h"
#include "e2e/driver/process_windows.h"
#include "e2e/driver/run_dialogs.h"
#include "e2e/driver/service_windows.h"
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

constexpr DWORD kKeepExisting = 2;
constexpr DWORD kOverwriteOlder = 0;

/// A run with all that a person meets in it: each window is answered so that the run goes on.
class AwkwardTransfer : public TransferTest, public testing::WithParamInterface<bool> {
protected:
    bool IsMove() const { return GetParam(); }

    void UseMode(DWORD mode) { mode_ = mode; }

    void ClearTrees() const {
        RemoveAll(Tree().Path(L"元"));
        RemoveAll(Tree().Path(L"先"));
    }

    /// Transfers `items` into `destination` and answers what is asked meanwhile.
    testing::AssertionResult TransferAll(const std::vector<std::wstring>& items,
                                         const std::wstring& destination, DWORD policy = kOverwrite) {
        left_.clear();
        WriteNumber(kProgramKey, L"Mode", mode_);
        WriteNumber(kProgramKey, L"Name", policy);
        RunPlan plan = Plan(items);
        if (IsMove())
            plan.Switches = {L"/m"};
        if (const auto opened = Open(plan); !opened)
            return opened;
        Dialog().SetDestination(destination);
        Dialog().Click(kStart);
        WaitUntil([&] { return AnswerWindows() || !Run().IsRunning(); });
        if (!left_.empty() && !mayLeave_)
            return testing::AssertionFailure() << "left behind: " << testing::PrintToString(left_);
        return EndsWell();
    }

    /// From now on a run may leave something behind; HasLeft then says whether its report named an item.
    void MayLeave() { mayLeave_ = true; }
    bool HasLeft(const std::wstring& path) const { return left_.find(path + L"\r\n") != std::wstring::npos; }

    int Errors() const { return errors_; }
    const std::wstring& Message() const { return message_; }

    /// Whether every content of `before` is still somewhere in the test's folder.
    testing::AssertionResult HasAll(const Contents& before) const {
        const Contents after = ContentsBelow(Tree().Root());
        for (const auto& [content, count] : before) {
            const auto found = after.find(content);
            if (found == after.end() || found->second < count)
                return testing::AssertionFailure() << "lost: " << content.substr(0, 40);
        }
        return testing::AssertionSuccess();
    }

    /// All contents of the two trees, to be held against what is there afterwards.
    Contents Everything() const {
        Contents all = ContentsBelow(Tree().Path(L"元"));
        for (const auto& [content, count] : ContentsBelow(Tree().Path(L"先")))
            all[content] += count;
        return all;
    }

private:
    /// Answers one window when there is one. Always false: the run goes on.
    bool AnswerWindows() {
        const DWORD ferry = Run().FerryId();
        if (Press(FindWindowOf(ferry, kErrorTitle), kSkip))
            ++errors_;
        Press(FindWindowOf(ferry, kReplaceTitle), kReplace);
        if (const RemoteDialog report = FindRunDialog(ferry, RunDialog::Report);
            report.IsOpen() && IsWindowVisible(report.Window()) != FALSE) {
            left_ = report.Text(kReportList);
            PostMessageW(report.Window(), WM_COMMAND, IDCANCEL, 0);
        }
        if (const ShownBox box = FindMessageBox(ferry); box.Window != nullptr) {
            message_ = box.Text;
            DismissMessageBox(box);
        }
        return false;
    }

    static bool Press(HWND window, int button) {
        if (window == nullptr)
            return false;
        PostMessageW(GetDlgItem(window, button), BM_CLICK, 0, 0);
        return WaitUntil([&] { return !IsWindow(window) || !IsWindowVisible(window); });
    }

    DWORD mode_ = 1;
    bool mayLeave_ = false;
    std::wstring left_;
    int errors_ = 0;
    std::wstring message_;
};

INSTANTIATE_TEST_SUITE_P(CopyAndMove, AwkwardTransfer, testing::Bool(), NameOfOperation);

TEST_P(AwkwardTransfer, AFileWhereAFolderMustGoStaysAndSoDoesTheFolder) {
    for (const DWORD mode : {0U, 1U}) {
        SCOPED_TRACE(mode);
        UseMode(mode);
        ClearTrees();
        MayLeave();
        const std::wstring folder = Tree().MakeFolder(L"元\\物");
        Tree().WriteFile(L"元\\物\\下\\a.txt", "incoming");
        const std::wstring other = Tree().WriteFile(L"元\\後.txt", "the next one");
        Tree().WriteFile(L"先\\物", "existing");
        const Contents before = Everything();
        ASSERT_TRUE(TransferAll({folder, other}, Tree().Path(L"先")));
        EXPECT_TRUE(HasAll(before));
        EXPECT_EQ(ReadBytes(Tree().Path(L"先\\物")), "existing");
        EXPECT_EQ(ReadBytes(Tree().Path(L"元\\物\\下\\a.txt")), "incoming");
        EXPECT_EQ(ReadBytes(Tree().Path(L"先\\後.txt")), "the next one") << "the others go on";
        // Of a batch the shell has told.
        const bool isTold = mode == 1;
        EXPECT_EQ(HasLeft(folder), isTold);
        EXPECT_EQ(HasLeft(folder + L"\\下\\a.txt"), isTold);
        EXPECT_FALSE(HasLeft(other));
    }
}

TEST_P(AwkwardTransfer, AFolderWhereAFileMustGoStaysWithAllThatItHolds) {
    for (const DWORD mode : {0U, 1U}) {
        SCOPED_TRACE(mode);
        UseMode(mode);
        ClearTrees();
        const std::wstring file = Tree().WriteFile(L"元\\物", "incoming");
        const std::wstring other = Tree().WriteFile(L"元\\前.txt", "the one before");
        Tree().WriteFile(L"先\\物\\inner.txt", "existing");
        ASSERT_TRUE(TransferAll({other, file}, Tree().Path(L"先")));
        EXPECT_EQ(ReadBytes(Tree().Path(L"先\\前.txt")), "the one before");
        EXPECT_EQ(ReadBytes(file), "incoming");
        EXPECT_EQ(ReadBytes(Tree().Path(L"先\\物\\inner.txt")), "existing");
    }
}

TEST_P(AwkwardTransfer, ANameThatDiffersInCaseOnlyIsTheSameName) {
    const std::wstring file = Tree().WriteFile(L"元\\File.TXT", "incoming");
    Tree().WriteFile(L"先\\fILE.txt", "existing");
    ASSERT_TRUE(TransferAll({file}, Tree().Path(L"先"), kKeepExisting));
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\fILE.txt")), "existing");
    EXPECT_TRUE(Exists(file));
    ASSERT_TRUE(TransferAll({file}, Tree().Path(L"先")));
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\file.txt")), "incoming");
    EXPECT_EQ(FilesBelow(Tree().Path(L"先")).size(), 1U);
    EXPECT_EQ(Exists(file), !IsMove());
}

TEST_P(AwkwardTransfer, ADestinationInsideTheSourceTakesWhatWasThereAtTheStart) {
    Tree().WriteFile(L"元\\上\\a.txt", "a");
    Tree().WriteFile(L"元\\上\\中\\b.txt", "b");
    const Contents before = Everything();
    ASSERT_TRUE(TransferAll({Tree().Path(L"元\\上")}, Tree().Path(L"元\\上\\中")));
    EXPECT_TRUE(HasAll(before));
    EXPECT_EQ(ReadBytes(Tree().Path(L"元\\上\\中\\上\\a.txt")), "a");
    EXPECT_EQ(ReadBytes(Tree().Path(L"元\\上\\中\\上\\中\\b.txt")), "b");
    EXPECT_FALSE(Exists(Tree().Path(L"元\\上\\中\\上\\中\\上"))) << "no copy of the copy";
    EXPECT_EQ(Exists(Tree().Path(L"元\\上\\a.txt")), !IsMove());
}

TEST_P(AwkwardTransfer, ABatchIntoTheSourceItselfIsRefusedAndNothingChanges) {
    UseMode(0);
    Tree().WriteFile(L"元\\上\\a.txt", "a");
    const std::wstring inner = Tree().MakeFolder(L"元\\上\\中");
    const TreeSnapshot before = ReadTree(Tree().Path(L"元"));
    ASSERT_TRUE(TransferAll({Tree().Path(L"元\\上")}, inner));
    EXPECT_EQ(Differences(before, ReadTree(Tree().Path(L"元"))), "");
    EXPECT_EQ(Errors(), 1);
}

TEST_P(AwkwardTransfer, OntoItselfNothingHappensAndTheMessageSaysSo) {
    Tree().WriteFile(L"src\\a.txt", "a");
    Tree().WriteFile(L"src\\deep\\b.txt", "b");
    Tree().MakeFolder(L"src\\empty");
    const TreeSnapshot before = ReadTree(Tree().Path(L"src"));
    ASSERT_TRUE(TransferAll({Tree().Path(L"src")}, Tree().Root()));
    EXPECT_NE(Message(), L"");
    EXPECT_EQ(Differences(before, ReadTree(Tree().Path(L"src"))), "");
}

TEST_P(AwkwardTransfer, OntoItselfInAnotherSpellingNothingIsLost) {
    Tree().WriteFile(L"lower\\src\\a.txt", "a");
    Tree().WriteFile(L"lower\\src\\deep\\b.txt", "b");
    Tree().MakeFolder(L"lower\\src\\empty");
    const TreeSnapshot before = ReadTree(Tree().Path(L"lower\\src"));
    ASSERT_TRUE(TransferAll({Tree().Path(L"lower\\src")}, Tree().Path(L"LOWER")));
    EXPECT_EQ(Errors(), 1) << "the shell refuses the first file, and skipping it ends the run";
    EXPECT_EQ(Differences(before, ReadTree(Tree().Path(L"lower\\src"))), "");
}

TEST_P(AwkwardTransfer, AReadOnlyTargetIsOverwrittenOnlyWhereThePolicySaysSo) {
    const std::wstring file = Tree().WriteFile(L"元\\a.txt", "incoming", 0);
    Tree().WriteFile(L"先\\a.txt", "existing", 60, FILE_ATTRIBUTE_READONLY);
    ASSERT_TRUE(TransferAll({file}, Tree().Path(L"先"), kOverwriteOlder));
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\a.txt")), "existing");
    EXPECT_EQ(ReadBytes(file), "incoming");
    ASSERT_TRUE(TransferAll({file}, Tree().Path(L"先")));
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\a.txt")), "incoming");
    EXPECT_EQ(Exists(file), !IsMove());
}

TEST_P(AwkwardTransfer, AnOpenTargetStaysAndItsSourceToo) {
    const std::wstring file = Tree().WriteFile(L"元\\a.txt", "incoming");
    const std::wstring other = Tree().WriteFile(L"元\\b.txt", "the next one");
    const std::wstring target = Tree().WriteFile(L"先\\a.txt", "existing");
    {
        const base::FileHandle open = OpenAlone(target);
        ASSERT_TRUE(TransferAll({file, other}, Tree().Path(L"先")));
    }
    EXPECT_EQ(Errors(), 1);
    EXPECT_EQ(ReadBytes(target), "existing");
    EXPECT_EQ(ReadBytes(file), "incoming");
    EXPECT_EQ(FilesBelow(Tree().Path(L"先")).size(), 1U) << "a skipped file ends the run";
}

TEST_P(AwkwardTransfer, AnUnreadableSourceStaysWhereItIs) {
    const std::wstring file = Tree().WriteFile(L"元\\a.txt", "locked");
    {
        const base::FileHandle open = OpenAlone(file);
        ASSERT_TRUE(TransferAll({file}, Tree().MakeFolder(L"先")));
    }
    EXPECT_EQ(Errors(), 1);
    EXPECT_EQ(ReadBytes(file), "locked");
    EXPECT_EQ(FilesBelow(Tree().Path(L"先")).size(), 0U);
}

class DeepTree : public AwkwardTransfer {
protected:
    /// A tree whose last file has a path of more than 1,000 characters; its top folder.
    std::wstring MakeDeepTree() const {
        std::wstring folder = L"元\\深";
        for (int level = 0; level < 10; ++level) {
            folder += L"\\" + std::wstring(100, static_cast<wchar_t>(L'a' + level));
            const std::wstring file = Tree().WriteFile(folder + L"\\f.txt", "level " + std::to_string(level));
            longest_ = file.size();
        }
        return Tree().Path(L"元\\深");
    }

    std::size_t Longest() const { return longest_; }

private:
    mutable std::size_t longest_ = 0;
};

INSTANTIATE_TEST_SUITE_P(CopyAndMove, DeepTree, testing::Bool(), NameOfOperation);

TEST_P(DeepTree, ABatchBringsPathsOfAThousandCharactersWhole) {
    UseMode(0);
    const std::wstring top = MakeDeepTree();
    ASSERT_GT(Longest(), 1000U);
    const TreeSnapshot before = ReadTree(top);
    ASSERT_TRUE(TransferAll({top}, Tree().Path(L"先")));
    EXPECT_EQ(Differences(before, ReadTree(Tree().Path(L"先\\深"))), "");
    EXPECT_EQ(Exists(top), !IsMove());
}

// Not every shell makes items of long paths. What it makes none of has to stay at the source.
TEST_P(DeepTree, AnIndividualRunLosesNoLongPathAndBringsEveryShortOne) {
    const std::wstring top = MakeDeepTree();
    const TreeSnapshot before = ReadTree(top);
    const Contents contents = Everything();
    MayLeave();
    ASSERT_TRUE(TransferAll({top}, Tree().Path(L"先")));
    EXPECT_TRUE(HasAll(contents));
    const TreeSnapshot target = ReadTree(Tree().Path(L"先\\深"));
    const TreeSnapshot source = ReadTree(top);
    for (const auto& [name, entry] : before) {
        const bool isShort = top.size() + 1 + name.size() < 260;
        EXPECT_TRUE(target.contains(name) || (!entry.IsFolder && !isShort)) << name.size();
        EXPECT_TRUE(target.contains(name) || source.contains(name)) << name.size();
        EXPECT_NE(target.contains(name), HasLeft(top + L"\\" + name))
            << name.size() << " and what stays is told";
    }
}

TEST_P(AwkwardTransfer, NamesThatWindowsCannotSpellLoseNothing) {
    int number = 0;
    for (const wchar_t* name : {L"dot.", L"dot", L"blank ", L"blank", L"CON", L"NUL", L"aux.txt", L"plain"})
        Tree().WriteFile(std::wstring(L"元\\名\\") + name, "content " + std::to_string(++number));
    const Contents before = Everything();
    ASSERT_EQ(before.size(), 8U);
    MayLeave();
    ASSERT_TRUE(TransferAll({Tree().Path(L"元\\名")}, Tree().Path(L"先")));
    EXPECT_TRUE(HasAll(before));
    const TreeSnapshot target = ReadTree(Tree().Path(L"先\\名"));
    for (const auto& [name, entry] : target)
        EXPECT_FALSE(HasLeft(Tree().Path(L"元\\名\\") + name)) << testing::PrintToString(name);
    // A name of a device is no file to the shell.
    EXPECT_TRUE(HasLeft(Tree().Path(L"元\\名\\aux.txt")));
    EXPECT_FALSE(LinesOf(FileOps(), L"Item").empty()) << "the run did nothing";
}

}  // namespace
}  // namespace ferry::e2e
