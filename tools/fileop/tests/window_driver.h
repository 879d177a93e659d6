// Answers windows of this process from a second thread, by keys as a person would.
#pragma once

#include <windows.h>

#include <string>
#include <thread>
#include <vector>

namespace ferry::fileop {

/// What was seen when a window appeared.
struct SeenWindow {
    std::wstring Title;
    HWND Owner = nullptr;
};

/// Waits for windows with the given titles, one after the other, and presses one key in each.
class WindowDriver {
public:
    struct Step {
        std::wstring Title;
        UINT Key = 0;  ///< VK_ESCAPE, VK_RETURN or a letter.
    };

    explicit WindowDriver(std::vector<Step> steps);

    /// Waits for the last step.
    ~WindowDriver();

    WindowDriver(const WindowDriver&) = delete;
    WindowDriver& operator=(const WindowDriver&) = delete;

    /// Waits for the last step; the windows that were answered.
    const std::vector<SeenWindow>& Finish();

private:
    void Run(const std::vector<Step>& steps);

    std::vector<SeenWindow> seen_;
    std::thread thread_;
};

}  // namespace ferry::fileop
