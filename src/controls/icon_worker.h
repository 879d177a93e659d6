// Finds the icons of list items on threads of its own.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <string_view>
#include <thread>
#include <vector>

#include "controls/list_items.h"
#include "files/ports.h"

namespace ferry::controls {

/// Tells the list that the icons of a range are known; the range is in wParam and lParam.
inline constexpr UINT kIconsReadyMessage = 48500;

/// The icon threads of one list. Made, used and destroyed on the user-interface thread.
class IconWorker {
public:
    /// `items` and `info` must outlive the worker; its threads ask `info`.
    IconWorker(ListItems& items, files::FileInfo& info) noexcept : items_(items), info_(info) {}
    IconWorker(const IconWorker&) = delete;
    IconWorker& operator=(const IconWorker&) = delete;
    ~IconWorker();

    /// Finds the missing icons of the items `first` to `last`, both included, and then posts
    /// kIconsReadyMessage to `list`. Starts no thread when none is missing.
    void Request(HWND list, std::size_t first, std::size_t last);

    /// Lets the threads end early and waits for them; at most for the query under way.
    void Stop();

private:
    struct Job {
        std::thread Thread;
        std::atomic<bool> Done = false;
    };

    bool AnyIconMissing(std::size_t first, std::size_t last);
    void ForgetDoneJobs();
    void FindIcons(std::size_t first, std::size_t last);

    int IconOf(std::wstring_view path, std::wstring_view name);

    ListItems& items_;
    files::FileInfo& info_;
    std::atomic<bool> stopping_ = false;
    std::vector<std::unique_ptr<Job>> jobs_;
};

}  // namespace ferry::controls
