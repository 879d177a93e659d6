// The window that tells a person that a script runs, and can stop it.
#pragma once

#include <windows.h>

#include <string>

#include "desktop/script_sign.h"
#include "dialogs/dialog_localiser.h"

namespace ferry::dialogs {

/// Makes progress windows with the name of the script and a button that stops it, as Escape does. While one
/// stands, `owner`, which may be null, is disabled. The localiser must outlive them.
desktop::SignMaker ScriptSigns(DialogLocaliser& localiser, HWND owner, std::wstring scriptName);

}  // namespace ferry::dialogs
