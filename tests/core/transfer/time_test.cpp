// The time test: which of two times counts as newer at each precision.
#include <gtest/gtest.h>

#include <random>

#include "core/transfer/model_run.h"
#include "transfer/item_engine.h"

namespace ferry::transfer {
namespace {

using model::kSecond;

constexpr std::uint64_t kDay = 86'400 * kSecond;
constexpr std::uint64_t kNow = 133'000'000'000'000'000;

class TimeTest : public ::testing::Test {
protected:
    bool Newer(std::uint64_t later, std::uint64_t earlier, std::uint32_t precision) {
        return IsNewer(clock, later, earlier, precision);
    }

    model::World world;
    model::ModelClock clock{world};
};

TEST_F(TimeTest, AtPrecisionZeroASingleTickMakesATimeNewer) {
    EXPECT_TRUE(Newer(kNow + 1, kNow, 0));
    EXPECT_FALSE(Newer(kNow, kNow, 0));
    EXPECT_FALSE(Newer(kNow, kNow + 1, 0));
    EXPECT_TRUE(Newer(0xFFFFFFFFFFFFFFFF, 0x7FFFFFFFFFFFFFFF, 0));
}

TEST_F(TimeTest, AtPrecisionOneItTakesTwoWholeSecondsAndAtTwoItTakesThree) {
    for (const std::uint32_t precision : {1u, 2u}) {
        SCOPED_TRACE(precision);
        EXPECT_FALSE(Newer(kNow + precision * kSecond, kNow, precision));
        EXPECT_TRUE(Newer(kNow + (precision + 1) * kSecond, kNow, precision));
        EXPECT_FALSE(Newer(kNow, kNow + 100 * kSecond, precision));
    }
}

TEST_F(TimeTest, MillisecondsAreIgnored) {
    const std::uint64_t almost = kSecond - 1;
    EXPECT_FALSE(Newer(kNow + kSecond + almost, kNow, 1)) << "1.99 seconds are one whole second";
    EXPECT_TRUE(Newer(kNow + 2 * kSecond, kNow + almost, 1)) << "1.00 seconds across two second ends are two";
}

TEST_F(TimeTest, OtherPrecisionNumbersCompareExactly) {
    EXPECT_TRUE(Newer(kNow + 1, kNow, 3));
    EXPECT_TRUE(Newer(kNow + 1, kNow, 0xFFFFFFFF));
}

TEST_F(TimeTest, ATimeThatCannotBeConvertedCountsAsDateZero) {
    const std::uint64_t unfit = 0xF000000000000000;
    EXPECT_TRUE(Newer(kNow, unfit, 1));
    EXPECT_FALSE(Newer(unfit, kNow, 1));
    EXPECT_FALSE(Newer(unfit, unfit, 2));
}

TEST_F(TimeTest, AgreesWithWholeNumbersOverFourCenturies) {
    std::mt19937_64 random(7);
    for (int round = 0; round < 200'000; ++round) {
        const std::uint64_t earlier = random() % (kDay * 365 * 400);
        const std::uint64_t later = earlier + random() % (kSecond * 6);
        const std::uint32_t precision = 1 + static_cast<std::uint32_t>(random() % 2);
        ASSERT_EQ(Newer(later, earlier, precision), model::IsNewerByOracle(later, earlier, precision))
            << later << " " << earlier << " " << precision;
        ASSERT_FALSE(Newer(earlier, later, precision));
    }
}

TEST(WholeSecondsBetween, IsShiftedByHalfASecondAndTruncated) {
    constexpr double kSecondInDays = 1.0 / 86400.0;
    const std::tuple<double, double, std::int64_t> cases[] = {
        {45000.0, 45000.0, 0},
        {45000.0 + 1.4 * kSecondInDays, 45000.0, 1},
        {45000.0 + 1.6 * kSecondInDays, 45000.0, 2},
        {45000.0, 45000.0 + 1.4 * kSecondInDays, -1},
        {45000.0, 45000.0 + 1.6 * kSecondInDays, -2},
        {45001.0, 45000.0, 86400},
        {0.0, 45000.0, -45000LL * 86400},
    };
    for (const auto& [later, earlier, seconds] : cases)
        EXPECT_EQ(WholeSecondsBetween(later, earlier), seconds) << later << " - " << earlier;
}

TEST(WholeSecondsBetween, ReadsTheFractionForwardInDatesBeforeTheEpoch) {
    const std::tuple<double, double, std::int64_t> cases[] = {
        {-1.25, -1.0, 21600},                         // a quarter into day -1 against its start
        {-1.0, -1.25, -21600}, {0.25, -1.75, 43200},  // day 0, 06:00 against day -1, 18:00
        {-1.5, -2.5, 86400},   {-0.25, 0.25, 0},      // both are 06:00 of day 0
        {-0.000005, 0.0, 0},                          // too small to be taken for a fraction
    };
    for (const auto& [later, earlier, seconds] : cases)
        EXPECT_EQ(WholeSecondsBetween(later, earlier), seconds) << later << " - " << earlier;
}

}  // namespace
}  // namespace ferry::transfer
