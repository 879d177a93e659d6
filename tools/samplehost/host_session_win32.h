// One hand-over from start to end: announce, start Ferry, deliver, wait.
#pragma once

#include <windows.h>

#include <cstddef>
#include <utility>
#include <vector>

#include "base/handles_win32.h"
#include "host_log_win32.h"
#include "host_options.h"
#include "host_window_win32.h"
#include "shared_block_win32.h"

namespace ferry::samplehost {

inline constexpr int kExitCannotStart = 120;
inline constexpr int kExitCannotMakeBlock = 121;

/// Plays the host once, as `options` say.
class HostSession {
public:
    HostSession(HostOptions options, HostLog& log) : options_(std::move(options)), log_(log), window_(log) {}

    /// Runs until the end that the options choose. The result is the host's exit code.
    int Run();

private:
    bool CollectBytes();
    bool PrepareBlock();
    void Announce();
    bool StartFerry();
    void PumpUntilEnd();
    bool DispatchMessages();
    void Tick();
    void DeliverWhatIsDue(ULONGLONG now);
    void Deliver(const Delivery& delivery);
    void NoteEnd();
    bool IsOver(ULONGLONG now) const noexcept;

    HostOptions options_;
    HostLog& log_;
    HostWindow window_;
    SharedBlock block_;
    std::vector<std::byte> bytes_;
    base::ProcessHandle process_;
    DWORD processId_ = 0;
    DWORD exitCode_ = 0;
    HWND dialog_ = nullptr;
    std::size_t delivered_ = 0;
    ULONGLONG startedAt_ = 0;
    ULONGLONG lastDeliveryAt_ = 0;
    bool isQuitting_ = false;
};

}  // namespace ferry::samplehost
