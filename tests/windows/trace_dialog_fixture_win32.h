// A trace window with a person before it and scripts that send to it.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which it builds on.
#include <commctrl.h>

#include <chrono>
#include <functional>
#include <future>
#include <string>

#include "base/utf16.h"
#include "desktop/host_messages.h"
#include "tracewindow/trace_dialog_win32.h"
#include "tracewindow/trace_ids.h"
#include "windows/support_win32.h"

namespace ferry::tracewindow {

class TraceDialogFixture : public testing::Test {
protected:
    static void SetUpTestSuite() {
        const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES | ICC_STANDARD_CLASSES};
        ASSERT_TRUE(InitCommonControlsEx(&classes));
        WNDCLASSW known{};
        ASSERT_TRUE(GetClassInfoW(GetModuleHandleW(nullptr), kTraceClass, &known) != FALSE ||
                    CTraceDialog::Register());
    }

    void SetUp() override {
        ASSERT_TRUE(dialog_.Create(nullptr));
        window_ = dialog_.Handle();
        list_ = dialog_.Item(IDC_TRACE_LINES);
        ShowWindow(window_, SW_SHOWNORMAL);
        // The focus follows the foreground, which another program may have.
        SetForegroundWindow(window_);
    }

    HWND Window() const noexcept { return window_; }
    HWND Item(int id) const noexcept { return GetDlgItem(window_, id); }

    /// What a script sends; it waits until it is answered.
    void Send(std::uint32_t code, const std::wstring& text) const {
        desktop::SendText(window_, nullptr, code, text);
    }

    /// A script in the test's folder.
    std::wstring Script(const std::wstring& name, const std::wstring& text) const {
        std::wstring path = folder_ / name;
        test::WriteUnits(path, L"\xFEFF" + text);
        return path;
    }

    /// Lets the window handle its messages, as its program does, until `isTrue` holds.
    bool WorkUntil(const std::function<bool()>& isTrue) {
        const ULONGLONG deadline = GetTickCount64() + test::kPatienceMs;
        for (;;) {
            MSG message;
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
                if (!dialog_.HandleDialogMessage(message)) {
                    TranslateMessage(&message);
                    DispatchMessageW(&message);
                }
            }
            if (isTrue())
                return true;
            if (GetTickCount64() >= deadline)
                return false;
            // What a script sends ends the wait, so that a run of many lines takes no longer than elsewhere.
            MsgWaitForMultipleObjects(0, nullptr, FALSE, test::kStepMs, QS_ALLINPUT);
        }
    }

    /// Runs a script and a person on threads of their own until the script has ended. When the person leaves
    /// it held, the window is closed. Whether it ended.
    bool Run(const std::function<void()>& script, const std::function<void()>& person) {
        std::future<void> running = std::async(std::launch::async, script);
        std::future<void> watching = std::async(std::launch::async, [&] {
            person();
            if (running.wait_for(std::chrono::milliseconds(test::kPatienceMs)) != std::future_status::ready) {
                ADD_FAILURE() << "the script is still held";
                PostMessageW(window_, WM_CLOSE, 0, 0);
            }
        });
        const auto isReady = [](const std::future<void>& future) {
            return future.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        };
        return WorkUntil([&] { return isReady(running) && isReady(watching); });
    }

    /// For the person: waits until a script is held at the line `number`.
    bool WaitForHold(int number) const {
        const std::wstring place = L"before line " + std::to_wstring(number) + L".";
        const bool isHeld =
            test::WaitUntil([&] { return IsHeld() && Status().find(place) != std::wstring::npos; });
        EXPECT_TRUE(isHeld) << number << ": " << base::ToUtf8(Status());
        return isHeld;
    }
    bool IsHeld() const noexcept { return IsWindowEnabled(GetDlgItem(window_, IDC_TRACE_GO_ON)) != FALSE; }

    void PressKey(WPARAM key) const {
        PostMessageW(list_, key == VK_F10 ? WM_SYSKEYDOWN : WM_KEYDOWN, key, 1);
    }
    void Click(int id) const { SendDlgItemMessageW(window_, id, BM_CLICK, 0, 0); }

    std::wstring TextOf(int id) const { return test::TextOfWindow(GetDlgItem(window_, id)); }
    std::wstring Status() const { return TextOf(IDC_TRACE_STATUS); }

    int RowCount(int id) const {
        return static_cast<int>(SendDlgItemMessageW(window_, id, LVM_GETITEMCOUNT, 0, 0));
    }

    std::wstring Cell(int id, int row, int column) const {
        wchar_t text[300] = {};
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = static_cast<int>(std::size(text));
        SendDlgItemMessageW(window_, id, LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                            reinterpret_cast<LPARAM>(&item));
        return item.pszText;
    }

    /// The marks in front of all lines, "." for none.
    std::wstring LineMarks() const {
        std::wstring marks;
        for (int row = 0; row < RowCount(IDC_TRACE_LINES); ++row) {
            const std::wstring mark = Cell(IDC_TRACE_LINES, row, 0);
            marks += mark.empty() ? L"." : mark;
        }
        return marks;
    }

    void SelectRow(int id, int row) const {
        LVITEMW item{};
        item.state = item.stateMask = LVIS_FOCUSED | LVIS_SELECTED;
        SendDlgItemMessageW(window_, id, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                            reinterpret_cast<LPARAM>(&item));
    }

    test::TempFolder folder_;
    CTraceDialog dialog_{kEnglish};

private:
    // Other threads must not ask the object, which changes meanwhile.
    HWND window_ = nullptr;
    HWND list_ = nullptr;
};

}  // namespace ferry::tracewindow
