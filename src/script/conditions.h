// The comparisons of "if" and "while".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ferry::script {

/// How the two sides of a condition are compared.
enum class Operator : std::uint8_t {
    Equal,
    NotEqual,
    NotLike,
    Like,
    AtMost,
    AtLeast,
    Below,
    Above,
    None,
};

/// A condition taken apart; views into its text.
struct ConditionParts {
    std::wstring_view Left;
    Operator Compare = Operator::None;
    std::wstring_view Right;
};

/// Splits `text` at its operator. Operators are looked for one after the other, and the first one that stands
/// anywhere decides. Compare is None when there is none.
ConditionParts SplitCondition(std::wstring_view text) noexcept;

/// Whether the condition is true for these sides, in which variables and words are replaced. The sides are
/// changed. Nothing when a pattern takes too long.
std::optional<bool> IsTrue(std::wstring& left, Operator compare, std::wstring& right);

/// The same for sides that are the decimal forms of two numbers; not for Like and NotLike.
bool IsTrueOfNumbers(std::int64_t left, Operator compare, std::int64_t right) noexcept;

/// Whether all of `text` is as `pattern` says, where "*" is any text and "?" any unit. Nothing when that is
/// not known after kMaxLikeSteps: a long pattern may fit nearly everywhere in a long text.
std::optional<bool> IsLike(std::wstring_view text, std::wstring_view pattern) noexcept;

}  // namespace ferry::script
