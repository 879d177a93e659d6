#include "comparison.h"

#include <chrono>
#include <cstdio>
#include <exception>
#include <optional>
#include <utility>

#include "this_machine.h"

namespace ferry::bench {
namespace {

// Some benchmarks run on both hosts, and each line of a result has a name of its own.
#ifdef _WIN32
constexpr char kHost[] = "Windows";
#else
constexpr char kHost[] = "native";
#endif

void PrintGoal(const std::optional<double>& goal, double ratio) {
    if (goal)
        std::printf(R"("goal":%.2f,"met":%s)", *goal, ratio <= *goal ? "true" : "false");
    else
        std::printf(R"("goal":null,"met":null)");
}

void Print(const Row& row, const Outcome& outcome) {
    std::printf(R"-({"name":"%s (%s)","ferry":%.2f,"reference":%.2f,"unit":"%s","ratio":%.3f,)-",
                row.Name.c_str(), kHost, outcome.Ferry, outcome.Reference, row.Unit.c_str(), outcome.Ratio);
    PrintGoal(row.Goal, outcome.Ratio);
    std::printf(R"(,"rounds":%zu,"repeated":%zu,"spread":%.3f,"settled":%s,"seconds":%.1f})", outcome.Rounds,
                outcome.Repeated, outcome.Spread, outcome.IsSettled ? "true" : "false", outcome.Seconds);
    std::puts("");
    std::fflush(stdout);
}

/// What came of the race; nothing when a side went wrong, also by an exception.
std::vector<Outcome> TryRace(const std::vector<Side>& sides, const std::vector<Row>& rows,
                             const Limits& limits) {
    static ThisMachine machine;
    try {
        return RunRace(machine, sides, rows, limits);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return {};
    }
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

bool Compare(const std::vector<Side>& sides, const std::vector<Row>& rows, const Limits& limits) {
    const auto outcomes = TryRace(sides, rows, limits);
    for (std::size_t index = 0; index < rows.size(); ++index) {
        if (outcomes.empty())
            std::fprintf(stderr, "could not measure: %s (%s)\n", rows[index].Name.c_str(), kHost);
        else
            Print(rows[index], outcomes[index]);
    }
    return !outcomes.empty();
}

void ReportExact(const std::string& name, double goal, const std::string& unit, double ferry,
                 double reference) {
    Outcome outcome{ferry, reference, ferry / reference};
    outcome.Rounds = 1;
    outcome.IsSettled = true;
    Print({name, 0, 0, goal, unit}, outcome);
}

int ResultOf(const std::function<bool()>& measure) {
    try {
        return measure() ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "could not measure: %s\n", error.what());
        return 1;
    }
}

}  // namespace ferry::bench
