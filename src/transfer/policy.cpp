// What happens to an item whose name exists at the destination.
#include "transfer/policy.h"

namespace ferry::transfer {

CollisionPolicy PolicyOf(std::uint32_t stored) noexcept {
    constexpr auto kLast = static_cast<std::uint32_t>(CollisionPolicy::AskEach);
    return stored <= kLast ? static_cast<CollisionPolicy>(stored) : CollisionPolicy::Overwrite;
}

bool ComparesTimes(CollisionPolicy policy) noexcept {
    return policy == CollisionPolicy::IfSourceIsNewer || policy == CollisionPolicy::IfSourceIsOlder;
}

Decision Decide(CollisionPolicy policy, TimeOrder order) noexcept {
    // A policy without a line of its own here does not compile.
    switch (policy) {
        case CollisionPolicy::IfSourceIsNewer:
            return order == TimeOrder::SourceIsNewer ? Decision::Transfer : Decision::Keep;
        case CollisionPolicy::IfSourceIsOlder:
            return order == TimeOrder::SourceIsOlder ? Decision::Transfer : Decision::Keep;
        case CollisionPolicy::KeepExisting:
            return Decision::Keep;
        case CollisionPolicy::Overwrite:
            return Decision::Transfer;
        case CollisionPolicy::RenameIncoming:
            return Decision::NameIncoming;
        case CollisionPolicy::RenameExisting:
            return Decision::NameExisting;
        case CollisionPolicy::RenameAutomatically:
            return Decision::LetShellName;
        case CollisionPolicy::AskEach:
            // The question was asked, and what it remembered may hold this number, which no button has.
            return Decision::Transfer;
    }
    return Decision::Keep;
}

}  // namespace ferry::transfer
