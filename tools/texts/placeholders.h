// The places in a text where the program puts something else.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ferry::texts {

/// The placeholders in `text`, "%" and what follows it, in the order of the alphabet.
std::vector<std::wstring> PlaceholdersOf(std::wstring_view text);

}  // namespace ferry::texts
