#include "bench/race.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace ferry::bench {
namespace {

/// A machine whose time passes only when somebody works.
class QuietMachine : public Machine {
public:
    bool BecomesCalm(int) override { return IsCalm; }
    double Seconds() override { return Now; }

    bool IsCalm = true;
    double Now = 0;
};

/// Runs races of two sides whose figures are given for each turn of theirs, counted from nothing.
class RaceTest : public testing::Test {
protected:
    using Figure = std::function<double(std::size_t turn)>;

    Outcome Run(Figure ferry, Figure reference, const Limits& limits = {.WarmUpRounds = 0}) {
        const auto outcomes =
            RunRace(machine_, {SideOf('F', ferry), SideOf('R', reference)}, {{"race", 0, 1, goal_}}, limits);
        return outcomes.empty() ? Outcome{} : outcomes.front();
    }

    Side SideOf(char letter, Figure figure) {
        return [=, this, turn = std::size_t{0}]() mutable -> std::optional<double> {
            course_ += letter;
            machine_.Now += 1;
            return figure(turn++);
        };
    }

    static Figure Always(double figure) {
        return [=](std::size_t) { return figure; };
    }

    QuietMachine machine_;
    std::optional<double> goal_ = 2.0;
    std::string course_;  ///< Who worked, a letter for each turn.
};

TEST_F(RaceTest, EndsAfterTheFewestRoundsThatCanTellWhenAllRatiosAgree) {
    const Outcome outcome = Run(Always(3), Always(2));
    EXPECT_EQ(outcome.Rounds, 6U);
    EXPECT_EQ(outcome.Ratio, 1.5);
    EXPECT_EQ(outcome.Ferry, 3);
    EXPECT_EQ(outcome.Reference, 2);
    EXPECT_EQ(outcome.Spread, 0);
    EXPECT_EQ(outcome.Seconds, 12);
    EXPECT_TRUE(outcome.IsSettled);
}

TEST_F(RaceTest, GoesToAndFroBetweenTheSides) {
    Run(Always(1), Always(1));
    EXPECT_EQ(course_, "FRRFFRRFFRRF");
}

TEST_F(RaceTest, DoesNotCountTheWarmUp) {
    const auto slowAtFirst = [](std::size_t turn) { return turn < 2 ? 50.0 : 1.0; };
    const Outcome outcome = Run(slowAtFirst, Always(1), {.WarmUpRounds = 2});
    EXPECT_EQ(outcome.Rounds, 6U);
    EXPECT_EQ(outcome.Ratio, 1);
    EXPECT_EQ(outcome.Spread, 0);
    EXPECT_EQ(course_.size(), 16U);
}

TEST_F(RaceTest, AMachineThatSlowsDownChangesNoRatio) {
    const auto slower = [](double figure) {
        return [=](std::size_t turn) { return figure * (1 + 0.1 * static_cast<double>(turn)); };
    };
    const Outcome outcome = Run(slower(3), slower(2));
    EXPECT_EQ(outcome.Rounds, 6U);
    EXPECT_NEAR(outcome.Ratio, 1.5, 1e-9);
    EXPECT_NEAR(outcome.Spread, 0, 1e-9);
}

TEST_F(RaceTest, GoesOnUntilTheRatioHasSettled) {
    // The first rounds scatter, the later ones agree.
    const auto figure = [](std::size_t turn) {
        return turn < 6 ? 1 + 0.05 * static_cast<double>(turn) : 1.1;
    };
    const Outcome outcome = Run(figure, Always(1));
    EXPECT_GT(outcome.Rounds, 6U);
    EXPECT_LT(outcome.Rounds, 60U);
    EXPECT_LE(outcome.Spread, 0.08);
    EXPECT_TRUE(outcome.IsSettled);
}

TEST_F(RaceTest, EndsWhenEachSideWasFirstEquallyOften) {
    // Nine rounds leave the one figure out that differs.
    const auto oneDiffers = [](std::size_t turn) { return turn == 0 ? 1.3 : 1.0; };
    const Outcome outcome = Run(oneDiffers, Always(1));
    EXPECT_EQ(outcome.Rounds, 10U);
    EXPECT_EQ(outcome.Spread, 0);
}

TEST_F(RaceTest, TellsAtItsLimitsThatNothingHasSettled) {
    const auto unsteady = [](std::size_t turn) { return turn % 2 == 0 ? 1.0 : 1.4; };
    const Outcome ofRounds =
        Run(unsteady, Always(1), {.MostRounds = 10, .MostSeconds = 1000, .WarmUpRounds = 0});
    EXPECT_EQ(ofRounds.Rounds, 10U);
    EXPECT_FALSE(ofRounds.IsSettled);
    EXPECT_NEAR(ofRounds.Spread, 0.4 / 1.2, 1e-9);
    const Outcome ofTime =
        Run(unsteady, Always(1), {.MostRounds = 1000, .MostSeconds = 40, .WarmUpRounds = 0});
    EXPECT_EQ(ofTime.Rounds, 20U);
    EXPECT_FALSE(ofTime.IsSettled);
}

TEST_F(RaceTest, FewerRoundsThanCanTellAreNotSettled) {
    const Outcome outcome = Run(Always(1), Always(1), {.MostSeconds = 4, .WarmUpRounds = 0});
    EXPECT_EQ(outcome.Rounds, 2U);
    EXPECT_FALSE(outcome.IsSettled);
}

TEST_F(RaceTest, GoesOnWhileAnotherRunMightSayOtherwiseOfTheGoal) {
    goal_ = 1.01;
    const auto aroundTheGoal = [](std::size_t turn) { return turn % 2 == 0 ? 1.0 : 1.02; };
    const Outcome outcome = Run(aroundTheGoal, Always(1), {.MostRounds = 30, .MostSeconds = 1000});
    EXPECT_EQ(outcome.Rounds, 30U);
    EXPECT_TRUE(outcome.IsSettled);
}

TEST_F(RaceTest, DoesNotWaitForARowWithoutAGoal) {
    goal_.reset();
    const auto unsteady = [](std::size_t turn) { return turn % 2 == 0 ? 1.0 : 1.4; };
    const Outcome outcome = Run(unsteady, Always(1), {.WarmUpRounds = 0});
    EXPECT_FALSE(outcome.IsSettled);
    EXPECT_EQ(outcome.Rounds, 2U);
}

TEST_F(RaceTest, RepeatsARoundInWhichTheMachineWasBusy) {
    const auto busyOnce = [this](std::size_t turn) {
        machine_.IsCalm = turn != 2;
        return turn == 2 ? 100.0 : 1.0;
    };
    const auto calmAgain = [this](std::size_t) {
        machine_.IsCalm = true;
        return 1.0;
    };
    const Outcome outcome = Run(busyOnce, calmAgain);
    EXPECT_EQ(outcome.Repeated, 1U);
    EXPECT_EQ(outcome.Rounds, 6U);
    EXPECT_EQ(outcome.Spread, 0);
    // The third round twice, in the same order.
    EXPECT_EQ(course_, "FRRFFRFRRFFRRF");
}

TEST_F(RaceTest, RepeatsARoundInWhichASideTookMuchLongerThanUsual) {
    const auto disturbedLate = [](std::size_t turn) { return turn == 4 ? 1.6 : 1.0; };
    const Outcome outcome = Run(disturbedLate, Always(1));
    EXPECT_EQ(outcome.Repeated, 1U);
    EXPECT_EQ(outcome.Spread, 0);
}

TEST_F(RaceTest, CountsASlowRoundWhileItCannotJudge) {
    const auto disturbedEarly = [](std::size_t turn) { return turn == 3 ? 1.6 : 1.0; };
    EXPECT_EQ(Run(disturbedEarly, Always(1)).Repeated, 0U);
}

TEST_F(RaceTest, CountsTheRoundsOfAMachineThatIsNeverCalmOnceItHasRepeatedEnough) {
    machine_.IsCalm = false;
    const Outcome outcome = Run(Always(1), Always(1), {.MostSeconds = 1000, .WarmUpRounds = 0});
    EXPECT_EQ(outcome.Repeated, 8U);
    EXPECT_EQ(outcome.Rounds, 6U);
}

TEST_F(RaceTest, RepeatsNothingInTheSecondHalfOfItsTime) {
    machine_.IsCalm = false;
    const Outcome outcome = Run(Always(1), Always(1), {.MostSeconds = 8, .WarmUpRounds = 0});
    EXPECT_EQ(outcome.Repeated, 2U);
    EXPECT_EQ(outcome.Rounds, 2U);
}

TEST_F(RaceTest, HasNoOutcomeWhenASideGoesWrong) {
    const Side broken = [] { return std::optional<double>(); };
    const Side sound = [] { return std::optional(1.0); };
    EXPECT_TRUE(RunRace(machine_, {sound, broken}, {{"race", 0, 1, 1.0}}, {}).empty());
    EXPECT_TRUE(RunRace(machine_, {broken, sound}, {{"race", 0, 1, 1.0}}, {}).empty());
}

TEST_F(RaceTest, ThreeSidesShareTheirRounds) {
    const auto outcomes =
        RunRace(machine_, {SideOf('A', Always(1)), SideOf('B', Always(2)), SideOf('C', Always(5))},
                {{"two", 1, 0, 3.0}, {"five", 2, 0, 6.0}}, {.WarmUpRounds = 0});
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_EQ(outcomes[0].Ratio, 2);
    EXPECT_EQ(outcomes[1].Ratio, 5);
    EXPECT_EQ(course_, "ABCCBAABCCBAABCCBA");
}

}  // namespace
}  // namespace ferry::bench
