// How many of the system's objects this process holds.
#pragma once

#include <cstddef>

namespace ferry::test {

/// A count that grows with what is done over and over tells a leak; a few that the system keeps for itself,
/// or lets go, do not.
struct ResourceCounts {
    std::size_t Handles = 0;
    std::size_t UserObjects = 0;
    std::size_t GdiObjects = 0;
    std::size_t Threads = 0;
};

/// Counts them now. Where the system does not tell the first three (Wine does not), they are found out by the
/// places that new objects get in the tables of objects; other processes that make windows meanwhile
/// then count as well.
ResourceCounts CountResources();

/// The handles of this process, found out in the same way.
std::size_t CountHandles();

/// The threads of this process, this one included.
std::size_t CountThreads();

}  // namespace ferry::test
