// The labels of a script and where a jump to them leads.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>

namespace ferry::script {

/// The place of a label.
struct LabelPlace {
    std::size_t Index = 0;   ///< Of the label's line among the lines of its source.
    std::size_t Number = 0;  ///< The line's number in the file.
};

/// The labels of one script; their letter case counts.
class Labels {
public:
    /// Enters the label `name`, a view that outlives the table. False when there is one of that name already,
    /// which then stays.
    bool Add(std::wstring_view name, LabelPlace place) { return places_.try_emplace(name, place).second; }

    /// Where `name` is; nothing when there is no such label.
    const LabelPlace* Find(std::wstring_view name) const;

private:
    std::unordered_map<std::wstring_view, LabelPlace> places_;
};

}  // namespace ferry::script
