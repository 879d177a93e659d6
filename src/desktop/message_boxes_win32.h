// The program's voice in message boxes.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>

#include "lang/speaker.h"

namespace ferry::desktop {

/// The window that a box belongs to: the thread's active one, or, while none is active, the one that was last
/// among `under` and the windows it owns. Both may be null.
HWND OwnerOfBox(HWND under) noexcept;

/// Speaks in message boxes over the thread's active window.
class MessageBoxes : public lang::Speaker {
public:
    MessageBoxes() = default;

    /// While no window of the thread is active, the boxes stand over `under`. Behind the program's name their
    /// titles say what `about` says at that time, if anything.
    MessageBoxes(HWND under, std::function<std::wstring()> about) : under_(under), about_(std::move(about)) {}

    void Tell(const std::wstring& text, lang::Tone tone) override;
    bool Ask(const std::wstring& question, lang::Tone tone) override;

private:
    int Show(const std::wstring& text, UINT style) const;

    HWND under_ = nullptr;
    std::function<std::wstring()> about_;
};

}  // namespace ferry::desktop
