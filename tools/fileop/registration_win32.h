// The registry entries that put this library in the place of the shell's class.
#pragma once

#include <windows.h>

namespace ferry::fileop {

/// Writes the library's path under HKEY_LOCAL_MACHINE and keeps the path that stood there.
/// Only under Wine: elsewhere SELFREG_E_CLASS, because the system's own class works there and
/// must not be replaced.
HRESULT RegisterClassServer();

/// Puts back the path that stood there before; S_OK also when this library is not registered.
HRESULT UnregisterClassServer();

}  // namespace ferry::fileop
