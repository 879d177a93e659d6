// What the application lends to its dialogs.
#pragma once

#include "framework/shell_manager.h"
#include "hostlink/host_data.h"
#include "lang/catalogue.h"
#include "lang/dialog_localiser_win32.h"
#include "naming/clock.h"
#include "settings/settings_store.h"

namespace ferry::dialogs {

/// The application's services; all outlive every dialog.
struct Services {
    hostlink::HostData& Host;
    settings::SettingsStore& Settings;
    lang::Catalogue& Messages;
    lang::DialogLocaliser& Localiser;
    framework::CShellManager& Shell;
    naming::Clock& Clock;
};

/// Whether Shift is held at the moment of the message that is being handled: the user's wish to
/// use the choices of this run without remembering them.
inline bool IsShiftHeld() noexcept {
    return GetKeyState(VK_SHIFT) < 0;
}

}  // namespace ferry::dialogs
