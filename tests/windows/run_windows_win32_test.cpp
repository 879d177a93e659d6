// The windows of an item-by-item run as the run uses them.
#include "dialogs/run_windows.h"

#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which it builds on.
#include <commctrl.h>

#include "ids.h"
#include "windows/answered_boxes_win32.h"
#include "windows/dialog_world_win32.h"
#include "windows/modal_visitor_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dialogs {
namespace {

using Steps = std::vector<std::string>;

class RunWindows : public testing::Test {
protected:
    RunWindows() {
        world_.Messages.File = L"5953\tmoving\r\n5954\tcopying\r\n6269\tsame\r\n62535\tno rename\r\n";
    }

    /// A control of the confirmation dialog whose label captions the rename dialog.
    void AddLabel(int id, const wchar_t* text) {
        CreateWindowExW(0, L"Button", text, WS_CHILD | BS_RADIOBUTTON, 0, 0, 50, 10, confirmation_.Get(),
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }

    test::DialogWorld world_;
    test::TestWindow confirmation_{CreateWindowExW(0, L"Static", L"confirmation", WS_POPUP, 0, 0, 100, 100,
                                                   nullptr, nullptr, nullptr, nullptr)};
};

TEST_F(RunWindows, NameTheOperationInTheirFirstLine) {
    const std::pair<transfer::Operation, const wchar_t*> cases[] = {{transfer::Operation::Move, L"moving"},
                                                                    {transfer::Operation::Copy, L"copying"}};
    for (const auto& [operation, title] : cases) {
        const ProgressWindow progress(world_.Services(), confirmation_.Get(), operation);
        EXPECT_EQ(test::TextOfControl(progress.Window(), IDC_BUSY_TITLE), title);
        EXPECT_EQ(test::TextOfControl(progress.Window(), IDC_BUSY_ITEM), L"");
    }
}

TEST_F(RunWindows, BelongToTheConfirmationWhichIsDisabledMeanwhile) {
    {
        const ProgressWindow progress(world_.Services(), confirmation_.Get(), transfer::Operation::Copy);
        EXPECT_EQ(GetWindow(progress.Window(), GW_OWNER), confirmation_.Get());
        EXPECT_TRUE(IsWindowVisible(progress.Window()));
        EXPECT_TRUE(test::IsShown(progress.Window(), IDCANCEL));
        EXPECT_FALSE(IsWindowEnabled(confirmation_.Get()));
    }
    EXPECT_TRUE(IsWindowEnabled(confirmation_.Get()));
}

TEST_F(RunWindows, EnableTheConfirmationBeforeTheyGo) {
    // Else the foreground would go to another program.
    Steps steps;
    const test::WatchedImport<&EnableWindow> enable("EnableWindow", [&](HWND window, BOOL on) {
        if (window == confirmation_.Get())
            steps.emplace_back(on ? "enable" : "disable");
        return enable.CallReal(window, on);
    });
    HWND window = nullptr;
    const test::WatchedImport<&DestroyWindow> destroy("DestroyWindow", [&](HWND gone) {
        if (gone == window)
            steps.emplace_back("destroy");
        return destroy.CallReal(gone);
    });
    {
        const ProgressWindow progress(world_.Services(), confirmation_.Get(), transfer::Operation::Copy);
        window = progress.Window();
    }
    EXPECT_EQ(steps, (Steps{"disable", "enable", "destroy"}));
}

TEST_F(RunWindows, MoveTheBarAndShowTheNameOfEachItem) {
    ProgressWindow progress(world_.Services(), confirmation_.Get(), transfer::Operation::Copy);
    const HWND bar = GetDlgItem(progress.Window(), IDC_BUSY_BAR);
    const auto shows = [&](LRESULT done, LRESULT count, const std::wstring& name) {
        return test::WaitUntil([&] {
            EXPECT_FALSE(progress.DrainAndTakeCancel(transfer::Pause::Item));
            return SendMessageW(bar, PBM_GETPOS, 0, 0) == done &&
                   SendMessageW(bar, PBM_GETRANGE, FALSE, 0) == count &&
                   test::TextOfControl(progress.Window(), IDC_BUSY_ITEM) == name;
        });
    };
    progress.SetRange(3);
    EXPECT_TRUE(shows(0, 3, L""));
    progress.Step();
    progress.ShowItem(L"a & b.txt");
    EXPECT_TRUE(shows(1, 3, L"a & b.txt"));
    progress.Step();
    progress.ShowItem(L"c");
    EXPECT_TRUE(shows(2, 3, L"c"));
    progress.SetRange(2);
    EXPECT_TRUE(shows(0, 2, L"c"));
}

TEST_F(RunWindows, ACancelIsTakenOnce) {
    ProgressWindow progress(world_.Services(), confirmation_.Get(), transfer::Operation::Copy);
    EXPECT_FALSE(progress.DrainAndTakeCancel(transfer::Pause::Item));
    PostMessageW(GetDlgItem(progress.Window(), IDCANCEL), BM_CLICK, 0, 0);
    EXPECT_TRUE(progress.DrainAndTakeCancel(transfer::Pause::Item));
    EXPECT_FALSE(progress.DrainAndTakeCancel(transfer::Pause::Item));
}

TEST_F(RunWindows, AKeyReachesTheProgressWindowAsADialog) {
    ProgressWindow progress(world_.Services(), confirmation_.Get(), transfer::Operation::Copy);
    PostMessageW(GetDlgItem(progress.Window(), IDCANCEL), WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_TRUE(progress.DrainAndTakeCancel(transfer::Pause::Item));
}

TEST_F(RunWindows, TheEndOfTheThreadStopsTheRunAndIsPassedOn) {
    ProgressWindow progress(world_.Services(), confirmation_.Get(), transfer::Operation::Copy);
    PostQuitMessage(7);
    EXPECT_TRUE(progress.DrainAndTakeCancel(transfer::Pause::Item));
    MSG message{};
    EXPECT_FALSE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 7U);
}

class RunQuestions : public RunWindows {
protected:
    ProgressWindow progress_{world_.Services(), confirmation_.Get(), transfer::Operation::Copy};
    QuestionWindows questions_{world_.Services(), progress_, confirmation_.Get()};
};

TEST_F(RunQuestions, ErrorsAreShownAsErrors) {
    constexpr UINT kErrorIcon = 16;
    for (const auto& [number, text] :
         {std::pair{std::uint16_t{6269}, L"same"}, std::pair{std::uint16_t{62535}, L"no rename"}}) {
        const test::AnsweredBoxes boxes;
        questions_.ShowError(number);
        EXPECT_EQ(boxes.Only().Text, text);
        EXPECT_EQ(boxes.Only().Icon(), kErrorIcon);
        EXPECT_EQ(boxes.Only().Buttons(), UINT{MB_OK});
    }
}

TEST_F(RunQuestions, TheRenameDialogHasThePolicysLabelWithoutAnyAmpersandForItsCaption) {
    AddLabel(IDC_POLICY_RENAME_INCOMING, L"&rename && in&coming(&R)");
    AddLabel(IDC_POLICY_RENAME_EXISTING, L"rename existing(&B)&");
    const std::pair<transfer::RenameKind, const wchar_t*> cases[] = {
        {transfer::RenameKind::Incoming, L"rename  incoming(R)"},
        {transfer::RenameKind::Existing, L"rename existing(B)"}};
    for (const auto& [kind, caption] : cases) {
        std::wstring title;
        const test::ModalVisitor visitor(confirmation_.Get(), [&](HWND dialog) {
            title = test::TextOfWindow(dialog);
            SetDlgItemTextW(dialog, IDC_NEW_NAME, L"typed");
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
        const transfer::NameAnswer answer = questions_.AskNewName(kind, L"C:\\dir\\a.txt");
        EXPECT_TRUE(visitor.HasVisited());
        EXPECT_EQ(title, caption);
        EXPECT_EQ(answer.Choice, transfer::NameChoice::Use);
        EXPECT_EQ(answer.Name, L"typed");
    }
}

TEST_F(RunQuestions, ACancelledNameIsNone) {
    const test::ModalVisitor visitor(confirmation_.Get(),
                                     [](HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); });
    const transfer::NameAnswer answer =
        questions_.AskNewName(transfer::RenameKind::Incoming, L"C:\\dir\\a.txt");
    EXPECT_EQ(answer.Choice, transfer::NameChoice::SkipItem);
    EXPECT_EQ(answer.Name, L"");
}

TEST_F(RunQuestions, TheCollisionDialogGivesItsButtonAndItsChoice) {
    using enum transfer::CollisionChoice;
    const std::pair<int, transfer::CollisionChoice> cases[] = {
        {IDOK, ThisItem}, {IDCANCEL, SkipItem}, {IDC_APPLY_TO_ALL, ThisAndLater}, {IDC_STOP_ALL, StopRun}};
    for (const auto& [button, choice] : cases) {
        std::wstring name;
        const test::ModalVisitor visitor(confirmation_.Get(), [&](HWND dialog) {
            name = test::TextOfControl(dialog, IDC_ITEM_NAME);
            test::Click(dialog, IDC_CHOICE_IF_SOURCE_IS_NEWER + 4);
            PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
        });
        const transfer::CollisionAnswer answer = questions_.AskCollision(L"a & b.txt");
        EXPECT_EQ(name, L"a & b.txt");
        EXPECT_EQ(answer.Choice, choice);
        if (choice == ThisItem || choice == ThisAndLater) {
            EXPECT_EQ(answer.Policy, transfer::CollisionPolicy::RenameIncoming);
        }
    }
}

/// The ways in which a person presses the stop of the progress window while a question is open.
enum class StopBy { Mouse, Key };

class StoppedQuestions : public RunQuestions, public testing::WithParamInterface<StopBy> {
protected:
    void PressStop() {
        const HWND stop = GetDlgItem(progress_.Window(), IDCANCEL);
        if (GetParam() == StopBy::Mouse)
            PostMessageW(stop, BM_CLICK, 0, 0);
        else
            PostMessageW(stop, WM_KEYDOWN, VK_ESCAPE, 1);
    }

    template <class Question>
    void StopDuring(const Question& ask) {
        bool isOpen = false;
        const test::ModalVisitor visitor(confirmation_.Get(), [&](HWND dialog) {
            isOpen =
                GetWindow(dialog, GW_OWNER) == confirmation_.Get() && IsWindowEnabled(progress_.Window());
            PressStop();
        });
        ask();
        EXPECT_TRUE(isOpen);
        EXPECT_FALSE(IsWindowEnabled(confirmation_.Get())) << "it stays disabled during the run";
    }
};

TEST_P(StoppedQuestions, EndWithTheRun) {
    StopDuring(
        [&] { EXPECT_EQ(questions_.AskCollision(L"a.txt").Choice, transfer::CollisionChoice::StopRun); });
}

TEST_P(StoppedQuestions, OfANameEndWithTheRun) {
    StopDuring([&] {
        const transfer::NameAnswer answer =
            questions_.AskNewName(transfer::RenameKind::Existing, L"C:\\dir\\a.txt");
        EXPECT_EQ(answer.Choice, transfer::NameChoice::StopRun);
    });
}

INSTANTIATE_TEST_SUITE_P(By, StoppedQuestions, testing::Values(StopBy::Mouse, StopBy::Key),
                         [](const auto& way) { return way.param == StopBy::Mouse ? "Mouse" : "Key"; });

TEST_F(RunQuestions, GiveTheKeyboardBackToTheProgressWindow) {
    SetForegroundWindow(progress_.Window());
    const test::ModalVisitor visitor(confirmation_.Get(),
                                     [](HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); });
    questions_.AskCollision(L"a.txt");
    EXPECT_EQ(GetActiveWindow(), progress_.Window());
}

TEST_F(RunWindows, AnEscapeHeldOverFromAQuestionDoesNotStopTheRun) {
    ProgressWindow progress(world_.Services(), confirmation_.Get(), transfer::Operation::Copy);
    PostMessageW(GetDlgItem(progress.Window(), IDCANCEL), WM_KEYDOWN, VK_ESCAPE, 0x40000001);
    EXPECT_FALSE(progress.DrainAndTakeCancel(transfer::Pause::Item));
    EXPECT_TRUE(IsWindowVisible(progress.Window()));
}

TEST_F(RunWindows, ShowAtOnceWhatIsKnownBeforeSomethingLong) {
    ProgressWindow progress(world_.Services(), confirmation_.Get(), transfer::Operation::Copy);
    const HWND bar = GetDlgItem(progress.Window(), IDC_BUSY_BAR);
    for (int item = 1; item <= 3; ++item) {
        progress.SetRange(5);
        progress.Step();
        progress.ShowItem(std::to_wstring(item));
        progress.ShowNow();
        EXPECT_EQ(SendMessageW(bar, PBM_GETRANGE, FALSE, 0), 5);
        EXPECT_EQ(SendMessageW(bar, PBM_GETPOS, 0, 0), 1);
        EXPECT_EQ(test::TextOfControl(progress.Window(), IDC_BUSY_ITEM), std::to_wstring(item));
        EXPECT_FALSE(GetUpdateRect(progress.Window(), nullptr, FALSE)) << "it is painted";
    }
}

TEST_F(RunWindows, LookForMessagesOnceTheyAreDrawnAndTakeNone) {
    // Wine shows nothing before that.
    ProgressWindow progress(world_.Services(), confirmation_.Get(), transfer::Operation::Copy);
    Steps steps;
    const test::WatchedImport<&RedrawWindow> redraw(
        "RedrawWindow", [&](HWND window, const RECT* area, HRGN region, UINT flags) {
            steps.emplace_back("draw");
            return redraw.CallReal(window, area, region, flags);
        });
    const test::WatchedImport<&PeekMessageW> peek(
        "PeekMessageW", [&](MSG* message, HWND window, UINT first, UINT last, UINT flags) {
            steps.emplace_back(flags == PM_NOREMOVE ? "look" : "take");
            return peek.CallReal(message, window, first, last, flags);
        });
    progress.ShowNow();
    EXPECT_EQ(steps, (Steps{"draw", "look"}));
}

TEST_F(RunWindows, ShowTheNewestAtOnceWhenNothingWasDrawnForAWhile) {
    ProgressWindow progress(world_.Services(), confirmation_.Get(), transfer::Operation::Copy);
    progress.SetRange(9);
    for (int item = 1; item <= 2; ++item) {
        Sleep(kShowDelayMs + 20);  // a slow item, during which nobody takes messages
        progress.Step();
        EXPECT_EQ(SendMessageW(GetDlgItem(progress.Window(), IDC_BUSY_BAR), PBM_GETPOS, 0, 0), item);
        Sleep(kShowDelayMs + 20);
        progress.ShowItem(std::to_wstring(item));
        EXPECT_EQ(test::TextOfControl(progress.Window(), IDC_BUSY_ITEM), std::to_wstring(item));
    }
}

TEST_F(RunWindows, KeepTheSessionFromEnding) {
    const ProgressWindow progress(world_.Services(), confirmation_.Get(), transfer::Operation::Copy);
    EXPECT_EQ(SendMessageW(progress.Window(), WM_QUERYENDSESSION, 0, 0), FALSE);
}

TEST_F(RunWindows, HaveAButtonInTheTaskbar) {
    const ProgressWindow progress(world_.Services(), confirmation_.Get(), transfer::Operation::Copy);
    EXPECT_NE(GetWindowLongPtrW(progress.Window(), GWL_EXSTYLE) & WS_EX_APPWINDOW, 0);
}

TEST_F(RunQuestions, FlashTheTaskbarButtonWhenThePersonWorksElsewhere) {
    HWND front = nullptr;
    const test::WatchedImport<&GetForegroundWindow> foreground("GetForegroundWindow", [&] { return front; });
    std::vector<HWND> flashed;
    const test::WatchedImport<&FlashWindowEx> flash("FlashWindowEx", [&](PFLASHWINFO info) {
        flashed.push_back(info->hwnd);
        return FALSE;
    });
    std::vector<std::size_t> flashes;
    for (const HWND window : {GetDesktopWindow(), progress_.Window()}) {
        front = window;
        const test::ModalVisitor visitor(confirmation_.Get(),
                                         [](HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); });
        questions_.AskCollision(L"a.txt");
        flashes.push_back(flashed.size());
    }
    EXPECT_EQ(flashes, (std::vector<std::size_t>{1, 1}));
    EXPECT_EQ(flashed, (std::vector{progress_.Window()}))
        << "only where the question may stand behind others";
}

}  // namespace
}  // namespace ferry::dialogs
