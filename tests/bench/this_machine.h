// The machine that a race takes place on: its clock, and whether it is busy with something else.
#pragma once

#include "race.h"

namespace ferry::bench {

/// Tells by a short piece of work on all processors at once: where something else runs, one of them takes
/// much longer than the fastest did so far.
class ThisMachine : public Machine {
public:
    ThisMachine();

    bool BecomesCalm(int patienceMs) override;
    double Seconds() override;

private:
    bool IsCalm();

    double fastestMs_;
};

}  // namespace ferry::bench
