#include "watched_run_win32.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "base/utf16.h"
#include "e2e/driver/ask.h"
#include "e2e/driver/keys.h"
#include "e2e/driver/message_box.h"
#include "e2e/driver/run_dialogs.h"
#include "samplehost/process_windows_win32.h"
#include "support/poll_win32.h"

namespace ferry::rundriver {
namespace {

constexpr int kCancelButton = 2;

/// A window that asks or tells something, known by a control that only it has, and the button that answers it
/// without touching a file.
struct Question {
    const char* Name;
    int TellingControl;
    int Answer;
};
constexpr int kSkipButton = 1102;
constexpr Question kQuestions[] = {
    {"collision", 1226, kCancelButton},  // Ferry's own: which policy
    {"rename", 1108, kCancelButton},     // Ferry's own: which name
    {"report", 1910, IDOK},              // Ferry's own: what stayed behind
    {"replace", 1004, kSkipButton},      // the file-operation service: replace or skip
    {"error", IDRETRY, kSkipButton},     // the file-operation service: again or skip
};

/// What `window` asks; null when it asks nothing.
const Question* QuestionIn(HWND window) {
    const Question* const found = std::ranges::find_if(kQuestions, [window](const Question& question) {
        return GetDlgItem(window, question.TellingControl) != nullptr;
    });
    return found == std::end(kQuestions) ? nullptr : found;
}

void MoveTo(HWND window, int left, int top) {
    SetWindowPos(window, nullptr, left, top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
}

/// The question would lie over the progress window; this way a picture shows both.
void PlaceBesideProgress(HWND question, DWORD processId) {
    const e2e::RemoteDialog progress = e2e::FindRunDialog(processId, e2e::RunDialog::Progress);
    if (!progress.IsOpen())
        return;
    MoveTo(progress.Window(), 0, 0);
    RECT place = {};
    GetWindowRect(progress.Window(), &place);
    MoveTo(question, place.right, 0);
}

bool Complain(const char* what) {
    std::fprintf(stderr, "rundriver: %s\n", what);
    return false;
}

e2e::RunPlan PlanOf(const Wishes& wishes) {
    e2e::RunPlan plan;
    plan.Items = wishes.Items;
    plan.Tabs = wishes.Tabs;
    plan.LogFile = wishes.LogFile;
    plan.Switches = {wishes.Moves ? L"/m" : L"/c"};
    if (wishes.ListsTabs)
        plan.Switches.emplace_back(L"/t");
    return plan;
}

}  // namespace

WatchedRun::WatchedRun(const Wishes& wishes) : wishes_(wishes), run_(PlanOf(wishes)) {}

bool WatchedRun::Perform() {
    dialog_ = run_.WaitForDialog();
    if (!dialog_.IsOpen())
        return Complain("Ferry's dialog did not open");
    if (!ShowCandidates() || !FillIn())
        return false;
    Pause("filled");
    dialog_.Click(e2e::kStart);
    return WaitForEnd();
}

bool WatchedRun::ShowCandidates() {
    if (!wishes_.PausesAt)
        return true;
    if (!e2e::TakeForeground(dialog_.Window()) || !dialog_.TypeDestination(L"C:\\"))
        return Complain("the destination cannot be typed");
    e2e::PressKey(VK_DOWN);
    if (!test::WaitUntil([this] { return dialog_.IsDestinationListOpen(); }))
        return Complain("the list of candidates does not open");
    e2e::PressKey(VK_DOWN);
    Pause("list");
    e2e::Ask(dialog_.Control(e2e::kDestination), CB_SHOWDROPDOWN, FALSE, 0);
    return true;
}

bool WatchedRun::FillIn() {
    if (!dialog_.Choose(wishes_.IsIndividual ? e2e::kIndividual : e2e::kBatch))
        return Complain("the working mode cannot be chosen");
    if (wishes_.Policy >= 0 && !dialog_.Choose(e2e::PolicyControl(wishes_.Policy)))
        return Complain("the collision policy cannot be chosen");
    if (!e2e::TakeForeground(dialog_.Window()) || !dialog_.TypeDestination(wishes_.Destination))
        return Complain("the destination cannot be typed");
    return true;
}

bool WatchedRun::WaitForEnd() {
    const ULONGLONG deadline = GetTickCount64() + static_cast<ULONGLONG>(wishes_.PatienceMs);
    while (run_.IsRunning()) {
        if (GetTickCount64() > deadline) {
            Pause("stuck");
            return Complain("Ferry did not end in time");
        }
        if (!AnswerWhatIsAsked())
            Sleep(test::kStepMs);
    }
    const e2e::Ending ending = run_.WaitForEnd();
    return ending.IsGood() || Complain(("Ferry ended badly: " + e2e::TextOf(ending)).c_str());
}

bool WatchedRun::AnswerWhatIsAsked() {
    if (const e2e::ShownBox box = e2e::FindMessageBox(run_.FerryId()); box.Window != nullptr) {
        std::printf("Ferry says: %s\n", base::ToUtf8(box.Text).c_str());
        Pause("box");
        const bool staysOpen = dialog_.IsOpen() && IsWindowVisible(dialog_.Window()) != FALSE;
        e2e::DismissMessageBox(box);
        if (staysOpen)
            dialog_.Click(kCancelButton);
        return true;
    }
    const Question* asked = nullptr;
    const HWND window = samplehost::FindVisibleWindow(
        run_.FerryId(), [&](HWND candidate) { return (asked = QuestionIn(candidate)) != nullptr; });
    if (window == nullptr)
        return false;
    if (wishes_.PausesAt)
        PlaceBesideProgress(window, run_.FerryId());
    std::printf("answered without touching a file: %s\n", asked->Name);
    Pause(asked->Name);
    PostMessageW(GetDlgItem(window, asked->Answer), BM_CLICK, 0, 0);
    test::WaitUntil([&] { return !IsWindow(window) || !IsWindowVisible(window); });
    return true;
}

void WatchedRun::Pause(const char* name) const {
    if (!wishes_.PausesAt)
        return;
    std::printf("PAUSE %s\n", name);
    std::fflush(stdout);
    for (int character = std::getchar(); character != '\n' && character != EOF; character = std::getchar()) {
    }
}

}  // namespace ferry::rundriver
