// What the launcher is beside its selection: a silent host, which leaves nothing behind.
#include <windows.h>
// After windows.h, which it builds on.
#include <shlobj.h>

#include "base/utf16.h"
#include "e2e/driver/app_copy.h"
#include "e2e/driver/file_op_log.h"
#include "e2e/driver/surroundings.h"
#include "e2e/launcher_fixture.h"
#include "samplehost/host_block_writer.h"
#include "samplehost/process_windows_win32.h"

namespace ferry::e2e {
namespace {

/// The windows of the host's class, the topmost one first.
std::vector<HWND> HostWindows() {
    std::vector<HWND> windows;
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, samplehost::kHostWindowClass, nullptr)) != nullptr) {
        windows.push_back(window);
    }
    return windows;
}

class LauncherAsHost : public Launcher {
protected:
    void SetUp() override { file_ = Tree().WriteFile(L"元\\a.txt", "a"); }

    bool HasBlock() const {
        const std::wstring name = L"ShareMem_" + std::to_wstring(LauncherId()) + L"_1";
        return base::MappingHandle(OpenFileMappingW(FILE_MAP_READ, FALSE, name.c_str())) &&
               base::MutexHandle(OpenMutexW(SYNCHRONIZE, FALSE, (name + L"_Mutex").c_str()));
    }

    std::wstring file_;
};

TEST_F(LauncherAsHost, LeavesNothingBehind) {
    ASSERT_TRUE(HostWindows().empty());
    ASSERT_TRUE(Opens({file_}));
    EXPECT_TRUE(HasBlock());
    ASSERT_EQ(HostWindows().size(), 1U);
    EXPECT_FALSE(IsWindowVisible(HostWindows().front()));
    ASSERT_TRUE(CancelEndsBoth());
    EXPECT_FALSE(HasBlock());
    EXPECT_TRUE(HostWindows().empty());
}

TEST_F(LauncherAsHost, LetsFerryOpenInTheMiddleOfTheScreen) {
    ASSERT_TRUE(Opens({file_}));
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof(monitor);
    RECT place = {};
    ASSERT_TRUE(GetWindowRect(Dialog().Window(), &place));
    GetMonitorInfoW(MonitorFromWindow(Dialog().Window(), MONITOR_DEFAULTTONEAREST), &monitor);
    EXPECT_NEAR(place.left + place.right, monitor.rcWork.left + monitor.rcWork.right, 2);
    EXPECT_NEAR(place.top + place.bottom, monitor.rcWork.top + monitor.rcWork.bottom, 2);
    ASSERT_TRUE(CancelEndsBoth());
}

TEST_F(LauncherAsHost, LeavesAHostThatRunsAsItIs) {
    const std::wstring log = Tree().Path(L"host.log");
    const ChildProcess host(HostPath(), {L"--stay", L"--log", log});
    ASSERT_TRUE(WaitUntil([] { return HostWindows().size() == 1; }));
    const std::vector<HWND> before = HostWindows();
    ASSERT_TRUE(Opens({file_, L"/d", Tree().MakeFolder(L"先")}));
    EXPECT_EQ(HostWindows(), before);
    Dialog().Choose(kOpenDestination);
    Dialog().Click(kStart);
    ASSERT_TRUE(EndsWith(0));
    EXPECT_EQ(HostWindows(), before);
    EXPECT_TRUE(host.IsRunning());
    const auto received = LinesOf(ReadFileOpLog(log), L"COPYDATA");
    ASSERT_EQ(received.size(), 1U);
    EXPECT_EQ(received[0].back(), Tree().Path(L"先\\"));
}

TEST_F(LauncherAsHost, GivesWayToAHostThatComesLater) {
    ASSERT_TRUE(Opens({file_}));
    const std::vector<HWND> before = HostWindows();
    const ChildProcess host(HostPath(), {L"--stay", L"--log", Tree().Path(L"host.log")});
    EXPECT_TRUE(WaitUntil([&] { return HostWindows().size() == 1 && HostWindows() != before; }));
    ASSERT_TRUE(CancelEndsBoth());
    EXPECT_TRUE(host.IsRunning());
}

TEST_F(LauncherAsHost, ShowsTheDestinationWhenFerryAsksForIt) {
    const std::wstring name = L"shown " + std::to_wstring(GetCurrentProcessId());
    ASSERT_TRUE(Opens({file_, L"/d", Tree().MakeFolder(name)}));
    Dialog().Choose(kOpenDestination);
    Dialog().Click(kStart);
    HWND shown = nullptr;
    const auto isShown = [&] {
        HWND window = nullptr;
        while ((window = FindWindowExW(nullptr, window, nullptr, nullptr)) != nullptr) {
            wchar_t title[128] = {};
            GetWindowTextW(window, title, 128);
            if (std::wstring_view(title).find(name) != std::wstring_view::npos && IsWindowVisible(window))
                shown = window;
        }
        return shown != nullptr;
    };
    EXPECT_TRUE(WaitUntil(isShown));
    PostMessageW(shown, WM_CLOSE, 0, 0);
    ASSERT_TRUE(EndsWith(0));
    EXPECT_EQ(ReadBytes(Tree().Path(name + L"\\a.txt")), "a");
}

TEST_F(LauncherAsHost, PassesFerrysExitCodeOn) {
    ASSERT_TRUE(Opens({file_}));
    ASSERT_TRUE(TerminateProcess(Ferry().Get(), 7));
    EXPECT_TRUE(EndsWith(7));
}

TEST_F(LauncherAsHost, SaysWhenFerryIsMissing) {
    const std::wstring app = Tree().Path(L"app");
    ASSERT_TRUE(CopyApp(app));
    ASSERT_TRUE(DeleteFileW(FerryPath(app).c_str()));
    const ChildProcess launcher(LauncherPath(app), {file_});
    const ShownBox box = WaitForMessageBox(launcher.Id());
    ASSERT_NE(box.Window, nullptr);
    EXPECT_EQ(box.Text,
              L"Ferry.exe がありません。FerryOpen.exe と同じフォルダーに置いてください。\n" + FerryPath(app));
    ASSERT_TRUE(DismissMessageBox(box));
    EXPECT_EQ(launcher.WaitForEnd(kPatienceMs).ExitCode, 120U);
}

TEST_F(LauncherAsHost, ExplainsItselfInBothLanguages) {
    for (const auto& [language, beginning] : {std::pair{L".ja-JP", L"Ferry を開いてファイルや"},
                                              std::pair{L".en-US", L"Opens Ferry to copy or move"}}) {
        WriteText(kHostKey, L"NLS", language);
        Start({L"/?"});
        const ShownBox box = WaitForMessageBox(LauncherId());
        ASSERT_NE(box.Window, nullptr);
        EXPECT_TRUE(box.Text.starts_with(beginning)) << base::ToUtf8(box.Text);
        EXPECT_NE(box.Text.find(L"/sendto remove"), std::wstring::npos);
        ASSERT_TRUE(DismissMessageBox(box));
        EXPECT_TRUE(EndsWith(0));
    }
}

TEST_F(LauncherAsHost, RefusesASwitchThatItDoesNotKnow) {
    Start({L"/x", file_});
    ASSERT_TRUE(
        Says(L"FerryOpen にないスイッチです。\n/x\n\n使い方は FerryOpen /? で表示されます。"
             L"「/」や「-」で始まるパスは「--」の後に書いてください。"));
    EXPECT_TRUE(EndsWith(2));
}

/// The folder "Send to", whose entries of Ferry are gone when a test begins and ends.
class LauncherSendTo : public Launcher {
protected:
    void SetUp() override { Remove(); }
    void TearDown() override { Remove(); }

    static std::wstring Place(const wchar_t* name) {
        PWSTR folder = nullptr;
        SHGetKnownFolderPath(FOLDERID_SendTo, KF_FLAG_CREATE, nullptr, &folder);
        const std::wstring place = std::wstring(folder) + L"\\" + name;
        CoTaskMemFree(folder);
        return place;
    }

    static void Remove() {
        for (const wchar_t* name :
             {L"Ferry - copy.lnk", L"Ferry - move.lnk", L"Ferry - コピー.lnk", L"Ferry - 移動.lnk"}) {
            DeleteFileW(Place(name).c_str());
        }
    }
};

TEST_F(LauncherSendTo, GetsTwoEntriesAndLosesThemAgain) {
    Start({L"/sendto", L"install"});
    ASSERT_TRUE(EndsWith(0));
    EXPECT_TRUE(Exists(Place(L"Ferry - コピー.lnk")));
    EXPECT_TRUE(Exists(Place(L"Ferry - 移動.lnk")));
    WriteText(kHostKey, L"NLS", L".en-US");
    Start({L"/sendto", L"install"});
    ASSERT_TRUE(EndsWith(0));
    EXPECT_FALSE(Exists(Place(L"Ferry - コピー.lnk")));
    EXPECT_TRUE(Exists(Place(L"Ferry - copy.lnk")));
    EXPECT_TRUE(Exists(Place(L"Ferry - move.lnk")));
    Start({L"/sendto", L"remove"});
    ASSERT_TRUE(EndsWith(0));
    EXPECT_FALSE(Exists(Place(L"Ferry - copy.lnk")));
    EXPECT_FALSE(Exists(Place(L"Ferry - move.lnk")));
}

TEST_F(LauncherSendTo, KeepsWhatOthersPutThere) {
    Start({L"/sendto", L"install"});
    ASSERT_TRUE(EndsWith(0));
    const std::wstring app = Tree().Path(L"app");
    ASSERT_TRUE(CopyApp(app));
    const ChildProcess other(LauncherPath(app), {L"/sendto", L"remove"});
    ASSERT_TRUE(other.WaitForEnd(kPatienceMs).IsGood());
    EXPECT_TRUE(Exists(Place(L"Ferry - コピー.lnk")));
    EXPECT_TRUE(Exists(Place(L"Ferry - 移動.lnk")));
}

}  // namespace
}  // namespace ferry::e2e
