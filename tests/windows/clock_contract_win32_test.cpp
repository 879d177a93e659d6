// The system's clock keeps the contract of the clock.
#include <windows.h>

#include "calendar/clock_win32.h"
#include "core/calendar/clock_contract.h"

namespace ferry::calendar::contract {
namespace {

INSTANTIATE_TEST_SUITE_P(System, ClockContract, testing::Values(&test::Make<Clock, SystemClock>));

}  // namespace
}  // namespace ferry::calendar::contract
