#include "script/conditions.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "base/case_order.h"
#include "base/text.h"
#include "script/limits.h"
#include "script/numbers.h"

namespace ferry::script {

namespace {

/// In the order in which they are looked for.
constexpr std::pair<std::wstring_view, Operator> kOperators[] = {
    {L"==", Operator::Equal}, {L"!=", Operator::NotEqual}, {L"!^", Operator::NotLike},
    {L"^", Operator::Like},   {L"<=", Operator::AtMost},   {L">=", Operator::AtLeast},
    {L"<", Operator::Below},  {L">", Operator::Above},
};

/// A side as it is compared: without white space around it, in small letters, a hexadecimal number in
/// decimal.
void Normalise(std::wstring& side) {
    const std::wstring_view trimmed = base::Trim(side);
    const auto begin = static_cast<std::size_t>(trimmed.data() - side.data());
    side.resize(begin + trimmed.size());
    side.erase(0, begin);
    std::ranges::transform(side, side.begin(), base::ToSmall);
    NormaliseNumber(side);
}

bool IsOrdered(std::int64_t left, Operator compare, std::int64_t right) noexcept {
    switch (compare) {
        case Operator::AtMost:
            return left <= right;
        case Operator::AtLeast:
            return left >= right;
        case Operator::Below:
            return left < right;
        default:
            return left > right;
    }
}

/// What reading its decimal form with 32 bits makes of `number`.
std::int64_t Narrowed(std::int64_t number) noexcept {
    using Limits = std::numeric_limits<std::int32_t>;
    return std::clamp<std::int64_t>(number, Limits::min(), Limits::max());
}

}  // namespace

ConditionParts SplitCondition(std::wstring_view text) noexcept {
    for (const auto& [sign, compare] : kOperators) {
        const std::size_t at = text.find(sign);
        if (at != std::wstring_view::npos) {
            return {text.substr(0, at), compare, text.substr(at + sign.size())};
        }
    }
    return {};
}

std::optional<bool> IsTrue(std::wstring& left, Operator compare, std::wstring& right) {
    Normalise(left);
    Normalise(right);
    switch (compare) {
        case Operator::Equal:
            return left == right;
        case Operator::NotEqual:
            return left != right;
        case Operator::Like:
            return IsLike(left, right);
        case Operator::NotLike: {
            const std::optional<bool> isLike = IsLike(left, right);
            return isLike ? std::optional(!*isLike) : std::nullopt;
        }
        default:
            return IsOrdered(base::ToInt(left), compare, base::ToInt(right));
    }
}

bool IsTrueOfNumbers(std::int64_t left, Operator compare, std::int64_t right) noexcept {
    switch (compare) {
        case Operator::Equal:
            return left == right;
        case Operator::NotEqual:
            return left != right;
        default:
            return IsOrdered(Narrowed(left), compare, Narrowed(right));
    }
}

std::optional<bool> IsLike(std::wstring_view text, std::wstring_view pattern) noexcept {
    std::size_t at = 0;
    std::size_t next = 0;
    // Where the last star stands, and up to where it has taken the text. An earlier star never needs to take
    // more than it did: the later one can take that instead.
    std::size_t star = std::wstring_view::npos;
    std::size_t taken = 0;
    for (std::size_t steps = 0; at < text.size(); ++steps) {
        if (steps == kMaxLikeSteps) {
            return std::nullopt;
        }
        if (next < pattern.size() && pattern[next] == L'*') {
            star = next++;
            taken = at;
        } else if (next < pattern.size() && (pattern[next] == L'?' || pattern[next] == text[at])) {
            ++next;
            ++at;
        } else if (star != std::wstring_view::npos) {
            next = star + 1;
            at = ++taken;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', next) == std::wstring_view::npos;
}

}  // namespace ferry::script
