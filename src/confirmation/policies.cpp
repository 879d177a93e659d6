// Where the dialogs offer the collision policies.
#include "confirmation/policies.h"

#include "ids.h"

namespace ferry::confirmation {
namespace {

using transfer::CollisionPolicy;

constexpr std::array kPolicies = std::to_array<PolicyRow>({
    {CollisionPolicy::IfSourceIsNewer, IDC_POLICY_IF_SOURCE_IS_NEWER, IDC_CHOICE_IF_SOURCE_IS_NEWER},
    {CollisionPolicy::IfSourceIsOlder, IDC_POLICY_IF_SOURCE_IS_OLDER, IDC_CHOICE_IF_SOURCE_IS_OLDER},
    {CollisionPolicy::KeepExisting, IDC_POLICY_KEEP_EXISTING, IDC_CHOICE_KEEP_EXISTING},
    {CollisionPolicy::Overwrite, IDC_POLICY_OVERWRITE, IDC_CHOICE_OVERWRITE},
    {CollisionPolicy::RenameIncoming, IDC_POLICY_RENAME_INCOMING, IDC_CHOICE_RENAME_INCOMING},
    {CollisionPolicy::RenameExisting, IDC_POLICY_RENAME_EXISTING, IDC_CHOICE_RENAME_EXISTING},
    {CollisionPolicy::RenameAutomatically, IDC_POLICY_RENAME_AUTOMATICALLY, IDC_CHOICE_RENAME_AUTOMATICALLY},
    {CollisionPolicy::AskEach, IDC_POLICY_ASK_EACH, 0},
});

/// The buttons of one dialog. One that is not offered keeps its place, so that no other policy takes it.
template <int PolicyRow::* kButton>
constexpr auto ButtonsOf() {
    std::array<int, kPolicies.size()> buttons{};
    for (std::size_t place = 0; place < kPolicies.size(); ++place)
        buttons[place] = kPolicies[place].*kButton;
    return buttons;
}

constexpr bool AreInOrder() {
    for (std::size_t place = 0; place < kPolicies.size(); ++place) {
        if (static_cast<std::size_t>(kPolicies[place].Policy) != place)
            return false;
    }
    return true;
}
static_assert(AreInOrder(), "the place of a button is the number of its policy");

constexpr auto kConfirmationChoices = ButtonsOf<&PolicyRow::InConfirmation>();
constexpr auto kCollisionChoices = ButtonsOf<&PolicyRow::InCollision>();

}  // namespace

std::span<const PolicyRow> Policies() noexcept {
    return kPolicies;
}

std::span<const int> ConfirmationChoices() noexcept {
    return kConfirmationChoices;
}

std::span<const int> CollisionChoices() noexcept {
    return kCollisionChoices;
}

int ConfirmationChoice(CollisionPolicy policy) noexcept {
    return kConfirmationChoices[static_cast<std::size_t>(policy)];
}

}  // namespace ferry::confirmation
