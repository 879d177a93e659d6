// The clipboard of the user.
#pragma once

#include "script/ports.h"

namespace ferry::desktop {

/// Texts only. While another program holds the clipboard it is waited for.
class UserClipboard final : public script::Clipboard {
public:
    std::wstring Text() override;
    void SetText(const std::wstring& text) override;
};

}  // namespace ferry::desktop
