// The dialogs of an item-by-item run: the question about a name that exists, and the progress.
#include <windows.h>
#include <gtest/gtest.h>

#include <set>

#include "dialogs/busy_dialog.h"
#include "dialogs/file_mode_dialog.h"
#include "ids.h"
#include "windows/dialog_world_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dialogs {
namespace {

constexpr wchar_t kLastChoice[] = L"AfterSel";

class CollisionDialog : public testing::Test {
protected:
    void Open() {
        dialog_ = std::make_unique<CDlgFileMode>(world_.Services(), nullptr, L"a.txt");
        ASSERT_TRUE(dialog_->Create(nullptr));
        ShowWindow(dialog_->Handle(), SW_SHOW);
    }

    /// The policy that is chosen in the open dialog; -1 when none is.
    int Chosen() const {
        for (int policy = 0; policy <= 6; ++policy) {
            if (IsDlgButtonChecked(dialog_->Handle(), IDC_CHOICE_IF_SOURCE_IS_NEWER + policy) ==
                BST_CHECKED) {
                return policy;
            }
        }
        return -1;
    }

    void Choose(int policy) { test::Click(dialog_->Handle(), IDC_CHOICE_IF_SOURCE_IS_NEWER + policy); }
    void Press(int button) { test::Click(dialog_->Handle(), button); }
    bool IsOpen() const { return IsWindowVisible(dialog_->Handle()) != FALSE; }

    test::DialogWorld world_;
    std::unique_ptr<CDlgFileMode> dialog_;
};

TEST_F(CollisionDialog, ShowsTheNameAndTheStoredChoice) {
    Open();
    EXPECT_EQ(test::TextOfControl(dialog_->Handle(), IDC_ITEM_NAME), L"a.txt");
    EXPECT_EQ(Chosen(), 0);
    for (std::uint32_t policy = 0; policy <= 6; ++policy) {
        world_.Store.Numbers[kLastChoice] = policy;
        Open();
        EXPECT_EQ(Chosen(), static_cast<int>(policy));
        EXPECT_EQ(dialog_->Choice(), policy);
    }
}

TEST_F(CollisionDialog, OffersEveryPolicyOfItsOwn) {
    Open();
    for (int policy = 0; policy <= 6; ++policy) {
        EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog_->Handle(), IDC_CHOICE_IF_SOURCE_IS_NEWER + policy)));
    }
}

TEST_F(CollisionDialog, OkAndForAllTakeTheChoiceAndRememberIt) {
    for (const int button : {IDOK, IDC_APPLY_TO_ALL}) {
        for (int policy = 0; policy <= 6; ++policy) {
            Open();
            Choose(policy);
            Press(button);
            EXPECT_FALSE(IsOpen());
            EXPECT_EQ(dialog_->Choice(), static_cast<std::uint32_t>(policy));
            EXPECT_EQ(world_.Store.Numbers[kLastChoice], static_cast<std::uint32_t>(policy));
        }
    }
}

TEST_F(CollisionDialog, ShiftUsesTheChoiceWithoutStoringIt) {
    for (const int button : {IDOK, IDC_APPLY_TO_ALL}) {
        Open();
        Choose(3);
        test::HoldKeys({VK_SHIFT});
        Press(button);
        test::HoldKeys({});
        EXPECT_EQ(dialog_->Choice(), 3U);
    }
    EXPECT_TRUE(world_.Store.Writes.empty());
}

TEST_F(CollisionDialog, StopAllAndCancelNeverChangeTheStoredChoice) {
    for (const int button : {IDC_STOP_ALL, IDCANCEL}) {
        Open();
        Choose(5);
        Press(button);
        EXPECT_FALSE(IsOpen());
    }
    EXPECT_TRUE(world_.Store.Writes.empty());
}

TEST_F(CollisionDialog, TheButtonsGiveTheEndCodes) {
    for (const int button : {IDOK, IDCANCEL, IDC_APPLY_TO_ALL, IDC_STOP_ALL}) {
        test::SelfAnswering<CDlgFileMode> dialog(world_.Services(), nullptr, L"a.txt");
        dialog.Button = button;
        EXPECT_EQ(dialog.DoModal(), button);
    }
}

TEST_F(CollisionDialog, AStoredChoiceOutsideTheGroupChecksNothingAndStays) {
    world_.Store.Numbers[kLastChoice] = 7;
    Open();
    EXPECT_EQ(Chosen(), -1);
    Press(IDOK);
    EXPECT_EQ(dialog_->Choice(), 7U);
}

class CollisionKeyboard : public testing::Test {
protected:
    CollisionKeyboard() {
        world_.Store.Numbers[L"AfterSel"] = 2;
        dialog_ = std::make_unique<CDlgFileMode>(world_.Services(), nullptr, L"a.txt");
        dialog_->Create(nullptr);
        ShowWindow(Window(), SW_SHOW);
        SetForegroundWindow(Window());
    }

    HWND Window() const { return dialog_->Handle(); }
    HWND Control(int id) const { return GetDlgItem(Window(), id); }
    bool IsOpen() const { return IsWindowVisible(Window()) != FALSE; }

    void Press(WPARAM key, int focus) {
        SetFocus(Control(focus));
        MSG message{Control(focus), WM_KEYDOWN, key, 1, 0, {}};
        dialog_->HandleDialogMessage(message);
    }

    test::DialogWorld world_;
    std::unique_ptr<CDlgFileMode> dialog_;
};

TEST_F(CollisionKeyboard, TabGoesFromTheNameOverTheChosenPolicyToTheButtons) {
    std::vector<int> stops;
    HWND control = Control(1000);
    do {
        stops.push_back(GetDlgCtrlID(control));
        control = GetNextDlgTabItem(Window(), control, FALSE);
    } while (control != Control(1000) && stops.size() < 20);
    EXPECT_EQ(stops, (std::vector<int>{1000, 1222, 1, 2, 5, 7}));
}

TEST_F(CollisionKeyboard, TheArrowsStayAmongTheChoices) {
    HWND control = Control(1220);
    for (int id = 1221; id <= 1226; ++id) {
        control = GetNextDlgGroupItem(Window(), control, FALSE);
        EXPECT_EQ(GetDlgCtrlID(control), id);
    }
    EXPECT_EQ(GetDlgCtrlID(GetNextDlgGroupItem(Window(), control, FALSE)), 1220);
}

TEST_F(CollisionKeyboard, EnterTakesTheChoiceAndEscapeDoesNot) {
    Press(VK_ESCAPE, 1222);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(world_.Store.Writes.empty());
    ShowWindow(Window(), SW_SHOW);
    Press(VK_RETURN, 1222);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(world_.Store.Numbers[L"AfterSel"], 2U);
    EXPECT_FALSE(world_.Store.Writes.empty());
}

TEST_F(CollisionKeyboard, TheNameCanBeReadAndNotChanged) {
    SendMessageW(Control(1000), WM_CHAR, L'x', 1);
    EXPECT_EQ(test::TextOfControl(Window(), 1000), L"a.txt");
}

class ProgressDialog : public testing::Test {
protected:
    void Open(bool cancellable) {
        dialog_.SetCancellable(cancellable);
        ASSERT_TRUE(dialog_.Create(nullptr));
    }

    bool PressEscape() {
        MSG message{GetDlgItem(dialog_.Handle(), IDCANCEL), WM_KEYDOWN, VK_ESCAPE, 1, 0, {}};
        return dialog_.HandleDialogMessage(message);
    }

    bool IsOpen() const { return IsWindowVisible(dialog_.Handle()) != FALSE; }

    struct Progress {
        std::wstring Name;
        LRESULT Done = 0;
        LRESULT Count = 0;
    };

    bool Shows(const Progress& expected) const {
        const HWND bar = GetDlgItem(dialog_.Handle(), IDC_BUSY_BAR);
        return test::TextOfControl(dialog_.Handle(), IDC_BUSY_ITEM) == expected.Name &&
               SendMessageW(bar, PBM_GETPOS, 0, 0) == expected.Done &&
               SendMessageW(bar, PBM_GETRANGE, FALSE, 0) == expected.Count;
    }

    /// Whether it shows that when the messages have been handled, and not before.
    bool WillShow(const Progress& expected) const {
        return !Shows(expected) && test::PumpUntil([&] { return Shows(expected); });
    }

    test::DialogWorld world_;
    CDlgBusy dialog_{world_.Services().Localiser};
};

TEST_F(ProgressDialog, WithoutLeaveToCancelTheButtonIsHiddenAndNothingStopsIt) {
    Open(false);
    EXPECT_FALSE(test::IsShown(dialog_.Handle(), IDCANCEL));
    PressEscape();
    SendMessageW(dialog_.Handle(), WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    SendMessageW(dialog_.Handle(), WM_CLOSE, 0, 0);
    EXPECT_TRUE(IsOpen());
    EXPECT_FALSE(dialog_.TakeCancelRequest());
}

TEST_F(ProgressDialog, TheStopButtonAsksOnceAndHidesTheWindow) {
    Open(true);
    EXPECT_TRUE(test::IsShown(dialog_.Handle(), IDCANCEL));
    EXPECT_FALSE(dialog_.TakeCancelRequest());
    test::Click(dialog_.Handle(), IDCANCEL);
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(dialog_.TakeCancelRequest());
    EXPECT_FALSE(dialog_.TakeCancelRequest());
}

TEST_F(ProgressDialog, EscapeStopsToo) {
    Open(true);
    EXPECT_TRUE(PressEscape());
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(dialog_.TakeCancelRequest());
}

TEST_F(ProgressDialog, EnterIsNotTakenForAStop) {
    Open(true);
    SendMessageW(dialog_.Handle(), WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
    EXPECT_TRUE(IsOpen());
    EXPECT_FALSE(dialog_.TakeCancelRequest());
}

TEST_F(ProgressDialog, ShowsTheLinesThatWereSetBeforeItOpened) {
    dialog_.SetFirstLine(L"first");
    dialog_.SetSecondLine(L"second");
    dialog_.StartSteps(3);
    dialog_.StepIt();
    Open(true);
    EXPECT_EQ(test::TextOfControl(dialog_.Handle(), IDC_BUSY_TITLE), L"first");
    EXPECT_TRUE(Shows({L"second", 1, 3}));
}

TEST_F(ProgressDialog, ShowsItsLinesWheneverTheyAreSet) {
    dialog_.SetFirstLine(L"first");
    Open(true);
    EXPECT_EQ(test::TextOfControl(dialog_.Handle(), IDC_BUSY_ITEM), L"");
    for (const std::wstring line : {L"a & b", L"another"}) {
        dialog_.SetSecondLine(line);
        EXPECT_TRUE(WillShow({line, 0, 0}));
    }
    dialog_.SetFirstLine(L"last");
    EXPECT_EQ(test::TextOfControl(dialog_.Handle(), IDC_BUSY_TITLE), L"last");
    EXPECT_EQ(test::TextOfControl(dialog_.Handle(), IDC_BUSY_ITEM), L"another");
}

TEST_F(ProgressDialog, TheBarStepsThroughItsRangeAndStartsAnewWithTheNext) {
    Open(true);
    dialog_.StartSteps(5);
    dialog_.StepIt();
    dialog_.StepIt();
    EXPECT_TRUE(WillShow({L"", 2, 5}));
    dialog_.StepIt();
    EXPECT_TRUE(test::PumpUntil([this] { return Shows({L"", 3, 5}); }));
    dialog_.StartSteps(65'535);
    EXPECT_TRUE(WillShow({L"", 0, 65'535}));
}

/// Where a bar of `count` steps stands that is given `steps` of them, one message for each.
LRESULT PositionAfter(std::uint32_t count, int steps) {
    const test::TestWindow bar(CreateWindowExW(0, PROGRESS_CLASSW, L"", 0, 0, 0, 100, 10, nullptr, nullptr,
                                               GetModuleHandleW(nullptr), nullptr));
    SendMessageW(bar.Get(), PBM_SETRANGE, 0, static_cast<LPARAM>(count << 16));
    SendMessageW(bar.Get(), PBM_SETSTEP, 1, 0);
    for (int step = 0; step < steps; ++step) {
        SendMessageW(bar.Get(), PBM_STEPIT, 0, 0);
    }
    return SendMessageW(bar.Get(), PBM_GETPOS, 0, 0);
}

TEST_F(ProgressDialog, ABarThatIsSteppedBeyondItsRangeStartsOverAsBarsDo) {
    for (const std::uint32_t count : {0U, 1U, 3U}) {
        for (int steps = 1; steps <= 9; ++steps) {
            SCOPED_TRACE(std::to_string(steps) + " of " + std::to_string(count));
            CDlgBusy dialog(world_.Services().Localiser);
            dialog.StartSteps(count);
            for (int step = 0; step < steps; ++step) {
                dialog.StepIt();
            }
            ASSERT_TRUE(dialog.Create(nullptr));
            const HWND bar = GetDlgItem(dialog.Handle(), IDC_BUSY_BAR);
            EXPECT_EQ(SendMessageW(bar, PBM_GETPOS, 0, 0), PositionAfter(count, steps));
        }
    }
}

TEST_F(ProgressDialog, ManyItemsAreDrawnTenTimesASecondAtMostAndTheNewestInTheEnd) {
    Open(true);
    const ULONGLONG start = GetTickCount64();
    dialog_.StartSteps(1'000);
    ULONGLONG drawn = 0;
    std::wstring last;
    for (int item = 1; item <= 1'000; ++item) {
        dialog_.StepIt();
        dialog_.SetSecondLine(std::to_wstring(item));
        const std::wstring shown = test::TextOfControl(dialog_.Handle(), IDC_BUSY_ITEM);
        drawn += shown != last ? 1 : 0;
        last = shown;
    }
    EXPECT_LE(drawn, (GetTickCount64() - start) / kShowDelayMs + 1);
    EXPECT_TRUE(test::PumpUntil([this] { return Shows({L"1000", 1'000, 1'000}); }));
}

TEST_F(ProgressDialog, ItemsThatComeSteadilyAreShownMeanwhile) {
    Open(true);
    int item = 0;
    EXPECT_TRUE(test::WaitUntil([&] {
        dialog_.SetSecondLine(std::to_wstring(++item));
        test::Pump();
        return !test::TextOfControl(dialog_.Handle(), IDC_BUSY_ITEM).empty();
    }));
}

TEST_F(ProgressDialog, WithNothingNewNoTimerGoesOn) {
    Open(true);
    std::set<UINT_PTR> running;
    const test::WatchedImport<&SetTimer> set("SetTimer",
                                             [&](HWND window, UINT_PTR id, UINT period, TIMERPROC procedure) {
                                                 EXPECT_EQ(window, dialog_.Handle());
                                                 running.insert(id);
                                                 return set.CallReal(window, id, period, procedure);
                                             });
    const test::WatchedImport<&KillTimer> kill("KillTimer", [&](HWND window, UINT_PTR id) {
        running.erase(id);
        return kill.CallReal(window, id);
    });
    dialog_.SetSecondLine(L"a");
    EXPECT_EQ(running.size(), 1U);
    ASSERT_TRUE(WillShow({L"a", 0, 0}));
    EXPECT_TRUE(running.empty());
}

TEST_F(ProgressDialog, AStrangersTimerShowsNothing) {
    Open(true);
    dialog_.SetSecondLine(L"a");
    SendMessageW(dialog_.Handle(), WM_TIMER, 4711, 0);
    EXPECT_TRUE(Shows({L"", 0, 0}));
}

TEST_F(ProgressDialog, OpenedAgainItShowsWhatComesThen) {
    Open(true);
    dialog_.SetSecondLine(L"a");
    dialog_.DestroyWindow();
    Open(true);
    dialog_.SetSecondLine(L"b");
    EXPECT_TRUE(WillShow({L"b", 0, 0}));
}

/// Keeps the codes that the dialog was ended with while its window stood.
class WatchedProgress : public CDlgBusy {
public:
    using CDlgBusy::CDlgBusy;

    void EndDialog(int result) override {
        EndCodes.push_back(IsWindow(Handle()) ? result : -1);
        CDlgBusy::EndDialog(result);
    }

    std::vector<int> EndCodes;
};

TEST_F(ProgressDialog, IsEndedWithTheCodeOfCancelWhenThePersonStopsIt) {
    for (const UINT message : {WM_COMMAND, WM_CLOSE}) {
        WatchedProgress dialog(world_.Services().Localiser);
        dialog.SetCancellable(true);
        ASSERT_TRUE(dialog.Create(nullptr));
        SendMessageW(dialog.Handle(), message, message == WM_COMMAND ? IDCANCEL : 0, 0);
        test::Pump();
        EXPECT_EQ(dialog.EndCodes, std::vector<int>{2});
        EXPECT_TRUE(dialog.TakeCancelRequest());
    }
}

TEST_F(ProgressDialog, IsEndedWithCodeZeroBeforeItsWindowGoes) {
    WatchedProgress dialog(world_.Services().Localiser);
    ASSERT_TRUE(dialog.Create(nullptr));
    dialog.DestroyWindow();
    EXPECT_EQ(dialog.EndCodes, (std::vector<int>{0}));
}

TEST_F(ProgressDialog, DestroyingTheWindowEndsTheDialog) {
    Open(true);
    dialog_.DestroyWindow();
    EXPECT_EQ(dialog_.Handle(), nullptr);
    dialog_.DestroyWindow();
    EXPECT_FALSE(dialog_.TakeCancelRequest());
}

}  // namespace
}  // namespace ferry::dialogs
