// The loop of a modal dialog: its owner, its end, and what interrupts it.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which it builds on.
#include <commctrl.h>

#include <functional>
#include <new>
#include <stdexcept>
#include <thread>

#include "base/handles_win32.h"
#include "framework/dialog.h"
#include "framework/errors.h"
#include "framework/fields.h"
#include "ids.h"
#include "windows/answered_boxes_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::framework {
namespace {

/// Does something when it has opened, and then ends with code 42.
class ShortDialog : public CDialog {
public:
    ShortDialog(HWND owner, std::function<void()> whileOpen)
        : CDialog(IDD_FERRY, owner), whileOpen_(std::move(whileOpen)) {}

protected:
    Answer Dispatch(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_APP) {
            whileOpen_();
            EndDialog(42);
            return 0;
        }
        return CDialog::Dispatch(message, wParam, lParam);
    }
    bool OnInitDialog() override {
        PostMessageW(Handle(), WM_APP, 0, 0);
        return true;
    }

private:
    std::function<void()> whileOpen_;
};

class ModalDialog : public testing::Test {
protected:
    void SetUp() override {
        const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_USEREX_CLASSES | ICC_LISTVIEW_CLASSES};
        ASSERT_TRUE(InitCommonControlsEx(&classes));
    }

    test::TestWindow owner_{CreateWindowExW(0, L"Static", L"owner", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                            nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)};
};

TEST_F(ModalDialog, DisablesItsOwnerWhileItIsOpenAndGivesItsEndCode) {
    bool wasOpen = false;
    ShortDialog* seen = nullptr;
    ShortDialog dialog(owner_.Get(), [&] {
        wasOpen = IsWindowVisible(seen->Handle()) && !IsWindowEnabled(owner_.Get()) &&
                  GetWindow(seen->Handle(), GW_OWNER) == owner_.Get();
    });
    seen = &dialog;
    EXPECT_EQ(dialog.DoModal(), 42);
    EXPECT_TRUE(wasOpen);
    EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
    EXPECT_EQ(dialog.Handle(), nullptr);
}

TEST_F(ModalDialog, LeavesAnOwnerDisabledThatWasSoBefore) {
    EnableWindow(owner_.Get(), FALSE);
    EXPECT_EQ(ShortDialog(owner_.Get(), [] {}).DoModal(), 42);
    EXPECT_FALSE(IsWindowEnabled(owner_.Get()));
}

TEST_F(ModalDialog, EnablesItsOwnerBeforeItHides) {
    // Else the foreground would go to another program.
    bool isEnabledAtTheEnd = false;
    ShortDialog dialog(owner_.Get(), [] {});
    const test::WatchedImport<&ShowWindow> show("ShowWindow", [&](HWND window, int mode) {
        if (window == dialog.Handle() && mode == SW_HIDE) {
            isEnabledAtTheEnd = IsWindowEnabled(owner_.Get()) != FALSE;
        }
        return show.CallReal(window, mode);
    });
    EXPECT_EQ(dialog.DoModal(), 42);
    EXPECT_TRUE(isEnabledAtTheEnd);
}

TEST_F(ModalDialog, ThatCannotBeMadeIsToldAndDisablesNobody) {
    constexpr UINT kNoTemplate = 9999;
    CDialog dialog(kNoTemplate, owner_.Get());
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
}

TEST_F(ModalDialog, WhoseOwnerHasGoneOpensWithoutOne) {
    const HWND gone = owner_.Get();
    owner_.Reset();
    bool wasOpen = false;
    ShortDialog* seen = nullptr;
    ShortDialog dialog(gone, [&] {
        wasOpen = IsWindowVisible(seen->Handle()) && GetWindow(seen->Handle(), GW_OWNER) == nullptr;
    });
    seen = &dialog;
    EXPECT_EQ(dialog.DoModal(), 42);
    EXPECT_TRUE(wasOpen);
}

// A window of a program with more rights may own none of ours.
TEST_F(ModalDialog, WhoseOwnerTheSystemRefusesOpensWithoutOneAndLeavesThatEnabled) {
    bool wasEnabled = false;
    ShortDialog dialog(owner_.Get(), [&] { wasEnabled = IsWindowEnabled(owner_.Get()) != FALSE; });
    const test::WatchedImport<&CreateDialogParamW> create(
        "CreateDialogParamW",
        [&](HINSTANCE module, LPCWSTR name, HWND owner, DLGPROC procedure, LPARAM parameter) -> HWND {
            return owner != nullptr ? nullptr : create.CallReal(module, name, owner, procedure, parameter);
        });
    EXPECT_EQ(dialog.DoModal(), 42);
    EXPECT_EQ(create.Calls().size(), 2U);
    EXPECT_TRUE(wasEnabled);
    EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
}

TEST_F(ModalDialog, PassesTheThreadsEndOn) {
    ShortDialog dialog(owner_.Get(), [] {});
    PostQuitMessage(7);
    // Whatever was posted comes first, so the dialog has to be kept from ending by itself.
    const test::WatchedImport<&PostMessageW> post("PostMessageW",
                                                  [](HWND, UINT, WPARAM, LPARAM) { return TRUE; });
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
    MSG message{};
    EXPECT_FALSE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 7U);
}

TEST_F(ModalDialog, EndsAtOnceWhenAnotherThreadEndsIt) {
    // A message that is sent does not end the loop's waiting by itself.
    const base::EventHandle isIdle(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const base::EventHandle hasEnded(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    // What else arrives, from the system or the mouse, must not be what ends the wait.
    const test::WatchedImport<&GetMessageW> wait(
        "GetMessageW", [&](LPMSG message, HWND window, UINT first, UINT last) {
            for (;;) {
                if (!PeekMessageW(message, nullptr, 0, 0, PM_NOREMOVE)) {
                    SetEvent(isIdle.Get());
                }
                const BOOL got = wait.CallReal(message, window, first, last);
                if (message->message == WM_NULL) {
                    return got;
                }
                DispatchMessageW(message);
            }
        });
    constexpr DWORD kPatienceMs = 5000;
    CDialog dialog(IDD_FERRY);
    bool wasInTime = false;
    std::thread other([&, thread = GetCurrentThreadId()] {
        WaitForSingleObject(isIdle.Get(), INFINITE);
        SendMessageW(dialog.Handle(), WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
        wasInTime = WaitForSingleObject(hasEnded.Get(), kPatienceMs) == WAIT_OBJECT_0;
        PostThreadMessageW(thread, WM_NULL, 0, 0);
    });
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    SetEvent(hasEnded.Get());
    other.join();
    EXPECT_TRUE(wasInTime);
}

TEST_F(ModalDialog, OkAndCancelEndItWithTheirNumbers) {
    for (const int button : {IDOK, IDCANCEL}) {
        class Pressed : public CDialog {
        public:
            explicit Pressed(int button) : CDialog(IDD_FERRY), button_(button) {}

        protected:
            bool OnInitDialog() override {
                EnableWindow(Item(IDOK), TRUE);
                PostMessageW(Item(button_), BM_CLICK, 0, 0);
                return true;
            }

        private:
            int button_;
        };
        EXPECT_EQ(Pressed(button).DoModal(), button);
    }
}

/// Throws what a test wants when it gets a message.
class ThrowingDialog : public CDialog {
public:
    explicit ThrowingDialog(std::function<void()> thrower)
        : CDialog(IDD_FERRY), thrower_(std::move(thrower)) {}

protected:
    Answer Dispatch(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_APP) {
            thrower_();
        }
        return CDialog::Dispatch(message, wParam, lParam);
    }

private:
    std::function<void()> thrower_;
};

/// What was told of exceptions.
class WatchedReports {
public:
    std::vector<std::string> Told;

private:
    test::WatchedImport<&MessageBoxA> box_{"MessageBoxA", [this](HWND, LPCSTR text, LPCSTR, UINT style) {
                                               EXPECT_EQ(style, UINT{MB_OK | MB_ICONERROR | MB_TASKMODAL});
                                               Told.emplace_back(text);
                                               return IDOK;
                                           }};
};

TEST_F(ModalDialog, AnExceptionOfAHandlerIsToldAsAnErrorAndTheWindowStays) {
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[] { throw std::bad_alloc(); }, "Out of memory."},
        {[] { throw std::runtime_error("what happened"); }, "what happened"},
        {[] { throw 7; }, "An unknown error occurred."},
    };
    for (const auto& [thrower, told] : cases) {
        const WatchedReports reports;
        ThrowingDialog dialog(thrower);
        ASSERT_TRUE(dialog.Create(nullptr));
        EXPECT_EQ(SendMessageW(dialog.Handle(), WM_APP, 0, 0), 0);
        EXPECT_EQ(reports.Told, std::vector<std::string>{told});
        EXPECT_TRUE(IsWindow(dialog.Handle()));
    }
}

struct LimitedForm {
    std::wstring Text;
};

TEST_F(ModalDialog, ATextThatIsTooLongIsToldAndSelected) {
    static constexpr auto kFields =
        std::tuple{TextField<LimitedForm>{IDC_DESTINATION, &LimitedForm::Text, 3}};
    CDialog dialog(IDD_FERRY);
    ASSERT_TRUE(dialog.Create(nullptr));
    ShowWindow(dialog.Handle(), SW_SHOW);
    const auto edit =
        reinterpret_cast<HWND>(SendMessageW(dialog.Item(IDC_DESTINATION), CBEM_GETEDITCONTROL, 0, 0));
    SetFocus(dialog.Item(IDCANCEL));
    LimitedForm form{L"old"};
    const test::AnsweredBoxes boxes;
    SetWindowTextW(edit, L"abc");
    EXPECT_TRUE(ExchangeFields(dialog.Handle(), form, kFields, Exchange::FromControls));
    EXPECT_EQ(form.Text, L"abc");
    SetWindowTextW(edit, L"abcd");
    EXPECT_FALSE(ExchangeFields(dialog.Handle(), form, kFields, Exchange::FromControls));
    EXPECT_EQ(form.Text, L"abc");
    EXPECT_EQ(boxes.Only().Text, L"Enter no more than 3 characters.");
    EXPECT_EQ(boxes.Only().Title, test::TextOfWindow(dialog.Handle()));
    EXPECT_EQ(boxes.Only().Owner, dialog.Handle());
    EXPECT_EQ(boxes.Only().Buttons(), UINT{MB_OK});
    EXPECT_EQ(GetFocus(), edit);
    // A field that had the focus all the time is selected, too.
    SendMessageW(edit, EM_SETSEL, 2, 2);
    EXPECT_FALSE(ExchangeFields(dialog.Handle(), form, kFields, Exchange::FromControls));
    DWORD start = 9;
    DWORD end = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(std::pair(start, end), std::pair(DWORD{0}, DWORD{4}));
}

TEST_F(ModalDialog, ATextThatIsTooLongIsToldOfInTheWordsInForce) {
    static constexpr auto kFields =
        std::tuple{TextField<LimitedForm>{IDC_DESTINATION, &LimitedForm::Text, 3}};
    CDialog dialog(IDD_FERRY);
    ASSERT_TRUE(dialog.Create(nullptr));
    const auto edit =
        reinterpret_cast<HWND>(SendMessageW(dialog.Item(IDC_DESTINATION), CBEM_GETEDITCONTROL, 0, 0));
    SetWindowTextW(edit, L"abcd");
    LimitedForm form;
    {
        const LimitTextInForce text([](int limit) { return L"at most " + std::to_wstring(limit); });
        const test::AnsweredBoxes boxes;
        EXPECT_FALSE(ExchangeFields(dialog.Handle(), form, kFields, Exchange::FromControls));
        EXPECT_EQ(boxes.Only().Text, L"at most 3");
    }
    const test::AnsweredBoxes boxes;
    EXPECT_FALSE(ExchangeFields(dialog.Handle(), form, kFields, Exchange::FromControls));
    EXPECT_EQ(boxes.Only().Text, L"Enter no more than 3 characters.");
}

TEST_F(ModalDialog, TheFieldItselfTakesNoMoreThanItsLimit) {
    static constexpr auto kFields =
        std::tuple{TextField<LimitedForm>{IDC_DESTINATION, &LimitedForm::Text, 3}};
    CDialog dialog(IDD_FERRY);
    ASSERT_TRUE(dialog.Create(nullptr));
    LimitedForm form{L"abc"};
    EXPECT_TRUE(ExchangeFields(dialog.Handle(), form, kFields, Exchange::ToControls));
    const auto edit =
        reinterpret_cast<HWND>(SendMessageW(dialog.Item(IDC_DESTINATION), CBEM_GETEDITCONTROL, 0, 0));
    EXPECT_EQ(SendMessageW(edit, EM_GETLIMITTEXT, 0, 0), 3);
    EXPECT_EQ(test::TextOfWindow(edit), L"abc");
}

}  // namespace
}  // namespace ferry::framework
