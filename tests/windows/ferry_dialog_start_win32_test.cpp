// "Start" in-process: what is refused and how, what is saved, what the host hears, what reaches the shell.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which the shell's headers build on.
#include <shlobj.h>

#include <atomic>

#include "base/com_ptr_win32.h"
#include "desktop/host_messages.h"
#include "windows/answered_boxes_win32.h"
#include "windows/ferry_dialog_fixture_win32.h"
#include "windows/recording_operation_win32.h"
#include "windows/watched_messages_win32.h"

namespace ferry::dialogs {
namespace {

using Texts = std::vector<std::wstring>;

/// A dialog with one file to transfer; the shell's operation writes down what it is asked.
class TheStart : public FerryDialogTest {
protected:
    void SetUp() override {
        world_.Messages.File = L"62304\tno path\r\n62306\tno folder\r\n";
        test::WriteUnits(source_, L"content");
        test::MakeFolders(destination_);
    }

    void OpenWith(const std::wstring& destination) {
        Open({source_});
        SetWindowTextW(Edit(), destination.c_str());
    }

    void PressStart() {
        SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(Window(), IDOK)));
    }

    bool IsOpen() const { return IsWindowVisible(Window()) != FALSE; }

    /// The calls that the shell got and that begin with `name`.
    Texts CallsOf(const std::wstring& name) const {
        Texts calls;
        for (const std::wstring& call : log_.Calls) {
            if (call.starts_with(name)) {
                calls.push_back(call);
            }
        }
        return calls;
    }

    static std::wstring Number(const wchar_t* call, std::uint64_t number) {
        return std::wstring(call) + L" " + std::to_wstring(number);
    }

    base::ComApartment apartment_;
    test::TempFolder folder_;
    std::wstring source_ = folder_ / L"a.txt";
    std::wstring destination_ = folder_ / L"to";
    test::OperationLog log_;
    test::RecordingClass class_{log_};
    test::AnsweredBoxes boxes_;
};

/// A host's main window, which writes down what it is sent.
class ListeningHost {
public:
    explicit ListeningHost(std::function<void()> onMessage) : onMessage_(std::move(onMessage)) {
        WNDCLASSW description{};
        description.lpfnWndProc = &Receive;
        description.hInstance = GetModuleHandleW(nullptr);
        description.lpszClassName = desktop::kHostWindowClass;
        RegisterClassW(&description);
        current_ = this;
        window_.Reset(CreateWindowExW(0, desktop::kHostWindowClass, L"host", WS_POPUP, 0, 0, 10, 10, nullptr,
                                      nullptr, GetModuleHandleW(nullptr), nullptr));
    }
    ~ListeningHost() {
        window_.Reset();
        UnregisterClassW(desktop::kHostWindowClass, GetModuleHandleW(nullptr));
        current_ = nullptr;
    }
    ListeningHost(const ListeningHost&) = delete;
    ListeningHost& operator=(const ListeningHost&) = delete;

    HWND Window() const noexcept { return window_.Get(); }

    Texts Heard;
    ULONG_PTR Tag = 0;
    WPARAM Sender = 0;

private:
    static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
        if (message == WM_COPYDATA) {
            const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
            current_->Heard.emplace_back(static_cast<const wchar_t*>(data.lpData));
            current_->Tag = data.dwData;
            current_->Sender = wParam;
            current_->onMessage_();
            return TRUE;
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    static inline ListeningHost* current_ = nullptr;
    std::function<void()> onMessage_;
    test::TestWindow window_;
};

TEST_F(TheStart, ThatIsRefusedSaysWhySavesNothingAndTellsTheHostNothing) {
    const ListeningHost host([] {});
    world_.Store.Numbers[L"OpenTarget"] = 1;
    test::WriteUnits(folder_ / L"file", L"in the way");
    const std::pair<std::wstring, const wchar_t*> cases[] = {
        {L"", L"no path"},
        {L"D", L"no path"},
        {L"name", L"no path"},
        {L"\\\\", L"no path"},
        {folder_ / L"file", L"no folder"},
        {folder_ / L"file\\below", L"no folder"},
    };
    for (const auto& [destination, told] : cases) {
        SCOPED_TRACE(testing::PrintToString(destination));
        OpenWith(destination);
        boxes_.Asked.clear();
        PressStart();
        EXPECT_EQ(boxes_.Only().Text, told);
        EXPECT_EQ(boxes_.Only().Buttons(), UINT{MB_OK});
        EXPECT_TRUE(IsOpen());
    }
    EXPECT_EQ(world_.Store.Writes, Texts{});
    EXPECT_EQ(host.Heard, Texts{});
    EXPECT_EQ(log_.Calls, Texts{});
}

TEST_F(TheStart, ThatThePersonCancelsStaysWithoutAWord) {
    const test::WatchedImport<&SHCreateDirectory> make("SHCreateDirectory",
                                                       [](HWND, PCWSTR) -> int { return ERROR_CANCELLED; });
    OpenWith(folder_ / L"new");
    PressStart();
    EXPECT_EQ(make.Calls().size(), 1U);
    EXPECT_TRUE(boxes_.Asked.empty());
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(world_.Store.Writes, Texts{});
    EXPECT_EQ(log_.Calls, Texts{});
}

TEST_F(TheStart, WithoutAnyItemDoesNothing) {
    Open({});
    SetWindowTextW(Edit(), destination_.c_str());
    EnableWindow(GetDlgItem(Window(), IDOK), TRUE);
    PressStart();
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(boxes_.Asked.empty());
    EXPECT_EQ(world_.Store.Writes, Texts{});
    EXPECT_EQ(log_.Calls, Texts{});
}

TEST_F(TheStart, TakesTheSelectionOfTheDestinationAway) {
    OpenWith(L"name");
    test::Pump();
    const test::WatchedMessages edit(Edit());
    PressStart();
    EXPECT_EQ(edit.Count(EM_SETSEL), 0U) << "it is posted";
    test::Pump();
    ASSERT_EQ(edit.Count(EM_SETSEL), 1U);
    EXPECT_EQ(edit.Of(EM_SETSEL)[0].wParam, static_cast<WPARAM>(-1));
    EXPECT_EQ(edit.Of(EM_SETSEL)[0].lParam, -1);
}

TEST_F(TheStart, SavesTheFiveChoicesInTheirOrder) {
    OpenWith(destination_);
    PressStart();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(world_.Store.Writes, (Texts{L"Mode", L"Name", L"1", L"OpenTarget", L"TimeCmpType"}));
}

TEST_F(TheStart, WithShiftUsesTheChoicesAndSavesNone) {
    world_.Store.Numbers[L"Name"] = 5;
    OpenWith(destination_);
    test::Click(Window(), IDC_NO_ASK);
    test::Click(Window(), IDC_MOVE);
    test::HoldKeys({VK_SHIFT});
    PressStart();
    test::HoldKeys({});
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(world_.Store.Writes, Texts{});
    EXPECT_EQ(world_.Store.Numbers[L"Name"], 5U);
    EXPECT_EQ(CallsOf(L"MoveItems").size(), 1U);
    EXPECT_EQ(CallsOf(L"SetOperationFlags"), Texts{Number(L"SetOperationFlags", 0x2850)});
}

TEST_F(TheStart, TellsTheHostBeforeTheDialogEnds) {
    bool wasOpen = false;
    bool hadStarted = true;
    const ListeningHost host([&] {
        wasOpen = IsOpen();
        hadStarted = !log_.Calls.empty();
    });
    world_.Store.Numbers[L"OpenTarget"] = 1;
    OpenWith(destination_);
    const test::WatchedImport<&SendMessageW> send("SendMessageW");
    PressStart();
    EXPECT_EQ(host.Heard, Texts{destination_ + L"\\"});
    EXPECT_EQ(host.Tag, 200U);
    EXPECT_EQ(host.Sender, reinterpret_cast<WPARAM>(Window()));
    EXPECT_TRUE(wasOpen);
    EXPECT_FALSE(hadStarted);
    // Sent, so that it has been handled when the program goes on.
    const auto calls = send.Calls();
    EXPECT_TRUE(std::ranges::any_of(calls, [&](const auto& call) {
        return std::get<0>(call) == host.Window() && std::get<1>(call) == WM_COPYDATA;
    }));
}

TEST_F(TheStart, WithoutTheChoiceTellsTheHostNothing) {
    const ListeningHost host([] {});
    OpenWith(destination_);
    PressStart();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(host.Heard, Texts{});
}

TEST_F(TheStart, OfABatchBelongsToTheDesktopWhateverTheChoicesOfTheOtherMode) {
    world_.Store.Numbers = {{L"Name", 5}, {L"TimeCmpType", 2}};
    test::WriteUnits(destination_ + L"\\a.txt", L"existing");
    OpenWith(destination_);
    PressStart();
    EXPECT_EQ(log_.Calls,
              (Texts{L"CopyItems " + source_ + L" > " + destination_,
                     Number(L"SetOwnerWindow", reinterpret_cast<std::uintptr_t>(GetDesktopWindow())),
                     Number(L"SetOperationFlags", 0x2840), L"PerformOperations"}));
}

TEST_F(TheStart, OfASingleFileBelongsToTheConfirmationDialogWhateverTheChoiceOfTheOtherMode) {
    world_.Store.Numbers = {{L"Mode", 1}, {L"1", 1}};
    OpenWith(destination_);
    PressStart();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(log_.Calls, (Texts{L"CopyItems " + source_ + L" > " + destination_,
                                 Number(L"SetOwnerWindow", reinterpret_cast<std::uintptr_t>(Window())),
                                 Number(L"SetOperationFlags", 0x2A14), L"PerformOperations",
                                 L"GetAnyOperationsAborted"}));
    EXPECT_TRUE(IsWindowEnabled(Window())) << "the run disables it only while it goes on";
}

TEST_F(TheStart, EndsTheDialogBeforeItTransfers) {
    bool wasOpen = true;
    OpenWith(destination_);
    const test::WatchedImport<&CoCreateInstance> create(
        "CoCreateInstance", [&](REFCLSID classId, LPUNKNOWN outer, DWORD servers, REFIID id, LPVOID* object) {
            wasOpen = IsOpen();
            return create.CallReal(classId, outer, servers, id, object);
        });
    PressStart();
    EXPECT_EQ(create.Calls().size(), 1U);
    EXPECT_FALSE(wasOpen);
}

TEST_F(TheStart, BeginsComForTheTransfer) {
    OpenWith(destination_);
    const DWORD thread = GetCurrentThreadId();
    std::atomic<bool> hasCom = false;
    bool hadComInTime = false;
    const test::WatchedImport<&CoInitialize> begin("CoInitialize", [&](LPVOID reserved) {
        // The workers that find icons have their own.
        if (GetCurrentThreadId() == thread) {
            hasCom = true;
        }
        return begin.CallReal(reserved);
    });
    const test::WatchedImport<&CoCreateInstance> create(
        "CoCreateInstance", [&](REFCLSID classId, LPUNKNOWN outer, DWORD servers, REFIID id, LPVOID* object) {
            hadComInTime = hasCom;
            return create.CallReal(classId, outer, servers, id, object);
        });
    PressStart();
    EXPECT_TRUE(hadComInTime);
}

TEST_F(TheStart, OpensNoFavouritesWhileItTransfers) {
    OpenWith(destination_);
    int presses = 0;
    const test::WatchedImport<&CoCreateInstance> create(
        "CoCreateInstance", [&](REFCLSID classId, LPUNKNOWN outer, DWORD servers, REFIID id, LPVOID* object) {
            ++presses;
            SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(IDC_FAVOURITES, BN_CLICKED),
                         reinterpret_cast<LPARAM>(GetDlgItem(Window(), IDC_FAVOURITES)));
            return create.CallReal(classId, outer, servers, id, object);
        });
    PressStart();
    EXPECT_GE(presses, 1);
    EXPECT_TRUE(boxes_.Asked.empty()) << "there are no favourites, which nobody wanted to know";
}

TEST_F(TheStart, KeepsTheSessionFromEndingWhileItTransfers) {
    *world_.Messages.File += L"5954\tcopying\r\n";
    OpenWith(destination_);
    EXPECT_TRUE(SendMessageW(Window(), WM_QUERYENDSESSION, 0, 0)) << "nothing is at stake yet";
    std::wstring reason;
    const test::WatchedImport<&ShutdownBlockReasonCreate> hold("ShutdownBlockReasonCreate",
                                                               [&](HWND window, LPCWSTR why) {
                                                                   EXPECT_EQ(window, Window());
                                                                   reason = why;
                                                                   return TRUE;
                                                               });
    const test::WatchedImport<&ShutdownBlockReasonDestroy> release("ShutdownBlockReasonDestroy");
    LRESULT mayEnd = TRUE;
    std::size_t released = 1;
    const test::WatchedImport<&CoCreateInstance> create(
        "CoCreateInstance", [&](REFCLSID classId, LPUNKNOWN outer, DWORD servers, REFIID id, LPVOID* object) {
            mayEnd = SendMessageW(Window(), WM_QUERYENDSESSION, 0, 0);
            released = release.Calls().size();
            return create.CallReal(classId, outer, servers, id, object);
        });
    PressStart();
    EXPECT_EQ(mayEnd, FALSE);
    EXPECT_EQ(reason, L"copying");
    EXPECT_EQ(released, 0U);
    EXPECT_EQ(std::get<0>(release.OnlyCall()), Window());
}

TEST_F(TheStart, MakesTheDestinationAndTellsTheShell) {
    const test::WatchedImport<&SHChangeNotify> notify("SHChangeNotify");
    OpenWith(folder_ / L"new\\below");
    PressStart();
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(test::Exists(folder_ / L"new\\below"));
    EXPECT_EQ(notify.Calls().size(), 1U);
    OpenWith(folder_ / L"new\\below");
    PressStart();
    EXPECT_EQ(notify.Calls().size(), 1U) << "it was there already";
}

TEST_F(TheStart, WorksOnce) {
    OpenWith(destination_);
    PressStart();
    PressStart();
    EXPECT_EQ(CallsOf(L"PerformOperations").size(), 1U);
}

}  // namespace
}  // namespace ferry::dialogs
