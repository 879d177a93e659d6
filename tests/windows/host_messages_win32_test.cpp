// Messages to the host's window, and what a person is told about system errors.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/utf16.h"
#include "desktop/host_messages.h"
#include "desktop/system_error.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::desktop {
namespace {

TEST(SystemErrorMessage, PutsThePrefixOnItsOwnLine) {
    EXPECT_EQ(SystemErrorMessage(ERROR_ACCESS_DENIED, L"Prefix"),
              L"Prefix\n" + SystemErrorText(ERROR_ACCESS_DENIED));
    EXPECT_FALSE(SystemErrorText(ERROR_ACCESS_DENIED).empty());
}

TEST(SystemErrorMessage, OfSuccessIsEmpty) {
    EXPECT_EQ(SystemErrorMessage(ERROR_SUCCESS, L"Prefix"), L"");
    EXPECT_EQ(SystemErrorMessage(ERROR_ACCESS_DENIED), SystemErrorText(ERROR_ACCESS_DENIED));
}

TEST(SystemErrorText, IsGivenAlthoughItHasAPlaceForAName) {
    EXPECT_NE(SystemErrorText(ERROR_BAD_EXE_FORMAT).find(L"%1"), std::wstring::npos);
}

TEST(SystemErrorText, LeavesNoTextInMemory) {
    const test::WatchedImport<&LocalFree> release("LocalFree");
    EXPECT_FALSE(SystemErrorText(ERROR_ACCESS_DENIED).empty());
    EXPECT_NE(std::get<0>(release.OnlyCall()), nullptr);
}

struct Received {
    ULONG_PTR Code = 0;
    WPARAM Sender = 0;
    std::vector<std::byte> Bytes;
};

/// What the receiving window got last; a window procedure has no other place for it.
Received* lastReceived = nullptr;

LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_COPYDATA && lastReceived != nullptr) {
        const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
        const auto* bytes = static_cast<const std::byte*>(data->lpData);
        *lastReceived = {data->dwData, wParam, {bytes, bytes + data->cbData}};
        return TRUE;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

class HostMessagesTest : public testing::Test {
protected:
    HostMessagesTest() {
        WNDCLASSW description{};
        description.lpfnWndProc = Receive;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = kHostWindowClass;
        RegisterClassW(&description);
        lastReceived = &received_;
    }
    ~HostMessagesTest() override {
        lastReceived = nullptr;
        window_.Reset();
        UnregisterClassW(kHostWindowClass, GetModuleHandleW(nullptr));
    }

    void MakeHost() {
        window_.Reset(CreateWindowExW(0, kHostWindowClass, L"host", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10,
                                      nullptr, nullptr, GetModuleHandleW(nullptr), nullptr));
        ASSERT_TRUE(window_);
    }

    /// The text and its terminator, then zeros up to four times their size.
    static std::vector<std::byte> Expected(std::wstring_view text) {
        std::vector<std::byte> bytes = base::BytesFromUnits(text);
        bytes.resize(8 * text.size() + 8);
        return bytes;
    }

    Received received_;
    test::TestWindow window_;
};

TEST_F(HostMessagesTest, FindsTheHostByItsClass) {
    EXPECT_EQ(FindHostWindow(), nullptr);
    MakeHost();
    EXPECT_EQ(FindHostWindow(), window_.Get());
}

TEST_F(HostMessagesTest, SendsATextWithFourTimesItsSize) {
    MakeHost();
    const HWND sender = GetDesktopWindow();
    for (const wchar_t* text : {L"C:\\出力先\\", L""}) {
        SendText(window_.Get(), sender, kShowFolderCode, text);
        EXPECT_EQ(received_.Code, 200U);
        EXPECT_EQ(received_.Sender, reinterpret_cast<WPARAM>(sender));
        EXPECT_EQ(received_.Bytes, Expected(text));
    }
}

TEST_F(HostMessagesTest, SendsANumberBeforeTheText) {
    MakeHost();
    SendNumberedText(window_.Get(), nullptr, 300, -12, L"text");
    EXPECT_EQ(received_.Code, 300U);
    EXPECT_EQ(received_.Bytes, Expected(L"-12/text"));
}

TEST_F(HostMessagesTest, WindowThatIsGoneGetsNothing) {
    SendText(nullptr, nullptr, 200, L"text");
    EXPECT_TRUE(received_.Bytes.empty());
}

}  // namespace
}  // namespace ferry::desktop
