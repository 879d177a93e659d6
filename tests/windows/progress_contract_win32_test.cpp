// The progress window keeps the contract of a run's progress view.
#include <windows.h>
// After windows.h, which it builds on.
#include <commctrl.h>

#include "core/transfer/progress_contract.h"
#include "dialogs/run_windows.h"
#include "ids.h"
#include "windows/dialog_world_win32.h"
#include "windows/support_win32.h"

namespace ferry::transfer::contract {
namespace {

class WindowPlace final : public ProgressPlace {
public:
    Progress& View() override { return view_; }
    void RequestCancel() override { test::Click(view_.Window(), IDCANCEL); }

    bool Shows(std::uint32_t position, std::uint32_t range, const std::wstring& line) override {
        const HWND bar = GetDlgItem(view_.Window(), IDC_BUSY_BAR);
        return test::PumpUntil([&] {
            return SendMessageW(bar, PBM_GETPOS, 0, 0) == static_cast<LRESULT>(position) &&
                   SendMessageW(bar, PBM_GETRANGE, FALSE, 0) == static_cast<LRESULT>(range) &&
                   test::TextOfControl(view_.Window(), IDC_BUSY_ITEM) == line;
        });
    }

private:
    test::DialogWorld world_;
    test::TestWindow confirmation_{
        CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)};
    dialogs::ProgressWindow view_{world_.Services(), confirmation_.Get(), Operation::Copy};
};

INSTANTIATE_TEST_SUITE_P(Window, ProgressContract, testing::Values(&test::Make<ProgressPlace, WindowPlace>));

}  // namespace
}  // namespace ferry::transfer::contract
