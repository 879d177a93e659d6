#include "frames_win32.h"

#include <cstdio>
#include <functional>

#include "e2e/driver/message_box.h"

namespace ferry::rundriver {
namespace {

using Visit = std::function<void(HWND)>;

struct Visitor {
    DWORD ProcessId;
    const Visit& Do;
};

/// Calls `visit` for each window that the process shows, the topmost first.
void ForEachWindow(DWORD processId, const Visit& visit) {
    const Visitor visitor{processId, visit};
    const auto look = [](HWND window, LPARAM parameter) -> BOOL {
        const Visitor& self = *reinterpret_cast<const Visitor*>(parameter);
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == self.ProcessId && IsWindowVisible(window))
            self.Do(window);
        return TRUE;
    };
    EnumWindows(look, reinterpret_cast<LPARAM>(&visitor));
}

}  // namespace

std::string FramesOf(DWORD processId) {
    std::string frames;
    ForEachWindow(processId, [&frames](HWND window) {
        RECT place = {};
        if (!GetWindowRect(window, &place) || IsRectEmpty(&place))
            return;
        frames += ' ' + std::to_string(place.left) + ',' + std::to_string(place.top) + ',' +
                  std::to_string(place.right - place.left) + ',' + std::to_string(place.bottom - place.top);
    });
    return frames;
}

int CountWindows(DWORD processId, const wchar_t* className) {
    int count = 0;
    ForEachWindow(processId, [&](HWND window) { count += e2e::ClassOf(window) == className ? 1 : 0; });
    return count;
}

void PauseFor(const char* name, DWORD processId) {
    std::printf("PAUSE %s%s\n", name, FramesOf(processId).c_str());
    std::fflush(stdout);
    for (int character = std::getchar(); character != '\n' && character != EOF; character = std::getchar()) {
    }
}

bool Complain(const char* what) {
    std::fprintf(stderr, "rundriver: %s\n", what);
    return false;
}

}  // namespace ferry::rundriver
