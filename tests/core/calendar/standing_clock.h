// A clock that stands still, for the tests of whatever asks for times. It keeps the clock's contract.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "calendar/clock.h"

namespace ferry::test {

/// It is always the same moment, and local time is nine hours ahead of UTC.
class StandingClock : public calendar::Clock {
public:
    calendar::CalendarFields Now() override { return Time; }
    std::optional<calendar::CalendarFields> LocalTime(std::uint64_t fileTime) override;
    double LocalDate(std::uint64_t fileTime) override;

    calendar::CalendarFields Time{2024, 5, 1, 12, 34, 56};
    bool KnowsZone = true;             ///< When false, no file time has a local one.
    std::vector<std::uint64_t> Asked;  ///< The file times whose local ones were asked for.
};

/// The file time of a local date and time of that clock.
std::uint64_t FileTimeAt(const calendar::CalendarFields& local);

}  // namespace ferry::test
