// What the buttons of the two questions of a run mean.
#include "confirmation/answers.h"

#include "ids.h"

namespace ferry::confirmation {
namespace {

constexpr int kOk = 1;

}  // namespace

transfer::CollisionChoice CollisionChoiceOf(int button) noexcept {
    switch (button) {
        case kOk:
            return transfer::CollisionChoice::ThisItem;
        case IDC_APPLY_TO_ALL:
            return transfer::CollisionChoice::ThisAndLater;
        case IDC_STOP_ALL:
            return transfer::CollisionChoice::StopRun;
        default:
            return transfer::CollisionChoice::SkipItem;
    }
}

transfer::NameChoice NameChoiceOf(int button) noexcept {
    switch (button) {
        case kOk:
            return transfer::NameChoice::Use;
        case IDC_APPLY_TO_ALL:
            return transfer::NameChoice::StopRun;
        default:
            return transfer::NameChoice::SkipItem;
    }
}

}  // namespace ferry::confirmation
