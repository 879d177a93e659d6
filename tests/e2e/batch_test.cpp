// The shell's one undoable operation: what arrives, and with which flags it is asked for.
#include "e2e/driver/run_dialogs.h"
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

class BatchTransfer : public TransferTest {};

TEST_F(BatchTransfer, CopiesATreeByteForByteAndLeavesTheSource) {
    const std::wstring source = Tree().MakeSample(L"元");
    const TreeSnapshot before = ReadTree(source);
    ASSERT_TRUE(Open(Plan({source})));
    EXPECT_TRUE(Dialog().IsChecked(kCopy));
    EXPECT_TRUE(Dialog().IsChecked(kBatch));
    ASSERT_TRUE(Transfer(Tree().Path(L"先")));
    EXPECT_EQ(Differences(before, ReadTree(Tree().Path(L"先\\元"))), "");
    EXPECT_EQ(Differences(before, ReadTree(source)), "");
}

TEST_F(BatchTransfer, MovesATreeAndLeavesNothingBehind) {
    const std::wstring source = Tree().MakeSample(L"元");
    const TreeSnapshot before = ReadTree(source);
    RunPlan plan = Plan({source});
    plan.Switches = {L"/m"};
    ASSERT_TRUE(Open(plan));
    EXPECT_TRUE(Dialog().IsChecked(kMove));
    ASSERT_TRUE(Transfer(Tree().Path(L"先")));
    EXPECT_EQ(Differences(before, ReadTree(Tree().Path(L"先\\元"))), "");
    EXPECT_FALSE(Exists(source));
}

TEST_F(BatchTransfer, HandsAllItemsInOrderToOneOperation) {
    const std::wstring first = Tree().WriteFile(L"元\\b.txt", "b");
    const std::wstring second = Tree().WriteFile(L"元\\a.txt", "a");
    const std::wstring third = Tree().MakeFolder(L"元\\c");
    ASSERT_TRUE(Open(Plan({first, second, third})));
    ASSERT_TRUE(Transfer(Tree().MakeFolder(L"先")));
    const auto log = FileOps();
    const auto copies = LinesOf(log, L"CopyItems");
    ASSERT_EQ(copies.size(), 3U);
    EXPECT_EQ(copies[0][1], first);
    EXPECT_EQ(copies[1][1], second);
    EXPECT_EQ(copies[2][1], third);
    EXPECT_EQ(LinesOf(log, L"PerformOperations").size(), 1U);
}

TEST_F(BatchTransfer, AsksForUndoAndConfirmations) {
    const std::wstring file = Tree().WriteFile(L"元\\a.txt", "a");
    ASSERT_TRUE(Open(Plan({file})));
    ASSERT_TRUE(Transfer(Tree().MakeFolder(L"先")));
    EXPECT_EQ(FlagsIn(FileOps()), (std::vector<unsigned long>{0x2840}));
}

TEST_F(BatchTransfer, NoAskAddsTheFlagThatAnswersYesToAll) {
    const std::wstring file = Tree().WriteFile(L"元\\a.txt", "a");
    ASSERT_TRUE(Open(Plan({file})));
    ASSERT_TRUE(Dialog().Choose(kNoAsk));
    ASSERT_TRUE(Transfer(Tree().MakeFolder(L"先")));
    EXPECT_EQ(FlagsIn(FileOps()), (std::vector<unsigned long>{0x2850}));
    EXPECT_EQ(ReadNumber(kProgramKey, L"1"), 1U);
}

TEST_F(BatchTransfer, LeavesOutASourceThatIsGoneAndTransfersTheOthers) {
    const std::wstring file = Tree().WriteFile(L"元\\a.txt", "a");
    const std::wstring other = Tree().WriteFile(L"元\\z.txt", "z");
    ASSERT_TRUE(Open(Plan({file, Tree().Path(L"元\\gone.txt"), other})));
    Dialog().SetDestination(Tree().MakeFolder(L"先"));
    Dialog().Click(kStart);
    const RemoteDialog report = WaitForRunDialog(Run().FerryId(), RunDialog::Report);
    ASSERT_TRUE(report.IsOpen());
    EXPECT_NE(report.Text(kReportList).find(L"gone.txt"), std::wstring::npos);
    ASSERT_TRUE(PressEscapeIn(report));
    ASSERT_TRUE(EndsWell());
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\a.txt")), "a");
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\z.txt")), "z");
    EXPECT_FALSE(Exists(Tree().Path(L"先\\gone.txt")));
}

TEST_F(BatchTransfer, MakesTheMissingFoldersOfTheDestination) {
    const std::wstring file = Tree().WriteFile(L"元\\a.txt", "a");
    ASSERT_TRUE(Open(Plan({file})));
    ASSERT_TRUE(Transfer(Tree().Path(L"先\\年\\月\\日")));
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\年\\月\\日\\a.txt")), "a");
}

TEST_F(BatchTransfer, AHostThatIsNotThereIsNotMissed) {
    const std::wstring file = Tree().WriteFile(L"元\\a.txt", "a");
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(Dialog().Choose(kOpenDestination));
    ASSERT_TRUE(Drop({file}));
    ASSERT_TRUE(WaitUntil([&] { return Dialog().SourceCount() == 1; }));
    ASSERT_TRUE(Transfer(Tree().MakeFolder(L"先")));
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\a.txt")), "a");
}

}  // namespace
}  // namespace ferry::e2e
