// Children that wait until a test lets them go.
#pragma once

#include <windows.h>

#include <string>

#include "base/handles_win32.h"
#include "windows/child_process_win32.h"
#include "windows/support_win32.h"

namespace ferry::test {

/// What keeps the children of one test running. They end when this goes.
class WaitingChildren {
public:
    WaitingChildren() = default;
    WaitingChildren(const WaitingChildren&) = delete;
    WaitingChildren& operator=(const WaitingChildren&) = delete;
    ~WaitingChildren() { Release(); }

    /// The arguments of such a child.
    std::wstring Arguments() const { return WaitArguments(startedName_, stopName_); }

    /// Whether one has started by now, or does soon.
    bool HasStarted() const { return WaitForSingleObject(started_.Get(), kPatienceMs) == WAIT_OBJECT_0; }

    void Release() const { SetEvent(stop_.Get()); }

private:
    std::wstring startedName_ = UniqueName(L"FerryStarted");
    std::wstring stopName_ = UniqueName(L"FerryStop");
    base::EventHandle started_{CreateEventW(nullptr, TRUE, FALSE, startedName_.c_str())};
    base::EventHandle stop_{CreateEventW(nullptr, TRUE, FALSE, stopName_.c_str())};
};

}  // namespace ferry::test
