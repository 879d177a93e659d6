// How many of the system's objects this process holds.
#pragma once

#include <cstddef>

namespace ferry::test {

/// Two counts that differ tell a leak.
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

/// The threads of this process, this one included.
std::size_t CountThreads();

}  // namespace ferry::test
