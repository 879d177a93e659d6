// How long completion takes in a folder of 100,000 entries, against a bare search with the same cap and
// a sort; and how long a person waits from the key to the list.
//
// Prints one line of JSON and ends with 1 when it could not be measured; the time to the list is a remark.
#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "base/handles_win32.h"
#include "bench_ground_win32.h"
#include "comparison.h"
#include "completion/candidates.h"
#include "controls/complement_combo_box.h"
#include "files/disk_win32.h"

namespace {

using ferry::bench::BenchGround;
using Paths = std::vector<std::wstring>;

// The folder holds more folders than that, so that the cap is met on the way.
constexpr std::size_t kCap = 5000;
constexpr int kListsOpened = 5;
constexpr double kCompletionGoal = 1.3;

/// What a program would write that wants the sorted list and nothing else.
std::size_t FindByHand(const std::wstring& folder) {
    Paths found;
    WIN32_FIND_DATAW data;
    ferry::base::FindHandle search(FindFirstFileExW((folder + L"*").c_str(), FindExInfoBasic, &data,
                                                    FindExSearchNameMatch, nullptr,
                                                    FIND_FIRST_EX_LARGE_FETCH));
    if (!search)
        return 0;
    do {
        const bool isFolder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (isFolder && wcscmp(data.cFileName, L".") != 0 && wcscmp(data.cFileName, L"..") != 0)
            found.push_back(folder + data.cFileName + L"\\");
    } while (found.size() <= kCap && FindNextFileW(search.Get(), &data));
    search.Reset();
    std::ranges::sort(found, [](const std::wstring& left, const std::wstring& right) {
        return _wcsicmp(left.c_str(), right.c_str()) < 0;
    });
    return found.size();
}

std::size_t FindByFerry(const std::wstring& folder) {
    ferry::files::DiskSearch search;
    return ferry::completion::FindCandidates(search, folder, true).size();
}

/// Both searches end at the cap.
bool CompareSearches(const std::wstring& folder) {
    using ferry::bench::Counting;
    return ferry::bench::Compare(
        {Counting(kCap + 1, [&] { return FindByFerry(folder); }),
         Counting(kCap + 1, [&] { return FindByHand(folder); })},
        {{"complete in 100000 entries, against a bare search", 0, 1, kCompletionGoal}});
}

/// Nobody speaks, and no text is asked for.
class Silence : public ferry::lang::TextFiles, public ferry::lang::Speaker {
public:
    std::optional<std::wstring> Read(std::wstring_view) override { return L""; }
    bool Write(std::wstring_view, std::wstring_view) override { return false; }
    void Tell(const std::wstring&, ferry::lang::Tone) override {}
    bool Ask(const std::wstring&, ferry::lang::Tone) override { return false; }
};

/// Tells how long the key takes until the list stands open, search, sort, display and all.
bool TellTimeToList(const std::wstring& folder) {
    const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_USEREX_CLASSES};
    InitCommonControlsEx(&classes);
    const HWND window = CreateWindowExW(0, WC_STATICW, L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300, nullptr,
                                        nullptr, nullptr, nullptr);
    const HWND control = CreateWindowExW(0, WC_COMBOBOXEXW, L"",
                                         WS_CHILD | WS_VISIBLE | CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL,
                                         10, 10, 260, 250, window, nullptr, nullptr, nullptr);
    Silence silence;
    ferry::lang::Catalogue messages(silence, {}, silence);
    ferry::files::DiskInfo info;
    ferry::files::DiskSearch search;
    ferry::controls::CComplementComboBox box(info, search, messages, silence);
    box.Prepare(control);
    box.SetFoldersOnly(true);
    std::vector<double> times;
    for (int round = 0; round < kListsOpened; ++round) {
        box.ReplaceText(folder);
        MSG key{};
        key.hwnd = box.Edit();
        key.message = WM_KEYDOWN;
        key.wParam = VK_DOWN;
        times.push_back(ferry::bench::MillisecondsOf([&] { box.PreTranslateMessage(key); }));
        if (!box.IsListOpen() || box.Candidates().size() != kCap + 1)
            return false;
    }
    std::ranges::sort(times);
    std::fprintf(stderr, "from the key to the open list of %zu folders: %.0f ms (%.0f to %.0f)\n", kCap + 1,
                 times[times.size() / 2], times.front(), times.back());
    DestroyWindow(window);
    return true;
}

bool MeasureCompletion() {
    const BenchGround ground;
    const std::wstring folder = ground.CrowdedFolder() + L"\\";
    const bool isMeasured = CompareSearches(folder);
    const bool hasOpened = TellTimeToList(folder);
    if (!hasOpened)
        std::fprintf(stderr, "could not measure: the list did not open\n");
    return isMeasured && hasOpened;
}

}  // namespace

int main() {
    return ferry::bench::ResultOf(MeasureCompletion);
}
