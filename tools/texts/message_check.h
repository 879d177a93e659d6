// Whether a message file has every text that the program fetches.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "lang/catalogue.h"
#include "texts/finding.h"

namespace ferry::texts {

/// Where the program names the numbers of messages.
struct NumberPlace {
    std::wstring File;
    std::size_t Line = 0;
};
using UsedNumbers = std::map<std::uint16_t, NumberPlace>;

/// Adds the numbers that the source text `source` of `file` gives names to: lines
/// "constexpr std::uint16_t kName = NUMBER;" with at least four digits.
void FindUsedNumbers(std::wstring_view source, const std::wstring& file, UsedNumbers& used);

/// What is wrong with `text`, the content of the message file `file`, by itself; of numbers that the program
/// uses and the file lacks the finding is where they are used.
Findings CheckMessages(std::wstring_view text, const std::wstring& file, const UsedNumbers& used);

/// What is wrong with it as a translation of the message file `original`.
Findings CompareMessages(std::wstring_view text, const std::wstring& file, std::wstring_view original);

}  // namespace ferry::texts
