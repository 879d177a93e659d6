// The options of a run, shared with the scripts that it includes.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "script/words.h"

namespace ferry::script {

/// The values of all options.
class Options {
public:
    /// All have their defaults.
    Options();

    const std::wstring& operator[](OptionId id) const noexcept {
        return values_[static_cast<std::size_t>(id)];
    }

    /// The value of `id` as a number.
    int Number(OptionId id) const noexcept;

    void Set(OptionId id, std::wstring_view value) { values_[static_cast<std::size_t>(id)] = value; }

private:
    std::array<std::wstring, kOptionCount> values_;
};

}  // namespace ferry::script
