#include "e2e/driver/ask.h"

#include <cstdio>

namespace ferry::e2e {
namespace {

std::string Complaint(HWND window, UINT message, int patienceMs) {
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    char text[160] = {};
    std::snprintf(text, sizeof(text), "window %p of process %lu did not answer message 0x%X within %d ms",
                  static_cast<void*>(window), processId, message, patienceMs);
    return text;
}

}  // namespace

LRESULT Ask(HWND window, UINT message, WPARAM first, LPARAM second, int patienceMs) {
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutW(window, message, first, second, SMTO_NORMAL, static_cast<UINT>(patienceMs),
                            &answer) == 0 &&
        IsWindow(window)) {
        throw NoAnswer(Complaint(window, message, patienceMs));
    }
    return static_cast<LRESULT>(answer);
}

bool HasHandledAll(HWND window) {
    // What was sent comes first of all, and its answer shows that the thread takes messages again.
    Ask(window, WM_NULL);
    InvalidateRect(window, nullptr, FALSE);
    return WaitUntil([window] { return !IsWindow(window) || !GetUpdateRect(window, nullptr, FALSE); });
}

}  // namespace ferry::e2e
