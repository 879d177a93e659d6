// What happens to an item whose name exists at the destination.
#pragma once

#include <cstdint>

namespace ferry::transfer {

/// The policies. The numbers are the stored ones and the places of the choices in the dialogs.
enum class CollisionPolicy : std::uint32_t {
    IfSourceIsNewer = 0,      ///< Overwrite only when the source is newer.
    IfSourceIsOlder = 1,      ///< Overwrite only when the source is older.
    KeepExisting = 2,         ///< Do not transfer an item whose name exists.
    Overwrite = 3,            ///< Overwrite unconditionally.
    RenameIncoming = 4,       ///< The user names the incoming item.
    RenameExisting = 5,       ///< The user renames the existing item first.
    RenameAutomatically = 6,  ///< The shell picks a new name.
    AskEach = 7,              ///< The collision dialog decides.
};

/// The policy of a stored number. Hosts count on numbers that stand for none, 8 and above, to overwrite.
CollisionPolicy PolicyOf(std::uint32_t stored) noexcept;

/// Which of two items was written last, at the precision of the run.
enum class TimeOrder { SourceIsNewer, SourceIsOlder, Neither };

/// What is to be done.
enum class Decision { Transfer, Keep, NameIncoming, NameExisting, LetShellName };

/// Whether the policy depends on times.
bool ComparesTimes(CollisionPolicy policy) noexcept;

/// What `policy` means for an item whose name exists; `order` counts where the policy depends on it.
Decision Decide(CollisionPolicy policy, TimeOrder order) noexcept;

}  // namespace ferry::transfer
