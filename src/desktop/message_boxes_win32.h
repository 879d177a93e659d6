// The program's voice in message boxes.
#pragma once

#include "lang/speaker.h"

namespace ferry::desktop {

/// Speaks in message boxes over the thread's active window.
class MessageBoxes : public lang::Speaker {
public:
    void Tell(const std::wstring& text, lang::Tone tone) override;
    bool Ask(const std::wstring& question, lang::Tone tone) override;
};

}  // namespace ferry::desktop
