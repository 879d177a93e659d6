// Tells what a run left behind.
#pragma once

#include "confirmation/report.h"
#include "dialogs/dialog_ex.h"
#include "transfer/leftovers.h"

namespace ferry::dialogs {

/// Shows how many items stayed behind, which and why, and offers the whole list as text.
class CDlgReport : public CDialogEx {
public:
    /// `left` must outlive the dialog.
    CDlgReport(DialogLocaliser& localiser, HWND owner, const transfer::Leftovers& left) noexcept;

protected:
    bool OnInitDialog() override;
    std::span<const framework::Route> Routes() const override;

private:
    void TakeTexts();
    void CopyList();

    const transfer::Leftovers& left_;
    confirmation::ReportTexts texts_;
};

/// Shows the report, if anything was left behind.
void ReportLeftovers(DialogLocaliser& localiser, HWND owner, const transfer::Leftovers& left);

}  // namespace ferry::dialogs
