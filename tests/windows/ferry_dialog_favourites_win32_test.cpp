// The favourites button of the confirmation dialog: its menu, what a chosen script may do to the dialog, and
// what the dialog refuses meanwhile.
#include <windows.h>
// After windows.h, which it builds on.
#include <shellapi.h>

#include <functional>
#include <new>
#include <string>
#include <vector>

#include "desktop/host_messages.h"
#include "samplehost/host_block_writer.h"
#include "windows/answered_boxes_win32.h"
#include "windows/ferry_dialog_fixture_win32.h"
#include "windows/menu_driver_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dialogs {
namespace {

using Texts = std::vector<std::wstring>;

/// A dialog with one source and a folder with the favourite "a.txt".
class FavouritesButton : public FerryDialogTest {
protected:
    void SetUp() override {
        world_.Messages.File = L"62402\tNo bar\r\n62325\t, none.\r\n62304\tno path\r\n";
        test::WriteUnits(favourite_, L"");
        world_.Favourites.Folder = folder_.Path();
        world_.Favourites.Run = [this](const std::wstring& path, HWND dialog) {
            runs_.push_back(path);
            EXPECT_EQ(dialog, Window());
            during_();
        };
        pointer_.CallReal(0, 0);
        Open({L"C:\\a.txt"});
    }

    void TearDown() override { EXPECT_EQ(menusRefused_, 0) << "a menu came that was not asked for"; }

    using MenuWork = std::function<void(const test::MenuDriver&)>;

    /// Presses the button and does `work` in its menu. Comes back when what was chosen there is done.
    void PressAndDo(MenuWork work) {
        menusLeft_ = 1;
        const test::MenuDriver driver(Window(), std::move(work));
        Press(IDC_FAVOURITES);
    }

    /// Chooses the favourite `name`, which does `during`.
    void Choose(const std::wstring& name, std::function<void()> during = [] {}) {
        during_ = std::move(during);
        PressAndDo([&](const test::MenuDriver& menu) { EXPECT_TRUE(menu.Choose(name)); });
    }

    void Press(int button) {
        SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(Window(), button)));
    }

    /// What a script's hand-over is answered.
    LRESULT HandOver(ULONG_PTR code, std::wstring text) {
        text.resize(4 * text.size() + 4);  // as many bytes as scripts announce
        COPYDATASTRUCT data{code, static_cast<DWORD>(text.size() * sizeof(wchar_t)), text.data()};
        return SendMessageW(Window(), WM_COPYDATA, reinterpret_cast<WPARAM>(Window()),
                            reinterpret_cast<LPARAM>(&data));
    }

    bool IsOpen() const { return IsWindowVisible(Window()) != FALSE; }
    bool IsDefault(int button) const {
        return (SendDlgItemMessageW(Window(), button, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0;
    }

    test::TempFolder folder_;
    std::wstring favourite_ = folder_ / L"a.txt";
    Texts runs_;
    std::function<void()> during_ = [] {};
    std::function<BOOL(HMENU)> chosen_;  ///< What a menu answers instead of being shown.
    // A menu that nobody works would wait for somebody.
    int menusLeft_ = 0;

private:
    // The pointer would select what lies under it, and open it when it is a folder.
    test::WatchedImport<&SetCursorPos> pointer_{"SetCursorPos", [](int, int) { return TRUE; }};
    int menusRefused_ = 0;
    test::WatchedImport<&TrackPopupMenu> track_{
        "TrackPopupMenu",
        [this](HMENU menu, UINT flags, int x, int y, int reserved, HWND owner, const RECT* free) {
            const bool isExpected = menusLeft_-- > 0;
            if (isExpected && chosen_)
                return chosen_(menu);
            if (isExpected)
                return track_.CallReal(menu, flags, x, y, reserved, owner, free);
            ++menusRefused_;
            return FALSE;
        }};
};

TEST_F(FavouritesButton, WithoutTheirFolderSaysSoAndShowsNoMenu) {
    for (const std::wstring& folder : {folder_ / L"gone", favourite_, std::wstring()}) {
        world_.Favourites.Folder = folder;
        const test::AnsweredBoxes boxes;
        Press(IDC_FAVOURITES);
        EXPECT_EQ(boxes.Only().Text, L"No bar, none.");
        EXPECT_EQ(boxes.Only().Icon(), UINT{MB_ICONEXCLAMATION});
        EXPECT_EQ(boxes.Only().Buttons(), UINT{MB_OK});
    }
    EXPECT_EQ(runs_, Texts{});
}

TEST_F(FavouritesButton, RunsTheScriptThatIsChosen) {
    test::WriteUnits(folder_ / L"b.txt", L"");
    Choose(L"b.txt");
    EXPECT_EQ(runs_, Texts{folder_ / L"b.txt"});
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(IsWindowEnabled(Window()));
}

TEST_F(FavouritesButton, RunsNothingWhenTheMenuIsCancelled) {
    PressAndDo([](const test::MenuDriver& menu) {
        EXPECT_TRUE(menu.GoTo(L"a.txt"));
        EXPECT_TRUE(menu.Leave(VK_ESCAPE));
    });
    EXPECT_EQ(runs_, Texts{});
    EXPECT_EQ(Destination(), L"");
}

TEST_F(FavouritesButton, OffersFilesAndTheFolderItselfButNothingHidden) {
    const std::wstring hidden = folder_ / L"z.txt";
    test::WriteUnits(hidden, L"");
    SetFileAttributesW(hidden.c_str(), FILE_ATTRIBUTE_HIDDEN);
    test::MakeFolders(folder_ / L"more");
    Texts texts;
    PressAndDo([&](const test::MenuDriver& menu) { texts = test::TextsOf(menu.OpenMenus().front()); });
    EXPECT_EQ(texts, (Texts{L"[Open Folder]", L"more\\", L"a.txt"}));
}

TEST_F(FavouritesButton, AFolderThatIsChosenItselfBecomesTheDestination) {
    test::MakeFolders(folder_ / L"more");
    SetWindowTextW(Edit(), L"D:\\before\\");
    menusLeft_ = 1;
    // Some systems give the command of a submenu that is clicked twice.
    chosen_ = [](HMENU menu) { return static_cast<BOOL>(test::EntriesOf(menu)[1].Command); };
    Press(IDC_FAVOURITES);
    EXPECT_EQ(Destination(), (folder_ / L"more") + L"\\");
    EXPECT_EQ(runs_, Texts{});
}

TEST_F(FavouritesButton, AnEmptyFolderOfFavouritesIsNamedInTheLanguageOfTheHost) {
    test::MakeFolders(folder_ / L"more");
    const auto textsOfMore = [&] {
        Texts texts;
        PressAndDo([&](const test::MenuDriver& menu) {
            EXPECT_TRUE(menu.Open(L"more"));
            texts = test::TextsOf(menu.OpenMenus().back());
            EXPECT_TRUE(menu.Leave(VK_LEFT));
        });
        return texts;
    };
    world_.Store.HostTexts[L"NLS"] = L".ja-JP";
    EXPECT_EQ(textsOfMore(), Texts{L"（空）"});
    world_.Store.HostTexts[L"NLS"] = L".en-US";
    EXPECT_EQ(textsOfMore(), Texts{L"(empty)"});
}

TEST_F(FavouritesButton, AMessageFileCanNameAnEmptyFolderOfFavourites) {
    world_.Messages.File = L"65261\tvide\r\n";
    test::MakeFolders(folder_ / L"more");
    PressAndDo([&](const test::MenuDriver& menu) {
        EXPECT_TRUE(menu.Open(L"more"));
        EXPECT_EQ(test::TextsOf(menu.OpenMenus().back()), Texts{L"vide"});
        EXPECT_TRUE(menu.Leave(VK_LEFT));
    });
}

TEST_F(FavouritesButton, OpensTheFolderInTheShellWhenThatIsChosen) {
    std::wstring opened;
    HWND owner = nullptr;
    const test::WatchedImport<&ShellExecuteExW> execute("ShellExecuteExW", [&](SHELLEXECUTEINFOW* info) {
        opened = info->lpFile;
        owner = info->hwnd;
        return TRUE;
    });
    PressAndDo([](const test::MenuDriver& menu) { EXPECT_TRUE(menu.Choose(L"[Open Folder]")); });
    EXPECT_EQ(opened, folder_.Path());
    EXPECT_EQ(owner, Window());
    EXPECT_EQ(runs_, Texts{});
    EXPECT_EQ(Destination(), L"");
}

TEST_F(FavouritesButton, TakesTheFolderOfAJumpForItsDestinationAndSelectsAllOfIt) {
    for (const ULONG_PTR code : {100U, 200U, 300U}) {
        SCOPED_TRACE(code);
        SetWindowTextW(Edit(), L"D:\\before\\");
        SendMessageW(Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(Window(), IDC_FAVOURITES)),
                     TRUE);
        EXPECT_TRUE(IsDefault(IDC_FAVOURITES));
        const std::wstring folder = L"D:\\jump" + std::to_wstring(code);
        Choose(L"a.txt", [&] { EXPECT_EQ(HandOver(code, folder), TRUE); });
        EXPECT_EQ(Destination(), folder + L"\\");
        DWORD start = 1;
        DWORD end = 0;
        SendMessageW(Edit(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(start, 0U);
        EXPECT_EQ(end, folder.size() + 1);
        EXPECT_EQ(GetFocus(), Edit());
        EXPECT_TRUE(IsDefault(IDOK)) << "Enter starts";
    }
}

TEST_F(FavouritesButton, LeavesEveryOtherHandOverToTheSystemAndTheFocusWhereItWas) {
    for (const ULONG_PTR code : {0U, 101U, 103U, 400U, 203U, 303U, 403U, 800U, 901U, 1003U, 1200U}) {
        SCOPED_TRACE(code);
        SetWindowTextW(Edit(), L"D:\\before\\");
        const HWND button = GetDlgItem(Window(), IDC_FAVOURITES);
        SetFocus(button);
        Choose(L"a.txt", [&] {
            EXPECT_EQ(HandOver(code, L"D:\\other"), FALSE);
            SetFocus(GetDlgItem(Window(), IDC_OPEN_TARGET));
        });
        EXPECT_EQ(Destination(), L"D:\\before\\");
        EXPECT_EQ(GetFocus(), button);
    }
}

TEST_F(FavouritesButton, AJumpToNoFolderChangesNothing) {
    SetWindowTextW(Edit(), L"D:\\before\\");
    const HWND button = GetDlgItem(Window(), IDC_FAVOURITES);
    SetFocus(button);
    Choose(L"a.txt", [&] { EXPECT_EQ(HandOver(100, L""), TRUE); });
    EXPECT_EQ(Destination(), L"D:\\before\\");
    EXPECT_EQ(GetFocus(), button);
}

TEST_F(FavouritesButton, AJumpHoldsForItsOwnRunOnly) {
    Choose(L"a.txt", [&] { HandOver(100, L"D:\\there"); });
    const HWND button = GetDlgItem(Window(), IDC_FAVOURITES);
    SetFocus(button);
    Choose(L"a.txt");
    EXPECT_EQ(GetFocus(), button);
}

TEST_F(FavouritesButton, TakesABlockOfAScriptLikeOneOfTheHost) {
    Open({});
    Choose(L"a.txt", [&] { EXPECT_EQ(HandOver(samplehost::kBlockTag, L"no block at all"), TRUE); });
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(runs_.size(), 1U);
    Choose(L"a.txt", [&] { HandOver(100, L"D:\\there"); });
    EXPECT_EQ(Destination(), L"D:\\there\\");
}

TEST_F(FavouritesButton, NothingStartsEndsOrBeginsAgainWhileAScriptRuns) {
    SetWindowTextW(Edit(), L"no path");
    const test::AnsweredBoxes boxes;
    Choose(L"a.txt", [&] {
        for (const int button : {IDOK, IDCANCEL, IDC_FAVOURITES})
            Press(button);
        SendMessageW(Window(), WM_CLOSE, 0, 0);
        test::Pump();
    });
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(runs_.size(), 1U);
    EXPECT_TRUE(boxes.Asked.empty());
    Press(IDOK);
    EXPECT_EQ(boxes.Only().Text, L"no path");
    Press(IDCANCEL);
    EXPECT_FALSE(IsOpen());
}

TEST_F(FavouritesButton, APressThatAScriptPostedCountsOnceItHasEnded) {
    SetWindowTextW(Edit(), L"no path");
    const test::AnsweredBoxes boxes;
    Choose(L"a.txt", [&] { PostMessageW(Window(), WM_COMMAND, IDOK, 0); });
    EXPECT_TRUE(boxes.Asked.empty());
    test::Pump();
    EXPECT_EQ(boxes.Only().Text, L"no path");
}

TEST_F(FavouritesButton, NothingStartsOrEndsWhileTheMenuIsOpen) {
    SetWindowTextW(Edit(), L"no path");
    const test::AnsweredBoxes boxes;
    PressAndDo([&](const test::MenuDriver&) {
        for (const int button : {IDOK, IDCANCEL, IDC_FAVOURITES})
            Press(button);
    });
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(boxes.Asked.empty());
    EXPECT_EQ(runs_, Texts{});
}

TEST_F(FavouritesButton, TheSessionDoesNotEndInTheMiddleOfAScript) {
    std::wstring why;
    const test::WatchedImport<&ShutdownBlockReasonCreate> create("ShutdownBlockReasonCreate",
                                                                 [&](HWND window, LPCWSTR reason) {
                                                                     EXPECT_EQ(window, Window());
                                                                     why = reason;
                                                                     return TRUE;
                                                                 });
    const test::WatchedImport<&ShutdownBlockReasonDestroy> destroy("ShutdownBlockReasonDestroy");
    const auto mayEnd = [&] { return SendMessageW(Window(), WM_QUERYENDSESSION, 0, 0) != FALSE; };
    Choose(L"a.txt", [&] {
        EXPECT_FALSE(mayEnd());
        EXPECT_EQ(why, L"a.txt");
        EXPECT_TRUE(destroy.Calls().empty());
    });
    EXPECT_TRUE(mayEnd());
    EXPECT_EQ(destroy.Calls().size(), 1U);
    bool mayEndDuringTheMenu = false;
    PressAndDo([&](const test::MenuDriver&) { mayEndDuringTheMenu = mayEnd(); });
    EXPECT_TRUE(mayEndDuringTheMenu);
}

TEST_F(FavouritesButton, WorksOnAfterARunThatFellShortOfMemory) {
    {
        const test::WatchedImport<&MessageBoxA> told("MessageBoxA",
                                                     [](HWND, LPCSTR, LPCSTR, UINT) { return IDOK; });
        Choose(L"a.txt", [] { throw std::bad_alloc(); });
        EXPECT_EQ(told.Calls().size(), 1U);
    }
    EXPECT_NE(SendMessageW(Window(), WM_QUERYENDSESSION, 0, 0), FALSE);
    Choose(L"a.txt", [&] { HandOver(100, L"D:\\there"); });
    EXPECT_EQ(runs_.size(), 2U);
    EXPECT_EQ(Destination(), L"D:\\there\\");
}

}  // namespace
}  // namespace ferry::dialogs
