// A race: two or more sides do the same work by turns, until the ratios of their figures have settled.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace ferry::bench {

/// One side does its work once. What was measured, or nothing when it went wrong.
using Side = std::function<std::optional<double>()>;

/// What is said about two sides of a race.
struct Row {
    std::string Name;
    std::size_t Ferry;           ///< The place of the side that is measured.
    std::size_t Reference;       ///< The place of the side that it is compared with.
    std::optional<double> Goal;  ///< The largest ratio that is good enough; nothing: for orientation.
    std::string Unit = "ms";
};

/// What ends a race that does not settle.
struct Limits {
    std::size_t MostRounds = 60;
    double MostSeconds = 25;
    std::size_t WarmUpRounds = 1;  ///< So often first, without being counted.
};

/// How the machine is that the race takes place on.
class Machine {
public:
    virtual ~Machine() = default;

    /// Whether the machine does nothing else, now or within `patienceMs`.
    virtual bool BecomesCalm(int patienceMs) = 0;

    /// The time, from any beginning.
    virtual double Seconds() = 0;
};

/// What a race came to for one of its rows.
struct Outcome {
    double Ferry = 0;      ///< The median of the side's figures.
    double Reference = 0;  ///< The same of the other side.
    double Ratio = 0;      ///< The median of the ratios, one of each round.
    double Spread = 0;     ///< The width of the interval in which that median lies, as a part of it.
    std::size_t Rounds = 0;
    std::size_t Repeated = 0;  ///< Rounds that were noisy and not counted.
    double Seconds = 0;
    bool IsSettled = false;
};

/// Runs the race. One outcome for each row; none at all when a side went wrong.
std::vector<Outcome> RunRace(Machine& machine, const std::vector<Side>& sides, const std::vector<Row>& rows,
                             const Limits& limits);

}  // namespace ferry::bench
