// How long an individual run of 1000 files takes, from the press on "start" to the end of the
// program, against the same calls of the system without dialogs and with nothing kept from one file to the
// next; other copying programs beside it.
//
// Needs the file-operation service of the tests. FERRY_E2E_APP names the installed layout; without
// it, the layout "app" beside the build tree is taken. Prints one line of JSON per comparison and
// ends with 1 when one could not be measured.
#include <windows.h>

#include <cstdio>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "bare_run_win32.h"
#include "base/com_ptr_win32.h"
#include "base/handles_win32.h"
#include "bench_ground_win32.h"
#include "comparison.h"
#include "e2e/driver/child_process.h"
#include "e2e/driver/remote_dialog.h"
#include "e2e/driver/settings_guard.h"
#include "e2e/driver/temp_tree.h"
#include "installed_ferry_win32.h"
#include "samplehost/delivery_win32.h"
#include "samplehost/host_block_writer.h"
#include "support/poll_win32.h"

namespace {

using namespace ferry;

constexpr bench::Limits kRunLimits{.MostSeconds = 60, .WarmUpRounds = 0};
constexpr double kRunGoal = 0.80;
constexpr double kXcopyGoal = 6.0;
constexpr int kRunPatienceMs = 120'000;
constexpr int kOtherPatienceMs = 60'000;

/// Milliseconds from the press on "start" to the end of Ferry; nothing when it went wrong.
std::optional<double> TimeFerry(const std::wstring& source, const std::wstring& destination, bool moves) {
    samplehost::BlockFields fields;
    fields.Items = {source};
    bench::HandOver handOver;
    if (!handOver.Prepare(BlockUnits(fields)))
        return std::nullopt;
    const e2e::ChildProcess ferry(bench::InstalledFerry(), {moves ? L"/m" : L"/c"});
    HWND window = nullptr;
    if (!test::WaitUntil([&] { return (window = samplehost::FindFerryDialog(ferry.Id())) != nullptr; }))
        return std::nullopt;
    e2e::WaitForIdleProcess(ferry.Id(), test::kPatienceMs);
    const e2e::RemoteDialog dialog(window);
    dialog.SetDestination(destination);
    e2e::Ending ending;
    const double spent = bench::MillisecondsOf([&] {
        dialog.Click(e2e::kStart);
        ending = ferry.WaitForEnd(kRunPatienceMs);
    });
    return bench::IsGood(ending) ? std::optional(spent) : std::nullopt;
}

/// Milliseconds of another program, started by its command line with nobody at its input; nothing
/// when it does not end well or `isDone` does not follow.
std::optional<double> TimeProgram(std::wstring line, const std::function<bool()>& isDone) {
    SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
    const base::FileHandle nowhere(CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE,
                                               FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING,
                                               0, nullptr));
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = start.hStdOutput = start.hStdError = nowhere.Get();
    PROCESS_INFORMATION info{};
    bool hasEnded = false;
    const double spent = bench::MillisecondsOf([&] {
        if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &info))
            return;
        hasEnded = WaitForSingleObject(info.hProcess, kOtherPatienceMs) == WAIT_OBJECT_0;
        hasEnded = hasEnded && test::WaitUntil(isDone, kOtherPatienceMs);
    });
    const base::ThreadHandle thread(info.hThread);
    const base::ProcessHandle process(info.hProcess);
    if (!process)
        return std::nullopt;
    DWORD code = 0;
    if (!hasEnded)
        TerminateProcess(process.Get(), 1);
    else
        GetExitCodeProcess(process.Get(), &code);
    return hasEnded && code == 0 ? std::optional(spent) : std::nullopt;
}

/// `path` as the system below Wine calls it; empty elsewhere.
std::wstring UnixPath(const std::wstring& path) {
    using Function = char*(CDECL*)(const wchar_t*);
    const auto function = reinterpret_cast<Function>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
    char* const text = function == nullptr ? nullptr : function(path.c_str());
    if (text == nullptr)
        return {};
    const std::string name(text);
    HeapFree(GetProcessHeap(), 0, text);
    return {name.begin(), name.end()};  // the test's own folder has an ASCII path
}

class TransferBench {
public:
    TransferBench() {
        e2e::WriteNumber(e2e::kProgramKey, L"Mode", 1);
        e2e::WriteNumber(e2e::kProgramKey, L"Name", 3);
    }

    bool MeasureCopies() {
        const std::wstring source = ground_.Tree(bench::kCopyTree);
        std::vector<bench::Side> sides = {
            [=, this] {
                return Checked(bench::kCopyTree,
                               [&](const auto& to) { return TimeFerry(source, to, false); });
            },
            [=, this] {
                return Checked(bench::kCopyTree,
                               [&](const auto& to) { return TimeByHand(source, to, false); });
            },
            [=, this] {
                return Checked(bench::kCopyTree, [&](const auto& to) { return TimeXcopy(source, to); });
            },
        };
        std::vector<bench::Row> rows = {
            {"individual copy of 1000 files, against naive calls", 0, 1, kRunGoal},
            {"individual copy of 1000 files, against xcopy", 0, 2, kXcopyGoal},
        };
        if (!UnixPath(source).empty()) {
            sides.emplace_back([=, this] {
                return Checked(bench::kCopyTree, [&](const auto& to) { return TimeCp(source, to); });
            });
            rows.push_back({"individual copy of 1000 files, beside cp -r", 0, 3, std::nullopt});
        }
        return bench::Compare(sides, rows, kRunLimits);
    }

    /// The tree goes from folder to folder.
    bool MeasureMoves() {
        std::wstring place = ground_.Tree(bench::kMoveTree);
        const auto move = [&](bool byFerry) {
            return Checked(bench::kMoveTree, [&](const std::wstring& to) -> std::optional<double> {
                const std::wstring source = std::exchange(place, to + bench::TreeName(bench::kMoveTree));
                const auto spent = byFerry ? TimeFerry(source, to, true) : TimeByHand(source, to, true);
                return e2e::Exists(source) ? std::nullopt : spent;
            });
        };
        return bench::Compare({[&] { return move(true); }, [&] { return move(false); }},
                              {{"individual move of 1000 files, against naive calls", 0, 1, kRunGoal}},
                              kRunLimits);
    }

private:
    /// What `transfer` into a new folder measures; nothing when not all arrived.
    std::optional<double> Checked(
        const bench::TreeShape& shape,
        const std::function<std::optional<double>(const std::wstring& destination)>& transfer) {
        const std::wstring destination = ground_.NewFolder();
        const auto spent = transfer(destination);
        const bench::TreeSum arrived = bench::SumBelow(destination + bench::TreeName(shape));
        if (spent && arrived == SumOf(shape))
            return spent;
        std::fprintf(stderr, "%zu files of %llu bytes arrived%s\n", arrived.Files,
                     static_cast<unsigned long long>(arrived.Bytes), spent ? "" : ", with a bad end");
        return std::nullopt;
    }

    static double TimeByHand(const std::wstring& source, const std::wstring& destination, bool moves) {
        return bench::MillisecondsOf([&] { bench::TransferByHand(source, destination, moves); });
    }

    /// None of the paths has a blank, so nothing needs quotes, which some versions misread.
    static std::optional<double> TimeXcopy(const std::wstring& source, const std::wstring& destination) {
        const std::wstring target = destination + bench::TreeName(bench::kCopyTree);
        CreateDirectoryW(target.c_str(), nullptr);  // a failure shows in what arrives
        return TimeProgram(L"xcopy.exe " + source + L" " + target + L" /E /I /Q /Y", [] { return true; });
    }

    /// Nobody can wait for the end of a program of the system below Wine, so it leaves a sign.
    static std::optional<double> TimeCp(const std::wstring& source, const std::wstring& destination) {
        const std::wstring to = UnixPath(destination);
        const std::wstring script =
            L"cp -r '" + UnixPath(source) + L"' '" + to + L"' && touch '" + to + L"/done'";
        return TimeProgram(L"start.exe /unix /bin/sh -c \"" + script + L"\"",
                           [&] { return e2e::Exists(destination + L"done"); });
    }

    e2e::SettingsGuard settings_;
    bench::BenchGround ground_;
};

bool MeasureTransfers() {
    const base::ComApartment apartment;
    // Under Wine the desktop must belong to a process that outlives every Ferry.
    GetDesktopWindow();
    TransferBench bench;
    const bool areCopiesMeasured = bench.MeasureCopies();
    return bench.MeasureMoves() && areCopiesMeasured;
}

}  // namespace

int main() {
    return bench::ResultOf(MeasureTransfers);
}
