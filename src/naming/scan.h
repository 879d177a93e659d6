// Reads texts against patterns of scanf, with the same answers under every C library and locale.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace ferry::naming {

/// What a scan assigned before its text or its pattern ended, or they disagreed.
struct Scanned {
    /// The first field of a %s, a view into the text; empty when none was assigned.
    std::wstring_view Field;
    /// The first number of a %d, if one was assigned.
    std::optional<int> Number;
};

/// Scans `text` by `pattern`, which may hold %d and %s, each once, white space and characters that
/// stand for themselves.
/// White space in the pattern matches any run of white space, none included; both conversions
/// skip white space first. White space is that of the character table of Windows. A number
/// beyond 64 bits counts as the nearest limit, and then its low 32 bits are taken, as 64-bit C
/// libraries do. A field that does not fit `fieldCapacity` units with its terminator is not
/// assigned and ends the scan. The text ends at its first NUL.
Scanned Scan(std::wstring_view text, std::wstring_view pattern, std::size_t fieldCapacity);

}  // namespace ferry::naming
