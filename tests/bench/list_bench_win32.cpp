// What a block of a million items costs: the time from its delivery to a list that can be used, against the
// bare parse of the same block, and the peak memory of the installed program, against the block's bytes.
//
// FERRY_E2E_APP names the installed layout; without it, the layout "app" beside the build tree is
// taken. Prints one line of JSON per comparison and ends with 1 when one could not be measured.
#include <windows.h>
// After windows.h, which they build on.
#include <commctrl.h>
#include <psapi.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>

#include "base/handles_win32.h"
#include "comparison.h"
#include "dialogs/ferry_dialog.h"
#include "e2e/driver/child_process.h"
#include "hostlink/host_block.h"
#include "ids.h"
#include "installed_ferry_win32.h"
#include "samplehost/delivery_win32.h"
#include "samplehost/host_block_writer.h"
#include "support/poll_win32.h"
#include "windows/dialog_world_win32.h"

namespace {

constexpr std::size_t kItems = 1'000'000;
constexpr ULONG_PTR kBlockTag = 255;
constexpr double kMebibyte = 1024.0 * 1024.0;

/// A million paths of 62 to 73 units, as photographs lie in folders by day.
std::wstring Block() {
    ferry::samplehost::BlockFields fields;
    fields.CurrentDir = L"C:\\Users\\somebody";
    fields.Items.reserve(kItems);
    for (std::size_t i = 0; i < kItems; ++i) {
        const std::wstring number = std::to_wstring(i);
        fields.Items.push_back(L"C:\\Users\\somebody\\Pictures\\Camera roll\\2024-05-" +
                               std::to_wstring(10 + i / 50'000) + L"\\Holiday " + number + L" " + number +
                               L".jpeg");
    }
    fields.Tabs = {L"D:\\Backup"};
    return ferry::samplehost::BlockUnits(fields);
}

/// An open dialog without items.
class OpenDialog {
public:
    OpenDialog()
        : dialog_(std::make_unique<ferry::dialogs::CFerryDlg>(world_.Services(),
                                                              ferry::dialogs::StartOptions{}, nullptr)) {
        dialog_->Create(nullptr);
        ShowWindow(dialog_->Handle(), SW_SHOW);
        UpdateWindow(dialog_->Handle());
    }

    /// Delivers the block and draws the list.
    void Deliver(std::wstring& block) const {
        COPYDATASTRUCT data{kBlockTag, static_cast<DWORD>(block.size() * sizeof(wchar_t)), block.data()};
        SendMessageW(dialog_->Handle(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
        UpdateWindow(List());
    }

    bool HasAll() const { return SendMessageW(List(), LVM_GETITEMCOUNT, 0, 0) == kItems; }

private:
    HWND List() const { return GetDlgItem(dialog_->Handle(), IDC_SOURCE_LIST); }

    ferry::test::DialogWorld world_;
    std::unique_ptr<ferry::dialogs::CFerryDlg> dialog_;
};

/// Nothing when the list did not get all items.
std::optional<double> TimeDelivery(std::wstring block) {
    const OpenDialog dialog;
    const double spent = ferry::bench::MillisecondsOf([&] { dialog.Deliver(block); });
    return dialog.HasAll() ? std::optional(spent) : std::nullopt;
}

/// Nothing when not all items were read.
std::optional<double> TimeParse(std::wstring block) {
    ferry::hostlink::HostData host;
    const double spent = ferry::bench::MillisecondsOf([&] {
        ferry::hostlink::ParseHostBlock(block, block.size() * sizeof(wchar_t),
                                        {host.CurrentDir, host.Option, host.SelectedItems, host.TabFolders});
    });
    return host.SelectedItems.Size() == kItems ? std::optional(spent) : std::nullopt;
}

bool CompareTimes(const std::wstring& block) {
    return ferry::bench::Compare({[&] { return TimeDelivery(block); }, [&] { return TimeParse(block); }},
                                 {{"list of 1000000 items, against the bare parse", 0, 1, 1.25}});
}

/// The dialog of the process once its count label tells all items; null when that takes too long.
HWND WaitForAllItems(DWORD processId) {
    const std::wstring expected = L"(" + std::to_wstring(kItems) + L")";
    HWND dialog = nullptr;
    const bool isReady = ferry::test::WaitUntil([&] {
        dialog = ferry::samplehost::FindFerryDialog(processId);
        std::array<wchar_t, 32> label{};
        GetWindowTextW(GetDlgItem(dialog, IDC_COUNT), label.data(), static_cast<int>(label.size()));
        return dialog != nullptr && label.data() == expected;
    });
    return isReady ? dialog : nullptr;
}

double PeakMebibytes(DWORD processId) {
    PROCESS_MEMORY_COUNTERS counters{};
    const ferry::base::ProcessHandle process(
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, processId));
    GetProcessMemoryInfo(process.Get(), &counters, sizeof counters);
    return static_cast<double>(counters.PeakWorkingSetSize) / kMebibyte;
}

/// Nothing when the program did not come up with all items.
std::optional<double> MeasurePeak(const std::wstring& block) {
    ferry::bench::HandOver handOver;
    if (!handOver.Prepare(block))
        return std::nullopt;
    const ferry::e2e::ChildProcess process(ferry::bench::InstalledFerry(), {});
    const HWND dialog = process.IsStarted() ? WaitForAllItems(process.Id()) : nullptr;
    if (dialog == nullptr)
        return std::nullopt;
    const double peak = PeakMebibytes(process.Id());
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    return ferry::bench::HasEndedWell(process) && peak > 0 ? std::optional(peak) : std::nullopt;
}

bool CompareMemory(const std::wstring& block) {
    const double blockSize = static_cast<double>(block.size() * sizeof(wchar_t)) / kMebibyte;
    return ferry::bench::Compare(
        {[&] { return MeasurePeak(block); }, [&] { return std::optional(blockSize); }},
        {{"peak memory with 1000000 items, against the block", 0, 1, 2.0, "MiB"}}, {.WarmUpRounds = 0});
}

bool MeasureList() {
    const std::wstring block = Block();
    const bool areTimesMeasured = CompareTimes(block);
    return CompareMemory(block) && areTimesMeasured;
}

}  // namespace

int main() {
    return ferry::bench::ResultOf(MeasureList);
}
