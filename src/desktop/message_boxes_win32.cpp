#include "desktop/message_boxes_win32.h"

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

}  // namespace

HWND OwnerOfBox(HWND under) noexcept {
    const HWND active = GetActiveWindow();
    return active != nullptr || under == nullptr ? active : GetLastActivePopup(under);
}

int MessageBoxes::Show(const std::wstring& text, UINT style) const {
    std::wstring title = L"Ferry";
    if (const std::wstring about = about_ ? about_() : std::wstring(); !about.empty())
        title.append(L" - ").append(about);
    return MessageBoxW(OwnerOfBox(under_), text.c_str(), title.c_str(), style);
}

void MessageBoxes::Tell(const std::wstring& text, lang::Tone tone) {
    Show(text, MB_OK | IconOf(tone));
}

bool MessageBoxes::Ask(const std::wstring& question, lang::Tone tone) {
    return Show(question, MB_YESNO | IconOf(tone)) == IDYES;
}

}  // namespace ferry::desktop
