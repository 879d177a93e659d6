// The user's favourites: scripts that run on this machine and work for the dialog.
#pragma once

#include <windows.h>

#include <string>

#include "app/real_world_win32.h"
#include "desktop/message_boxes_win32.h"
#include "dialogs/dialog_localiser.h"
#include "dialogs/favourites.h"
#include "script/engine.h"

namespace ferry::app {

/// Runs favourites with the dialog's window in the place of the host's main window, and with nothing
/// selected. A run that takes longer shows a window that stops it; the dialog is disabled as long as that
/// stands.
class ScriptFavourites final : public dialogs::Favourites {
public:
    /// Both must outlive the object; `dialog` is a window of this thread.
    ScriptFavourites(dialogs::DialogLocaliser& localiser, HWND dialog);

    /// In the user's folder of the host, which is found once.
    std::wstring Folder() override;
    void Run(const std::wstring& path) override;

private:
    std::wstring About() const;

    dialogs::DialogLocaliser& localiser_;
    HWND dialog_;
    RealWorld world_;
    desktop::MessageBoxes speaker_;
    script::Engine engine_;
};

}  // namespace ferry::app
