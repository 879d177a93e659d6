// Which page of the manual F1 opens, from which window and for which reader.
#include <windows.h>
#include <shellapi.h>

#include <algorithm>

#include "dialogs/busy_dialog.h"
#include "dialogs/file_mode_dialog.h"
#include "dialogs/input_dialog.h"
#include "dialogs/report_dialog.h"
#include "support/disk_win32.h"
#include "support/menus_win32.h"
#include "windows/ferry_dialog_fixture_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dialogs {
namespace {

constexpr wchar_t kCommand[] = L"Manual\\kiv\\man5\\6.Command\\2.DefaultCommand\\";

/// A program with a manual of two languages beside it, whose pages are asked for.
class ManualPage : public FerryDialogTest {
protected:
    void InLanguage(const wchar_t* suffix) {
        world_.Store.HostTexts[L"NLS"] = suffix;
        world_.Services().ModulePath = program_ / L"Ferry.exe";
        Lay(L"", L"Ferry.html");
        Lay(L".en-US\\", L"Ferry.html");
        for (const wchar_t* const page : {L"progress", L"rename", L"collision", L"report", L"favourites"}) {
            Lay(L"", std::wstring(L"Ferry\\ja\\") + page + L".html");
            Lay(L"", std::wstring(L"Ferry\\en\\") + page + L".html");
        }
        Open({});
    }

    /// The page that opens when F1 is pressed in `window`, below the program's folder.
    std::wstring OpenedFrom(HWND window) {
        std::wstring file;
        const test::WatchedImport<&ShellExecuteExW> open("ShellExecuteExW", [&](SHELLEXECUTEINFOW* info) {
            file = info->lpFile;
            return TRUE;
        });
        HELPINFO info{};
        info.cbSize = sizeof info;
        // A control hands it on to its dialog, and may keep what that answers to itself.
        const LRESULT answer = SendMessageW(window, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
        EXPECT_TRUE(answer == TRUE || GetAncestor(window, GA_ROOT) != window);
        EXPECT_EQ(open.Calls().size(), 1U);
        EXPECT_TRUE(file.starts_with(program_ / L""));
        return file.substr(std::min(file.size(), (program_ / L"").size()));
    }

    /// The same for a dialog that belongs to the confirmation dialog.
    std::wstring OpenedFrom(framework::CDialog& dialog) {
        EXPECT_TRUE(dialog.Create(Window()));
        return OpenedFrom(dialog.Handle());
    }

    /// What each dialog beside the confirmation dialog opens, in this order: progress, new name, name that
    /// exists, report.
    std::vector<std::wstring> OpenedFromTheOthers() {
        CDlgBusy progress(world_.Services().Localiser);
        CDlgInput newName(world_.Services(), Window(), L"", L"C:\\a.txt");
        CDlgFileMode nameExists(world_.Services(), Window(), L"a.txt");
        const transfer::Leftovers left;
        CDlgReport report(world_.Services().Localiser, Window(), left);
        return {OpenedFrom(progress), OpenedFrom(newName), OpenedFrom(nameExists), OpenedFrom(report)};
    }

    test::TempFolder program_;

private:
    void Lay(const std::wstring& base, const std::wstring& page) {
        const std::wstring path = program_ / (base + kCommand + page);
        test::MakeFolders(path.substr(0, path.rfind(L'\\')));
        test::WriteBytes(path, {std::byte{' '}});
    }
};

std::wstring Topic(const wchar_t* page) {
    return std::wstring(kCommand) + L"Ferry\\" + page;
}

TEST_F(ManualPage, OfEachDialogIsJapaneseForAJapaneseReader) {
    InLanguage(L".ja-JP");
    EXPECT_EQ(OpenedFrom(Window()), std::wstring(kCommand) + L"Ferry.html");
    EXPECT_EQ(OpenedFromTheOthers(),
              (std::vector<std::wstring>{Topic(L"ja\\progress.html"), Topic(L"ja\\rename.html"),
                                         Topic(L"ja\\collision.html"), Topic(L"ja\\report.html")}));
}

TEST_F(ManualPage, OfEachDialogIsEnglishForAnEnglishReader) {
    InLanguage(L".en-US");
    EXPECT_EQ(OpenedFrom(Window()), std::wstring(L".en-US\\") + kCommand + L"Ferry.html");
    EXPECT_EQ(OpenedFromTheOthers(),
              (std::vector<std::wstring>{Topic(L"en\\progress.html"), Topic(L"en\\rename.html"),
                                         Topic(L"en\\collision.html"), Topic(L"en\\report.html")}));
}

TEST_F(ManualPage, ThatIsMissingGivesWayToTheMainOne) {
    InLanguage(L".ja-JP");
    DeleteFileW((program_ / Topic(L"ja\\progress.html")).c_str());
    CDlgBusy progress(world_.Services().Localiser);
    EXPECT_EQ(OpenedFrom(progress), std::wstring(kCommand) + L"Ferry.html");
}

TEST_F(ManualPage, IsTheControlsDialogs) {
    InLanguage(L".ja-JP");
    EXPECT_EQ(OpenedFrom(List()), std::wstring(kCommand) + L"Ferry.html");
    CDlgFileMode nameExists(world_.Services(), Window(), L"a.txt");
    ASSERT_TRUE(nameExists.Create(Window()));
    EXPECT_EQ(OpenedFrom(GetDlgItem(nameExists.Handle(), IDC_STOP_ALL)), Topic(L"ja\\collision.html"));
}

/// Asks for help while a menu of the dialog is open, and closes it.
class MenuHelp : public ManualPage {
protected:
    /// The page that F1 opens while the menu of `button` is open.
    std::wstring OpenedInMenuOf(int button) {
        world_.Favourites.Folder = program_.Path();
        world_.Services().Host.TabFolders.Append(L"D:\\tab");
        current_ = this;
        opened_.clear();
        constexpr UINT kStepMs = 10;
        const UINT_PTR timer = SetTimer(nullptr, 0, kStepMs, &Ask);
        SendMessageW(Window(), WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                     reinterpret_cast<LPARAM>(GetDlgItem(Window(), button)));
        KillTimer(nullptr, timer);
        return opened_;
    }

private:
    static void CALLBACK Ask(HWND, UINT, UINT_PTR, DWORD) {
        const HWND menu = FindWindowW(test::kMenuClass, nullptr);
        if (menu == nullptr || !IsWindowVisible(menu) || !current_->opened_.empty())
            return;
        // The key goes to the window that the menu belongs to: of favourites, a child of their button.
        constexpr int kMenuWindow = 500;
        const HWND owner = GetDlgItem(GetDlgItem(current_->Window(), IDC_FAVOURITES), kMenuWindow);
        current_->opened_ = current_->OpenedFrom(owner != nullptr ? owner : current_->Window());
        EndMenu();
    }

    static inline MenuHelp* current_ = nullptr;
    std::wstring opened_;
};

TEST_F(MenuHelp, IsThatOfTheFavouritesInTheirMenuOnly) {
    InLanguage(L".ja-JP");
    EXPECT_EQ(OpenedInMenuOf(IDC_FAVOURITES), Topic(L"ja\\favourites.html"));
    EXPECT_EQ(OpenedInMenuOf(IDC_OTHER_TABS), std::wstring(kCommand) + L"Ferry.html");
    EXPECT_EQ(OpenedFrom(Window()), std::wstring(kCommand) + L"Ferry.html");
}

}  // namespace
}  // namespace ferry::dialogs
