// Makes the driver's calls in the process of the window that it sends them to. A thread of its own would be
// simpler, but under Wine one that is started from outside can stop its process for good: it may come while
// another thread holds the lock of the memory that the new one needs.
#include "e2e/driver/remote_calls.h"

namespace {

using Function = std::uintptr_t(std::uintptr_t, std::uintptr_t, std::uintptr_t, std::uintptr_t);

}  // namespace

/// A hook for the messages that a thread is sent.
extern "C" __declspec(dllexport) LRESULT CALLBACK MakeCalls(int code, WPARAM wParam, LPARAM lParam) {
    static const UINT message = RegisterWindowMessageW(ferry::e2e::kCallsMessage);
    const auto* const sent = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && sent->message == message) {
        for (auto* call = reinterpret_cast<ferry::e2e::RemoteCall*>(sent->lParam); call->Function != 0;
             ++call) {
            const auto& given = call->Arguments;
            call->Result =
                reinterpret_cast<Function*>(call->Function)(given[0], given[1], given[2], given[3]);
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}
