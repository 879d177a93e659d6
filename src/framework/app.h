// The application object's frame.
#pragma once

#include <windows.h>

namespace ferry::framework {

/// An application. It is made once, in the program's entry function.
class CWinApp {
public:
    CWinApp() = default;
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    virtual ~CWinApp() = default;

    /// Does the program's work. False ends the process without a message loop.
    virtual bool InitInstance() { return true; }

    /// Runs InitInstance and, when it says so, a message loop. Exceptions end here, reported.
    /// Returns the process's exit code.
    int Run() noexcept;
};

}  // namespace ferry::framework
