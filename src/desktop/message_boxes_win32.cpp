#include "desktop/message_boxes_win32.h"

#include <windows.h>

namespace ferry::desktop {
namespace {

UINT IconOf(lang::Tone tone) noexcept {
    switch (tone) {
        case lang::Tone::Warning:
            return MB_ICONEXCLAMATION;
        case lang::Tone::Error:
            return MB_ICONERROR;
        case lang::Tone::Question:
            return MB_ICONQUESTION;
        case lang::Tone::Plain:
            break;
    }
    return 0;
}

int Show(const std::wstring& text, UINT style) {
    return MessageBoxW(GetActiveWindow(), text.c_str(), L"Ferry", style);
}

}  // namespace

void MessageBoxes::Tell(const std::wstring& text, lang::Tone tone) {
    Show(text, MB_OK | IconOf(tone));
}

bool MessageBoxes::Ask(const std::wstring& question, lang::Tone tone) {
    return Show(question, MB_YESNO | IconOf(tone)) == IDYES;
}

}  // namespace ferry::desktop
