// Texts on one line: what would break or hide in it stands there as a sign.
#pragma once

#include <string>
#include <string_view>

namespace ferry::scripttools {

/// `text` with signs for line feeds (U+2424), carriage returns (U+240D) and tabs (U+2409), and for a blank at
/// either end (U+2420).
std::wstring WithSigns(std::wstring_view text);

/// The text that WithSigns writes so.
std::wstring FromSigns(std::wstring_view text);

}  // namespace ferry::scripttools
