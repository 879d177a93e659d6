#include "script/assignments.h"

#include <algorithm>
#include <limits>

#include "base/text.h"

namespace ferry::script {

namespace {

bool IsNameUnit(wchar_t unit) noexcept {
    return base::IsDriveLetter(unit) || base::IsDigit(unit) || unit == L'_';
}

/// Whether the quotient of the two leaves 64 bits: the processor stops at that.
bool Overflows(std::int64_t dividend, std::int64_t divisor) noexcept {
    return divisor == -1 && dividend == std::numeric_limits<std::int64_t>::min();
}

}  // namespace

std::int64_t Compute(std::int64_t current, wchar_t sign, std::int64_t operand) noexcept {
    const auto left = static_cast<std::uint64_t>(current);
    const auto right = static_cast<std::uint64_t>(operand);
    switch (sign) {
        case L'+':
            return static_cast<std::int64_t>(left + right);
        case L'-':
            return static_cast<std::int64_t>(left - right);
        case L'*':
            return static_cast<std::int64_t>(left * right);
        case L'/':
            return operand == 0 || Overflows(current, operand) ? (operand == 0 ? 0 : current)
                                                               : current / operand;
        default:
            return operand == 0 || Overflows(current, operand) ? 0 : current % operand;
    }
}

std::optional<CallParts> SplitCall(std::wstring_view text) noexcept {
    const std::size_t begin = text.find_first_not_of(L' ');
    if (begin == std::wstring_view::npos) {
        return std::nullopt;
    }
    text = text.substr(begin, text.find_last_not_of(L' ') + 1 - begin);
    const std::size_t open = text.find(L'(');
    if (open == std::wstring_view::npos || open == 0 || !text.ends_with(L')')) {
        return std::nullopt;
    }
    const std::wstring_view name = text.substr(0, open);
    if (base::IsDigit(name.front()) || !std::ranges::all_of(name, IsNameUnit)) {
        return std::nullopt;
    }
    return CallParts{name, text.substr(open + 1, text.size() - open - 2)};
}

}  // namespace ferry::script
