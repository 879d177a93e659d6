// Asks what to do about one name that exists at the destination.
#pragma once

#include <cstdint>
#include <string>

#include "dialogs/services.h"
#include "framework/dialog.h"
#include "framework/fields.h"
#include "ids.h"

namespace ferry::dialogs {

/// The collision dialog. DoModal answers IDOK for this item, IDC_APPLY_TO_ALL for this and all
/// later ones, IDC_STOP_ALL to end the run, IDCANCEL to skip the item.
class CDlgFileMode : public framework::CDialog {
public:
    CDlgFileMode(Services& services, HWND owner, std::wstring itemName);

    /// The number of the chosen policy, as remembered from the last time until the user chooses.
    std::uint32_t Choice() const noexcept { return form_.Choice; }

protected:
    bool OnInitDialog() override;
    void OnOK() override { Accept(IDOK); }
    std::span<const framework::Route> Routes() const override;

private:
    struct Form {
        std::wstring ItemName;
        std::uint32_t Choice = 0;
    };

    void ExchangeForm(framework::Exchange way);
    void ApplyToAll() { Accept(IDC_APPLY_TO_ALL); }
    void StopAll() { EndDialog(IDC_STOP_ALL); }
    void Accept(int endCode);

    Services& services_;
    Form form_;
};

}  // namespace ferry::dialogs
