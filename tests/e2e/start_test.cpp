// What happens at the moment "開始" is pressed.
#include "e2e/driver/message_file.h"
#include "e2e/driver/surroundings.h"
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

class PressingStart : public FerryTest {
protected:
    void SetUp() override {
        file_ = Tree().WriteFile(L"元\\a.txt", "a");
        ASSERT_TRUE(Open(Plan({file_})));
    }

    std::wstring file_;
};

TEST_F(PressingStart, RefusesADestinationWithoutDriveOrServer) {
    const std::wstring text = InstalledMessage(AppFolder(), 62304);
    ASSERT_FALSE(text.empty());
    for (const wchar_t* destination : {L"", L"C", L"work", L"\\work", L"\\\\", L"   ", L"1:\\work"}) {
        SCOPED_TRACE(destination);
        Dialog().SetDestination(destination);
        ASSERT_TRUE(StartIsRefusedWith(text));
    }
    EXPECT_TRUE(FileOps().empty());
}

TEST_F(PressingStart, RefusesADestinationThatIsAFile) {
    const std::wstring text = InstalledMessage(AppFolder(), 62306);
    ASSERT_FALSE(text.empty());
    Dialog().SetDestination(Tree().WriteFile(L"先", "a file"));
    ASSERT_TRUE(StartIsRefusedWith(text));
    EXPECT_EQ(ReadBytes(Tree().Path(L"先")), "a file");
    EXPECT_EQ(ReadBytes(file_), "a");
}

TEST_F(PressingStart, RefusesADestinationThatCannotBeMade) {
    Tree().WriteFile(L"先", "a file");
    Dialog().SetDestination(Tree().Path(L"先\\below"));
    ASSERT_TRUE(StartIsRefusedWith(InstalledMessage(AppFolder(), 62306)));
}

TEST_F(PressingStart, ARefusedStartCanBeCorrected) {
    Dialog().SetDestination(L"nowhere");
    ASSERT_TRUE(StartIsRefusedWith(InstalledMessage(AppFolder(), 62304)));
    ASSERT_TRUE(Transfer(Tree().Path(L"先")));
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\a.txt")), "a");
}

TEST_F(PressingStart, BlanksAroundTheDestinationDoNotMatter) {
    ASSERT_TRUE(Transfer(L"  " + Tree().MakeFolder(L"先") + L"  "));
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\a.txt")), "a");
}

TEST_F(PressingStart, WorksWithTheKeyboardAlone) {
    ASSERT_TRUE(Dialog().TypeDestination(Tree().MakeFolder(L"先")));
    ASSERT_TRUE(Dialog().PressWithKeys(kStart));
    ASSERT_TRUE(EndsWell());
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\a.txt")), "a");
}

TEST_F(PressingStart, ARefusedStartSavesNothingAndTellsTheHostNothing) {
    ASSERT_TRUE(Dialog().Choose(kIndividual));
    ASSERT_TRUE(Dialog().Choose(kOpenDestination));
    Dialog().SetDestination(L"nowhere");
    ASSERT_TRUE(StartIsRefusedWith(InstalledMessage(AppFolder(), 62304)));
    Dialog().SetDestination(Tree().WriteFile(L"先", "a file"));
    ASSERT_TRUE(StartIsRefusedWith(InstalledMessage(AppFolder(), 62306)));
    for (const wchar_t* name : {L"Mode", L"Name", L"1", L"OpenTarget", L"TimeCmpType"})
        EXPECT_FALSE(ReadNumber(kProgramKey, name).has_value());
    EXPECT_TRUE(Run().ReceivedByHost().empty());
}

TEST_F(PressingStart, ARefusalHasOneButton) {
    Dialog().SetDestination(L"nowhere");
    Dialog().Click(kStart);
    const ShownBox box = WaitForMessageBox(Run().FerryId());
    ASSERT_NE(box.Window, nullptr);
    int buttons = 0;
    for (HWND button = FindWindowExW(box.Window, nullptr, L"Button", nullptr); button != nullptr;
         button = FindWindowExW(box.Window, button, L"Button", nullptr)) {
        buttons += IsWindowVisible(button) ? 1 : 0;
    }
    EXPECT_EQ(buttons, 1);
    EXPECT_TRUE(DismissMessageBox(box));
}

TEST_F(PressingStart, ARefusalLeavesTheDestinationWithoutASelection) {
    Dialog().SetDestination(L"nowhere");
    Ask(Dialog().DestinationEdit(), EM_SETSEL, 0, -1);
    ASSERT_EQ(Dialog().DestinationSelection(), std::pair(0, 7));
    ASSERT_TRUE(StartIsRefusedWith(InstalledMessage(AppFolder(), 62304)));
    EXPECT_TRUE(WaitUntil([&] {
        const auto [start, end] = Dialog().DestinationSelection();
        return start == end;
    }));
}

TEST_F(PressingStart, ARootIsADestination) {
    ASSERT_FALSE(OtherVolume().empty()) << "FERRY_OTHER_VOLUME names no folder";
    const std::wstring arrived = OtherVolume() + L"\\a.txt";
    RemoveAll(arrived);
    ASSERT_TRUE(Transfer(OtherVolume()));
    EXPECT_EQ(ReadBytes(arrived), "a");
    RemoveAll(arrived);
}

TEST_F(PressingStart, NoAskMeansNothingItemByItemAndThePolicyNothingInABatch) {
    WriteNumber(kProgramKey, L"1", 1);
    WriteNumber(kProgramKey, L"Mode", 1);
    WriteNumber(kProgramKey, L"Name", 2);
    const std::wstring target = Tree().WriteFile(L"先\\a.txt", "existing");
    ASSERT_TRUE(Open(Plan({file_})));
    ASSERT_TRUE(Transfer(Tree().Path(L"先")));
    EXPECT_EQ(ReadBytes(target), "existing") << "the policy keeps it";
    WriteNumber(kProgramKey, L"Mode", 0);
    WriteNumber(kProgramKey, L"TimeCmpType", 2);
    ASSERT_TRUE(Open(Plan({file_})));
    ASSERT_TRUE(Transfer(Tree().Path(L"先")));
    EXPECT_EQ(ReadBytes(target), "a") << "the batch replaces it without asking";
}

TEST_F(PressingStart, SavesTheChoicesOfThisRun) {
    ASSERT_TRUE(Dialog().Choose(kIndividual));
    ASSERT_TRUE(Dialog().Choose(PolicyControl(3)));
    Dialog().Select(kPrecision, 2);
    ASSERT_TRUE(Dialog().Choose(kOpenDestination));
    ASSERT_TRUE(Transfer(Tree().Path(L"先")));
    EXPECT_EQ(ReadNumber(kProgramKey, L"Mode"), 1U);
    EXPECT_EQ(ReadNumber(kProgramKey, L"Name"), 3U);
    EXPECT_EQ(ReadNumber(kProgramKey, L"TimeCmpType"), 2U);
    EXPECT_EQ(ReadNumber(kProgramKey, L"OpenTarget"), 1U);
    EXPECT_EQ(ReadNumber(kProgramKey, L"1"), 0U);
}

TEST_F(PressingStart, RemembersTheDestinationInTheHistory) {
    const std::wstring destination = Tree().MakeFolder(L"先");
    ASSERT_TRUE(Transfer(destination));
    ASSERT_TRUE(EndsWell());
    EXPECT_EQ(ReadText(kProgramKey, L"Ferry000"), destination);
    EXPECT_EQ(ReadText(kProgramKey, L"Ferry001"), L"");
}

TEST_F(PressingStart, WithShiftHeldUsesTheChoicesWithoutSavingThem) {
    const std::wstring target = Tree().WriteFile(L"先\\a.txt", "existing and newer", 60);
    WriteNumber(kProgramKey, L"Mode", 0);
    WriteNumber(kProgramKey, L"Name", 2);
    ASSERT_TRUE(Dialog().Choose(kIndividual));
    ASSERT_TRUE(Dialog().Choose(PolicyControl(3)));
    Dialog().SetDestination(Tree().Path(L"先"));
    ASSERT_TRUE(Dialog().PressWithKeys(kStart, true));
    ASSERT_TRUE(EndsWell());
    EXPECT_EQ(ReadBytes(target), "a") << "item by item, and overwriting";
    EXPECT_EQ(ReadNumber(kProgramKey, L"Mode"), 0U);
    EXPECT_EQ(ReadNumber(kProgramKey, L"Name"), 2U);
    for (const wchar_t* name : {L"1", L"OpenTarget", L"TimeCmpType"}) {
        SCOPED_TRACE(name);
        EXPECT_FALSE(ReadNumber(kProgramKey, name).has_value());
    }
}

TEST_F(PressingStart, TellsTheHostTheDestinationWhenAskedTo) {
    ASSERT_TRUE(Dialog().Choose(kOpenDestination));
    const auto sender = reinterpret_cast<ULONG_PTR>(Dialog().Window());
    const std::wstring destination = Tree().MakeFolder(L"先");
    ASSERT_TRUE(Transfer(destination));
    const auto received = Run().ReceivedByHost();
    ASSERT_EQ(received.size(), 1U);
    EXPECT_EQ(received[0].Tag, L"200");
    EXPECT_EQ(received[0].Text, destination + L"\\");
    EXPECT_EQ(received[0].ByteCount, std::to_wstring(8 * (destination.size() + 2)));
    EXPECT_EQ(std::stoull(received[0].Sender, nullptr, 16), sender);
}

// A host that shows the folder must find the dialog still there: it is the sender.
TEST_F(PressingStart, WaitsForTheHostWithTheDialogStillOpen) {
    RunPlan plan = Plan({file_});
    plan.HostArguments = {L"--answer-after", L"700"};
    ASSERT_TRUE(Open(plan));
    ASSERT_TRUE(Dialog().Choose(kOpenDestination));
    Dialog().SetDestination(Tree().MakeFolder(L"先"));
    Dialog().Click(kStart);
    ASSERT_TRUE(WaitUntil([&] { return !Run().ReceivedByHost().empty(); }));
    EXPECT_TRUE(IsWindowVisible(Dialog().Window()));
    EXPECT_FALSE(Exists(Tree().Path(L"先\\a.txt")));
    EXPECT_TRUE(EndsWell());
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\a.txt")), "a");
}

TEST_F(PressingStart, TellsTheHostNothingOtherwise) {
    ASSERT_TRUE(Transfer(Tree().MakeFolder(L"先")));
    EXPECT_TRUE(Run().ReceivedByHost().empty());
}

TEST_F(PressingStart, EndsWithExitCodeZero) {
    ASSERT_TRUE(Transfer(Tree().MakeFolder(L"先")));
    ASSERT_TRUE(EndsWell());
}

TEST_F(PressingStart, CancelChangesNothing) {
    const TreeSnapshot before = ReadTree(Tree().Path(L"元"));
    Dialog().SetDestination(Tree().Path(L"先"));
    ASSERT_TRUE(CancelEndsWell());
    EXPECT_EQ(Differences(before, ReadTree(Tree().Path(L"元"))), "");
    EXPECT_FALSE(Exists(Tree().Path(L"先")));
}

}  // namespace
}  // namespace ferry::e2e
