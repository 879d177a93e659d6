// What the buttons of the two questions of a run mean.
#pragma once

#include "transfer/ports.h"

namespace ferry::confirmation {

/// The meaning of the button that ended the collision dialog; any that it has not skips the item.
transfer::CollisionChoice CollisionChoiceOf(int button) noexcept;

/// The meaning of the button that ended the rename dialog. Number 5 stops the run, although no button of
/// today has it; any other one beside OK skips the item.
transfer::NameChoice NameChoiceOf(int button) noexcept;

}  // namespace ferry::confirmation
