// Texts in the narrow encoding of a Japanese Windows, on every host.
#pragma once

#include <string>
#include <string_view>

namespace ferry::scripttools {

/// `text` in code page 932, whatever this system's own is: a pretended world is the same everywhere. Each
/// unit that the code page lacks becomes "?".
std::string InCodePage932(std::wstring_view text);

}  // namespace ferry::scripttools
