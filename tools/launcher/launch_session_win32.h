// One hand-over to Ferry, from the block to Ferry's end.
#pragma once

#include <windows.h>

#include <string>

#include "base/com_ptr_win32.h"
#include "base/handles_win32.h"
#include "launcher/selection.h"
#include "launcher/stand_in_window_win32.h"
#include "samplehost/shared_block_win32.h"

namespace ferry::launcher {

/// The step of a hand-over that failed.
enum class FailedStep { None, Share, Start };

/// How a hand-over went.
struct SessionEnd {
    FailedStep Failed = FailedStep::None;
    DWORD Error = 0;     ///< The system's error number of a step that failed.
    DWORD ExitCode = 0;  ///< Ferry's, when it was started.
};

/// What Ferry is started with.
struct Start {
    std::wstring Program;  ///< The full path of Ferry.exe.
    std::wstring CurrentFolder;
    bool IsMove = false;
};

/// Plays the host for one Ferry.
class LaunchSession {
public:
    /// Hands `selection` over and returns when Ferry has ended. Until then the block, the variable and the
    /// window that Ferry looks for are there, and its folder is shown when it asks for that.
    SessionEnd Run(const Start& start, Selection selection);

private:
    bool Share(const std::wstring& currentFolder, Selection selection);
    bool StartFerry(const Start& start);
    void WaitForEnd();
    void ShowFolder();

    base::ComApartment com_;
    samplehost::SharedBlock block_;
    StandInWindow window_;
    base::ProcessHandle ferry_;
};

}  // namespace ferry::launcher
