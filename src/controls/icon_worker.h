// Finds the icons of list items on threads of its own.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "base/critical_section_win32.h"
#include "controls/list_items.h"
#include "files/ports.h"

namespace ferry::controls {

/// Tells the list that the icons of a range are known; the range is in wParam and lParam.
inline constexpr UINT kIconsReadyMessage = 48500;

/// The icon threads of one list. Made, used and destroyed on the user-interface thread, which waits for none
/// of them before the end: the shell may take a minute for an item of a server that is away.
class IconWorker {
public:
    /// `items` and `info` must outlive the worker; its threads ask `info`.
    IconWorker(ListItems& items, files::FileInfo& info) noexcept : items_(items), info_(info) {}
    IconWorker(const IconWorker&) = delete;
    IconWorker& operator=(const IconWorker&) = delete;
    ~IconWorker();

    /// Finds the missing icons of the items `first` to `last`, both included, and then posts
    /// kIconsReadyMessage to `list`. Starts no thread when none is missing, or when one looks for all of
    /// these already.
    void Request(HWND list, std::size_t first, std::size_t last);

    /// Lets the threads end early and waits for them; at most for the query under way.
    void Stop();

private:
    /// The items from First up to, but without, End, which are there since the items were cleared Round
    /// times.
    struct Range {
        std::size_t First;
        std::size_t End;
        unsigned Round;

        bool Holds(const Range& other) const noexcept {
            return Round == other.Round && First <= other.First && other.End <= End;
        }
    };

    struct Job {
        Range Items;
        std::thread Thread;
        std::atomic<bool> Done = false;
    };

    bool IsLookedFor(const Range& range) const noexcept;
    bool AnyIconMissing(const Range& range);
    void ForgetDoneJobs();
    void FindIcons(const Range& range);
    int IconOf(const std::wstring& path);

    ListItems& items_;
    files::FileInfo& info_;
    base::CriticalSection turn_;  ///< Held by the one thread that asks the shell, for its whole range.
    std::atomic<bool> stopping_ = false;
    std::vector<std::unique_ptr<Job>> jobs_;
};

}  // namespace ferry::controls
