// What each collision policy means.
#include "transfer/policy.h"

#include <gtest/gtest.h>

namespace ferry::transfer {
namespace {

using enum CollisionPolicy;
using enum TimeOrder;

TEST(CollisionPolicy, OfEachStoredNumberIsThePolicyWithThatNumber) {
    for (std::uint32_t number = 0; number <= 7; ++number)
        EXPECT_EQ(static_cast<std::uint32_t>(PolicyOf(number)), number);
}

TEST(CollisionPolicy, OfANumberThatNobodyKnowsOverwrites) {
    for (const std::uint32_t number : {8u, 9u, 100u, 0x80000000u, 0xFFFFFFFFu})
        EXPECT_EQ(PolicyOf(number), Overwrite) << number;
}

TEST(CollisionPolicy, OnlyTheFirstTwoCompareTimes) {
    for (std::uint32_t number = 0; number <= 7; ++number)
        EXPECT_EQ(ComparesTimes(PolicyOf(number)), number < 2);
}

TEST(CollisionPolicy, DecidesByTheTimesWhereItComparesThem) {
    EXPECT_EQ(Decide(IfSourceIsNewer, SourceIsNewer), Decision::Transfer);
    EXPECT_EQ(Decide(IfSourceIsNewer, SourceIsOlder), Decision::Keep);
    EXPECT_EQ(Decide(IfSourceIsNewer, Neither), Decision::Keep);
    EXPECT_EQ(Decide(IfSourceIsOlder, SourceIsNewer), Decision::Keep);
    EXPECT_EQ(Decide(IfSourceIsOlder, SourceIsOlder), Decision::Transfer);
    EXPECT_EQ(Decide(IfSourceIsOlder, Neither), Decision::Keep);
}

TEST(CollisionPolicy, DecidesWithoutLookingAtTimesElsewhere) {
    for (const TimeOrder order : {SourceIsNewer, SourceIsOlder, Neither}) {
        EXPECT_EQ(Decide(KeepExisting, order), Decision::Keep);
        EXPECT_EQ(Decide(Overwrite, order), Decision::Transfer);
        EXPECT_EQ(Decide(RenameIncoming, order), Decision::NameIncoming);
        EXPECT_EQ(Decide(RenameExisting, order), Decision::NameExisting);
        EXPECT_EQ(Decide(RenameAutomatically, order), Decision::LetShellName);
        EXPECT_EQ(Decide(AskEach, order), Decision::Transfer);
    }
}

}  // namespace
}  // namespace ferry::transfer
