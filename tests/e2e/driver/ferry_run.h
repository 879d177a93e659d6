// One run of Ferry: through the sample host, or by itself.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "e2e/driver/child_process.h"
#include "e2e/driver/remote_dialog.h"
#include "support/poll_win32.h"

namespace ferry::e2e {

using test::kPatienceMs;
using test::WaitUntil;

/// How a run starts.
struct RunPlan {
    std::wstring AppFolder;  ///< Empty: the installed layout under test.
    std::vector<std::wstring> Items;
    std::vector<std::wstring> Tabs;
    std::vector<std::wstring> HostArguments;  ///< More options of the sample host.
    std::vector<std::wstring> Switches;       ///< Ferry's own command line.
    bool ThroughHost = true;                  ///< False: Ferry alone, without a host.
    std::wstring Variable;                    ///< The host variable of a Ferry alone; empty: none.
    std::wstring LogFile;                     ///< Where the sample host logs; needed with ThroughHost.
    /// Hears how a run ended badly. Needed: no ending goes unseen.
    std::function<void(const std::string&)> Complain;
};

/// One WM_COPYDATA that the host received.
struct ReceivedData {
    std::wstring Tag;
    std::wstring ByteCount;
    std::wstring Sender;
    std::wstring Text;
};

/// A started Ferry. It ends with this object at the latest: one that still runs then is cancelled, and the
/// plan's Complain hears of it when it did not end by itself with exit code 0.
class FerryRun {
public:
    explicit FerryRun(const RunPlan& plan);
    ~FerryRun();
    FerryRun(const FerryRun&) = delete;
    FerryRun& operator=(const FerryRun&) = delete;

    /// Waits until the host has told Ferry's process id. False when nothing was started.
    bool WaitForStart();

    /// Waits for the confirmation dialog; a closed one when it did not come.
    RemoteDialog WaitForDialog();

    /// Whether no dialog can come, since the host or Ferry itself was started without graphics.
    bool LacksGraphics() const noexcept { return ferryId_ == 0 ? !hostHasGraphics_ : !ferryHasGraphics_; }

    /// However this run ends, it is no complaint.
    void ExcuseEnd() noexcept { isEndExcused_ = true; }

    /// Waits for Ferry's end. A host that nobody asked to stay ends with it and passes its exit code on.
    Ending WaitForEnd(int timeoutMs = kPatienceMs);

    /// Waits for the end of the host.
    Ending WaitForHost() const { return process_.WaitForEnd(kPatienceMs); }

    /// Presses Cancel and waits for the end.
    Ending CancelAndWait();

    /// Ends Ferry at once, in the middle of whatever it does, and waits until it is gone. Its end is excused.
    bool EndHard();

    bool IsRunning() const;

    DWORD FerryId() const noexcept { return ferryId_; }

    /// The host's window, when a host was started.
    HWND HostWindow() const;

    /// The log lines of the host, split at their TABs.
    std::vector<std::vector<std::wstring>> HostLines() const;

    /// Every WM_COPYDATA in the host's log.
    std::vector<ReceivedData> ReceivedByHost() const;

private:
    std::optional<std::vector<std::wstring>> HostLine(const std::wstring& kind) const;
    Ending FerryEnding(int timeoutMs) const;
    bool EndsWithHost() const;
    void Close();

    RunPlan plan_;
    ChildProcess process_;
    base::ProcessHandle ferry_;
    DWORD ferryId_ = 0;
    bool isEndExcused_ = false;
    bool hostHasGraphics_ = false;
    bool ferryHasGraphics_ = false;
    RemoteDialog dialog_;
};

}  // namespace ferry::e2e
