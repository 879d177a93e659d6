// What the benchmarks share: timing a piece of work, and telling what a comparison came to.
#pragma once

#include <functional>
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

/// How long `work` takes, in milliseconds.
double MillisecondsOf(const std::function<void()>& work);

/// Prints the medians and their ratio as one line of JSON on the standard output, and the smallest
/// and largest figures as a remark on the standard error. Whether the goal is met; a side without
/// figures never meets it.
bool Report(const Comparison& comparison);

/// Prints the medians and their ratio in the same form, without a goal: a remark for orientation.
void ReportAside(const Comparison& comparison);

}  // namespace ferry::bench
