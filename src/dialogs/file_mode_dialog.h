// Asks what to do about one name that exists at the destination.
#pragma once

#include <cstdint>
#include <string>

#include "dialogs/services.h"
#include "framework/dialog.h"

namespace ferry::dialogs {

/// The collision dialog. DoModal answers IDOK for this item, IDC_APPLY_TO_ALL for this and all
/// later ones, IDC_STOP_ALL to end the run, IDCANCEL to skip the item.
class CDlgFileMode : public framework::CDialog {
public:
    CDlgFileMode(Services& services, HWND owner, std::wstring itemName);

    /// The chosen policy, as remembered from the last time until the user chooses.
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

    void ApplyToAll() { Accept(kApplyToAllCode); }
    void StopAll() { EndDialog(kStopAllCode); }
    void Accept(int endCode);

    static constexpr int kApplyToAllCode = 5;
    static constexpr int kStopAllCode = 7;

    Services& services_;
    Form form_;
};

}  // namespace ferry::dialogs
