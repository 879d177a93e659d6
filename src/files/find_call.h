// Which of Windows' calls begins a search.
#pragma once

namespace ferry::files {

/// Whether shell version `combined` (major x 100 + minor) takes the plain find-first call.
/// Only 501 and 600 do; all others, an unknown 0 included, take the extended call.
constexpr bool UsesPlainFindFirst(int combined) noexcept {
    return combined == 501 || combined == 600;
}

}  // namespace ferry::files
