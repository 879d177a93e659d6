// Finding a list item by typing the beginning of its name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace ferry::completion {

/// The text that a person types into a list, key by key. Letters A to Z and digits, also those of the keypad,
/// build it; a pause of more than a second or any other key begins anew.
class TypeAhead {
public:
    static constexpr std::uint32_t kPauseMs = 1000;

    /// Takes a key that went down.
    /// @param key  a virtual key code; those of letters and digits are their capital ASCII characters,
    ///     but for the keypad's
    /// @param timeMs  when, on a clock of milliseconds that may wrap around
    /// @return whether the key builds the text, so that a search is due
    bool Press(unsigned key, std::uint32_t timeMs);

    const std::wstring& Text() const noexcept { return text_; }

    /// Whether the search begins behind the focused item instead of at it: the same key once more steps
    /// through the items with that initial.
    bool StepsOn() const noexcept { return stepsOn_; }

private:
    std::wstring text_;
    std::uint32_t lastMs_ = 0;
    bool stepsOn_ = false;
};

/// Whether `name` begins with `text`, whatever the case of its Latin letters. `text` has capital letters and
/// digits.
bool BeginsWith(std::wstring_view name, std::wstring_view text) noexcept;

/// The first of `count` items that `matches`, looked for from `start` to the end and then from the top.
/// Nothing when there is none. A `start` behind the last item begins at the top.
std::optional<std::size_t> FindFrom(std::size_t start, std::size_t count,
                                    const std::function<bool(std::size_t)>& matches);

}  // namespace ferry::completion
