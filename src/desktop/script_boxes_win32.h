// The message boxes that scripts ask for.
#pragma once

#include "script/ports.h"

namespace ferry::desktop {

/// Shows them over the thread's active window.
class ScriptBoxes final : public script::Boxes {
public:
    int Show(const std::wstring& text, std::uint32_t style) override;
};

}  // namespace ferry::desktop
