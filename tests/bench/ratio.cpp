#include "ratio.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace ferry::bench {
namespace {

/// The interval may miss the median on either side, with half of what 95 % leaves.
constexpr double kMissed = 0.025;

/// How many of `count` figures may be left out at either end. Each figure lies below the median as a coin
/// falls, so fewer than `left` of them do with the chance that so few of `count` coins show heads.
std::size_t LeftOutAtEitherEnd(std::size_t count) {
    double ways = std::pow(0.5, static_cast<double>(count));
    double chance = ways;
    std::size_t left = 0;
    while (chance <= kMissed) {
        ++left;
        ways *= static_cast<double>(count - left + 1) / static_cast<double>(left);
        chance += ways;
    }
    return left;
}

}  // namespace

double MedianOf(std::vector<double> figures) {
    std::ranges::sort(figures);
    const std::size_t middle = figures.size() / 2;
    return figures.size() % 2 != 0 ? figures[middle] : (figures[middle - 1] + figures[middle]) / 2;
}

std::optional<Interval> IntervalOfMedian(std::vector<double> figures) {
    const std::size_t left = LeftOutAtEitherEnd(figures.size());
    if (left == 0)
        return std::nullopt;
    std::ranges::sort(figures);
    return Interval{figures[left - 1], figures[figures.size() - left]};
}

}  // namespace ferry::bench
