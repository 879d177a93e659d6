// What the benchmarks share: timing both sides of a comparison, and telling what it came to.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace ferry::bench {

/// What was measured of both sides of one comparison, in `Unit`.
struct Comparison {
    std::string Name;
    double Goal = 1.0;  ///< The largest ratio of the medians that is good enough.
    std::vector<double> Ferry;
    std::vector<double> Reference;
    std::string Unit = "ms";
};

/// How often the sides take turns.
struct Rounds {
    int WarmUp;  ///< So often first, without being measured.
    int Counted;
};

/// One side of a comparison does its work once. What was measured, or nothing when it went wrong.
using Side = std::function<std::optional<double>()>;

/// How long `work` takes, in milliseconds.
double MillisecondsOf(const std::function<void()>& work);

/// A side whose work comes to a number, in milliseconds. When that is not `expected` it went wrong,
/// and a remark on the standard error says so.
Side Counting(std::size_t expected, std::function<std::size_t()> work);

/// Measures both sides by turns into `comparison`. Whoever comes second finds warmer caches, so both
/// are second equally often. False as soon as a side went wrong.
bool Race(Comparison& comparison, const Rounds& rounds, const Side& ferry, const Side& reference);

/// Prints the medians and their ratio as one line of JSON on the standard output, and the smallest
/// and largest figures as a remark on the standard error. Whether the goal is met; a side without
/// figures never meets it.
bool Report(const Comparison& comparison);

/// Prints the medians and their ratio in the same form, without a goal: a remark for orientation.
void ReportAside(const Comparison& comparison);

}  // namespace ferry::bench
