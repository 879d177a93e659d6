#include "dialogs/file_mode_dialog.h"

#include <tuple>

#include "framework/fields.h"
#include "ids.h"

namespace ferry::dialogs {

namespace {

constexpr wchar_t kLastChoice[] = L"AfterSel";

// The choices in the order of the collision policies.
constexpr int kChoices[] = {1220, 1221, 1222, 1223, 1224, 1225, 1226};

}  // namespace

CDlgFileMode::CDlgFileMode(Services& services, HWND owner, std::wstring itemName)
    : CDialog(IDD_FILE_MODE, owner), services_(services), form_{std::move(itemName), 0} {}

bool CDlgFileMode::OnInitDialog() {
    services_.Localiser.Localise(IDD_FILE_MODE, Handle());
    form_.Choice = services_.Settings.ReadNumber(kLastChoice, 0);
    SetDlgItemTextW(Handle(), IDC_ITEM_NAME, form_.ItemName.c_str());
    framework::ExchangeFields(Handle(), form_,
                              std::tuple{framework::RadioField<Form>{kChoices, &Form::Choice}},
                              framework::Exchange::ToControls);
    return true;
}

void CDlgFileMode::Accept(int endCode) {
    framework::ExchangeFields(Handle(), form_,
                              std::tuple{framework::RadioField<Form>{kChoices, &Form::Choice}},
                              framework::Exchange::FromControls);
    if (!IsShiftHeld()) {
        services_.Settings.WriteNumber(kLastChoice, form_.Choice);
    }
    EndDialog(endCode);
}

std::span<const framework::Route> CDlgFileMode::Routes() const {
    static constexpr framework::Route kRoutes[] = {
        framework::OnClick<&CDlgFileMode::ApplyToAll>(IDC_APPLY_TO_ALL),
        framework::OnClick<&CDlgFileMode::StopAll>(IDC_STOP_ALL),
    };
    return kRoutes;
}

}  // namespace ferry::dialogs
