// A button that folders are shown as menus over, and a made-up disk.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "core/files/fake_folders.h"
#include "dirmenu/dir_menu_window.h"
#include "windows/support_win32.h"

namespace ferry::dirmenu {

using Texts = std::vector<std::wstring>;

/// Every folder holds two folders and two files, and each of these folders the same.
class DirMenuFixture : public testing::Test {
protected:
    DirMenuFixture() {
        folders_.Items = {{L"beta", true}, {L"alpha", true}, {L"two.txt", false}, {L"one.txt", false}};
        // A mouse over the menu would select what is under it.
        SetCursorPos(0, 0);
        ShowWindow(parent_.Get(), SW_SHOWNOACTIVATE);
        test::Pump();
    }

    HWND Parent() const { return parent_.Get(); }
    HWND Button() const { return button_.Get(); }

    test::FakeFolders folders_;
    const MenuTexts texts_ = {L"(nothing)", L"(unread)", L"(too deep)", L"(%1 & more)"};

private:
    test::TestWindow parent_{
        CreateWindowExW(0, L"Static", L"", WS_POPUP, 300, 200, 400, 300, nullptr, nullptr, nullptr, nullptr)};
    test::TestWindow button_{CreateWindowExW(0, L"Button", L"", WS_CHILD | WS_VISIBLE, 50, 60, 101, 31,
                                             parent_.Get(), nullptr, nullptr, nullptr)};

protected:
    CDirMenuWnd menu_{button_.Get(), folders_, texts_};
};

}  // namespace ferry::dirmenu
