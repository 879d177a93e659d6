#include "watched_run_win32.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "base/utf16.h"
#include "e2e/driver/ask.h"
#include "e2e/driver/keys.h"
#include "e2e/driver/message_box.h"
#include "e2e/driver/run_dialogs.h"
#include "frames_win32.h"
#include "samplehost/process_windows_win32.h"
#include "support/poll_win32.h"

namespace ferry::rundriver {
namespace {

constexpr int kCancelButton = 2;

/// The class of every popup menu.
constexpr wchar_t kMenuClass[] = L"#32768";

/// How long a submenu may take to open, when the entry has one at all.
constexpr int kSubmenuMs = 700;

/// How often the progress window is pictured.
constexpr ULONGLONG kProgressMs = 400;

/// A window that asks or tells something, known by a control that only it has, and the button that answers it
/// without touching a file.
struct Question {
    const char* Name;
    int TellingControl;
    int Answer;
};
constexpr int kSkipButton = 1102;
constexpr int kChoiceControl = 1226;
constexpr Question kQuestions[] = {
    {"collision", kChoiceControl, kCancelButton},  // Ferry's own: which policy
    {"rename", 1108, kCancelButton},               // Ferry's own: which name
    {"report", 1910, IDOK},                        // Ferry's own: what stayed behind
    {"replace", 1004, kSkipButton},                // the file-operation service: replace or skip
    {"error", IDRETRY, kSkipButton},               // the file-operation service: again or skip
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
    // Its process moves it when it gets to it; who looks where it is wants to know the new place.
    test::WaitUntil([=] {
        RECT place = {};
        return GetWindowRect(window, &place) != FALSE && place.left == left && place.top == top;
    });
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
    if (wishes_.OpensFavourites && !ShowSubmenu())
        return false;
    if (wishes_.RunsLastFavourite && !StopLastFavourite())
        return false;
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

bool WatchedRun::OpenFavourites() {
    if (!e2e::TakeForeground(dialog_.Window()) || !dialog_.PressWithKeys(e2e::kFavourites))
        return Complain("the button of the favourites cannot be pressed");
    const auto menus = [this] { return CountWindows(run_.FerryId(), kMenuClass); };
    if (!test::WaitUntil([&] { return menus() > 0; }))
        return Complain("the menu of the favourites does not open");
    // The menu stands around the mouse, which would choose for the keys, and has opened the folder that it is
    // on.
    e2e::MovePointerTo({0, 0});
    e2e::HasHandledAll(dialog_.Window());
    for (int depth = menus(); depth > 1; --depth) {
        e2e::PressKey(VK_LEFT);
        test::WaitUntil([&] { return menus() < depth; });
    }
    return menus() == 1 || Complain("a folder of the favourites does not close");
}

bool WatchedRun::ShowSubmenu() {
    if (!OpenFavourites())
        return false;
    const auto menus = [this] { return CountWindows(run_.FerryId(), kMenuClass); };
    // In front of the folders may stand an entry of the menu's own.
    constexpr int kMostEntries = 4;
    e2e::PressKey(VK_HOME);
    for (int tried = 0; menus() < 2 && tried < kMostEntries; ++tried) {
        if (tried > 0)
            e2e::PressKey(VK_DOWN);
        e2e::PressKey(VK_RIGHT);
        test::WaitUntil([&] { return menus() == 2; }, kSubmenuMs);
    }
    if (menus() < 2)
        return Complain("no folder of the favourites opens");
    Pause("menu");
    for (int depth = menus(); depth > 0; --depth) {
        e2e::PressKey(VK_ESCAPE);
        test::WaitUntil([&] { return menus() < depth; });
    }
    return menus() == 0 || Complain("the menu of the favourites does not close");
}

bool WatchedRun::StopLastFavourite() {
    if (!OpenFavourites())
        return false;
    e2e::PressKey(VK_END);
    e2e::PressKey(VK_RETURN);
    const e2e::RemoteDialog sign = e2e::WaitForRunDialog(run_.FerryId(), e2e::RunDialog::Progress);
    if (!sign.IsOpen())
        return Complain("the script does not show itself");
    Pause("sign");
    PostMessageW(sign.Control(kCancelButton), BM_CLICK, 0, 0);
    const e2e::ShownBox box = e2e::WaitForMessageBox(run_.FerryId());
    if (box.Window == nullptr)
        return Complain("nothing tells that the script was stopped");
    Pause("stopped");
    if (!e2e::DismissMessageBox(box))
        return Complain("the box about the script stays");
    return test::WaitUntil([this] { return IsWindowEnabled(dialog_.Window()) != FALSE; }) ||
           Complain("the dialog stays closed to its user");
}

bool WatchedRun::WaitForEnd() {
    const ULONGLONG deadline = GetTickCount64() + static_cast<ULONGLONG>(wishes_.PatienceMs);
    while (run_.IsRunning()) {
        if (GetTickCount64() > deadline) {
            Pause("stuck");
            return Complain("Ferry did not end in time");
        }
        if (AnswerWhatIsAsked())
            continue;
        if (wishes_.WatchesProgress)
            WatchProgress();
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
    const bool isChoice = wishes_.Choice >= 0 && asked->TellingControl == kChoiceControl;
    if (!isChoice)
        std::printf("answered without touching a file: %s\n", asked->Name);
    Pause(asked->Name);
    if (isChoice)
        ChooseForAll(window);
    else
        PostMessageW(GetDlgItem(window, asked->Answer), BM_CLICK, 0, 0);
    test::WaitUntil([&] { return !IsWindow(window) || !IsWindowVisible(window); });
    return true;
}

void WatchedRun::ChooseForAll(HWND question) {
    const e2e::RemoteDialog dialog(question);
    dialog.Choose(e2e::ChoiceControl(wishes_.Choice));
    Pause("chosen");
    dialog.Click(e2e::kForAll);
}

void WatchedRun::WatchProgress() {
    const ULONGLONG now = GetTickCount64();
    if (now < nextPicture_ || !e2e::FindRunDialog(run_.FerryId(), e2e::RunDialog::Progress).IsOpen())
        return;
    char name[] = "progress-00";
    std::snprintf(name, sizeof name, "progress-%02d", std::min(++pictures_, 99));
    Pause(name);
    nextPicture_ = GetTickCount64() + kProgressMs;
}

void WatchedRun::Pause(const char* name) const {
    if (!wishes_.PausesAt)
        return;
    PauseFor(name, run_.FerryId());
}

}  // namespace ferry::rundriver
