// The trace window, sent to as scripts and strangers do.
#include <algorithm>
#include <atomic>

#include "base/utf16.h"
#include "windows/answered_boxes_win32.h"
#include "windows/trace_dialog_fixture_win32.h"

namespace ferry::tracewindow {
namespace {

constexpr wchar_t kLine[] = L"\x25B6";
constexpr wchar_t kHold[] = L"\x25CF";

class TraceDialogTest : public TraceDialogFixture {
protected:
    /// Sends `byteCount` bytes with nothing readable behind them.
    LRESULT SendBytes(ULONG_PTR code, std::span<const std::byte> bytes) const {
        SYSTEM_INFO system{};
        GetSystemInfo(&system);
        const std::size_t page = system.dwPageSize;
        auto* const pages = static_cast<std::byte*>(
            VirtualAlloc(nullptr, 2 * page, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE));
        DWORD before = 0;
        EXPECT_TRUE(VirtualProtect(pages + page, page, PAGE_NOACCESS, &before));
        std::byte* const place = pages + page - bytes.size();
        std::ranges::copy(bytes, place);
        COPYDATASTRUCT data{code, static_cast<DWORD>(bytes.size()), place};
        const LRESULT answer = SendMessageW(Window(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
        VirtualFree(pages, 0, MEM_RELEASE);
        return answer;
    }

    bool WaitForStatus(const std::wstring& text) {
        const bool isThere = WorkUntil([&] { return Status() == text; });
        EXPECT_TRUE(isThere) << base::ToUtf8(Status());
        return isThere;
    }

    std::wstring path_ = Script(L"main.txt", L"debug\r\nvar a\r\na=1\r\n\tmessageboxok=?a?\r\n");
};

TEST_F(TraceDialogTest, IsFoundByTheTitleThatScriptsLookFor) {
    EXPECT_EQ(FindWindowW(nullptr, L"Script trace Kiv"), Window());
    EXPECT_EQ(FindWindowW(L"FerryTraceWindow", nullptr), Window());
    EXPECT_EQ(Status(), L"Waiting for a script with a line \"debug\".");
}

TEST_F(TraceDialogTest, ShowsTheScriptWithTheLineThatRuns) {
    Send(1, path_);
    Send(2, L"3");
    ASSERT_TRUE(WaitForStatus(L"Last line: 3.  Records: 2."));
    EXPECT_EQ(TextOf(IDC_TRACE_SCRIPT), path_);
    ASSERT_EQ(RowCount(IDC_TRACE_LINES), 4);
    EXPECT_EQ(Cell(IDC_TRACE_LINES, 2, 1), L"3");
    EXPECT_EQ(Cell(IDC_TRACE_LINES, 2, 2), L"a=1");
    EXPECT_EQ(Cell(IDC_TRACE_LINES, 3, 2), L"    messageboxok=?a?");
    EXPECT_EQ(LineMarks(), std::wstring(L"..") + kLine + L".");
    Send(2, L"2");
    ASSERT_TRUE(WaitForStatus(L"Last line: 2.  Records: 3."));
    EXPECT_EQ(LineMarks(), std::wstring(L".") + kLine + L"..");
}

TEST_F(TraceDialogTest, ScrollsToTheLineThatRuns) {
    std::wstring text;
    for (int number = 0; number < 500; ++number)
        text += L"updatestate\r\n";
    Send(1, Script(L"long.txt", text));
    Send(2, L"400");
    ASSERT_TRUE(WaitForStatus(L"Last line: 400.  Records: 2."));
    RECT client{};
    RECT row{LVIR_BOUNDS, 0, 0, 0};
    GetClientRect(Item(IDC_TRACE_LINES), &client);
    SendDlgItemMessageW(Window(), IDC_TRACE_LINES, LVM_GETITEMRECT, 399, reinterpret_cast<LPARAM>(&row));
    EXPECT_GE(row.top, client.top);
    EXPECT_LE(row.bottom, client.bottom);
}

TEST_F(TraceDialogTest, ShowsVariablesAndWhichChangedLast) {
    Send(10, L"a\t");
    Send(10, L"b\t");
    Send(11, L"a\tone\r\ntwo");
    ASSERT_TRUE(WaitForStatus(L"Waiting for a script with a line \"debug\".  Records: 3."));
    ASSERT_EQ(RowCount(IDC_TRACE_VARIABLES), 2);
    EXPECT_EQ(Cell(IDC_TRACE_VARIABLES, 0, 0), kLine);
    EXPECT_EQ(Cell(IDC_TRACE_VARIABLES, 0, 1), L"a");
    EXPECT_EQ(Cell(IDC_TRACE_VARIABLES, 0, 2), L"one\x240D\x2424two");
    EXPECT_EQ(Cell(IDC_TRACE_VARIABLES, 1, 0), L"");
    EXPECT_EQ(Cell(IDC_TRACE_VARIABLES, 1, 1), L"b");
    SelectRow(IDC_TRACE_VARIABLES, 0);
    EXPECT_EQ(TextOf(IDC_TRACE_WHOLE), L"one\r\ntwo");
}

TEST_F(TraceDialogTest, ShowsTheFirstThousandCharactersOfAMillion) {
    SelectRow(IDC_TRACE_VARIABLES, 0);
    Send(11, L"a\t" + std::wstring(1000000, L'v'));
    ASSERT_TRUE(WorkUntil([&] { return RowCount(IDC_TRACE_VARIABLES) == 1; }));
    SelectRow(IDC_TRACE_VARIABLES, 0);
    EXPECT_EQ(TextOf(IDC_TRACE_WHOLE), std::wstring(1000, L'v') + L"... (1000000 characters)");
}

TEST_F(TraceDialogTest, ReadsNothingBehindWhatItIsSent) {
    EXPECT_EQ(SendMessageW(Window(), WM_COPYDATA, 0, 0), TRUE);
    COPYDATASTRUCT empty{2, 100, nullptr};
    EXPECT_EQ(SendMessageW(Window(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&empty)), TRUE);
    const std::vector<std::byte> unended = base::BytesFromUnits(L"12");
    EXPECT_EQ(SendBytes(2, unended), TRUE);
    EXPECT_EQ(SendBytes(1, std::span(unended).first(3)), TRUE);
    EXPECT_EQ(SendBytes(11, std::span(unended).first(1)), TRUE);
    EXPECT_EQ(SendBytes(ULONG_PTR(-1), {}), TRUE);
    EXPECT_TRUE(WaitForStatus(L"Waiting for a script with a line \"debug\".  Records: 5.  Malformed: 5."));
}

TEST_F(TraceDialogTest, TellsWhenTheScriptCannotBeRead) {
    Send(1, folder_ / L"missing.txt");
    EXPECT_TRUE(WaitForStatus(L"The script has started.  The script's file cannot be read.  Records: 1."));
    Send(1, L"main.txt");
    EXPECT_TRUE(
        WaitForStatus(L"The script has started.  The script's path is not a full one, so its file is not "
                      L"read.  Records: 2."));
    EXPECT_EQ(RowCount(IDC_TRACE_LINES), 0);
}

TEST_F(TraceDialogTest, LetsThePersonLookAtAnyScriptThatStarted) {
    const std::wstring inner = Script(L"inner.txt", L"a=2\r\n");
    Send(1, path_);
    Send(2, L"2");
    Send(1, inner);
    Send(2, L"1");
    Send(2, L"3");
    EXPECT_TRUE(
        WaitForStatus(L"Last line: 3.  This script has no line 3: it belongs to another one.  Records: 5."));
    EXPECT_EQ(TextOf(IDC_TRACE_SCRIPT), inner);
    EXPECT_EQ(LineMarks(), L".");
    SendDlgItemMessageW(Window(), IDC_TRACE_SCRIPT, CB_SETCURSEL, 0, 0);
    SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(IDC_TRACE_SCRIPT, CBN_SELCHANGE), 0);
    EXPECT_EQ(Status(), L"Last line: 3.  Records: 5.");
    EXPECT_EQ(LineMarks(), std::wstring(L"..") + kLine + L".");
}

TEST_F(TraceDialogTest, AnswersAtOnceWhereNothingIsHeld) {
    EXPECT_TRUE(Run(
        [&] {
            Send(1, path_);
            for (int number = 1; number <= 4; ++number)
                Send(2, std::to_wstring(number));
        },
        [] {}));
    EXPECT_TRUE(WaitForStatus(L"Last line: 4.  Records: 5."));
}

TEST_F(TraceDialogTest, HoldsTheScriptAtALineUntilF5) {
    Send(1, path_);
    ASSERT_TRUE(WorkUntil([&] { return RowCount(IDC_TRACE_LINES) == 4; }));
    SelectRow(IDC_TRACE_LINES, 2);
    PressKey(VK_F9);
    ASSERT_TRUE(WorkUntil([&] { return LineMarks() == std::wstring(L"..") + kHold + L"."; }));
    std::atomic<int> line = 0;
    EXPECT_TRUE(Run(
        [&] {
            for (line = 2; line <= 4; ++line)
                Send(2, std::to_wstring(line.load()));
        },
        [&] {
            WaitForHold(3);
            EXPECT_EQ(line, 3);
            EXPECT_EQ(LineMarks(), std::wstring(L"..") + kHold + kLine + L".");
            PressKey(VK_F5);
        }));
    EXPECT_EQ(line, 5);
    EXPECT_TRUE(WaitForStatus(L"Last line: 4.  Records: 4."));
    EXPECT_FALSE(IsHeld());
}

TEST_F(TraceDialogTest, StepsLineByLineWithF10) {
    Click(IDC_TRACE_STEP);
    EXPECT_TRUE(WaitForStatus(L"Waiting for a script with a line \"debug\".  The next line will be held."));
    EXPECT_TRUE(Run(
        [&] {
            Send(1, path_);
            for (const wchar_t* number : {L"2", L"3", L"4"})
                Send(2, number);
        },
        [&] {
            WaitForHold(2);
            PressKey(VK_F10);
            WaitForHold(3);
            Click(IDC_TRACE_GO_ON);
        }));
    EXPECT_TRUE(WaitForStatus(L"Last line: 4.  Records: 4."));
}

TEST_F(TraceDialogTest, GoesOnWithoutHoldsWhenToldSo) {
    Send(1, path_);
    SetDlgItemTextW(Window(), IDC_TRACE_NUMBER, L"2");
    Click(IDC_TRACE_TOGGLE);
    SetDlgItemTextW(Window(), IDC_TRACE_NUMBER, L"4");
    Click(IDC_TRACE_TOGGLE);
    EXPECT_TRUE(Run(
        [&] {
            for (const wchar_t* number : {L"2", L"3", L"4"})
                Send(2, number);
        },
        [&] {
            WaitForHold(2);
            Click(IDC_TRACE_HOLD_NOTHING);
        }));
    EXPECT_TRUE(WaitForStatus(L"Last line: 4.  Records: 4."));
    EXPECT_EQ(LineMarks(), std::wstring(L"...") + kLine);
}

TEST_F(TraceDialogTest, WorksWhileItHolds) {
    Click(IDC_TRACE_STEP);
    EXPECT_TRUE(Run(
        [&] {
            Send(1, path_);
            Send(2, L"2");
        },
        [&] {
            WaitForHold(2);
            SelectRow(IDC_TRACE_LINES, 2);
            EXPECT_EQ(TextOf(IDC_TRACE_WHOLE), L"a=1");
            PressKey(VK_F9);
            EXPECT_TRUE(
                test::WaitUntil([&] { return LineMarks() == std::wstring(L".") + kLine + kHold + L"."; }));
            PressKey(VK_F5);
        }));
}

TEST_F(TraceDialogTest, AnswersOthersWhileItHoldsOne) {
    Click(IDC_TRACE_STEP);
    EXPECT_TRUE(Run(
        [&] {
            Send(1, path_);
            Send(2, L"2");
        },
        [&] {
            WaitForHold(2);
            Send(2, L"2");
            Send(11, L"other\t1");
            EXPECT_TRUE(test::WaitUntil([&] { return RowCount(IDC_TRACE_VARIABLES) == 1; }));
            EXPECT_TRUE(IsHeld());
            PressKey(VK_F5);
        }));
}

TEST_F(TraceDialogTest, LetsTheScriptGoOnWhenItIsClosed) {
    SetDlgItemTextW(Window(), IDC_TRACE_NUMBER, L"4");
    Click(IDC_TRACE_TOGGLE);
    Click(IDC_TRACE_STEP);
    std::atomic<bool> hasEnded = false;
    EXPECT_TRUE(Run(
        [&] {
            Send(1, path_);
            for (const wchar_t* number : {L"2", L"3", L"4"})
                Send(2, number);
            hasEnded = true;
        },
        [&] {
            WaitForHold(2);
            EXPECT_FALSE(hasEnded);
            PostMessageW(Window(), WM_CLOSE, 0, 0);
        }));
    EXPECT_TRUE(hasEnded);
    EXPECT_FALSE(IsWindowVisible(Window()));
    EXPECT_FALSE(dialog_.IsHolding());
}

TEST_F(TraceDialogTest, ThatIsClosedHoldsNothingAnyMore) {
    SetDlgItemTextW(Window(), IDC_TRACE_NUMBER, L"2");
    Click(IDC_TRACE_TOGGLE);
    SendMessageW(Window(), WM_CLOSE, 0, 0);
    Send(2, L"2");
    EXPECT_FALSE(dialog_.IsHolding());
}

TEST_F(TraceDialogTest, LetsTheScriptGoOnWhenTheSessionEnds) {
    Click(IDC_TRACE_STEP);
    EXPECT_TRUE(Run([&] { Send(2, L"2"); },
                    [&] {
                        WaitForHold(2);
                        PostMessageW(Window(), WM_ENDSESSION, TRUE, 0);
                    }));
}

TEST_F(TraceDialogTest, TogglesAHoldByAClickBeforeTheLine) {
    Send(1, path_);
    ASSERT_TRUE(WorkUntil([&] { return RowCount(IDC_TRACE_LINES) == 4; }));
    const auto click = [&](int row, int column) {
        RECT cell{column == 0 ? LVIR_LABEL : LVIR_BOUNDS, column, 0, 0};
        SendDlgItemMessageW(Window(), IDC_TRACE_LINES, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row),
                            reinterpret_cast<LPARAM>(&cell));
        const LPARAM place = MAKELPARAM((cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2);
        PostMessageW(Item(IDC_TRACE_LINES), WM_LBUTTONDOWN, MK_LBUTTON, place);
        PostMessageW(Item(IDC_TRACE_LINES), WM_LBUTTONUP, 0, place);
    };
    click(1, 0);
    EXPECT_TRUE(WorkUntil([&] { return LineMarks() == std::wstring(L".") + kHold + L".."; }));
    click(3, 1);
    EXPECT_TRUE(WorkUntil([&] { return LineMarks() == std::wstring(L".") + kHold + L"." + kHold; }));
    // On the text it selects.
    click(2, 2);
    EXPECT_TRUE(WorkUntil([&] { return TextOf(IDC_TRACE_WHOLE) == L"a=1"; }));
    EXPECT_EQ(LineMarks(), std::wstring(L".") + kHold + L"." + kHold);
    click(1, 0);
    EXPECT_TRUE(WorkUntil([&] { return LineMarks() == std::wstring(L"...") + kHold; }));
}

TEST_F(TraceDialogTest, SaysWhatIsMissingWhenNoLineIsChosen) {
    const test::AnsweredBoxes boxes;
    Click(IDC_TRACE_TOGGLE);
    EXPECT_EQ(boxes.Only().Text, kEnglish.NoLineNumber);
    EXPECT_EQ(boxes.Only().Owner, Window());
    // Scripts would take a box of that title for the window.
    EXPECT_NE(boxes.Only().Title, kTraceTitle);
}

TEST_F(TraceDialogTest, SavesWhatItSaw) {
    Send(1, path_);
    Send(2, L"3");
    Send(11, L"名\t値");
    Send(4, L"x");
    EXPECT_EQ(dialog_.SaveTo(folder_ / L"seen.txt"), 0U);
    EXPECT_EQ(test::ReadUnits(folder_ / L"seen.txt"),
              L"\xFEFF\x31\t" + path_ + L"\r\n2\t3\r\n11\t名\t値\r\n?\t4\tx\r\n");
    Click(IDC_TRACE_CLEAR);
    EXPECT_TRUE(WaitForStatus(L"Waiting for a script with a line \"debug\"."));
    EXPECT_EQ(RowCount(IDC_TRACE_LINES), 0);
    EXPECT_EQ(RowCount(IDC_TRACE_VARIABLES), 0);
    EXPECT_EQ(dialog_.SaveTo(folder_ / L"seen.txt"), 0U);
    EXPECT_EQ(test::ReadUnits(folder_ / L"seen.txt"), L"\xFEFF");
    EXPECT_EQ(dialog_.SaveTo(folder_ / L"no\\folder.txt"), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(TraceDialogTest, StaysOpenOnEscape) {
    PressKey(VK_ESCAPE);
    SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    WorkUntil([] { return true; });
    EXPECT_TRUE(IsWindowVisible(Window()));
}

TEST_F(TraceDialogTest, IsWalkedThroughInTheOrderOfItsControls) {
    const int order[] = {IDC_TRACE_SCRIPT, IDC_TRACE_LINES,  IDC_TRACE_VARIABLES, IDC_TRACE_WHOLE,
                         IDC_TRACE_NUMBER, IDC_TRACE_TOGGLE, IDC_TRACE_STEP,      IDC_TRACE_HOLD_NOTHING,
                         IDC_TRACE_CLEAR,  IDC_TRACE_SAVE};
    HWND control = Item(IDC_TRACE_SAVE);
    for (const int id : order) {
        control = GetNextDlgTabItem(Window(), control, FALSE);
        EXPECT_EQ(GetDlgCtrlID(control), id);
    }
}

TEST_F(TraceDialogTest, HasRoomForAllControlsAtAnySize) {
    const SIZE sizes[] = {{0, 0}, {1000, 700}, {2000, 400}, {600, 1500}};
    for (const SIZE& size : sizes) {
        SetWindowPos(Window(), nullptr, 0, 0, size.cx, size.cy, SWP_NOZORDER | SWP_NOMOVE | SWP_NOACTIVATE);
        RECT client{};
        GetClientRect(Window(), &client);
        std::vector<RECT> places;
        for (HWND child = GetWindow(Window(), GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT)) {
            SCOPED_TRACE(GetDlgCtrlID(child));
            RECT place{};
            GetWindowRect(child, &place);
            MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&place), 2);
            EXPECT_LT(place.left, place.right);
            EXPECT_LT(place.top, place.bottom);
            EXPECT_GE(place.left, 0);
            EXPECT_GE(place.top, 0);
            EXPECT_LE(place.right, client.right);
            EXPECT_LE(place.bottom, client.bottom);
            for (const RECT& other : places) {
                RECT common{};
                EXPECT_FALSE(IntersectRect(&common, &place, &other));
            }
            places.push_back(place);
        }
        EXPECT_EQ(places.size(), 17U);
    }
}

TEST_F(TraceDialogTest, HasRoomForItsTextsInEachLanguage) {
    for (const Texts* texts : {&kEnglish, &kJapanese}) {
        CTraceDialog dialog(*texts);
        ASSERT_TRUE(dialog.Create(nullptr));
        for (int id = IDC_TRACE_SCRIPT_LABEL; id <= IDC_TRACE_SAVE; ++id) {
            const std::wstring text = test::TextOfWindow(dialog.Item(id));
            const HWND control = dialog.Item(id);
            if (text.empty() || id == IDC_TRACE_STATUS)
                continue;
            SCOPED_TRACE(base::ToUtf8(text));
            const HDC context = GetDC(control);
            const HGDIOBJ before =
                SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
            RECT wanted{};
            DrawTextW(context, text.c_str(), -1, &wanted, DT_CALCRECT | DT_SINGLELINE);
            SelectObject(context, before);
            ReleaseDC(control, context);
            RECT client{};
            GetClientRect(control, &client);
            EXPECT_LE(wanted.right, client.right);
            EXPECT_LE(wanted.bottom, client.bottom);
        }
    }
}

}  // namespace
}  // namespace ferry::tracewindow
