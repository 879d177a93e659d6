// What the launcher makes in the system: its window, its links, and what it asks of disks and lists.
#include <windows.h>
// After windows.h, which they build on.
#include <shlobj.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/com_ptr_win32.h"
#include "base/handles_win32.h"
#include "desktop/host_messages.h"
#include "launcher/send_to_win32.h"
#include "launcher/stand_in_window_win32.h"
#include "launcher/system_surroundings_win32.h"
#include "windows/current_folder_win32.h"
#include "windows/support_win32.h"

namespace ferry::launcher {
namespace {

/// A host's window, as far as it can be found.
class HostWindow {
public:
    HostWindow() {
        WNDCLASSEXW type = {};
        type.cbSize = sizeof(type);
        type.lpfnWndProc = DefWindowProcW;
        type.hInstance = GetModuleHandleW(nullptr);
        type.lpszClassName = desktop::kHostWindowClass;
        isRegistered_ = RegisterClassExW(&type) != 0;
        window_ = CreateWindowExW(0, desktop::kHostWindowClass, L"A host", WS_POPUP, 0, 0, 10, 10, nullptr,
                                  nullptr, type.hInstance, nullptr);
    }
    ~HostWindow() {
        DestroyWindow(window_);
        if (isRegistered_)
            UnregisterClassW(desktop::kHostWindowClass, GetModuleHandleW(nullptr));
    }
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    HWND Get() const noexcept { return window_; }

private:
    HWND window_ = nullptr;
    bool isRegistered_ = false;
};

TEST(StandInWindow, IsFoundInPlaceOfAHostAndIsNone) {
    StandInWindow window;
    window.Create();
    ASSERT_NE(window.Get(), nullptr);
    EXPECT_EQ(desktop::FindHostWindow(), window.Get());
    EXPECT_FALSE(IsWindowVisible(window.Get()));
    EXPECT_FALSE(IsHostRunning());
    StandInWindow second;
    second.Create();
    EXPECT_NE(second.Get(), nullptr);
    window.Close();
    EXPECT_EQ(desktop::FindHostWindow(), second.Get());
    second.Close();
    EXPECT_EQ(desktop::FindHostWindow(), nullptr);
}

TEST(StandInWindow, IsNotMadeWhileAHostRuns) {
    const HostWindow host;
    EXPECT_TRUE(IsHostRunning());
    StandInWindow window;
    window.Create();
    EXPECT_EQ(window.Get(), nullptr);
    EXPECT_EQ(desktop::FindHostWindow(), host.Get());
}

TEST(StandInWindow, GoesWhenAHostComes) {
    StandInWindow window;
    window.Create();
    window.GiveWayToHost();
    ASSERT_NE(window.Get(), nullptr);
    const HWND before = window.Get();
    const HostWindow host;
    window.GiveWayToHost();
    EXPECT_EQ(window.Get(), nullptr);
    EXPECT_FALSE(IsWindow(before));
    EXPECT_EQ(desktop::FindHostWindow(), host.Get());
}

TEST(StandInWindow, HearsWhichFolderIsToBeShown) {
    StandInWindow window;
    window.Create();
    EXPECT_EQ(window.TakeFolder(), std::nullopt);
    desktop::SendText(window.Get(), nullptr, desktop::kShowFolderCode, L"D:\\先\\");
    EXPECT_EQ(window.TakeFolder(), L"D:\\先\\");
    EXPECT_EQ(window.TakeFolder(), std::nullopt);
    desktop::SendText(window.Get(), nullptr, desktop::kShowFolderCode + 1, L"D:\\other\\");
    EXPECT_EQ(window.TakeFolder(), std::nullopt);
}

class LauncherDisk : public testing::Test {
protected:
    std::wstring Write(std::wstring_view name, std::string_view bytes) const {
        const std::wstring path = root_ / name;
        const base::FileHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                                FILE_ATTRIBUTE_NORMAL, nullptr));
        DWORD written = 0;
        EXPECT_TRUE(WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
        return path;
    }

    test::TempFolder root_;
    SystemSurroundings surroundings_;
};

TEST_F(LauncherDisk, KnowsWhatExists) {
    const std::wstring file = Write(L"a.txt", "a");
    EXPECT_TRUE(surroundings_.Exists(file));
    EXPECT_TRUE(surroundings_.Exists(root_.Path()));
    EXPECT_FALSE(surroundings_.Exists(file + L"x"));
    EXPECT_FALSE(surroundings_.Exists(root_ / L"missing\\a.txt"));
    EXPECT_FALSE(surroundings_.Exists(L"?:\\a"));
}

TEST_F(LauncherDisk, KnowsManyNamesOfOneFolder) {
    for (std::size_t index = 0; index < 2 * KnownNames::kEnoughToList; ++index) {
        const std::wstring name = L"名前 " + std::to_wstring(index);
        EXPECT_TRUE(surroundings_.Exists(Write(name, "")));
        EXPECT_FALSE(surroundings_.Exists(root_ / (L"missing " + name)));
        EXPECT_TRUE(surroundings_.Exists(root_ / L"名前 0"));
    }
}

TEST_F(LauncherDisk, ResolvesPathsFromTheCurrentFolder) {
    const test::CurrentFolder here(root_.Path());
    const std::wstring folder = CurrentFolder();
    EXPECT_EQ(surroundings_.FullPath(L"a\\..\\b"), folder + L"\\b");
    const std::wstring longName(300, L'x');
    EXPECT_EQ(surroundings_.FullPath(longName), folder + L"\\" + longName);
}

TEST_F(LauncherDisk, ReadsListsOfEverySize) {
    EXPECT_EQ(ReadList(root_ / L"missing"), std::nullopt);
    EXPECT_EQ(ReadList(Write(L"empty", "")), std::vector<std::wstring>());
    std::string many;
    std::vector<std::wstring> expected;
    for (int index = 0; index < 20000; ++index) {
        many += "C:\\" + std::to_string(index) + "\r\n";
        expected.push_back(L"C:\\" + std::to_wstring(index));
    }
    EXPECT_EQ(ReadList(Write(L"many", many)), expected);
}

TEST_F(LauncherDisk, ReadsAListInTheCodePageOfTheConsole) {
    const std::wstring text = L"C:\\\x3B1\x3B2\xE9\x3042";
    char bytes[64] = {};
    const int size = WideCharToMultiByte(CP_OEMCP, 0, text.data(), static_cast<int>(text.size()), bytes, 64,
                                         nullptr, nullptr);
    wchar_t units[64] = {};
    const int length = MultiByteToWideChar(CP_OEMCP, 0, bytes, size, units, 64);
    EXPECT_EQ(ReadList(Write(L"list", std::string_view(bytes, static_cast<std::size_t>(size)))),
              std::vector<std::wstring>{std::wstring(units, static_cast<std::size_t>(length))});
}

/// The link called `name` in "Send to": its target, a blank, its arguments. Empty when there is none.
std::wstring LinkIn(std::wstring_view name) {
    const base::ComApartment com;
    PWSTR folder = nullptr;
    SHGetKnownFolderPath(FOLDERID_SendTo, KF_FLAG_CREATE, nullptr, &folder);
    const std::wstring path = std::wstring(folder) + L"\\" + std::wstring(name);
    CoTaskMemFree(folder);
    void* object = nullptr;
    if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &object)))
        return {};
    const base::ComPtr<IShellLinkW> link(static_cast<IShellLinkW*>(object));
    void* file = nullptr;
    link->QueryInterface(IID_IPersistFile, &file);
    const base::ComPtr<IPersistFile> persist(static_cast<IPersistFile*>(file));
    if (FAILED(persist->Load(path.c_str(), STGM_READ)))
        return {};
    wchar_t target[1024] = {};
    wchar_t arguments[1024] = {};
    link->GetPath(target, 1024, nullptr, 0);
    link->GetArguments(arguments, 1024);
    return std::wstring(target) + L" " + arguments;
}

TEST_F(LauncherDisk, MakesLinksThatPassOnlyPathsBehindTheirSwitch) {
    const std::wstring program = Write(L"Open.exe", "");
    const std::wstring other = Write(L"Other.exe", "");
    ASSERT_EQ(AddSendTo(kEnglish, program), S_OK);
    EXPECT_EQ(LinkIn(kEnglish.CopyLink), program + L" /c --");
    EXPECT_EQ(LinkIn(kEnglish.MoveLink), program + L" /m --");
    EXPECT_EQ(RemoveSendTo(other), S_OK);
    EXPECT_EQ(LinkIn(kEnglish.CopyLink), program + L" /c --");
    EXPECT_EQ(RemoveSendTo(program), S_OK);
    EXPECT_EQ(LinkIn(kEnglish.CopyLink), L"");
    EXPECT_EQ(LinkIn(kEnglish.MoveLink), L"");
    EXPECT_EQ(RemoveSendTo(program), S_OK);
}

}  // namespace
}  // namespace ferry::launcher
