// What the application lends to its dialogs.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "calendar/clock.h"
#include "dialogs/dialog_localiser.h"
#include "dialogs/favourites.h"
#include "files/ports.h"
#include "framework/keyboard.h"
#include "framework/shell_manager.h"
#include "hostlink/host_data.h"
#include "lang/catalogue.h"
#include "settings/settings_store.h"
#include "transfer/ports.h"

namespace ferry::dialogs {

/// The application's services; all outlive every dialog.
struct Services {
    std::wstring ModulePath;  ///< The full path of the executable.
    hostlink::HostData& Host;
    settings::SettingsStore& Settings;
    lang::Speaker& Speaker;
    lang::Catalogue& Messages;
    DialogLocaliser& Localiser;
    framework::CShellManager& Shell;
    calendar::Clock& Clock;
    files::FileInfo& Files;
    files::FolderSearch& Folders;
    files::FileChanges& FileChanges;

    /// The shell's operations; the window owns what they show. Before it transfers, the thread must have
    /// initialised COM.
    std::function<std::unique_ptr<transfer::ShellOperations>(HWND owner)> MakeShellOperations;

    /// The user's favourites. Their scripts take `dialog` for the host's main window, and must not outlive
    /// it.
    std::function<std::unique_ptr<Favourites>(HWND dialog)> MakeFavourites;
};

/// Whether the choices of this run are used without being remembered, which holding Shift asks for.
inline bool IsToBeForgotten() noexcept {
    return framework::IsKeyHeld(VK_SHIFT);
}

}  // namespace ferry::dialogs
