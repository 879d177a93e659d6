// What reaches the dialog after it has opened: deliveries of the host and drops.
#pragma once

#include <cstddef>

namespace ferry::confirmation {

/// What a drop brings.
enum class Drop { Nothing, Items, Folders };

/// Which arrivals count. The first drop brings items in the place of those that were there, the second one
/// folders for the list of tabs; later ones bring nothing. The host's deliveries count until the first drop.
class Arrivals {
public:
    bool TakesDeliveries() const noexcept { return drops_ == 0; }

    /// A drop of `count` paths; one without any is none.
    Drop TakeDrop(std::size_t count) noexcept;

    /// Whether a drop would bring anything.
    bool TakesDrops() const noexcept { return drops_ < 2; }

private:
    int drops_ = 0;
};

/// Which of `count` folders, at least one, is preset for the command line's `index`, which counts on from the
/// last to the first. Throws base::InvalidArgument for one that comes out negative.
std::size_t PresetFolder(int index, std::size_t count);

}  // namespace ferry::confirmation
