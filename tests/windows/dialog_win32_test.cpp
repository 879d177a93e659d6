// Keys on their way through a dialog.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which it builds on.
#include <commctrl.h>

#include "framework/dialog.h"
#include "framework/errors.h"
#include "ids.h"
#include "windows/support_win32.h"

namespace ferry::framework {
namespace {

class PickyControl : public CWnd {
public:
    bool PreTranslateMessage(MSG& message) override {
        ++Seen;
        Last = message.message;
        if (message.wParam == FailingKey) {
            throw InvalidArgument();
        }
        return message.wParam == VK_F3;
    }
    int Seen = 0;
    UINT Last = WM_NULL;
    WPARAM FailingKey = VK_F2;
};

class DialogKeys : public testing::Test {
protected:
    void SetUp() override {
        const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_USEREX_CLASSES | ICC_LISTVIEW_CLASSES};
        ASSERT_TRUE(InitCommonControlsEx(&classes));
        ASSERT_TRUE(dialog_.Create(nullptr));
        ASSERT_TRUE(control_.Attach(dialog_.Item(IDC_DESTINATION)));
    }

    bool Handle(UINT kind, HWND window, WPARAM wParam = 0) {
        MSG message{};
        message.hwnd = window;
        message.message = kind;
        message.wParam = wParam;
        return dialog_.HandleDialogMessage(message);
    }

    bool Press(WPARAM key, HWND window) { return Handle(WM_KEYDOWN, window, key); }

    CDialog dialog_{IDD_FERRY};
    PickyControl control_;
};

TEST_F(DialogKeys, ReachTheControlThatTheyAreForAndEveryoneAroundIt) {
    const HWND edit =
        reinterpret_cast<HWND>(SendMessageW(dialog_.Item(IDC_DESTINATION), CBEM_GETEDITCONTROL, 0, 0));
    ASSERT_NE(edit, nullptr);
    EXPECT_TRUE(Press(VK_F3, edit));
    EXPECT_EQ(control_.Seen, 1);
    Press(VK_F3, dialog_.Item(IDC_SOURCE_LIST));
    EXPECT_EQ(control_.Seen, 1);
}

TEST_F(DialogKeys, AnExceptionOnTheWayIsToldAndTheDialogStays) {
    auto told = test::AnswerNextBox(IDOK);
    EXPECT_TRUE(Press(VK_F2, dialog_.Item(IDC_DESTINATION)));
    EXPECT_EQ(told.get(), L"Encountered an improper argument.");
    EXPECT_TRUE(IsWindow(dialog_.Handle()));
    EXPECT_TRUE(Press(VK_F3, dialog_.Item(IDC_DESTINATION)));
}

TEST_F(DialogKeys, AKeyWhoseHandlingFailedIsNotHandledAgain) {
    control_.FailingKey = VK_ESCAPE;
    ShowWindow(dialog_.Handle(), SW_SHOW);
    auto told = test::AnswerNextBox(IDOK);
    EXPECT_TRUE(Press(VK_ESCAPE, dialog_.Item(IDC_DESTINATION)));
    told.wait();
    EXPECT_TRUE(IsWindowVisible(dialog_.Handle()));
    // Anywhere else the key ends the dialog.
    EXPECT_TRUE(Press(VK_ESCAPE, dialog_.Item(IDC_SOURCE_LIST)));
    EXPECT_FALSE(IsWindowVisible(dialog_.Handle()));
}

TEST_F(DialogKeys, TheMouseTakesTheSameWayAndOtherMessagesDoNot) {
    const HWND inside =
        reinterpret_cast<HWND>(SendMessageW(dialog_.Item(IDC_DESTINATION), CBEM_GETEDITCONTROL, 0, 0));
    for (const UINT kind : {WM_MOUSEWHEEL, WM_LBUTTONDBLCLK, WM_SYSKEYDOWN}) {
        EXPECT_TRUE(Handle(kind, inside, VK_F3));
        EXPECT_EQ(control_.Last, kind);
    }
    const int seen = control_.Seen;
    Handle(WM_TIMER, inside, VK_F3);
    EXPECT_EQ(control_.Seen, seen);
}

TEST_F(DialogKeys, AControlWhoseObjectIsGoneIsAskedNoMore) {
    const HWND list = dialog_.Item(IDC_SOURCE_LIST);
    {
        PickyControl object;
        ASSERT_TRUE(object.Attach(list));
        EXPECT_EQ(CWnd::FromHandle(list), &object);
        EXPECT_TRUE(Press(VK_F3, list));
        EXPECT_EQ(object.Seen, 1);
    }
    EXPECT_EQ(CWnd::FromHandle(list), nullptr);
}

}  // namespace
}  // namespace ferry::framework
