// The messages of the host and of its scripts.
#pragma once

#include <array>
#include <cstdint>

namespace ferry::hostlink {

/// What a WM_COPYDATA brings.
enum class HostMessage {
    None,         ///< It is nobody's that is known.
    Block,        ///< A block of selected items and tab folders.
    Destination,  ///< A destination, as text.
};

/// A tag and what bears it.
struct HostTag {
    std::uint64_t Tag;
    HostMessage Kind;
};

/// All that is known. Three hand-over codes of the host's scripts carry a destination.
inline constexpr std::array kHostTags = std::to_array<HostTag>({
    {255, HostMessage::Block},
    {100, HostMessage::Destination},
    {200, HostMessage::Destination},
    {300, HostMessage::Destination},
});

/// The kind of message with `tag`.
constexpr HostMessage HostMessageOf(std::uint64_t tag) noexcept {
    for (const HostTag& row : kHostTags) {
        if (row.Tag == tag)
            return row.Kind;
    }
    return HostMessage::None;
}

}  // namespace ferry::hostlink
