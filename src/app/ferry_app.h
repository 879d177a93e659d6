// The application: puts the program together and runs its one dialog.
#pragma once

#include <optional>

#include "base/language.h"
#include "framework/app.h"

namespace ferry::app {

/// Starts, runs the confirmation dialog, and ends.
class CFerryApp : public framework::CWinApp {
public:
    /// Sets the C library's locale to the user's. Where the library refuses that, as one does for languages
    /// without a code page of their own, the language of the system stands in.
    CFerryApp();

    /// The whole program; always false, since there is no message loop to run afterwards.
    bool InitInstance() override;

private:
    std::optional<base::LanguageInForce> language_;
};

}  // namespace ferry::app
