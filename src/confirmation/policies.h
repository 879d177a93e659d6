// Where the dialogs offer the collision policies.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "transfer/policy.h"

namespace ferry::confirmation {

/// A policy and the radio buttons that choose it; 0: not offered there.
struct PolicyRow {
    transfer::CollisionPolicy Policy;
    int InConfirmation;
    int InCollision;
};

/// All policies, in the order of their numbers.
std::span<const PolicyRow> Policies() noexcept;

/// The radio buttons of the confirmation dialog: the place of each is the number of its policy.
std::span<const int> ConfirmationChoices() noexcept;

/// The radio buttons of the collision dialog, likewise.
std::span<const int> CollisionChoices() noexcept;

/// The radio button of `policy` in the confirmation dialog.
int ConfirmationChoice(transfer::CollisionPolicy policy) noexcept;

}  // namespace ferry::confirmation
