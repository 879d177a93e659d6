// What a check of texts finds.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace ferry::texts {

/// Something that is wrong with a text.
struct Finding {
    std::wstring File;     ///< As the person knows it.
    std::size_t Line = 0;  ///< From 1; 0 means the file as a whole.
    std::wstring What;

    bool operator==(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

}  // namespace ferry::texts
