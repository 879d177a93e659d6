// The middle of figures that scatter, and how sure it is.
#pragma once

#include <optional>
#include <vector>

namespace ferry::bench {

/// The middle of the figures, of two middles their mean. There must be at least one figure.
double MedianOf(std::vector<double> figures);

/// Two bounds, both inclusive.
struct Interval {
    double Low;
    double High;
};

/// Where the median of endlessly many such figures lies, with a confidence of 95 % or a little more and
/// however they scatter: between two of the figures. Nothing below six figures, which cannot tell.
std::optional<Interval> IntervalOfMedian(std::vector<double> figures);

}  // namespace ferry::bench
