// Names as a menu shows them.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace ferry::dirmenu {

/// `name` as a menu has to be given it: "&" is doubled, since a single one underlines what follows, and a
/// control character, which moves the rest to another column, is a blank.
std::wstring MenuText(std::wstring_view name);

/// `name` when it fits; otherwise the longest beginning and end of it that fit with an ellipsis between them.
/// No character of two units, and none with its combining marks, is cut. The ellipsis alone when nothing
/// fits.
std::wstring Shortened(std::wstring_view name, const std::function<bool(std::wstring_view)>& fits);

}  // namespace ferry::dirmenu
