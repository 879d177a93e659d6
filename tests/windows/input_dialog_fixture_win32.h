// Opens the rename dialog without a loop and drives it by messages of the same thread.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "dialogs/input_dialog.h"
#include "ids.h"
#include "windows/dialog_world_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_messages_win32.h"

namespace ferry::dialogs {

class InputDialogTest : public testing::Test {
protected:
    /// The path of a new file of this name.
    std::wstring MakeFile(std::wstring_view name) {
        const std::wstring path = folder_ / name;
        test::WriteBytes(path, {});
        return path;
    }

    /// The path of a new folder of this name.
    std::wstring MakeFolder(std::wstring_view name) {
        const std::wstring path = folder_ / name;
        test::MakeFolders(path);
        return path;
    }

    /// Opens the dialog for `path`; an open one is closed first.
    void Open(const std::wstring& path) { Open(path, world_.Services()); }
    void Open(const std::wstring& path, Services& services) {
        dialog_ = std::make_unique<CDlgInput>(services, nullptr, L"caption", path);
        ASSERT_TRUE(dialog_->Create(nullptr));
        ShowWindow(Window(), SW_SHOW);
        SetForegroundWindow(Window());
    }

    HWND Window() const { return dialog_->Handle(); }
    HWND Control(int id) const { return GetDlgItem(Window(), id); }
    bool IsOpen() const { return IsWindowVisible(Window()) != FALSE; }
    bool IsShown(int id) const { return test::IsShown(Window(), id); }
    void Click(int id) { test::Click(Window(), id); }
    const std::wstring& Result() const { return dialog_->Result(); }

    std::wstring Text(int id) const { return test::TextOfControl(Window(), id); }
    void SetText(int id, const std::wstring& text) { SetWindowTextW(Control(id), text.c_str()); }

    /// Name and extension as the user sees them, parted by a bar.
    std::wstring Names() const { return Text(IDC_NEW_NAME) + L"|" + Text(IDC_EXTENSION); }

    std::wstring SelectedItem(int id) const { return test::TextOfWindow(Control(id)); }
    int SelectedIndex(int id) const {
        return static_cast<int>(SendMessageW(Control(id), CB_GETCURSEL, 0, 0));
    }
    void Select(int id, int index) { SendMessageW(Control(id), CB_SETCURSEL, static_cast<WPARAM>(index), 0); }

    /// The selection of the new name: "start-end".
    std::wstring Selection() const {
        DWORD start = 0;
        DWORD end = 0;
        SendMessageW(Control(IDC_NEW_NAME), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     reinterpret_cast<LPARAM>(&end));
        return std::to_wstring(start) + L"-" + std::to_wstring(end);
    }
    void SetSelection(int start, int end) {
        SendMessageW(Control(IDC_NEW_NAME), EM_SETSEL, static_cast<WPARAM>(start), end);
    }

    /// Whether the character at `index` of the new name, where the caret is, can be seen and was scrolled
    /// into view: some systems do that when the caret is placed, others only when they are told to.
    bool IsScrolledTo(std::size_t index, const test::WatchedMessages& name) const {
        const int left =
            static_cast<short>(LOWORD(SendMessageW(Control(IDC_NEW_NAME), EM_POSFROMCHAR, index, 0)));
        RECT area{};
        GetClientRect(Control(IDC_NEW_NAME), &area);
        return left >= 0 && left < area.right &&
               name.Last({WM_SETTEXT, EM_SETSEL, EM_SCROLLCARET}) == EM_SCROLLCARET;
    }

    RECT RectOf(int id) const {
        RECT rect{};
        GetWindowRect(Control(id), &rect);
        MapWindowPoints(HWND_DESKTOP, Window(), reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }

    test::DialogWorld world_;
    test::TempFolder folder_;
    std::unique_ptr<CDlgInput> dialog_;
};

}  // namespace ferry::dialogs
