// Which deliveries and drops count, and which folder is preset.
#include "confirmation/arrivals.h"

#include <gtest/gtest.h>

#include <climits>

#include "base/invalid_argument.h"

namespace ferry::confirmation {
namespace {

TEST(Arrivals, TheFirstDropBringsItemsTheSecondFoldersAndLaterOnesNothing) {
    Arrivals arrivals;
    EXPECT_EQ(arrivals.TakeDrop(3), Drop::Items);
    EXPECT_TRUE(arrivals.TakesDrops());
    EXPECT_EQ(arrivals.TakeDrop(1), Drop::Folders);
    EXPECT_FALSE(arrivals.TakesDrops());
    for (int count = 0; count < 3; ++count)
        EXPECT_EQ(arrivals.TakeDrop(1), Drop::Nothing);
}

TEST(Arrivals, ADropWithoutPathsDoesNotCount) {
    Arrivals arrivals;
    EXPECT_EQ(arrivals.TakeDrop(0), Drop::Nothing);
    EXPECT_TRUE(arrivals.TakesDeliveries());
    EXPECT_EQ(arrivals.TakeDrop(1), Drop::Items);
    EXPECT_EQ(arrivals.TakeDrop(0), Drop::Nothing);
    EXPECT_EQ(arrivals.TakeDrop(1), Drop::Folders);
}

TEST(Arrivals, DeliveriesCountUntilTheFirstDrop) {
    Arrivals arrivals;
    EXPECT_TRUE(arrivals.TakesDeliveries());
    EXPECT_TRUE(arrivals.TakesDeliveries()) << "as many as come";
    arrivals.TakeDrop(1);
    EXPECT_FALSE(arrivals.TakesDeliveries());
    arrivals.TakeDrop(1);
    EXPECT_FALSE(arrivals.TakesDeliveries());
}

TEST(PresetFolder, CountsOnFromTheLastToTheFirst) {
    EXPECT_EQ(PresetFolder(0, 3), 0u);
    EXPECT_EQ(PresetFolder(2, 3), 2u);
    EXPECT_EQ(PresetFolder(3, 3), 0u);
    EXPECT_EQ(PresetFolder(7, 3), 1u);
    EXPECT_EQ(PresetFolder(INT_MAX, 1), 0u);
}

TEST(PresetFolder, ANegativeIndexIsRefusedUnlessItComesOutAtTheFirst) {
    EXPECT_EQ(PresetFolder(-3, 3), 0u);
    EXPECT_EQ(PresetFolder(-5, 1), 0u);
    EXPECT_THROW(PresetFolder(-1, 3), base::InvalidArgument);
    EXPECT_THROW(PresetFolder(-4, 3), base::InvalidArgument);
    EXPECT_THROW(PresetFolder(INT_MIN, 3), base::InvalidArgument);
}

}  // namespace
}  // namespace ferry::confirmation
