#include "race.h"

#include <algorithm>

#include "ratio.h"

namespace ferry::bench {
namespace {

// A race is over when the interval of every ratio that has a goal is at most this wide, so that the ratio
// itself is known to about 4 % either way, and has the goal outside, so that another run says the same of it.
// Each ratio is of two figures of the same round: a machine that changes its speed from minute to minute
// changes both. Rounds go to and fro between the sides, and a race ends after an even number of them: who
// comes second finds warmer caches, and a speed that changes steadily favours one end. What has not settled
// at the limits of rounds and time is told with the spread that it has.
constexpr double kSettledSpread = 0.08;

// A side that takes so many times its median was disturbed, once there are so many figures to judge by. A
// race repeats so many rounds at most, in the first half of its time; what is still noisy then belongs to the
// work or to the machine.
constexpr double kDisturbed = 1.5;
constexpr std::size_t kFewestToJudgeBy = 4;
constexpr std::size_t kMostRepeated = 8;

// Processes that ended leave a little work behind, which must not be taken for somebody else's.
constexpr int kPatienceBeforeMs = 1000;
constexpr int kPatienceAfterMs = 100;

struct Round {
    std::vector<double> Figures;  ///< One for each side.
    bool IsCalm = true;
};

class Course {
public:
    Course(Machine& machine, const std::vector<Side>& sides, const std::vector<Row>& rows,
           const Limits& limits)
        : machine_(machine), sides_(sides), rows_(rows), limits_(limits), figures_(sides.size()) {}

    /// False as soon as a side went wrong.
    bool Run() {
        const double begin = machine_.Seconds();
        for (std::size_t round = 0; round < limits_.WarmUpRounds; ++round) {
            if (!RunRound())
                return false;
        }
        while (!IsOver()) {
            const auto round = RunRound();
            if (!round)
                return false;
            if (MayRepeat() && IsNoisy(*round))
                ++repeated_;
            else
                Count(*round);
            seconds_ = machine_.Seconds() - begin;
        }
        return true;
    }

    Outcome OutcomeOf(const Row& row) const {
        const std::vector<double> ratios = RatiosOf(row);
        const auto interval = IntervalOfMedian(ratios);
        Outcome outcome;
        outcome.Ferry = MedianOf(figures_[row.Ferry]);
        outcome.Reference = MedianOf(figures_[row.Reference]);
        outcome.Ratio = MedianOf(ratios);
        const auto [least, most] = std::ranges::minmax(ratios);
        outcome.Spread = (interval ? interval->High - interval->Low : most - least) / outcome.Ratio;
        outcome.Rounds = ratios.size();
        outcome.Repeated = repeated_;
        outcome.Seconds = seconds_;
        outcome.IsSettled = interval && outcome.Spread <= kSettledSpread;
        return outcome;
    }

private:
    std::size_t Counted() const { return figures_.front().size(); }

    std::optional<Round> RunRound() {
        Round round{std::vector<double>(sides_.size())};
        for (std::size_t turn = 0; turn < sides_.size(); ++turn) {
            const std::size_t side = Counted() % 2 == 0 ? turn : sides_.size() - 1 - turn;
            round.IsCalm = machine_.BecomesCalm(kPatienceBeforeMs) && round.IsCalm;
            const auto figure = sides_[side]();
            if (!figure)
                return std::nullopt;
            round.Figures[side] = *figure;
        }
        round.IsCalm = machine_.BecomesCalm(kPatienceAfterMs) && round.IsCalm;
        return round;
    }

    bool MayRepeat() const { return repeated_ < kMostRepeated && seconds_ < limits_.MostSeconds / 2; }

    bool IsNoisy(const Round& round) const {
        if (!round.IsCalm || Counted() < kFewestToJudgeBy)
            return !round.IsCalm;
        for (std::size_t side = 0; side < sides_.size(); ++side) {
            if (round.Figures[side] > kDisturbed * MedianOf(figures_[side]))
                return true;
        }
        return false;
    }

    void Count(const Round& round) {
        for (std::size_t side = 0; side < sides_.size(); ++side) {
            figures_[side].push_back(round.Figures[side]);
        }
    }

    bool IsOver() const {
        if (Counted() == 0)
            return false;
        if (Counted() >= limits_.MostRounds || seconds_ >= limits_.MostSeconds)
            return true;
        return Counted() % 2 == 0 &&
               std::ranges::all_of(rows_, [this](const Row& row) { return IsDecided(row); });
    }

    bool IsDecided(const Row& row) const {
        if (!row.Goal)
            return true;
        const auto interval = IntervalOfMedian(RatiosOf(row));
        return interval && (*row.Goal < interval->Low || *row.Goal >= interval->High) &&
               OutcomeOf(row).IsSettled;
    }

    std::vector<double> RatiosOf(const Row& row) const {
        std::vector<double> ratios;
        for (std::size_t round = 0; round < Counted(); ++round) {
            ratios.push_back(figures_[row.Ferry][round] / figures_[row.Reference][round]);
        }
        return ratios;
    }

    Machine& machine_;
    const std::vector<Side>& sides_;
    const std::vector<Row>& rows_;
    const Limits& limits_;
    std::vector<std::vector<double>> figures_;  ///< For each side those of the counted rounds.
    std::size_t repeated_ = 0;
    double seconds_ = 0;
};

}  // namespace

std::vector<Outcome> RunRace(Machine& machine, const std::vector<Side>& sides, const std::vector<Row>& rows,
                             const Limits& limits) {
    Course course(machine, sides, rows, limits);
    std::vector<Outcome> outcomes;
    if (!course.Run())
        return outcomes;
    for (const Row& row : rows) {
        outcomes.push_back(course.OutcomeOf(row));
    }
    return outcomes;
}

}  // namespace ferry::bench
