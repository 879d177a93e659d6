// One run of Ferry: through the sample host, or by itself.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "e2e/driver/child_process.h"
#include "e2e/driver/poll.h"
#include "e2e/driver/remote_dialog.h"

namespace ferry::e2e {

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
};

/// One WM_COPYDATA that the host received.
struct ReceivedData {
    std::wstring Tag;
    std::wstring ByteCount;
    std::wstring Sender;
    std::wstring Text;
};

/// A started Ferry. It ends with this object at the latest.
class FerryRun {
public:
    explicit FerryRun(const RunPlan& plan);

    /// Waits until the host has told Ferry's process id. False when nothing was started.
    bool WaitForStart();

    /// Waits for the confirmation dialog; a closed one when it did not come.
    RemoteDialog WaitForDialog();

    /// Whether no dialog can come, since the host or Ferry itself was started without graphics.
    bool LacksGraphics() const noexcept { return ferryId_ == 0 ? !hostHasGraphics_ : !ferryHasGraphics_; }

    /// Waits until Ferry, and the host with it, have ended.
    bool WaitForEnd(int timeoutMs = kPatienceMs);

    /// Presses Cancel and waits for the end.
    bool CancelAndWait();

    bool IsRunning() const;

    DWORD FerryId() const noexcept { return ferryId_; }

    /// The exit code of the started program: Ferry's own, which the host passes on.
    DWORD ExitCode() const { return process_.ExitCode(); }

    /// The host's window, when a host was started.
    HWND HostWindow() const;

    /// The log lines of the host, split at their TABs.
    std::vector<std::vector<std::wstring>> HostLines() const;

    /// Every WM_COPYDATA in the host's log.
    std::vector<ReceivedData> ReceivedByHost() const;

private:
    std::optional<std::vector<std::wstring>> HostLine(const std::wstring& kind) const;

    RunPlan plan_;
    ChildProcess process_;
    DWORD ferryId_ = 0;
    bool hostHasGraphics_ = false;
    bool ferryHasGraphics_ = false;
    RemoteDialog dialog_;
};

}  // namespace ferry::e2e
