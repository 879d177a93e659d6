// What the benchmarks share: timing both sides of a comparison, and telling what it came to.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "race.h"

namespace ferry::bench {

/// How long `work` takes, in milliseconds.
double MillisecondsOf(const std::function<void()>& work);

/// A side whose work comes to a number, in milliseconds. When that is not `expected` it went wrong,
/// and a remark on the standard error says so.
Side Counting(std::size_t expected, std::function<std::size_t()> work);

/// Runs the race on this machine and prints each row as one line of JSON on the standard output, its name
/// followed by the host. When a side went wrong no line appears; the standard error names the rows.
/// Whether all was measured, be the goals met or not.
bool Compare(const std::vector<Side>& sides, const std::vector<Row>& rows, const Limits& limits = {});

/// Prints a row whose figures are the same each time, so that one round says all.
void ReportExact(const std::string& name, double goal, const std::string& unit, double ferry,
                 double reference);

/// The result of the program: 0 when `measure` says that all was measured, else 1, also when it throws,
/// with a remark on the standard error.
int ResultOf(const std::function<bool()>& measure);

}  // namespace ferry::bench
