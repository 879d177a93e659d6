// The confirmation dialog: what is transferred, where to, and how.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "confirmation/arrivals.h"
#include "confirmation/start.h"
#include "controls/cmd_list_ctrl.h"
#include "controls/folder_list.h"
#include "controls/history_combo_box.h"
#include "dialogs/dialog_ex.h"
#include "dialogs/favourites.h"
#include "dialogs/services.h"
#include "dialogs/start_options.h"
#include "dirmenu/dir_menu.h"
#include "framework/fields.h"
#include "transfer/leftovers.h"
#include "transfer/request.h"

namespace ferry::dialogs {

/// The program's main window. It takes the host's selection and further deliveries, and on
/// "start" it ends and carries the transfer out before DoModal returns.
class CFerryDlg : public CDialogEx {
public:
    CFerryDlg(Services& services, const StartOptions& options, HWND owner);

protected:
    bool OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;
    std::span<const framework::Route> Routes() const override;

private:
    /// What a person does with the favourites just now.
    enum class FavouriteUse { None, Choosing, Running };
    class UseInProgress;

    bool ExchangeForm(framework::Exchange way);
    void PrepareDestination();
    void ShowModeLayout();

    // Deliveries of the host and drops.
    framework::Answer OnDropFiles(WPARAM wParam, LPARAM);
    framework::Answer OnCopyData(WPARAM, LPARAM lParam);
    framework::Answer OnRaiseTimer(WPARAM id, LPARAM);
    framework::Answer OnAreYouFerry(WPARAM, LPARAM) { return 1; }
    bool TakeDelivery(const COPYDATASTRUCT& data);
    void TakeDroppedItems(base::TextList paths);
    void TakeDroppedFolders(base::TextList paths);
    void PresetDestination();
    void FillTabList();
    void ShowTabChoice();
    void OpenIfMinimised() const;
    void FocusAtStart();
    void ShowItemCount();
    void OfferSourceFolder();
    void SetDestination(std::wstring_view folder);
    void SetDestinationAndSelect(std::wstring_view folder);

    // What the user does.
    void OnModeChanged();
    void OnBrowse();
    void OnOtherTabs();
    void OnTabSelected();
    void ShowMissing(std::uint16_t number);
    framework::Answer OnHelp(WPARAM templateId, LPARAM);

    // The favourites.
    void OnFavourites();
    std::optional<dirmenu::Choice> AskForFavourite(const std::wstring& folder);
    void TakeFavourite(const dirmenu::Choice& choice);
    void RunFavourite(const std::wstring& script);

    // The start of the transfer.
    std::optional<transfer::TransferRequest> MakeRequest();
    void ShowMessage(std::uint16_t number);
    void TellHostToOpen(const std::wstring& destination);
    void RunTransfer(const transfer::TransferRequest& request);
    framework::Answer OnSessionEnds(WPARAM, LPARAM) const;
    framework::Answer OnNameControls(WPARAM, LPARAM);
    transfer::Leftovers RunItemByItem(const transfer::TransferRequest& request,
                                      transfer::ShellOperations& shell);

    Services& services_;
    StartOptions options_;
    confirmation::Choices form_;  ///< What the controls hold.
    confirmation::Arrivals arrivals_;
    bool hasStarted_ = false;
    bool hasNewDestination_ = false;  ///< Since a favourite began to run.
    FavouriteUse favouriteUse_ = FavouriteUse::None;
    std::unique_ptr<Favourites> favourites_;  ///< Made when they are first wanted.
    controls::CCmdListCtrl list_;
    controls::CFolderList tabList_;
    controls::CHistryComboBoxEx destination_;
};

}  // namespace ferry::dialogs
