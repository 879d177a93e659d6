#include "e2e/driver/ferry_run.h"

#include <algorithm>

#include "e2e/driver/file_op_log.h"
#include "e2e/driver/surroundings.h"
#include "samplehost/delivery_win32.h"
#include "samplehost/host_block_writer.h"

namespace ferry::e2e {
namespace {

/// What a process that is ended hard leaves as its exit code.
constexpr UINT kHardEndCode = 1;

std::wstring ProgramOf(const RunPlan& plan) {
    return FerryPath(plan.AppFolder.empty() ? AppFolder() : plan.AppFolder);
}

std::vector<std::wstring> HostLineOf(const RunPlan& plan) {
    std::vector<std::wstring> line = {L"--ferry", ProgramOf(plan), L"--log", plan.LogFile};
    for (const std::wstring& item : plan.Items) {
        line.insert(line.end(), {L"--item", item});
    }
    for (const std::wstring& tab : plan.Tabs) {
        line.insert(line.end(), {L"--tab", tab});
    }
    line.insert(line.end(), plan.HostArguments.begin(), plan.HostArguments.end());
    line.emplace_back(L"--");
    line.insert(line.end(), plan.Switches.begin(), plan.Switches.end());
    return line;
}

ChildProcess StartOf(const RunPlan& plan) {
    if (plan.ThroughHost) {
        DeleteFileW(plan.LogFile.c_str());  // the lines of a run before must not be taken for ours
        return {HostPath(), HostLineOf(plan)};
    }
    SetVariable(samplehost::kVariableName, plan.Variable);
    return {ProgramOf(plan), plan.Switches};
}

}  // namespace

FerryRun::FerryRun(const RunPlan& plan) : plan_(plan), process_(StartOf(plan)) {}

FerryRun::~FerryRun() {
    Close();
}

std::optional<std::vector<std::wstring>> FerryRun::HostLine(const std::wstring& kind) const {
    for (const auto& line : HostLines()) {
        if (line.front() == kind && line.size() > 1)
            return line;
    }
    return std::nullopt;
}

bool FerryRun::WaitForStart() {
    if (!process_.IsStarted())
        return false;
    if (!plan_.ThroughHost) {
        ferryId_ = process_.Id();
        return true;
    }
    WaitUntil([this] {
        hostHasGraphics_ = hostHasGraphics_ || HasGraphics(process_.Id());
        const auto line = HostLine(L"STARTED");
        ferryId_ = line ? std::stoul((*line)[1]) : 0;
        ferry_.Reset(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, ferryId_));
        return line || HostLine(L"ERROR");
    });
    return ferryId_ != 0;
}

RemoteDialog FerryRun::WaitForDialog() {
    if (ferryId_ == 0 && !WaitForStart())
        return {};
    HWND window = nullptr;
    WaitUntil([&] {
        ferryHasGraphics_ = ferryHasGraphics_ || HasGraphics(ferryId_);
        window = samplehost::FindFerryDialog(ferryId_);
        return window != nullptr || !IsRunning();
    });
    WaitForIdleProcess(ferryId_, kPatienceMs);
    dialog_ = RemoteDialog(window);
    return dialog_;
}

Ending FerryRun::WaitForEnd(int timeoutMs) {
    const Ending ending = FerryEnding(timeoutMs);
    return ending.IsGood() && EndsWithHost() ? WaitForHost() : ending;
}

Ending FerryRun::FerryEnding(int timeoutMs) const {
    if (ferry_)
        return WaitForEnding(ferry_, timeoutMs);
    if (!plan_.ThroughHost)
        return process_.WaitForEnd(timeoutMs);
    // It was gone before it could be looked at; the host knows.
    Ending ending;
    WaitUntil(
        [&] {
            if (const auto line = HostLine(L"ENDED"))
                ending = {true, static_cast<DWORD>(std::stoul((*line)[1]))};
            return ending.HasEnded;
        },
        timeoutMs);
    return ending;
}

bool FerryRun::EndsWithHost() const {
    return plan_.ThroughHost &&
           std::ranges::find(plan_.HostArguments, L"--stay") == plan_.HostArguments.end();
}

Ending FerryRun::CancelAndWait() {
    dialog_.Click(kCancel);
    return WaitForEnd();
}

bool FerryRun::EndHard() {
    ExcuseEnd();
    const base::ProcessHandle process(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, ferryId_));
    return process && TerminateProcess(process.Get(), kHardEndCode) &&
           WaitForEnding(process, kPatienceMs).HasEnded;
}

bool FerryRun::IsRunning() const {
    return ferryId_ != 0 && !FerryEnding(0).HasEnded;
}

void FerryRun::Close() {
    if (ferryId_ == 0 || isEndExcused_ || !plan_.Complain)
        return;
    if (!IsRunning()) {
        if (const Ending ending = WaitForEnd(); !ending.IsGood())
            plan_.Complain("Ferry's end: " + TextOf(ending));
        return;
    }
    // A dialog that waits for another window of its own does not take Cancel.
    if (!dialog_.IsOpen() || !IsWindowEnabled(dialog_.Window()))
        plan_.Complain("Ferry was left running, with a window that waits for an answer");
    else if (const Ending ending = CancelAndWait(); !ending.IsGood())
        plan_.Complain("Ferry's end by Cancel: " + TextOf(ending));
}

HWND FerryRun::HostWindow() const {
    const auto line = HostLine(L"WINDOW");
    return line ? reinterpret_cast<HWND>(std::stoull((*line)[1], nullptr, 16)) : nullptr;
}

std::vector<std::vector<std::wstring>> FerryRun::HostLines() const {
    return ReadFileOpLog(plan_.LogFile);
}

std::vector<ReceivedData> FerryRun::ReceivedByHost() const {
    std::vector<ReceivedData> all;
    for (auto& line : LinesOf(HostLines(), L"COPYDATA")) {
        line.resize(5);
        all.push_back({line[1], line[2], line[3], line[4]});
    }
    return all;
}

}  // namespace ferry::e2e
