// The radio buttons of the policies.
#include "confirmation/policies.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace ferry::confirmation {
namespace {

using Buttons = std::vector<int>;

Buttons Copy(std::span<const int> buttons) {
    return {buttons.begin(), buttons.end()};
}

// Hosts and language files know the controls by these numbers.
TEST(PolicyButtons, HaveTheirNumbersInTheOrderOfThePolicies) {
    EXPECT_EQ(Copy(ConfirmationChoices()), (Buttons{1220, 1227, 1222, 1221, 1223, 1228, 1229, 1230}));
    EXPECT_EQ(Copy(CollisionChoices()), (Buttons{1220, 1221, 1222, 1223, 1224, 1225, 1226, 0}));
}

TEST(PolicyButtons, OfTheConfirmationDialogAreFoundByTheirPolicy) {
    EXPECT_EQ(ConfirmationChoice(transfer::CollisionPolicy::RenameIncoming), 1223);
    EXPECT_EQ(ConfirmationChoice(transfer::CollisionPolicy::RenameExisting), 1228);
}

TEST(PolicyButtons, NoTwoPoliciesShareAButton) {
    std::set<int> confirmation;
    std::set<int> collision;
    for (const PolicyRow& row : Policies()) {
        EXPECT_TRUE(row.InConfirmation != 0 && confirmation.insert(row.InConfirmation).second);
        EXPECT_TRUE(row.InCollision == 0 || collision.insert(row.InCollision).second);
    }
}

}  // namespace
}  // namespace ferry::confirmation
