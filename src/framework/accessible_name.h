// Names for those who hear the dialog instead of seeing it.
#pragma once

#include <windows.h>

#include <span>
#include <string>

namespace ferry::framework {

/// A window and the name that a screen reader shall read for it.
struct AccessibleName {
    HWND Window = nullptr;
    std::wstring Name;
};

/// Gives the windows their names by annotation, where Windows itself finds none: of controls in controls, and
/// of buttons that show a sign. A system without the service leaves them as they are.
void NameForScreenReaders(std::span<const AccessibleName> names);

}  // namespace ferry::framework
