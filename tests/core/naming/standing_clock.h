// A clock that stands still, for the tests of whatever asks for times. It keeps the clock's contract.
#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/case_order.h"
#include "naming/clock.h"

namespace ferry::test {

/// It is always the same moment, and every item has the same times, but for those that have vanished.
class StandingClock : public naming::Clock {
public:
    naming::CalendarFields Now() override { return Time; }

    std::optional<naming::CalendarFields> ItemTime(std::wstring_view path,
                                                   naming::DateSource source) override {
        Asked.emplace_back(path);
        const bool hasVanished = std::ranges::any_of(
            Vanished, [&](const std::wstring& gone) { return base::EqualsIgnoringCase(gone, path); });
        return hasVanished ? kFileTimeZero : Times.at(source);
    }

    /// The file time zero, which local time is not behind here.
    static constexpr naming::CalendarFields kFileTimeZero{1601, 1, 1, 9, 0, 0};

    naming::CalendarFields Time{2024, 5, 1, 12, 34, 56};

    /// Nothing stands for a file time that no calendar can show.
    std::map<naming::DateSource, std::optional<naming::CalendarFields>> Times = {
        {naming::DateSource::Created, naming::CalendarFields{2001, 1, 2, 3, 4, 5}},
        {naming::DateSource::Modified, naming::CalendarFields{2002, 1, 2, 3, 4, 5}},
        {naming::DateSource::Accessed, naming::CalendarFields{2003, 1, 2, 3, 4, 5}}};

    std::vector<std::wstring> Vanished;
    std::vector<std::wstring> Asked;  ///< The items of the questions, in order.
};

}  // namespace ferry::test
