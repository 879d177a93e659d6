#include "e2e/fixture.h"

#include <cstdio>

#include "base/utf16.h"
#include "e2e/driver/keys.h"
#include "e2e/driver/run_dialogs.h"
#include "e2e/driver/surroundings.h"
#include "samplehost/delivery_win32.h"
#include "samplehost/host_block_writer.h"

namespace ferry::e2e {
namespace {

/// Without the programs under test nothing can be said, so the whole run fails at once.
class Surroundings : public testing::Environment {
public:
    void SetUp() override {
        const std::wstring missing = MissingSurroundings();
        ASSERT_TRUE(missing.empty()) << base::ToUtf8(missing);
    }
};

const testing::Environment* const kSurroundings = testing::AddGlobalTestEnvironment(new Surroundings);

}  // namespace

FerryTest::FerryTest() : fileOpLog_(tree_.Path(L"fileop.log")) {
    // Where the one before has left it, it might lie over a list and select what keys are to select.
    MovePointerTo({0, 0});
    SetVariable(L"FERRY_FILEOP_LOG", fileOpLog_);
    SetVariable(L"FERRY_FILEOP_FAULTS", L"");
}

FerryTest::~FerryTest() {
    run_.reset();  // before its tree goes
}

RunPlan FerryTest::Plan(std::vector<std::wstring> items, std::vector<std::wstring> tabs) const {
    RunPlan plan;
    plan.Items = std::move(items);
    plan.Tabs = std::move(tabs);
    plan.LogFile = tree_.Path(L"host.log");
    plan.Complain = [](const std::string& complaint) { ADD_FAILURE() << complaint; };
    return plan;
}

RunPlan FerryTest::PlanWithoutHost(std::vector<std::wstring> switches) const {
    RunPlan plan = Plan({});
    plan.ThroughHost = false;
    plan.Switches = std::move(switches);
    return plan;
}

testing::AssertionResult FerryTest::Open(const RunPlan& plan) {
    StartRun(plan);
    if (!dialog_.IsOpen() && run_->LacksGraphics()) {
        std::puts("started without graphics, once more");
        run_->ExcuseEnd();
        StartRun(plan);
    }
    if (!dialog_.IsOpen())
        return testing::AssertionFailure() << "no dialog came";
    return testing::AssertionSuccess();
}

void FerryTest::StartRun(const RunPlan& plan) {
    run_.reset();
    run_ = std::make_unique<FerryRun>(plan);
    dialog_ = run_->WaitForDialog();
}

testing::AssertionResult FerryTest::OpenWith(std::vector<std::wstring> switches,
                                             std::vector<std::wstring> tabs) {
    RunPlan plan = Plan({L"C:\\Work\\a.txt"}, std::move(tabs));
    plan.Switches = std::move(switches);
    return Open(plan);
}

testing::AssertionResult FerryTest::OpenWithoutHost(std::vector<std::wstring> switches) {
    return Open(PlanWithoutHost(std::move(switches)));
}

bool FerryTest::Send(std::uint64_t tag, std::span<const std::byte> bytes) const {
    return AnswerTo(tag, bytes).has_value();
}

std::optional<LRESULT> FerryTest::AnswerTo(std::uint64_t tag, std::span<const std::byte> bytes) const {
    return samplehost::AnswerToData(dialog_.Window(), nullptr, tag, bytes, kPatienceMs);
}

bool FerryTest::SendBlock(std::vector<std::wstring> items, std::vector<std::wstring> tabs) const {
    return Send(samplehost::kBlockTag, BlockBytes(std::move(items), std::move(tabs)));
}

std::vector<std::byte> FerryTest::BlockBytes(std::vector<std::wstring> items,
                                             std::vector<std::wstring> tabs) {
    samplehost::BlockFields fields;
    fields.Items = std::move(items);
    fields.Tabs = std::move(tabs);
    return samplehost::BytesOfUnits(samplehost::BlockUnits(fields));
}

bool FerryTest::Drop(const std::vector<std::wstring>& paths) const {
    return samplehost::DropPaths(dialog_.Window(), paths);
}

testing::AssertionResult FerryTest::Transfer(const std::wstring& destination) {
    dialog_.SetDestination(destination);
    dialog_.Click(kStart);
    return EndsWell();
}

testing::AssertionResult FerryTest::EndsWell(int timeoutMs) {
    const Ending ending = run_->WaitForEnd(timeoutMs);
    if (ending.IsGood())
        return testing::AssertionSuccess();
    const ShownBox box = ending.HasEnded ? ShownBox() : FindMessageBox(run_->FerryId());
    return testing::AssertionFailure() << TextOf(ending) << "; message box: " << base::ToUtf8(box.Text);
}

testing::AssertionResult FerryTest::EndsWithReport(std::wstring& list) {
    const RemoteDialog report = WaitForRunDialog(run_->FerryId(), RunDialog::Report);
    if (!report.IsOpen())
        return testing::AssertionFailure() << "no report came";
    list = report.Text(kReportList);
    if (!PressEscapeIn(report))
        return testing::AssertionFailure() << "the report stays";
    return EndsWell();
}

testing::AssertionResult FerryTest::CancelEndsWell() {
    const Ending ending = run_->CancelAndWait();
    return ending.IsGood() ? testing::AssertionSuccess() : testing::AssertionFailure() << TextOf(ending);
}

testing::AssertionResult FerryTest::StartIsRefusedWith(const std::wstring& text) {
    dialog_.Click(kStart);
    const ShownBox box = WaitForMessageBox(run_->FerryId());
    if (box.Window == nullptr)
        return testing::AssertionFailure() << "no message box came";
    if (!DismissMessageBox(box))
        return testing::AssertionFailure() << "the message box stays";
    if (box.Text != text)
        return testing::AssertionFailure() << base::ToUtf8(box.Text) << " instead of " << base::ToUtf8(text);
    if (!run_->IsRunning() || !dialog_.IsOpen() || !IsWindowVisible(dialog_.Window()))
        return testing::AssertionFailure() << "the dialog is gone";
    return testing::AssertionSuccess();
}

void TransferTest::SetUp() {
    if (const std::wstring why = WhyNoTestService(); !why.empty())
        GTEST_SKIP() << base::ToUtf8(why);
}

testing::AssertionResult IsAliveAndUsable(FerryRun& run, const RemoteDialog& dialog) {
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutW(dialog.Window(), WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs, &answer) == 0)
        return testing::AssertionFailure() << "the dialog does not answer";
    // Keys that were pressed before may still be on their way and write something else.
    const auto writes = [&] {
        dialog.SetDestination(L"C:\\use");
        return dialog.Destination() == L"C:\\use";
    };
    if (!WaitUntil(writes))
        return testing::AssertionFailure() << "the destination cannot be written";
    if (const Ending ending = run.CancelAndWait(); !ending.IsGood())
        return testing::AssertionFailure() << "Cancel: " << TextOf(ending);
    return testing::AssertionSuccess();
}

}  // namespace ferry::e2e
