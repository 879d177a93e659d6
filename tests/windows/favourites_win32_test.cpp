// Favourites that run on this machine, for a window in the place of the host's.
#include "app/favourites_win32.h"

#include <windows.h>
#include <gtest/gtest.h>

#include "ids.h"
#include "settings/settings_store.h"
#include "windows/answered_boxes_win32.h"
#include "windows/dialog_world_win32.h"
#include "windows/modal_visitor_win32.h"
#include "windows/own_root_win32.h"
#include "windows/recording_window_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::app {
namespace {

using script::contract::ArrivedRecord;

class FavouriteScripts : public testing::Test {
protected:
    /// Runs a script of this name with these lines.
    void Run(const std::wstring& name, const std::wstring& lines) { favourites_.Run(Script(name, lines)); }

    std::wstring Script(const std::wstring& name, const std::wstring& lines) const {
        const std::wstring path = folder_ / name;
        test::WriteUnits(path, L"\xFEFF" + lines);
        return path;
    }

    static void SetHostText(const wchar_t* name, const std::wstring& text) {
        const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
        EXPECT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, std::wstring(settings::kHostKey).c_str(), name, REG_SZ,
                                  text.c_str(), size),
                  ERROR_SUCCESS);
    }

    static void SetHostNumber(const wchar_t* name, DWORD number) {
        EXPECT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, std::wstring(settings::kHostKey).c_str(), name,
                                  REG_DWORD, &number, sizeof number),
                  ERROR_SUCCESS);
    }

    const test::ForegroundLockKeeper lock_;
    test::OwnRoot root_;
    test::DialogWorld world_;
    test::TempFolder folder_;
    test::RecordingWindow dialog_{test::UniqueName(L"FerryDialog"), L"dialog"};
    ScriptFavourites favourites_{world_.Services().Localiser, dialog_.Handle()};
};

TEST_F(FavouriteScripts, LieInTheBarOfTheUsersFolderWhichIsFoundOnce) {
    SetHostNumber(L"UserDirMode", 2);
    SetHostText(L"UserDir", L"D:\\mine\\");
    EXPECT_EQ(favourites_.Folder(), L"D:\\mine\\Bar\\Favorite");
    SetHostText(L"UserDir", L"D:\\other");
    EXPECT_EQ(favourites_.Folder(), L"D:\\mine\\Bar\\Favorite");
    EXPECT_EQ(ScriptFavourites(world_.Services().Localiser, dialog_.Handle()).Folder(),
              L"D:\\other\\Bar\\Favorite");
}

TEST_F(FavouriteScripts, HandTheFoldersOfTheirJumpsOverToTheWindow) {
    Run(L"jump.txt",
        L"folderjump=0,C:\\a\\..\\b\r\nfolderjump=1,C:\\b\\\r\nfolderjump=2,D:\\日本\r\n"
        L"folderjump=3,C:\\c\r\nfilejump=0,C:\\d.txt\r\nsystem_command=7,text\r\n");
    const auto record = [](std::uint32_t code, const std::wstring& text) {
        return ArrivedRecord{code, 8 * text.size() + 8, text};
    };
    EXPECT_EQ(
        dialog_.TakeRecords(),
        (std::vector<ArrivedRecord>{record(100, L"C:\\b"), record(200, L"C:\\b\\"), record(300, L"D:\\日本"),
                                    record(400, L"C:\\c"), record(103, L"C:\\d.txt"), record(7, L"text")}));
    EXPECT_EQ(dialog_.LastSender(), reinterpret_cast<WPARAM>(dialog_.Handle()));
}

TEST_F(FavouriteScripts, SendTheirMessagesToTheWindow) {
    Run(L"send.txt", L"sendmessageall=5,6\r\n");
    const auto messages = dialog_.TakeMessages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].Number, 0x8008U);
    EXPECT_EQ(messages[0].First, 5);
}

TEST_F(FavouriteScripts, BeginWithNothingSelectedAndWithoutWhatTheLastOneLeft) {
    const test::AnsweredBoxes boxes;
    const std::wstring lines =
        L"var $v\r\nmessagebox=0,?SelectedCount?<$v>\r\nappendselectitem=C:\\a\r\n$v=left\r\nnonsense\r\n"
        L"checkgrammar=1\r\n";
    Run(L"one.txt", lines);
    Run(L"two.txt", lines);
    ASSERT_EQ(boxes.Asked.size(), 2U);
    for (const test::AskedBox& box : boxes.Asked)
        EXPECT_EQ(box.Text, L"0<>");
}

TEST_F(FavouriteScripts, TellWhatIsWrongWithTheLineAndTheFileInTheTitle) {
    const test::AnsweredBoxes boxes;
    const std::wstring inner = Script(L"inner.txt", L"\r\n\r\nfilewritew=x\r\n");
    Run(L"outer.txt", L"include=" + inner + L"\r\nfilewritew=x\r\n");
    favourites_.Run(folder_ / L"gone.txt");
    ASSERT_EQ(boxes.Asked.size(), 3U);
    EXPECT_EQ(boxes.Asked[0].Text, L"File is not open.");
    EXPECT_EQ(boxes.Asked[0].Title, L"Ferry - 3: inner.txt");
    EXPECT_EQ(boxes.Asked[1].Text, L"File is not open.");
    EXPECT_EQ(boxes.Asked[1].Title, L"Ferry - 2: outer.txt");
    EXPECT_EQ(boxes.Asked[2].Text, L"Cannot read " + folder_ / L"gone.txt");
    EXPECT_EQ(boxes.Asked[2].Title, L"Ferry - gone.txt");
}

TEST_F(FavouriteScripts, SpeakOverTheWindowAlsoWhileAnotherProgramIsInFront) {
    const test::WatchedImport<&GetActiveWindow> active("GetActiveWindow", [] { return HWND{}; });
    const test::AnsweredBoxes boxes;
    Run(L"speak.txt", L"messageboxok=box\r\nfilewritew=x\r\n");
    ASSERT_EQ(boxes.Asked.size(), 2U);
    EXPECT_EQ(boxes.Asked[0].Text, L"box");
    EXPECT_EQ(boxes.Asked[0].Title, L"Kiv");
    for (const test::AskedBox& box : boxes.Asked)
        EXPECT_EQ(box.Owner, dialog_.Handle());
}

/// The ways in which a person stops a script.
enum class StopBy { Mouse, Key };

class StoppedFavourite : public FavouriteScripts, public testing::WithParamInterface<StopBy> {
protected:
    /// Long enough for a person who wants to stop it.
    static constexpr wchar_t kLong[] = L"var $n\r\n$n=0\r\ndo\r\n$n=+1\r\nwait=50\r\nwhile $n<300\r\n";

    static void PressStop(HWND sign) {
        const HWND stop = GetDlgItem(sign, IDCANCEL);
        if (GetParam() == StopBy::Mouse)
            PostMessageW(stop, BM_CLICK, 0, 0);
        else
            PostMessageW(stop, WM_KEYDOWN, VK_ESCAPE, 1);
    }
};

TEST_P(StoppedFavourite, ShowsItsNameOverTheDisabledWindowAndSaysThatItWasStopped) {
    ShowWindow(dialog_.Handle(), SW_SHOW);
    const test::AnsweredBoxes boxes;
    const test::ModalVisitor visitor(dialog_.Handle(), [&](HWND sign) {
        EXPECT_EQ(test::TextOfControl(sign, IDC_BUSY_TITLE), L"loop.txt");
        EXPECT_FALSE(IsWindowEnabled(dialog_.Handle()));
        PressStop(sign);
    });
    Run(L"loop.txt", kLong);
    EXPECT_TRUE(visitor.HasVisited());
    EXPECT_TRUE(IsWindowEnabled(dialog_.Handle()));
    EXPECT_TRUE(boxes.Only().Text.starts_with(L"The script was stopped.\n")) << "it ended by itself";
    EXPECT_TRUE(boxes.Only().Title.ends_with(L": loop.txt"));
}

TEST_P(StoppedFavourite, LeavesTheForegroundToTheWindow) {
    if (!test::MayTakeForeground())
        GTEST_SKIP() << test::kNoForeground;
    ShowWindow(dialog_.Handle(), SW_SHOW);
    SetForegroundWindow(dialog_.Handle());
    HWND inFront = nullptr;
    HWND activeThen = nullptr;
    const test::WatchedImport<&MessageBoxW> box("MessageBoxW", [&](HWND owner, LPCWSTR, LPCWSTR, UINT) {
        inFront = GetForegroundWindow();
        activeThen = owner;
        return IDOK;
    });
    const test::ModalVisitor visitor(dialog_.Handle(), [&](HWND sign) {
        SetForegroundWindow(sign);
        PressStop(sign);
    });
    Run(L"loop.txt", kLong);
    EXPECT_EQ(activeThen, dialog_.Handle());
    EXPECT_EQ(inFront, dialog_.Handle());
    EXPECT_EQ(GetForegroundWindow(), dialog_.Handle());
}

TEST_P(StoppedFavourite, DoesNotStopTheNextOne) {
    const test::AnsweredBoxes boxes;
    {
        const test::ModalVisitor visitor(dialog_.Handle(), &PressStop);
        Run(L"loop.txt", kLong);
    }
    Run(L"jump.txt", L"wait=60\r\nfolderjump=0,C:\\b\r\n");
    EXPECT_EQ(dialog_.TakeRecords().size(), 1U);
    EXPECT_EQ(boxes.Asked.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(By, StoppedFavourite, testing::Values(StopBy::Mouse, StopBy::Key),
                         [](const auto& way) { return way.param == StopBy::Mouse ? "Mouse" : "Key"; });

TEST_F(FavouriteScripts, OfALongerRunTakeTheirWindowAway) {
    ShowWindow(dialog_.Handle(), SW_SHOW);
    HWND sign = nullptr;
    const test::ModalVisitor visitor(dialog_.Handle(), [&](HWND window) { sign = window; });
    Run(L"wait.txt", L"wait=1500\r\n");
    ASSERT_TRUE(visitor.HasVisited());
    EXPECT_FALSE(IsWindow(sign));
    EXPECT_TRUE(IsWindowEnabled(dialog_.Handle()));
}

}  // namespace
}  // namespace ferry::app
