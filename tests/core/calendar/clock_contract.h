// What the program relies on in its clock. The clock that stands still, the model's and the system's are held
// against the same tests.
#pragma once

#include "calendar/clock.h"
#include "support/contract.h"

namespace ferry::calendar::contract {

class ClockContract : public test::ContractOf<Clock> {
protected:
    Clock& TheClock() { return AtPlace(); }
};

}  // namespace ferry::calendar::contract
