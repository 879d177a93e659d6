// The keyboard at the moment of the message that is being handled.
#pragma once

#include <windows.h>

namespace ferry::framework {

/// Whether the key with this virtual key code is held.
inline bool IsKeyHeld(int key) noexcept {
    return GetKeyState(key) < 0;
}

}  // namespace ferry::framework
