#include "comparison.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>

namespace ferry::bench {
namespace {

/// The middle of the sorted figures; of two middles the greater one.
double Median(const std::vector<double>& sorted) {
    return sorted[sorted.size() / 2];
}

/// Prints one line of JSON; whether its goal is met.
bool Print(const Comparison& comparison, bool hasGoal) {
    std::vector<double> ferry = comparison.Ferry;
    std::vector<double> reference = comparison.Reference;
    if (ferry.empty() || reference.empty()) {
        std::fprintf(stderr, "%s: nothing was measured\n", comparison.Name.c_str());
        return false;
    }
    std::ranges::sort(ferry);
    std::ranges::sort(reference);
    const double ratio = Median(ferry) / Median(reference);
    const bool met = ratio <= comparison.Goal;
    std::printf(R"({"name":"%s","ferry":%.2f,"reference":%.2f,"unit":"%s","ratio":%.3f,)",
                comparison.Name.c_str(), Median(ferry), Median(reference), comparison.Unit.c_str(), ratio);
    if (hasGoal)
        std::printf("\"goal\":%.2f,\"met\":%s}\n", comparison.Goal, met ? "true" : "false");
    else
        std::printf("\"goal\":null,\"met\":null}\n");
    std::fflush(stdout);
    std::fprintf(stderr, "%s: %zu rounds, ferry %.2f to %.2f, reference %.2f to %.2f %s\n",
                 comparison.Name.c_str(), ferry.size(), ferry.front(), ferry.back(), reference.front(),
                 reference.back(), comparison.Unit.c_str());
    return met;
}

}  // namespace

double MillisecondsOf(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - begin;
    return spent.count();
}

Side Counting(std::size_t expected, std::function<std::size_t()> work) {
    return [expected, work = std::move(work)]() -> std::optional<double> {
        std::size_t count = 0;
        const double spent = MillisecondsOf([&] { count = work(); });
        if (count == expected)
            return spent;
        std::fprintf(stderr, "%zu were found instead of %zu\n", count, expected);
        return std::nullopt;
    };
}

bool Race(Comparison& comparison, const Rounds& rounds, const Side& ferry, const Side& reference) {
    for (int round = 0; round < rounds.WarmUp + rounds.Counted; ++round) {
        const bool isFerryFirst = round % 2 == 0;
        const auto first = isFerryFirst ? ferry() : reference();
        const auto second = first ? (isFerryFirst ? reference() : ferry()) : std::nullopt;
        if (!second)
            return false;
        if (round >= rounds.WarmUp) {
            comparison.Ferry.push_back(isFerryFirst ? *first : *second);
            comparison.Reference.push_back(isFerryFirst ? *second : *first);
        }
    }
    return true;
}

bool Report(const Comparison& comparison) {
    return Print(comparison, true);
}

void ReportAside(const Comparison& comparison) {
    Print(comparison, false);
}

}  // namespace ferry::bench
