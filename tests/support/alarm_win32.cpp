#include <windows.h>

#include "support/alarm.h"

namespace ferry::test {
namespace {

void (*ringing)() noexcept = nullptr;

void CALLBACK Ring(PTP_CALLBACK_INSTANCE, void*, PTP_TIMER) noexcept {
    ringing();
}

PTP_TIMER Timer() {
    static const PTP_TIMER timer = CreateThreadpoolTimer(&Ring, nullptr, nullptr);
    return timer;
}

}  // namespace

void StartAlarm(std::chrono::seconds delay, void (*ring)() noexcept) {
    ringing = ring;
    // A negative time counts from now, in units of 100 ns.
    ULARGE_INTEGER due{};
    due.QuadPart = static_cast<ULONGLONG>(-std::chrono::nanoseconds(delay).count() / 100);
    FILETIME time{due.LowPart, due.HighPart};
    SetThreadpoolTimer(Timer(), &time, 0, 0);
}

void StopAlarm() {
    SetThreadpoolTimer(Timer(), nullptr, 0, 0);
    WaitForThreadpoolTimerCallbacks(Timer(), TRUE);
}

}  // namespace ferry::test
