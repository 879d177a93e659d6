// How long it takes from the start of the launcher to Ferry's dialog with its items, against the sample host,
// which only hands over what it is given: it looks at no path, and remembers no folder.
//
// FERRY_E2E_APP names the installed layout, FERRY_E2E_HOST the sample host; without them those of the build
// are taken. Prints one line of JSON per comparison and ends with 1 when they could not be measured.
#include <windows.h>

#include <chrono>
#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "appearance_win32.h"
#include "base/utf16.h"
#include "bench_ground_win32.h"
#include "comparison.h"
#include "e2e/driver/child_process.h"
#include "e2e/driver/surroundings.h"
#include "e2e/driver/temp_tree.h"
#include "installed_ferry_win32.h"
#include "support/poll_win32.h"
#include "trees.h"

namespace {

using ferry::e2e::ChildProcess;

constexpr std::size_t kListedItems = 10;
constexpr ferry::bench::Limits kLauncherLimits{.MostSeconds = 45, .WarmUpRounds = 2};

std::wstring LauncherProgram() {
    const std::wstring ferry = ferry::bench::InstalledFerry();
    return ferry.substr(0, ferry.rfind(L'\\')) + L"\\FerryOpen.exe";
}

std::wstring SampleHostProgram() {
    const std::wstring given = ferry::e2e::HostPath();
    return given.empty() ? ferry::e2e::OwnFolder() + L"\\..\\..\\tools\\samplehost\\samplehost.exe" : given;
}

/// A program that opens Ferry, and the label of a dialog that has all items.
struct Opener {
    std::wstring Program;
    std::vector<std::wstring> Arguments;
    std::wstring ReadyLabel;
};

/// The visible dialog whose label says that it is filled; null when there is none. Only one Ferry runs.
HWND FilledDialog(const std::wstring& label) {
    HWND dialog = nullptr;
    while ((dialog = FindWindowExW(nullptr, dialog, L"#32770", nullptr)) != nullptr) {
        if (IsWindowVisible(dialog) && ferry::bench::CountLabel(dialog) == label)
            return dialog;
    }
    return nullptr;
}

/// Milliseconds from just before the start to the filled dialog; nothing when it never came, or when the
/// program did not end well afterwards.
std::optional<double> TimeOpening(const Opener& opener, const ferry::bench::AppearanceHook& hook) {
    const auto begin = std::chrono::steady_clock::now();
    const ULONGLONG deadline = GetTickCount64() + ferry::test::kPatienceMs;
    const ChildProcess process(opener.Program, opener.Arguments);
    HWND dialog = nullptr;
    while (process.IsRunning() && GetTickCount64() < deadline &&
           (dialog = FilledDialog(opener.ReadyLabel)) == nullptr) {
        hook.Wait();
    }
    const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - begin;
    if (dialog != nullptr) {
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        if (ferry::bench::HasEndedWell(process))
            return spent.count();
    }
    std::fprintf(stderr, "%ls: no filled dialog, or a bad end\n", opener.Program.c_str());
    return std::nullopt;
}

/// The first `count` entries of the crowded folder at `folder`, one a line.
std::string ListOf(const std::wstring& folder, std::size_t count) {
    const std::string place = ferry::base::ToUtf8(folder);
    std::string list;
    for (std::size_t entry = 0; entry < count; ++entry) {
        list += place + "\\Some entry " + std::to_string(entry) + "\r\n";
    }
    return list;
}

bool MeasureOpenings() {
    const ferry::bench::BenchGround ground;
    const ferry::e2e::TempTree tree;
    const std::wstring folder = ground.CrowdedFolder();
    const ferry::bench::AppearanceHook hook;
    std::vector<Opener> openers;
    for (const std::size_t count : {kListedItems, ferry::bench::kCrowdedEntries}) {
        const std::wstring name = std::to_wstring(count);
        const std::wstring list = tree.WriteFile(name + L".txt", ListOf(folder, count));
        const std::wstring label = L"(" + name + L")";
        openers.push_back({LauncherProgram(), {L"/d", tree.Root(), L"/list", list}, label});
        openers.push_back(
            {SampleHostProgram(),
             {L"--ferry", ferry::bench::InstalledFerry(), L"--tab", tree.Root(), L"--items-file", list},
             label});
    }
    std::vector<ferry::bench::Side> sides;
    for (const Opener& opener : openers) {
        sides.emplace_back([&opener, &hook] { return TimeOpening(opener, hook); });
    }
    // The launcher looks whether each item exists, so the second row has no goal: it says what that costs.
    return ferry::bench::Compare(
        sides,
        {{"start by the launcher with 10 items, against the sample host", 0, 1, 1.30},
         {"start by the launcher with 100000 items, against the sample host", 2, 3, std::nullopt}},
        kLauncherLimits);
}

}  // namespace

int main() {
    return ferry::bench::ResultOf(MeasureOpenings);
}
