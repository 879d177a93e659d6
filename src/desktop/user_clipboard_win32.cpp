#include "desktop/user_clipboard_win32.h"

#include "desktop/clipboard.h"

namespace ferry::desktop {

std::wstring UserClipboard::Text() {
    return ClipboardText();
}

void UserClipboard::SetText(const std::wstring& text) {
    // Best effort: a script is not told.
    static_cast<void>(SetClipboardText(text));
}

}  // namespace ferry::desktop
