// What reaches the dialog after it has opened: deliveries of the host and drops.
#include "confirmation/arrivals.h"

#include "base/invalid_argument.h"

namespace ferry::confirmation {

Drop Arrivals::TakeDrop(std::size_t count) noexcept {
    if (count == 0 || !TakesDrops())
        return Drop::Nothing;
    return ++drops_ == 1 ? Drop::Items : Drop::Folders;
}

std::size_t PresetFolder(int index, std::size_t count) {
    const int place = index % static_cast<int>(count);
    if (place < 0)
        throw base::InvalidArgument();
    return static_cast<std::size_t>(place);
}

}  // namespace ferry::confirmation
