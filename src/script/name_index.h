// Names that are found in texts, whatever their number.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace ferry::script {

/// Names of which none begins another, each with a number. Looking at one place of a text costs no more than
/// the name that may stand there is long, however many names there are.
class NameIndex {
public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    NameIndex();

    /// Enters `name`, which is not empty.
    void Add(std::wstring_view name, std::uint32_t number);

    /// The number of the name that begins at `at` in `text`; kNone without one. `at` is inside the text.
    std::uint32_t At(std::wstring_view text, std::size_t at) const noexcept;

    /// The number of the name that `text` is as a whole; kNone when it is none.
    std::uint32_t Find(std::wstring_view text) const noexcept;

private:
    struct Step {
        std::uint64_t Key = 0;  ///< The node it leaves and the unit; 0 in an empty place.
        std::uint32_t To = 0;
    };

    std::uint32_t Child(std::uint32_t node, wchar_t unit) const noexcept;
    std::uint32_t FirstChild(wchar_t unit) const noexcept;
    std::uint32_t AddChild(std::uint32_t node, wchar_t unit);
    void Place(Step step) noexcept;
    void Grow();

    // A tree of units, its edges in one table with open addressing. Node 0 is no node, node 1 the root.
    std::vector<Step> steps_;
    std::vector<std::uint32_t> numbers_;
    std::array<std::uint32_t, 128> firstChildren_{};
    std::size_t used_ = 0;
};

inline std::uint32_t NameIndex::FirstChild(wchar_t unit) const noexcept {
    const std::size_t index = static_cast<std::uint32_t>(unit);
    constexpr std::uint32_t kRoot = 1;
    return index < firstChildren_.size() ? firstChildren_[index] : Child(kRoot, unit);
}

}  // namespace ferry::script
