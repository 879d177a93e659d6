// What an assigned text does with a variable's value.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ferry::script {

/// The result of one of the operators + - * / %. Results wrap at 64 bits; dividing by 0 gives 0.
std::int64_t Compute(std::int64_t current, wchar_t sign, std::int64_t operand) noexcept;

/// A call as it is written: NAME(ARGUMENTS).
struct CallParts {
    std::wstring_view Name;
    std::wstring_view Arguments;
};

/// The call that `text` is, blanks around it aside; nothing for another text.
std::optional<CallParts> SplitCall(std::wstring_view text) noexcept;

}  // namespace ferry::script
