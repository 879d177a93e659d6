#include "e2e/fixture.h"

#include "base/utf16.h"
#include "e2e/driver/surroundings.h"

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
    return plan;
}

testing::AssertionResult FerryTest::Open(const RunPlan& plan) {
    run_.reset();
    run_ = std::make_unique<FerryRun>(plan);
    dialog_ = run_->WaitForDialog();
    if (!dialog_.IsOpen())
        return testing::AssertionFailure() << "no dialog came";
    return testing::AssertionSuccess();
}

testing::AssertionResult FerryTest::Transfer(const std::wstring& destination) {
    dialog_.SetDestination(destination);
    dialog_.Click(kStart);
    if (WaitForProcess(run_->FerryId(), kPatienceMs))
        return testing::AssertionSuccess();
    const ShownBox box = FindMessageBox(run_->FerryId());
    return testing::AssertionFailure() << "still running; message box: " << base::ToUtf8(box.Text);
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

testing::AssertionResult IsAliveAndUsable(FerryRun& run, const RemoteDialog& dialog) {
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutW(dialog.Window(), WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs, &answer) == 0)
        return testing::AssertionFailure() << "the dialog does not answer";
    dialog.SetDestination(L"C:\\use");
    if (dialog.Destination() != L"C:\\use")
        return testing::AssertionFailure() << "the destination cannot be written";
    if (!run.CancelAndWait())
        return testing::AssertionFailure() << "Cancel does not end it";
    if (!run.WaitForEnd() || run.ExitCode() != 0)
        return testing::AssertionFailure() << "exit code " << run.ExitCode();
    return testing::AssertionSuccess();
}

}  // namespace ferry::e2e
