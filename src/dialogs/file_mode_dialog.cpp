#include "dialogs/file_mode_dialog.h"

#include <tuple>

#include "confirmation/policies.h"
#include "ids.h"

namespace ferry::dialogs {

namespace {

constexpr wchar_t kLastChoice[] = L"AfterSel";

}  // namespace

CDlgFileMode::CDlgFileMode(Services& services, HWND owner, std::wstring itemName)
    : CDialog(IDD_FILE_MODE, owner), services_(services), form_{std::move(itemName), 0} {}

bool CDlgFileMode::OnInitDialog() {
    services_.Localiser.Localise(TemplateId(), Handle());
    form_.Choice = services_.Settings.ReadNumber(kLastChoice, 0);
    SetDlgItemTextW(Handle(), IDC_ITEM_NAME, form_.ItemName.c_str());
    ExchangeForm(framework::Exchange::ToControls);
    return true;
}

void CDlgFileMode::ExchangeForm(framework::Exchange way) {
    static const std::tuple kFields{
        framework::RadioField<Form>{confirmation::CollisionChoices(), &Form::Choice}};
    framework::ExchangeFields(Handle(), form_, kFields, way);
}

void CDlgFileMode::Accept(int endCode) {
    ExchangeForm(framework::Exchange::FromControls);
    if (!IsToBeForgotten()) {
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
