// What the buttons of the questions mean.
#include "confirmation/answers.h"

#include <gtest/gtest.h>

namespace ferry::confirmation {
namespace {

using transfer::CollisionChoice;
using transfer::NameChoice;

TEST(CollisionButtons, MeanThisItemAllItemsOrTheEndAndAnyOtherSkipsTheItem) {
    EXPECT_EQ(CollisionChoiceOf(1), CollisionChoice::ThisItem);
    EXPECT_EQ(CollisionChoiceOf(5), CollisionChoice::ThisAndLater);
    EXPECT_EQ(CollisionChoiceOf(7), CollisionChoice::StopRun);
    for (const int button : {2, 0, -1, 3, 4, 6, 8})
        EXPECT_EQ(CollisionChoiceOf(button), CollisionChoice::SkipItem) << button;
}

TEST(RenameButtons, FiveStopsTheRunAndAnyOtherBesideOkSkipsTheItem) {
    EXPECT_EQ(NameChoiceOf(1), NameChoice::Use);
    EXPECT_EQ(NameChoiceOf(5), NameChoice::StopRun);
    for (const int button : {2, 0, -1, 3, 4, 6, 7, 8})
        EXPECT_EQ(NameChoiceOf(button), NameChoice::SkipItem) << button;
}

}  // namespace
}  // namespace ferry::confirmation
