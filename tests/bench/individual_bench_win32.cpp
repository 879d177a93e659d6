// How long an individual run of 10,000 files takes, from the press on "start" to the end of the
// program, against the same calls of the system without dialogs; other copying programs beside it.
//
// Needs the file-operation service of the tests. FERRY_E2E_APP names the installed layout; without
// it, the layout "app" beside the build tree is taken. Ends with 1 when a goal is missed. An
// argument gives another number of rounds than three.
#include <windows.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "bare_run_win32.h"
#include "base/com_ptr_win32.h"
#include "base/handles_win32.h"
#include "comparison.h"
#include "e2e/driver/child_process.h"
#include "e2e/driver/contents.h"
#include "e2e/driver/poll.h"
#include "e2e/driver/remote_dialog.h"
#include "e2e/driver/settings_guard.h"
#include "e2e/driver/surroundings.h"
#include "e2e/driver/temp_tree.h"
#include "installed_ferry_win32.h"
#include "samplehost/delivery_win32.h"
#include "samplehost/host_block_writer.h"

namespace {

using namespace ferry;

constexpr std::size_t kFolders = 500;
constexpr std::size_t kFilesInFolder = 20;
constexpr std::size_t kFiles = kFolders * kFilesInFolder;
constexpr std::size_t kFileSize = 4096;
constexpr int kUsualRounds = 3;
constexpr double kGoal = 1.10;
constexpr int kRunPatienceMs = 600'000;
constexpr int kOtherPatienceMs = 120'000;

/// Makes 500 folders of 20 files below `top`.
bool MakeFiles(const e2e::TempTree& tree, const std::wstring& top) {
    const std::string content(kFileSize, '#');
    for (std::size_t folder = 0; folder < kFolders; ++folder) {
        const std::wstring path = tree.MakeFolder(top + L"\\folder " + std::to_wstring(folder));
        for (std::size_t file = 0; file < kFilesInFolder; ++file) {
            const std::wstring name = path + L"\\some document " + std::to_wstring(file) + L".txt";
            const base::FileHandle made(
                CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
            DWORD written = 0;
            if (!made || !WriteFile(made.Get(), content.data(), kFileSize, &written, nullptr))
                return false;
        }
    }
    return true;
}

/// Milliseconds from the press on "start" to the end of Ferry; nothing when it went wrong.
std::optional<double> TimeFerry(const std::wstring& source, const std::wstring& destination, bool moves) {
    samplehost::BlockFields fields;
    fields.Items = {source};
    bench::HandOver handOver;
    if (!handOver.Prepare(BlockUnits(fields)))
        return std::nullopt;
    const e2e::ChildProcess ferry(bench::InstalledFerry(), {moves ? L"/m" : L"/c"});
    HWND window = nullptr;
    if (!e2e::WaitUntil([&] { return (window = samplehost::FindFerryDialog(ferry.Id())) != nullptr; }))
        return std::nullopt;
    e2e::WaitForIdleProcess(ferry.Id(), e2e::kPatienceMs);
    const e2e::RemoteDialog dialog(window);
    dialog.SetDestination(destination);
    bool hasEnded = false;
    const double spent = bench::MillisecondsOf([&] {
        dialog.Click(e2e::kStart);
        hasEnded = ferry.WaitForEnd(kRunPatienceMs);
    });
    return hasEnded ? std::optional(spent) : std::nullopt;
}

/// Milliseconds of another program, started by its command line with nobody at its input; nothing
/// when the system has none like it or it does not end well.
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
        hasEnded = hasEnded && e2e::WaitUntil(isDone, kOtherPatienceMs);
    });
    const base::ThreadHandle thread(info.hThread);
    const base::ProcessHandle process(info.hProcess);
    if (!process)
        return std::nullopt;
    if (!hasEnded)
        TerminateProcess(process.Get(), 1);
    return hasEnded ? std::optional(spent) : std::nullopt;
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

class Race {
public:
    explicit Race(int rounds) : rounds_(rounds) {}

    bool Prepare() {
        e2e::WriteNumber(e2e::kProgramKey, L"Mode", 1);
        e2e::WriteNumber(e2e::kProgramKey, L"Name", 3);
        return MakeFiles(tree_, L"from\\top");
    }

    bool CopyRace() {
        bench::Comparison comparison{"individual copy of 10000 files, against bare calls", kGoal, {}, {}};
        const auto copy = [&](bool byFerry) {
            const auto spent = Transfer(Source(), L"to", false, byFerry, comparison.Name);
            e2e::RemoveAll(tree_.Path(L"to"));
            return spent;
        };
        if (!RaceIn(comparison, copy))
            return false;
        ferryCopies_ = comparison.Ferry;
        return bench::Report(comparison);
    }

    /// The tree goes to and fro, and each side takes it in both directions.
    bool MoveRace() {
        bench::Comparison comparison{"individual move of 10000 files, against bare calls", kGoal, {}, {}};
        std::wstring from = L"from";
        std::wstring to = L"to";
        const auto move = [&](bool byFerry) -> std::optional<double> {
            const std::wstring source = tree_.Path(from + L"\\top");
            const auto spent = Transfer(source, to, true, byFerry, comparison.Name);
            std::swap(from, to);
            return e2e::Exists(source) ? std::nullopt : spent;
        };
        return RaceIn(comparison, move) && bench::Report(comparison);
    }

    void CompareWithOthers() {
        const std::wstring target = tree_.MakeFolder(L"to\\top");
        // None of the paths has a blank, so nothing needs quotes, which some versions misread.
        Tell("individual copy of 10000 files, beside xcopy",
             TimeProgram(L"xcopy.exe " + Source() + L" " + target + L" /E /I /Q /Y", [] { return true; }));
        const std::wstring from = UnixPath(Source());
        const std::wstring to = UnixPath(tree_.MakeFolder(L"to"));
        if (from.empty())
            return;
        const std::wstring done = tree_.Path(L"done");
        const std::wstring script =
            L"cp -r '" + from + L"' '" + to + L"' && touch '" + UnixPath(tree_.Root()) + L"/done'";
        Tell("individual copy of 10000 files, beside cp -r",
             TimeProgram(L"start.exe /unix /bin/sh -c \"" + script + L"\"",
                         [&] { return e2e::Exists(done); }));
    }

private:
    std::wstring Source() const { return tree_.Path(L"from\\top"); }

    void Tell(const char* name, const std::optional<double>& spent) {
        const bool isWhole = e2e::FilesBelow(tree_.Path(L"to")).size() == kFiles;
        e2e::RemoveAll(tree_.Path(L"to"));
        if (spent && isWhole)
            bench::ReportAside({name, 1.0, ferryCopies_, {*spent}});
        else
            std::fprintf(stderr, "%s: there is no such program, or it did not copy all\n", name);
    }

    bool RaceIn(bench::Comparison& comparison,
                const std::function<std::optional<double>(bool byFerry)>& transfer) const {
        return bench::Race(
            comparison, {0, rounds_}, [&] { return transfer(true); }, [&] { return transfer(false); });
    }

    /// Nothing when not all arrived.
    std::optional<double> Transfer(const std::wstring& source, const std::wstring& to, bool moves,
                                   bool byFerry, const std::string& name) const {
        const std::wstring destination = tree_.MakeFolder(to) + L'\\';
        std::optional<double> spent;
        if (byFerry)
            spent = TimeFerry(source, destination, moves);
        else
            spent = bench::MillisecondsOf([&] { bench::TransferByHand(source, destination, moves); });
        const std::size_t arrived = e2e::FilesBelow(destination + L"top").size();
        if (!spent || arrived != kFiles) {
            std::fprintf(stderr, "%s brought %zu files\n", byFerry ? "Ferry" : "the bare program", arrived);
            return std::nullopt;
        }
        std::fprintf(stderr, "%s: %.0f ms by %s\n", name.c_str(), *spent,
                     byFerry ? "Ferry" : "the bare program");
        return spent;
    }

    int rounds_;
    e2e::SettingsGuard settings_;
    e2e::TempTree tree_;
    std::vector<double> ferryCopies_;
};

}  // namespace

int main(int count, char** arguments) {
    const base::ComApartment apartment;
    // Under Wine the desktop must belong to a process that outlives every Ferry.
    GetDesktopWindow();
    Race race(count > 1 ? static_cast<int>(std::strtol(arguments[1], nullptr, 10)) : kUsualRounds);
    if (!race.Prepare())
        return 1;
    const bool isCopyGood = race.CopyRace();
    race.CompareWithOthers();
    const bool isMoveGood = race.MoveRace();
    return isCopyGood && isMoveGood ? 0 : 1;
}
