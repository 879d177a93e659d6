// The message boxes that scripts ask for.
#pragma once

#include <windows.h>

#include "script/ports.h"

namespace ferry::desktop {

/// Shows them over the thread's active window.
class ScriptBoxes final : public script::Boxes {
public:
    /// While no window of the thread is active, the boxes stand over `under`, which may be null.
    explicit ScriptBoxes(HWND under = nullptr) noexcept : under_(under) {}

    int Show(const std::wstring& text, std::uint32_t style) override;

private:
    HWND under_;
};

}  // namespace ferry::desktop
