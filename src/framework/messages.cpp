#include "framework/messages.h"

namespace ferry::framework {

bool HandleWaitingMessages(const std::function<bool(MSG&)>& takes) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        if (!takes(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return true;
}

}  // namespace ferry::framework
