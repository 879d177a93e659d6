// The driver, tried on a practice dialog that stands in Ferry's place.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "e2e/driver/app_copy.h"
#include "e2e/driver/ask.h"
#include "e2e/driver/ferry_run.h"
#include "e2e/driver/keys.h"
#include "e2e/driver/message_box.h"
#include "e2e/driver/practice_dialog.h"
#include "e2e/driver/remote_menu.h"
#include "e2e/driver/surroundings.h"
#include "e2e/driver/temp_tree.h"
#include "samplehost/delivery_win32.h"
#include "samplehost/host_block_writer.h"

namespace ferry::e2e {
namespace {

class Driver : public testing::Test {
protected:
    void SetUp() override {
        tree_.MakeFolder(L"app\\Command\\Ferry");
        const std::wstring practice = OwnFolder() + L"\\practice_dialog.exe";
        ASSERT_TRUE(CopyFileW(practice.c_str(), FerryPath(tree_.Path(L"app")).c_str(), FALSE));
        RunPlan plan;
        plan.AppFolder = tree_.Path(L"app");
        plan.LogFile = tree_.Path(L"host.log");
        plan.Complain = [this](const std::string& complaint) { complaints_.push_back(complaint); };
        run_ = std::make_unique<FerryRun>(plan);
        dialog_ = run_->WaitForDialog();
        ASSERT_TRUE(dialog_.IsOpen());
    }

    /// Waits for the end; the exit code.
    DWORD ExitCode() { return run_->WaitForEnd().ExitCode; }

    void Order(UINT order, WPARAM value = 0) const { PostMessageW(dialog_.Window(), order, value, 0); }

    /// What is said of the run when the test has done with it.
    std::vector<std::string> Complaints() {
        run_.reset();
        return complaints_;
    }

    TempTree tree_;
    std::vector<std::string> complaints_;
    std::unique_ptr<FerryRun> run_;
    RemoteDialog dialog_;
};

TEST_F(Driver, SeesWhetherAProcessHasGraphics) {
    EXPECT_TRUE(HasGraphics(run_->FerryId()));
    EXPECT_FALSE(run_->LacksGraphics());
    std::wstring line = OwnFolder() + L"\\practice_dialog.exe";
    STARTUPINFOW start = {};
    start.cb = sizeof(start);
    PROCESS_INFORMATION info = {};
    ASSERT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                               nullptr, &start, &info));
    EXPECT_FALSE(HasGraphics(info.dwProcessId)) << "none of its code has run";
    TerminateProcess(info.hProcess, 0);
    CloseHandle(info.hThread);
    CloseHandle(info.hProcess);
}

TEST_F(Driver, AProgramThatIsNotThereDoesNotStart) {
    for (const bool throughHost : {true, false}) {
        RunPlan plan;
        plan.AppFolder = L"C:\\nowhere";
        plan.ThroughHost = throughHost;
        plan.LogFile = tree_.Path(L"other.log");
        FerryRun run(plan);
        EXPECT_FALSE(run.WaitForStart());
    }
}

TEST_F(Driver, DropsPathsAndReadsTheList) {
    const std::vector<std::wstring> paths = {L"C:\\一.txt", L"C:\\two words.txt"};
    ASSERT_TRUE(samplehost::DropPaths(dialog_.Window(), paths));
    ASSERT_TRUE(WaitUntil([&] { return dialog_.SourceCount() == 2; }));
    EXPECT_EQ(dialog_.SourceText(0), paths[0]);
    EXPECT_EQ(dialog_.SourceText(1), paths[1]);
}

TEST_F(Driver, ChoosesAndSelects) {
    ASSERT_TRUE(dialog_.Choose(kMove));
    EXPECT_TRUE(dialog_.IsChecked(kMove));
    ASSERT_TRUE(dialog_.Choose(kCopy));
    EXPECT_FALSE(dialog_.IsChecked(kMove));
    dialog_.Select(kPrecision, 2);
    EXPECT_EQ(Ask(dialog_.Control(kPrecision), CB_GETCURSEL), 2);
    EXPECT_EQ(dialog_.Text(kCopy), L"コピー");
}

TEST_F(Driver, SendsDataToTheDialog) {
    ASSERT_TRUE(
        samplehost::SendData(dialog_.Window(), nullptr, 100, samplehost::TextPayload(L"D:\\先"), 5000));
    EXPECT_EQ(dialog_.Destination(), L"D:\\先");
}

class DriverOfMenus : public Driver {
protected:
    void SetUp() override {
        ASSERT_NO_FATAL_FAILURE(Driver::SetUp());
        menu_ = RemoteMenu(dialog_.Window());
        ASSERT_TRUE(TakeForeground(dialog_.Window()));
        Order(practice::kShowMenu);
        ASSERT_TRUE(menu_.WaitUntilOpen());
    }

    RemoteMenu menu_{nullptr};
};

TEST_F(DriverOfMenus, ReadsTheEntries) {
    const std::vector<MenuEntry> entries = menu_.Entries();
    ASSERT_EQ(entries.size(), 4U);
    EXPECT_EQ(entries[0], (MenuEntry{L"one", false, false}));
    EXPECT_EQ(entries[1].Text, L"");
    EXPECT_EQ(entries[2], (MenuEntry{L"&more", true, false}));
    EXPECT_EQ(entries[3], (MenuEntry{L"last", false, true}));
    EXPECT_EQ(menu_.IndexOf(L"no such"), -1);
    EXPECT_TRUE(menu_.Cancel());
    EXPECT_TRUE(dialog_.IsOpen());
}

TEST_F(DriverOfMenus, MovesAndLeavesWithTheKeys) {
    EXPECT_TRUE(menu_.MoveTo(3));
    EXPECT_TRUE(menu_.MoveTo(0));
    EXPECT_EQ(menu_.Highlighted(), 0);
    EXPECT_FALSE(menu_.MoveTo(4));
    ASSERT_TRUE(menu_.Enter(2));
    EXPECT_EQ(menu_.Texts(), (std::vector<std::wstring>{L"in&ner", L"deep"}));
    EXPECT_EQ(menu_.Depth(), 2U);
    ASSERT_TRUE(menu_.Leave(VK_LEFT));
    ASSERT_TRUE(menu_.Enter(2));
    ASSERT_TRUE(menu_.Leave(VK_ESCAPE));
    EXPECT_EQ(menu_.Count(), 4);
    ASSERT_TRUE(menu_.Choose(std::vector<std::wstring>{L"one"}));
    EXPECT_EQ(ExitCode(), 1U);
}

TEST_F(DriverOfMenus, ChoosesInASubmenuWithTheKeys) {
    ASSERT_TRUE(menu_.Choose(std::vector<std::wstring>{L"&more", L"deep"}));
    EXPECT_EQ(ExitCode(), 3U);
}

TEST_F(DriverOfMenus, ChoosesInASubmenuWithTheMouse) {
    ASSERT_TRUE(menu_.ChooseWithMouse(std::vector<std::wstring>{L"&more", L"in&ner"}));
    EXPECT_EQ(ExitCode(), 2U);
}

TEST_F(Driver, ReadsAndDismissesMessageBoxes) {
    dialog_.Click(kStart);
    const ShownBox box = WaitForMessageBox(run_->FerryId());
    ASSERT_NE(box.Window, nullptr);
    EXPECT_EQ(box.Text, L"行き先がありません。\n2");
    EXPECT_TRUE(DismissMessageBox(box));
    EXPECT_TRUE(dialog_.IsOpen());
}

TEST_F(Driver, TypesWithRealKeysAndPressesButtons) {
    ASSERT_TRUE(dialog_.TypeDestination(L"D:\\行き先 x"));
    ASSERT_TRUE(dialog_.PressWithKeys(kStart));
    EXPECT_EQ(ExitCode(), 10U);
}

TEST_F(Driver, HoldsShiftWhilePressing) {
    dialog_.SetDestination(L"D:\\");
    ASSERT_TRUE(dialog_.PressWithKeys(kStart, true));
    EXPECT_EQ(ExitCode(), 11U);
}

TEST_F(Driver, CancelsAndSeesTheEnd) {
    EXPECT_TRUE(run_->IsRunning());
    EXPECT_TRUE(run_->CancelAndWait().IsGood());
    EXPECT_FALSE(run_->IsRunning());
    EXPECT_EQ(ExitCode(), 0U);
    EXPECT_THAT(Complaints(), testing::IsEmpty());
}

TEST_F(Driver, ARunThatIsOpenAtTheEndIsCancelledWithoutAComplaint) {
    EXPECT_THAT(Complaints(), testing::IsEmpty());
}

TEST_F(Driver, AnExitCodeIsComplainedOf) {
    Order(practice::kEnd, 0xC0000005);
    EXPECT_FALSE(run_->WaitForEnd().IsGood());
    EXPECT_THAT(Complaints(), testing::ElementsAre("Ferry's end: exit code 0xC0000005"));
}

TEST_F(Driver, AnExitCodeThatNobodyLookedAtIsComplainedOf) {
    Order(practice::kEnd, 3);
    ASSERT_TRUE(WaitUntil([&] { return !dialog_.IsOpen(); }));
    EXPECT_THAT(Complaints(), testing::ElementsAre("Ferry's end: exit code 0x3"));
}

TEST_F(Driver, ARunThatWaitsForAnAnswerAtTheEndIsComplainedOf) {
    dialog_.Click(kStart);
    ASSERT_NE(WaitForMessageBox(run_->FerryId()).Window, nullptr);
    EXPECT_THAT(Complaints(), testing::ElementsAre(testing::HasSubstr("waits for an answer")));
}

TEST_F(Driver, ARunThatWasEndedHardIsExcused) {
    ASSERT_TRUE(run_->EndHard());
    EXPECT_FALSE(run_->WaitForEnd().IsGood());
    EXPECT_THAT(Complaints(), testing::IsEmpty());
}

TEST_F(Driver, AWindowThatHangsIsGivenUp) {
    constexpr int kShortPatienceMs = 200;
    Order(practice::kHang);
    // What is sent overtakes what is posted.
    ASSERT_TRUE(WaitUntil([&] { return GetPropW(dialog_.Window(), practice::kHangs) != nullptr; }));
    EXPECT_THROW(Ask(dialog_.Window(), WM_NULL, 0, 0, kShortPatienceMs), NoAnswer);
    EXPECT_TRUE(run_->EndHard());
    EXPECT_EQ(Ask(dialog_.Window(), WM_NULL), 0) << "a window that is gone is no hang";
}

TEST_F(Driver, KnowsWhenAllKeysHaveBeenHandled) {
    ASSERT_TRUE(dialog_.FocusDestination());
    for (int round = 0; round < 20; ++round) {
        SCOPED_TRACE(round);
        dialog_.SetDestination(L"");
        Order(practice::kLinger, 20);
        TypeText(L"abcdefgh");
        ASSERT_TRUE(HasHandledAll(dialog_.Window()));
        EXPECT_EQ(dialog_.Destination(), L"abcdefgh");
    }
}

}  // namespace
}  // namespace ferry::e2e
