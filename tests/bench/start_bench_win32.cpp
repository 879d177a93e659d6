// How long it takes from the start of the process to the dialog with its items, against a program
// that shows the same template and does nothing else.
//
// FERRY_E2E_APP names the installed layout; without it, the layout "app" beside the build tree is
// taken. Prints one line of JSON per comparison and ends with 1 when they could not be measured.
#include <windows.h>

#include <chrono>
#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>

#include "appearance_win32.h"
#include "comparison.h"
#include "e2e/driver/child_process.h"
#include "e2e/driver/surroundings.h"
#include "e2e/driver/temp_tree.h"
#include "installed_ferry_win32.h"
#include "samplehost/delivery_win32.h"
#include "samplehost/host_block_writer.h"
#include "support/poll_win32.h"

namespace {

using ferry::bench::AppearanceHook;
using ferry::bench::CountLabel;
using ferry::e2e::ChildProcess;
using ferry::samplehost::BlockFields;

constexpr std::size_t kFewItems = 10;
constexpr std::size_t kManyItems = 100'000;
constexpr ferry::bench::Limits kLimits{.MostSeconds = 45, .WarmUpRounds = 2};

/// A program to time and what it shows when it is ready.
struct Contestant {
    std::wstring Program;
    std::wstring ReadyLabel;  ///< The text of the count label; empty: whatever it is.
    BlockFields Block;        ///< Handed over where ReadyLabel says that it is expected.
};

/// The dialog of `process` once it is visible and filled; null when that takes too long.
HWND WaitForReady(const ChildProcess& process, const AppearanceHook& hook, const std::wstring& label) {
    const ULONGLONG deadline = GetTickCount64() + ferry::test::kPatienceMs;
    while (process.IsRunning() && GetTickCount64() < deadline) {
        const HWND dialog = ferry::samplehost::FindFerryDialog(process.Id());
        if (dialog != nullptr && (label.empty() || CountLabel(dialog) == label))
            return dialog;
        hook.Wait();
    }
    return nullptr;
}

/// Milliseconds from just before the start to the filled dialog; nothing when it never came, or when the
/// program did not end well afterwards.
std::optional<double> TimeOneStart(const Contestant& contestant, const AppearanceHook& hook) {
    const auto begin = std::chrono::steady_clock::now();
    const ChildProcess process(contestant.Program, {});
    if (!process.IsStarted())
        return std::nullopt;
    const HWND dialog = WaitForReady(process, hook, contestant.ReadyLabel);
    const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - begin;
    if (dialog == nullptr)
        return std::nullopt;
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    if (!ferry::bench::HasEndedWell(process))
        return std::nullopt;
    return spent.count();
}

std::optional<double> TimeStart(const Contestant& contestant, const AppearanceHook& hook) {
    ferry::bench::HandOver handOver;
    if (contestant.ReadyLabel.empty())
        ferry::e2e::SetVariable(ferry::samplehost::kVariableName, L"");
    else if (!handOver.Prepare(BlockUnits(contestant.Block)))
        return std::nullopt;
    const auto spent = TimeOneStart(contestant, hook);
    if (!spent)
        std::fprintf(stderr, "%ls: no filled dialog, or a bad end\n", contestant.Program.c_str());
    return spent;
}

/// A selection of `count` items, of which the first ones, those that the list shows, are real.
Contestant FerryWith(std::size_t count, const ferry::e2e::TempTree& tree) {
    Contestant contestant{ferry::bench::InstalledFerry(), L"(" + std::to_wstring(count) + L")", {}};
    contestant.Block.CurrentDir = tree.Root();
    contestant.Block.Tabs = {tree.MakeFolder(L"left"), tree.MakeFolder(L"right")};
    for (std::size_t i = 0; i < count; ++i) {
        const std::wstring name = L"file " + std::to_wstring(i) + L".txt";
        contestant.Block.Items.push_back(i < kFewItems ? tree.WriteFile(name, "bench") : tree.Path(name));
    }
    return contestant;
}

bool MeasureStarts() {
    const ferry::e2e::TempTree tree;
    const Contestant bare{ferry::e2e::OwnFolder() + L"\\bare_dialog.exe", L"", {}};
    const Contestant few = FerryWith(kFewItems, tree);
    const Contestant many = FerryWith(kManyItems, tree);
    const AppearanceHook hook;
    return ferry::bench::Compare({[&] { return TimeStart(bare, hook); }, [&] { return TimeStart(few, hook); },
                                  [&] { return TimeStart(many, hook); }},
                                 {{"start with 10 items, against a bare dialog", 1, 0, 1.15},
                                  {"start with 100000 items, against a bare dialog", 2, 0, 1.30}},
                                 kLimits);
}

}  // namespace

int main() {
    return ferry::bench::ResultOf(MeasureStarts);
}
