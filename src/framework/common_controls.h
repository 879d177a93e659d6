// The common controls library, loaded on first use instead of with the executable.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include "base/system_library_win32.h"

namespace ferry::framework {

/// The calls that the framework makes into the common controls. The version that the program's
/// manifest names is loaded, after the program has restricted where libraries come from.
class CommonControls {
public:
    /// The library of this process. Throws std::runtime_error when it lacks a call.
    static const CommonControls& Get();

    decltype(InitCommonControlsEx)* Init;
    decltype(SetWindowSubclass)* SetSubclass;
    decltype(RemoveWindowSubclass)* RemoveSubclass;
    decltype(DefSubclassProc)* CallNext;

private:
    CommonControls();

    base::LibraryHandle library_;
};

}  // namespace ferry::framework
