// The confirmation dialog in-process: what it leaves behind, its icons, and a list of a million items.
#include <windows.h>
// After windows.h, which it builds on.
#include <shellapi.h>

#include <thread>
#include <vector>

#include "samplehost/host_block_writer.h"
#include "windows/ferry_dialog_fixture_win32.h"
#include "windows/resource_counts_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dialogs {
namespace {

constexpr int kOpenings = 250;
constexpr int kWarmUpOpenings = 10;
// What the system may keep for itself. One object lost at every tenth opening would be more.
constexpr std::size_t kMostGrowth = 20;
constexpr int kMeetings = 50;
constexpr int kThreadsAtOnce = 8;
constexpr int kMillion = 1'000'000;

int IconByName(const wchar_t* name, DWORD attributes) {
    SHFILEINFOW info{};
    SHGetFileInfoW(name, attributes, &info, sizeof info, SHGFI_SYSICONINDEX | SHGFI_USEFILEATTRIBUTES);
    return info.iIcon;
}

/// Lets threads begin and end at the same moment. The thread library of MinGW's C++ runtime makes an event
/// for its list of threads when two of them first wait for that list, and keeps it: a handle that would else
/// come at any of the openings. Two such meetings were enough whenever it was tried.
void LetThreadsMeet() {
    for (int meeting = 0; meeting < kMeetings; ++meeting) {
        std::vector<std::thread> threads;
        for (int index = 0; index < kThreadsAtOnce; ++index) {
            threads.emplace_back([] {});
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
    }
}

class OpeningAndClosing : public FerryDialogTest {
protected:
    /// Files of which every one still wants an icon.
    std::vector<std::wstring> SomeFiles() const {
        std::vector<std::wstring> files;
        for (const wchar_t* name : {L"a.txt", L"b.exe", L"c.html", L"d", L"e.zip", L"f.png"}) {
            files.push_back(folder_ / name);
            test::WriteUnits(files.back(), name);
        }
        files.emplace_back(L"\\\\no server of this name\\share\\x.txt");
        return files;
    }

    test::TempFolder folder_;
};

TEST_F(OpeningAndClosing, LeavesNoHandleNoWindowNoDrawingObjectAndNoThread) {
    const std::vector<std::wstring> files = SomeFiles();
    LetThreadsMeet();
    test::ResourceCounts before;
    int closedWhileLoading = 0;
    for (int opening = 0; opening < kOpenings; ++opening) {
        if (opening == kWarmUpOpenings) {
            before = test::CountResources();
        }
        Open(files);
        // Every other one goes on until the history and the icons are there.
        if (opening % 2 == 0) {
            test::Pump();
        }
        closedWhileLoading += opening > kWarmUpOpenings && test::CountThreads() > before.Threads ? 1 : 0;
        Close();
        test::Pump();
    }
    const test::ResourceCounts after = test::CountResources();
    EXPECT_LE(after.Handles, before.Handles + kMostGrowth);
    EXPECT_LE(after.UserObjects, before.UserObjects + kMostGrowth);
    EXPECT_LE(after.GdiObjects, before.GdiObjects + kMostGrowth);
    EXPECT_LE(after.Threads, before.Threads + kMostGrowth);
    EXPECT_GT(closedWhileLoading, 0);
}

class ThePrecision : public FerryDialogTest {};

TEST_F(ThePrecision, IsExactOrLeavesOneOrTwoSeconds) {
    Open({});
    const HWND box = GetDlgItem(Window(), IDC_PRECISION);
    std::vector<std::wstring> items;
    for (WPARAM index = 0; index < 4; ++index) {
        wchar_t text[64] = {};
        if (SendMessageW(box, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text)) != CB_ERR) {
            items.emplace_back(text);
        }
    }
    EXPECT_EQ(items, (std::vector<std::wstring>{L"標準", L"±1秒は同一とみなす", L"±2秒は同一とみなす"}));
}

class DialogHelp : public FerryDialogTest {};

TEST_F(DialogHelp, IsOpenedOnceAndGoesToNobodyElse) {
    Open({});
    HWND owner = nullptr;
    const test::WatchedImport<&ShellExecuteExW> open("ShellExecuteExW", [&](SHELLEXECUTEINFOW* info) {
        owner = info->hwnd;
        return TRUE;
    });
    HELPINFO info{};
    info.cbSize = sizeof(info);
    EXPECT_EQ(SendMessageW(Window(), WM_HELP, 0, reinterpret_cast<LPARAM>(&info)), TRUE);
    EXPECT_EQ(open.Calls().size(), 1U);
    EXPECT_EQ(owner, Window());
}

class Icons : public FerryDialogTest {};

TEST_F(Icons, OfNetworkFoldersFollowFromTheirAttributes) {
    const test::TempFolder folder;
    test::MakeFolders(L"\\\\?\\" + (folder / L"x.exe"));
    const int expected = IconByName(L"x.exe", FILE_ATTRIBUTE_DIRECTORY);
    ASSERT_NE(expected, IconByName(L"x.exe", FILE_ATTRIBUTE_NORMAL));
    Open({L"\\\\?\\" + (folder / L"x.exe")});
    EXPECT_TRUE(test::PumpUntil([&] { return ItemIcon(0) == expected; }));
}

class MillionItems : public FerryDialogTest {
protected:
    static std::wstring Block() {
        samplehost::BlockFields fields;
        fields.Items.reserve(kMillion);
        for (int index = 0; index < kMillion - 1; ++index) {
            fields.Items.push_back(L"C:\\Users\\somebody\\Documents\\項目\\item " + std::to_wstring(index) +
                                   L".txt");
        }
        fields.Items.emplace_back(L"C:\\Users\\somebody\\Documents\\zebra.txt");
        fields.Tabs = {L"D:\\先"};
        return samplehost::BlockUnits(fields);
    }

    int Focused() const {
        return static_cast<int>(SendMessageW(List(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
    }

    bool IsInView(int index) const {
        const int top = static_cast<int>(SendMessageW(List(), LVM_GETTOPINDEX, 0, 0));
        const int perPage = static_cast<int>(SendMessageW(List(), LVM_GETCOUNTPERPAGE, 0, 0));
        return index >= top && index < top + perPage;
    }

    void Press(unsigned key) const { SendMessageW(List(), WM_KEYDOWN, key, 1); }
};

TEST_F(MillionItems, ScrollAreFoundByTypingAndCanBeStarted) {
    Open({});
    ASSERT_FALSE(IsWindowEnabled(GetDlgItem(Window(), IDOK)));
    EXPECT_EQ(test::TextOfControl(Window(), IDC_COUNT), L"(0)");
    std::wstring block = Block();
    COPYDATASTRUCT data{samplehost::kBlockTag, static_cast<DWORD>(block.size() * sizeof(wchar_t)),
                        block.data()};
    EXPECT_EQ(SendMessageW(Window(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data)), TRUE);
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(Window(), IDOK)));
    EXPECT_EQ(test::TextOfControl(Window(), IDC_COUNT), L"(1000000)");
    EXPECT_EQ(SendMessageW(List(), LVM_GETITEMCOUNT, 0, 0), kMillion);
    EXPECT_EQ(ItemText(777'777), L"item 777777.txt");

    UpdateWindow(List());
    Press('Z');
    EXPECT_EQ(Focused(), kMillion - 1);
    EXPECT_TRUE(IsInView(kMillion - 1));
    UpdateWindow(List());
    EXPECT_EQ(ItemText(kMillion - 1), L"zebra.txt");
    Press('I');
    Press('T');
    EXPECT_EQ(Focused(), kMillion - 1) << "no name begins with ZI";
    Press(VK_ESCAPE);
    Press('I');
    EXPECT_EQ(Focused(), 0) << "after the last item the search begins at the top";
    EXPECT_TRUE(IsInView(0));
    SendMessageW(List(), WM_HSCROLL, SB_PAGERIGHT, 0);
    EXPECT_FALSE(IsInView(0));
    Press(VK_END);
    UpdateWindow(List());
    EXPECT_TRUE(IsInView(kMillion - 1));
}

}  // namespace
}  // namespace ferry::dialogs
