// Variables and blocks that no honest host writes.
#include "base/handles_win32.h"
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

class HostileHost : public FerryTest {
protected:
    /// Opens with two items, one tab folder and these options of the sample host.
    testing::AssertionResult OpenThroughHost(std::vector<std::wstring> hostArguments) {
        RunPlan plan = Plan({L"C:\\Work\\a.txt", L"C:\\Work\\b.txt"}, {L"D:\\Backup"});
        plan.HostArguments = std::move(hostArguments);
        return Open(plan);
    }
};

TEST_F(HostileHost, TooLargeACountTakesWhatIsThere) {
    ASSERT_TRUE(OpenThroughHost({L"--count-items", L"99"}));
    EXPECT_EQ(Dialog().SourceCount(), 3);
    EXPECT_EQ(Dialog().Destination(), L"");
    EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
}

TEST_F(HostileHost, TooSmallACountShiftsTheFolders) {
    ASSERT_TRUE(OpenThroughHost({L"--count-items", L"1"}));
    EXPECT_EQ(Dialog().SourceCount(), 1);
    EXPECT_EQ(Dialog().Destination(), L"C:\\Work\\b.txt\\");
}

TEST_F(HostileHost, AbsurdCountsAreSurvived) {
    for (const wchar_t* count : {L"-1", L"2147483647", L"-2147483648", L"99999999999999999999", L"x", L""}) {
        SCOPED_TRACE(count);
        ASSERT_TRUE(OpenThroughHost({L"--count-items", count, L"--count-tabs", count}));
        EXPECT_LE(Dialog().SourceCount(), 3);
        EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
    }
}

TEST_F(HostileHost, ABlockWithoutItsNulIsReadToTheEndOfWhatIsThere) {
    ASSERT_TRUE(OpenThroughHost({L"--no-nul"}));
    EXPECT_EQ(Dialog().SourceCount(), 2);
    EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
}

TEST_F(HostileHost, ASizeInUnitsInsteadOfBytesLosesNothing) {
    const std::size_t units =
        BlockBytes({L"C:\\Work\\a.txt", L"C:\\Work\\b.txt"}, {L"D:\\Backup"}).size() / sizeof(wchar_t);
    ASSERT_TRUE(OpenThroughHost({L"--size", std::to_wstring(units)}));
    EXPECT_EQ(Dialog().SourceCount(), 2);
    EXPECT_EQ(Dialog().Destination(), L"D:\\Backup\\");
}

TEST_F(HostileHost, APageFullOfUnitsWithoutNulIsNotReadBeyond) {
    const std::wstring file = Tree().WriteFile(L"block.bin", std::string(65536, 'A'));
    ASSERT_TRUE(OpenThroughHost({L"--block-file", file}));
    EXPECT_EQ(Dialog().SourceCount(), 0);
    EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
}

TEST_F(HostileHost, AnAnnouncedBlockThatIsMissingGivesAnEmptyDialog) {
    ASSERT_TRUE(OpenThroughHost({L"--no-block"}));
    EXPECT_EQ(Dialog().SourceCount(), 0);
    EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
}

TEST_F(HostileHost, ASizeThatCannotBeMappedIsSaidAndThenTheDialogOpens) {
    RunPlan plan = Plan({L"C:\\Work\\a.txt"});
    plan.HostArguments = {L"--size", L"1000000", L"--mapping-size", L"64"};
    FerryRun run(plan);
    ASSERT_TRUE(run.WaitForStart());
    const ShownBox box = WaitForMessageBox(run.FerryId());
    ASSERT_NE(box.Window, nullptr);
    EXPECT_FALSE(box.Text.empty());
    ASSERT_TRUE(DismissMessageBox(box));
    const RemoteDialog dialog = run.WaitForDialog();
    ASSERT_TRUE(dialog.IsOpen());
    EXPECT_EQ(dialog.SourceCount(), 0);
    EXPECT_TRUE(IsAliveAndUsable(run, dialog));
}

TEST_F(HostileHost, AVariableOfNineOrElevenFieldsIsIgnoredEntirely) {
    for (const wchar_t* value : {L"1:0:1:1:64:x:y:z:Share", L"1:0:1:1:64:x:y:z:Share::", L":", L"nonsense"}) {
        SCOPED_TRACE(value);
        ASSERT_TRUE(OpenThroughHost({L"--variable", value}));
        EXPECT_EQ(Dialog().SourceCount(), 0);
        EXPECT_TRUE(StillHolds(
            [&] { return (GetWindowLongPtrW(Dialog().Window(), GWL_EXSTYLE) & WS_EX_TOPMOST) == 0; }));
    }
}

TEST_F(HostileHost, TheTransportWordIsComparedExactly) {
    for (const wchar_t* word : {L"share", L"SHARE", L"Share ", L""}) {
        SCOPED_TRACE(word);
        ASSERT_TRUE(OpenThroughHost({L"--transport", word}));
        EXPECT_EQ(Dialog().SourceCount(), 0);
    }
    ASSERT_TRUE(OpenThroughHost({L"--transport", L"Share"}));
    EXPECT_EQ(Dialog().SourceCount(), 2);
}

TEST_F(HostileHost, AHeldGuardIsWaitedFor) {
    RunPlan plan = Plan({L"C:\\Work\\a.txt"});
    plan.HostArguments = {L"--hold-mutex", L"1000"};
    FerryRun run(plan);
    ASSERT_TRUE(run.WaitForStart());
    // Others see that Ferry is there before it has read anything.
    EXPECT_TRUE(WaitUntil([] {
        return static_cast<bool>(base::MutexHandle(OpenMutexW(SYNCHRONIZE, FALSE, L"ExCommand.Ferry.exe")));
    }));
    EXPECT_TRUE(LinesOf(run.HostLines(), L"RELEASED").empty());
    const RemoteDialog dialog = run.WaitForDialog();
    ASSERT_TRUE(dialog.IsOpen());
    EXPECT_EQ(dialog.SourceCount(), 1);
    const auto lines = run.HostLines();
    const auto indexOf = [&](const wchar_t* kind) {
        std::size_t index = 0;
        while (index < lines.size() && lines[index].front() != kind) {
            ++index;
        }
        return index;
    };
    EXPECT_LT(indexOf(L"RELEASED"), lines.size());
    EXPECT_LT(indexOf(L"RELEASED"), indexOf(L"DIALOG"));
}

TEST_F(HostileHost, ATrailingFieldWithTextIsRead) {
    ASSERT_TRUE(OpenThroughHost({L"--trailing", L"anything", L"--reserved", L"x", L"y", L"z"}));
    EXPECT_EQ(Dialog().SourceCount(), 2);
    EXPECT_EQ(Dialog().Destination(), L"D:\\Backup\\");
}

}  // namespace
}  // namespace ferry::e2e
