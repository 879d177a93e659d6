// The favourites: scripts of the user's that give the dialog its destination.
#include <windows.h>

#include "base/com_ptr_win32.h"
#include "desktop/session_hold.h"
#include "desktop/shell_open.h"
#include "dialogs/ferry_dialog.h"
#include "dirmenu/dir_menu_window.h"
#include "dirmenu/menu_texts.h"
#include "ids.h"
#include "lang/catalogue.h"
#include "paths/path_grammar.h"

namespace ferry::dialogs {

namespace {

constexpr std::uint16_t kMessageNoFavourites = 62402;

// The folders hold favourites and are no destinations themselves, so none of them can be selected; opening
// the topmost one is how a person gets at the files.
constexpr dirmenu::MenuOptions kFavouritesMenu{.ListFiles = 1, .OfferOpenFolder = 1};

}  // namespace

/// Says what the favourites are used for as long as it lives.
class CFerryDlg::UseInProgress {
public:
    UseInProgress(FavouriteUse& use, FavouriteUse now) noexcept : use_(use), before_(use) { use_ = now; }
    UseInProgress(const UseInProgress&) = delete;
    UseInProgress& operator=(const UseInProgress&) = delete;
    ~UseInProgress() { use_ = before_; }

private:
    FavouriteUse& use_;
    FavouriteUse before_;
};

void CFerryDlg::OnFavourites() {
    // A menu and a script take messages, so another program's press can come in the middle of one.
    if (hasStarted_ || favouriteUse_ != FavouriteUse::None) {
        return;
    }
    const UseInProgress use(favouriteUse_, FavouriteUse::Choosing);
    if (!favourites_) {
        favourites_ = services_.MakeFavourites(Handle());
    }
    const std::wstring folder = favourites_->Folder();
    if (!files::IsFolder(services_.Files.Attributes(folder))) {
        ShowMissing(kMessageNoFavourites);
        return;
    }
    if (const std::optional<dirmenu::Choice> choice = AskForFavourite(folder)) {
        TakeFavourite(*choice);
    }
}

std::optional<dirmenu::Choice> CFerryDlg::AskForFavourite(const std::wstring& folder) {
    const std::wstring language = services_.Settings.ReadHostText(L"NLS", lang::kBuiltInSuffix);
    dirmenu::CDirMenuWnd menu(Item(IDC_FAVOURITES), services_.Folders,
                              dirmenu::TextsOf(services_.Messages, language));
    return menu.Track(folder, kFavouritesMenu);
}

void CFerryDlg::TakeFavourite(const dirmenu::Choice& choice) {
    switch (choice.Kind) {
        case dirmenu::ChoiceKind::File:
            RunFavourite(choice.Path);
            break;
        case dirmenu::ChoiceKind::Folder:
            SetDestinationAndSelect(choice.Path);
            break;
        case dirmenu::ChoiceKind::OpenFolder: {
            const base::ComApartment com;
            // The shell itself says what went wrong.
            desktop::ShellOpen(
                {.Owner = Handle(), .File = choice.Path, .Parameters = {}, .WorkingFolder = {}});
            break;
        }
    }
}

void CFerryDlg::RunFavourite(const std::wstring& script) {
    const HWND focus = GetFocus();
    hasNewDestination_ = false;
    {
        const UseInProgress use(favouriteUse_, FavouriteUse::Running);
        const desktop::SessionHold hold(Handle(), std::wstring(paths::LastComponent(script)));
        favourites_->Run(script);
    }
    const HWND next = hasNewDestination_ ? destination_.Edit() : focus;
    if (next != nullptr && next != GetFocus()) {
        // The dialog's own message takes the frame of the default button along.
        SendMessageW(Handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
    }
    if (hasNewDestination_) {
        destination_.SelectAll();
    }
}

/// A script that runs would lose the window that it works for.
void CFerryDlg::OnCancel() {
    if (favouriteUse_ == FavouriteUse::None) {
        CDialogEx::OnCancel();
    }
}

}  // namespace ferry::dialogs
