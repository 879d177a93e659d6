// The report of what a run left behind.
#include "dialogs/report_dialog.h"

#include <windows.h>
#include <gtest/gtest.h>

#include "ids.h"
#include "windows/dialog_world_win32.h"
#include "windows/modal_visitor_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dialogs {
namespace {

class ReportDialog : public testing::Test {
protected:
    static transfer::Leftovers Left(std::size_t count) {
        transfer::Leftovers left;
        for (std::size_t item = 0; item < count; ++item) {
            left.CountItem();
            left.Add(L"C:\\dir\\" + std::to_wstring(item), transfer::LeftReason::FolderNotMade, 5);
        }
        left.CountItem();
        return left;
    }

    /// Shows the report, lets `visit` look at it and presses Enter.
    bool Show(const transfer::Leftovers& left, const std::function<void(HWND)>& visit) {
        const test::ModalVisitor visitor(owner_.Get(), [&](HWND dialog) {
            visit(dialog);
            PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        });
        ReportLeftovers(world_.Services().Localiser, owner_.Get(), left);
        return visitor.HasVisited();
    }

    test::DialogWorld world_;
    test::TestWindow owner_{CreateWindowExW(0, L"Static", L"owner", WS_POPUP, 0, 0, 100, 100, nullptr,
                                            nullptr, nullptr, nullptr)};
};

TEST_F(ReportDialog, DoesNotComeWhenNothingWasLeft) {
    EXPECT_FALSE(Show(Left(0), [](HWND) {}));
}

TEST_F(ReportDialog, TellsHowManyWhichAndWhy) {
    EXPECT_TRUE(Show(Left(2), [](HWND dialog) {
        EXPECT_EQ(test::TextOfControl(dialog, IDC_REPORT_SUMMARY),
                  L"3 項目のうち 2 項目を処理できませんでした。元の場所に残っています。");
        const std::wstring list = test::TextOfControl(dialog, IDC_REPORT_LIST);
        EXPECT_TRUE(list.starts_with(L"C:\\dir\\0\r\n    出力先にフォルダーを作成できません。 "))
            << "and what the system says";
        EXPECT_NE(list.find(L"(5)\r\nC:\\dir\\1\r\n"), std::wstring::npos);
        EXPECT_EQ(GetDlgItem(dialog, IDOK), GetFocus()) << "Enter closes it";
    }));
}

TEST_F(ReportDialog, ShowsNoneOfTheTextsThatItOnlyLends) {
    EXPECT_TRUE(Show(Left(1), [](HWND dialog) {
        for (int id = IDC_REPORT_FIRST_REASON; id <= IDC_REPORT_NOT_SEEN; ++id) {
            EXPECT_FALSE(test::IsShown(dialog, id)) << id;
            EXPECT_FALSE(test::TextOfControl(dialog, id).empty()) << id;
        }
    }));
}

TEST_F(ReportDialog, ShowsTheFirstThousandAndCopiesAll) {
    EXPECT_TRUE(Show(Left(1500), [](HWND dialog) {
        const std::wstring list = test::TextOfControl(dialog, IDC_REPORT_LIST);
        EXPECT_NE(list.find(L"C:\\dir\\999\r\n"), std::wstring::npos);
        EXPECT_EQ(list.find(L"C:\\dir\\1000\r\n"), std::wstring::npos);
        test::Click(dialog, IDC_REPORT_COPY);
        ASSERT_TRUE(OpenClipboard(nullptr));
        const auto* const text = static_cast<const wchar_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT)));
        const std::wstring copied = text == nullptr ? L"" : text;
        CloseClipboard();
        EXPECT_TRUE(copied.starts_with(test::TextOfControl(dialog, IDC_REPORT_SUMMARY) + L"\r\n"));
        EXPECT_NE(copied.find(L"C:\\dir\\1499\r\n"), std::wstring::npos);
    }));
}

TEST_F(ReportDialog, IsClosedByEscapeToo) {
    const test::ModalVisitor visitor(owner_.Get(),
                                     [](HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); });
    ReportLeftovers(world_.Services().Localiser, owner_.Get(), Left(1));
    EXPECT_TRUE(visitor.HasVisited());
}

TEST_F(ReportDialog, TabGoesFromTheListOverTheCopyingToTheEnd) {
    EXPECT_TRUE(Show(Left(1), [](HWND dialog) {
        std::vector<int> stops;
        HWND control = GetDlgItem(dialog, IDC_REPORT_LIST);
        for (int stop = 0; stop < 4; ++stop) {
            stops.push_back(GetDlgCtrlID(control));
            control = GetNextDlgTabItem(dialog, control, FALSE);
        }
        EXPECT_EQ(stops, (std::vector{IDC_REPORT_LIST, IDC_REPORT_COPY, IDOK, IDC_REPORT_LIST}));
    }));
}

TEST_F(ReportDialog, EscapeClosesItFromEachControlAndEnterFromTheList) {
    const std::pair<int, WPARAM> cases[] = {{IDC_REPORT_LIST, VK_ESCAPE},
                                            {IDC_REPORT_COPY, VK_ESCAPE},
                                            {IDOK, VK_ESCAPE},
                                            {IDC_REPORT_LIST, VK_RETURN},
                                            {IDOK, VK_RETURN}};
    for (const auto& [control, key] : cases) {
        const test::ModalVisitor visitor(owner_.Get(), [&](HWND dialog) {
            SetFocus(GetDlgItem(dialog, control));
            PostMessageW(GetDlgItem(dialog, control), WM_KEYDOWN, key, 1);
        });
        // It returns, or the test takes too long.
        ReportLeftovers(world_.Services().Localiser, owner_.Get(), Left(1));
        EXPECT_TRUE(visitor.HasVisited());
    }
}

TEST_F(ReportDialog, HasAButtonInTheTaskbarThatFlashesWhenThePersonWorksElsewhere) {
    HWND front = GetDesktopWindow();
    const test::WatchedImport<&GetForegroundWindow> foreground("GetForegroundWindow", [&] { return front; });
    std::vector<HWND> flashed;
    const test::WatchedImport<&FlashWindowEx> flash("FlashWindowEx", [&](PFLASHWINFO info) {
        flashed.push_back(info->hwnd);
        return FALSE;
    });
    HWND shown = nullptr;
    EXPECT_TRUE(Show(Left(1), [&](HWND dialog) {
        shown = dialog;
        EXPECT_NE(GetWindowLongPtrW(dialog, GWL_EXSTYLE) & WS_EX_APPWINDOW, 0);
    }));
    EXPECT_EQ(flashed, std::vector{shown});
    front = owner_.Get();
    EXPECT_TRUE(Show(Left(1), [](HWND) {}));
    EXPECT_EQ(flashed.size(), 1U) << "not before the person's eyes";
}

TEST_F(ReportDialog, WaitsForAClipboardThatAnotherProgramLooksInto) {
    int tries = 0;
    const test::WatchedImport<&OpenClipboard> open(
        "OpenClipboard", [&](HWND owner) { return ++tries < 4 ? FALSE : open.CallReal(owner); });
    const test::WatchedImport<&MessageBeep> beep("MessageBeep");
    EXPECT_TRUE(Show(Left(1), [](HWND dialog) { test::Click(dialog, IDC_REPORT_COPY); }));
    EXPECT_EQ(tries, 4);
    EXPECT_TRUE(beep.Calls().empty());
}

}  // namespace
}  // namespace ferry::dialogs
