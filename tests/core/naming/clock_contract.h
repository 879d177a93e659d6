// What the program relies on in its clock. The clock that stands still and the system's are held against the
// same tests.
#pragma once

#include <string>

#include "naming/clock.h"
#include "support/contract.h"

namespace ferry::naming::contract {

/// Times that every file system keeps as they are set, an even second each.
inline constexpr CalendarFields kWritten{2024, 2, 29, 23, 59, 58};
inline constexpr CalendarFields kRead{2031, 12, 31, 12, 30, 2};

/// A clock under test, with items for it to look at.
class Place {
public:
    virtual ~Place() = default;

    virtual Clock& TheClock() = 0;

    /// The paths of a file, of a folder and of a file at a path of more than 300 units, all of them last
    /// written at kWritten and last read at kRead, in local time.
    virtual std::wstring File() = 0;
    virtual std::wstring Folder() = 0;
    virtual std::wstring DeepFile() = 0;

    /// A path at which there is nothing.
    virtual std::wstring Nothing() = 0;
};

class ClockContract : public test::ContractOf<Place> {
protected:
    Clock& TheClock() { return AtPlace().TheClock(); }
};

}  // namespace ferry::naming::contract
