#include "dialogs/report_dialog.h"

#include <limits>

#include "base/text.h"
#include "desktop/clipboard.h"
#include "desktop/system_error.h"
#include "desktop/window_placement.h"
#include "ids.h"

namespace ferry::dialogs {
namespace {

/// More lines than anybody reads; a field of text takes long for a million.
constexpr std::size_t kShownItems = 1000;

}  // namespace

CDlgReport::CDlgReport(DialogLocaliser& localiser, HWND owner, const transfer::Leftovers& left) noexcept
    : CDialogEx(IDD_REPORT, localiser, owner), left_(left) {}

bool CDlgReport::OnInitDialog() {
    Localise();
    TakeTexts();
    SetDlgItemTextW(Handle(), IDC_REPORT_SUMMARY, ReportSummary(left_, texts_).c_str());
    SendDlgItemMessageW(Handle(), IDC_REPORT_LIST, EM_LIMITTEXT, 0, 0);  // as much as it can
    SetDlgItemTextW(Handle(), IDC_REPORT_LIST, ReportList(left_, texts_, kShownItems).c_str());
    // After a long run the person may be somewhere else.
    desktop::FlashIfElsewhere(Handle());
    // The focus would select the whole list.
    SetFocus(Item(IDOK));
    return false;
}

/// The template lends the texts, since a language file translates what stands in it.
void CDlgReport::TakeTexts() {
    texts_.Summary = framework::WindowText(Item(IDC_REPORT_SUMMARY));
    texts_.Describe = [](std::uint32_t code) {
        // It ends with a line of its own.
        return std::wstring(base::Trim(desktop::SystemErrorText(code)));
    };
    for (std::size_t reason = 0; reason < texts_.Reasons.size(); ++reason)
        texts_.Reasons[reason] =
            framework::WindowText(Item(IDC_REPORT_FIRST_REASON + static_cast<int>(reason)));
}

std::span<const framework::Route> CDlgReport::Routes() const {
    static constexpr framework::Route kRoutes[] = {
        framework::OnClick<&CDlgReport::CopyList>(IDC_REPORT_COPY),
    };
    return kRoutes;
}

void CDlgReport::CopyList() {
    constexpr auto kAll = std::numeric_limits<std::size_t>::max();
    const std::wstring text = ReportSummary(left_, texts_) + L"\r\n" + ReportList(left_, texts_, kAll);
    if (!desktop::SetClipboardText(text))
        MessageBeep(MB_ICONWARNING);
}

void ReportLeftovers(DialogLocaliser& localiser, HWND owner, const transfer::Leftovers& left) {
    if (!left.Left().empty())
        CDlgReport(localiser, owner, left).DoModal();
}

}  // namespace ferry::dialogs
