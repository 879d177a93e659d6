// The table of the sample host's options, shared by its parser and its help.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "host_options.h"

namespace ferry::samplehost {

/// An option takes this many values, or all up to the next option.
inline constexpr std::size_t kUpToNextOption = static_cast<std::size_t>(-1);

/// One option. Apply gets the option's values and says whether they made sense.
struct OptionRule {
    std::wstring_view Name;
    std::size_t ValueCount;
    std::wstring_view ValueNames;
    std::wstring_view Help;
    bool (*Apply)(HostOptions& options, std::span<const std::wstring> values);
};

/// Every option, in the order of the help.
std::span<const OptionRule> OptionRules() noexcept;

}  // namespace ferry::samplehost
