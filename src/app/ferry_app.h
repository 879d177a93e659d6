// The application: puts the program together and runs its one dialog.
#pragma once

#include "framework/app.h"

namespace ferry::app {

/// Starts, runs the confirmation dialog, and ends.
class CFerryApp : public framework::CWinApp {
public:
    /// Sets the C library's locale to the user's.
    CFerryApp();

    /// The whole program; always false, since there is no message loop to run afterwards.
    bool InitInstance() override;
};

}  // namespace ferry::app
