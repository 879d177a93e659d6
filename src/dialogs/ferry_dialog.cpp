#include "dialogs/ferry_dialog.h"

#include <shellapi.h>

#include <tuple>

#include "base/text.h"
#include "confirmation/policies.h"
#include "desktop/window_placement.h"
#include "dialogs/list_items.h"
#include "dirmenu/labels.h"
#include "framework/accessible_name.h"
#include "framework/fields.h"
#include "framework/handles.h"
#include "ids.h"

namespace ferry::dialogs {

using framework::Answer;
using framework::Exchange;
using framework::Route;

namespace {

constexpr int kMaxDestinationLength = 250;

// A longer answer of the folder browser is no folder that the shell could name.
constexpr std::size_t kBrowsedPathLimit = 520;

// Asks whether a window is this dialog; another program of the host may send it.
constexpr UINT kIdentifyMessage = 0x8030;
// The dialog's own: name the controls for screen readers.
constexpr UINT kNameControlsMessage = 0x8040;

constexpr std::uint16_t kMessageNoTabFolders = 62401;
constexpr std::uint16_t kMessageMissingTail = 62325;
constexpr std::uint16_t kMessageBrowsePrompt = 63503;

constexpr int kOperations[] = {IDC_COPY, IDC_MOVE};
constexpr int kModes[] = {IDC_BATCH, IDC_INDIVIDUAL};

constexpr int kIndividualOnly[] = {IDC_POLICY_GROUP, IDC_PRECISION_LABEL, IDC_PRECISION};

POINT CentreOf(HWND window) {
    RECT box{};
    GetWindowRect(window, &box);
    return {(box.left + box.right) / 2, (box.top + box.bottom) / 2};
}

}  // namespace

CFerryDlg::CFerryDlg(Services& services, const StartOptions& options, HWND owner)
    : CDialogEx(IDD_FERRY, services.Localiser, owner),
      services_(services),
      options_(options),
      list_(services.Files),
      destination_(services.Files, services.Folders, services.Messages, services.Speaker, services.Settings) {
    form_.Operation = static_cast<std::uint32_t>(options.TransferMode);
}

bool CFerryDlg::ExchangeForm(Exchange way) {
    using confirmation::Choices;
    using transfer::TransferSettings;
    static const std::tuple kChoices{
        framework::TextField<Choices>{IDC_DESTINATION, &Choices::Destination, kMaxDestinationLength},
        framework::RadioField<Choices>{kOperations, &Choices::Operation},
    };
    static const std::tuple kSettings{
        framework::RadioField<TransferSettings>{kModes, &TransferSettings::Mode},
        framework::RadioField<TransferSettings>{confirmation::ConfirmationChoices(),
                                                &TransferSettings::Policy},
        framework::CheckField<TransferSettings>{IDC_NO_ASK, &TransferSettings::NoAsk},
        framework::CheckField<TransferSettings>{IDC_OPEN_TARGET, &TransferSettings::OpenTarget},
        framework::IndexField<TransferSettings>{IDC_PRECISION, &TransferSettings::TimeCmpType},
    };
    return framework::ExchangeFields(Handle(), form_, kChoices, way) &&
           framework::ExchangeFields(Handle(), form_.Settings, kSettings, way);
}

bool CFerryDlg::OnInitDialog() {
    const hostlink::HostData& host = services_.Host;
    const bool hostHandedData = !host.SelectedItems.IsEmpty() || !host.TabFolders.IsEmpty();
    EnableWindow(Item(IDOK), hostHandedData ? TRUE : FALSE);
    for (const wchar_t* precision : kPrecisions) {
        SendDlgItemMessageW(Handle(), IDC_PRECISION, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(precision));
    }
    Localise();
    list_.Prepare(Item(IDC_SOURCE_LIST), [this](UINT dpi) { return services_.Shell.SmallIcons(dpi); });
    tabList_.Attach(Item(IDC_TAB_LIST));
    PrepareDestination();
    DragAcceptFiles(Handle(), TRUE);
    form_.Settings = transfer::LoadTransferSettings(services_.Settings);
    ExchangeForm(Exchange::ToControls);
    ShowModeLayout();
    desktop::CentreOverHost(Handle(), host.WindowMode);
    list_.Append(std::move(services_.Host.SelectedItems));
    ShowItemCount();
    OfferSourceFolder();
    PresetDestination();
    FillTabList();
    desktop::ApplyWindowMode(Handle(), host.WindowMode, {});
    ShowTabChoice();
    FocusAtStart();
    PostMessageW(Handle(), kNameControlsMessage, 0, 0);
    return false;
}

// The focus of the destination is in an edit control two windows deep, for which Windows finds no label; the
// browse button shows three dots. Both are named when the dialog stands, since that needs a service of COM.
framework::Answer CFerryDlg::OnNameControls(WPARAM, LPARAM) {
    const std::wstring destination =
        base::ReplaceAll(framework::WindowText(Item(IDC_DESTINATION_LABEL)), L"&", L"");
    const framework::AccessibleName names[] = {
        {destination_.Edit(), destination},
        {destination_.Combo(), destination},
        // Of a message file that is not there nobody wants to hear at the start.
        {Item(IDC_BROWSE), services_.Messages.Find(kMessageBrowsePrompt).value_or(L"...")},
    };
    framework::NameForScreenReaders(names);
    return 0;
}

// The list box has the button's text for a label, with its mnemonic, since only one of them shows.
void CFerryDlg::ShowTabChoice() {
    const HWND button = Item(IDC_OTHER_TABS);
    const HWND label = Item(IDC_TAB_LIST_LABEL);
    if (options_.TabListMode != 0) {
        SetWindowTextW(label, framework::WindowText(button).c_str());
        ShowWindow(button, SW_HIDE);
    } else {
        ShowWindow(label, SW_HIDE);
        ShowWindow(Item(IDC_TAB_LIST), SW_HIDE);
    }
}

void CFerryDlg::PrepareDestination() {
    destination_.Prepare(Item(IDC_DESTINATION));
    destination_.SetFoldersOnly(true);
    destination_.SetCompletionOn(true);
    DragAcceptFiles(destination_.Handle(), TRUE);
    destination_.LoadSoon();
    destination_.SetSaveOnClose(true);
}

// Batch mode leaves conflicts to the shell, so only "do not ask" has a meaning there; the rest
// belongs to individual mode, in which every other number runs.
void CFerryDlg::ShowModeLayout() {
    const bool individual = form_.Settings.Mode != static_cast<std::uint32_t>(transfer::WorkingMode::Batch);
    const int showIndividual = individual ? SW_SHOW : SW_HIDE;
    for (const int id : kIndividualOnly) {
        ShowWindow(Item(id), showIndividual);
    }
    for (const int id : confirmation::ConfirmationChoices()) {
        ShowWindow(Item(id), showIndividual);
    }
    ShowWindow(Item(IDC_NO_ASK), individual ? SW_HIDE : SW_SHOW);
}

std::span<const Route> CFerryDlg::Routes() const {
    static constexpr Route kRoutes[] = {
        framework::OnMessage<&CFerryDlg::OnDropFiles>(WM_DROPFILES),
        framework::OnMessage<&CFerryDlg::OnCopyData>(WM_COPYDATA),
        framework::OnMessage<&CFerryDlg::OnRaiseTimer>(WM_TIMER),
        framework::OnMessage<&CFerryDlg::OnHelp>(WM_HELP),
        framework::OnMessage<&CFerryDlg::OnSessionEnds>(WM_QUERYENDSESSION),
        framework::OnMessage<&CFerryDlg::OnNameControls>(kNameControlsMessage),
        framework::OnMessage<&CFerryDlg::OnAreYouFerry>(kIdentifyMessage),
        framework::OnClick<&CFerryDlg::OnModeChanged>(IDC_BATCH),
        framework::OnClick<&CFerryDlg::OnModeChanged>(IDC_INDIVIDUAL),
        framework::OnClick<&CFerryDlg::OnBrowse>(IDC_BROWSE),
        framework::OnClick<&CFerryDlg::OnOtherTabs>(IDC_OTHER_TABS),
        framework::OnClick<&CFerryDlg::OnFavourites>(IDC_FAVOURITES),
        framework::OnCommand<&CFerryDlg::OnTabSelected>(IDC_TAB_LIST, LBN_SELCHANGE),
    };
    return kRoutes;
}

void CFerryDlg::OnModeChanged() {
    form_.Settings.Mode = IsDlgButtonChecked(Handle(), IDC_INDIVIDUAL) == BST_CHECKED ? 1 : 0;
    ShowModeLayout();
}

void CFerryDlg::OnBrowse() {
    const std::optional<std::wstring> chosen = services_.Shell.BrowseForFolder(
        Handle(), services_.Messages.Fetch(kMessageBrowsePrompt), destination_.EditText());
    if (chosen && !chosen->empty() && chosen->size() < kBrowsedPathLimit) {
        SetDestinationAndSelect(*chosen);
    }
}

/// What is missing, and that it is: two texts of the host's, joined as they are.
void CFerryDlg::ShowMissing(std::uint16_t number) {
    services_.Speaker.Tell(services_.Messages.Fetch(number) + services_.Messages.Fetch(kMessageMissingTail),
                           lang::Tone::Warning);
}

void CFerryDlg::OnOtherTabs() {
    const base::TextList& folders = services_.Host.TabFolders;
    if (folders.IsEmpty()) {
        ShowMissing(kMessageNoTabFolders);
        return;
    }
    const framework::MenuHandle menu(CreatePopupMenu());
    for (std::size_t index = 0; index < folders.Size(); ++index) {
        AppendMenuW(menu.Get(), MF_STRING, index + 1, dirmenu::MenuText(folders[index]).c_str());
    }
    const POINT centre = CentreOf(Item(IDC_OTHER_TABS));
    const int command = TrackPopupMenu(menu.Get(), TPM_CENTERALIGN | TPM_VCENTERALIGN | TPM_RETURNCMD,
                                       centre.x, centre.y, 0, Handle(), nullptr);
    if (command > 0) {
        SetDestination(folders[static_cast<std::size_t>(command) - 1]);
    }
}

void CFerryDlg::OnTabSelected() {
    const LRESULT index = SendDlgItemMessageW(Handle(), IDC_TAB_LIST, LB_GETCURSEL, 0, 0);
    if (index >= 0 && static_cast<std::size_t>(index) < services_.Host.TabFolders.Size()) {
        SetDestination(services_.Host.TabFolders[static_cast<std::size_t>(index)]);
    }
}

Answer CFerryDlg::OnRaiseTimer(WPARAM id, LPARAM) {
    if (id != desktop::kRaiseTimerId) {
        return std::nullopt;
    }
    desktop::RaiseOnce(Handle());
    return 0;
}

}  // namespace ferry::dialogs
