// The order of names in a menu.
#include "dirmenu/name_order.h"

#include <algorithm>
#include <cstddef>

#include "base/case_order.h"
#include "base/text.h"

namespace ferry::dirmenu {

namespace {

/// Takes the digits off the front of `text` and gives them without leading zeros.
std::wstring_view TakeNumber(std::wstring_view& text) noexcept {
    const auto* const end = std::find_if_not(text.data(), text.data() + text.size(), base::IsDigit);
    std::wstring_view number = text.substr(0, static_cast<std::size_t>(end - text.data()));
    text.remove_prefix(number.size());
    number.remove_prefix(std::min(number.find_first_not_of(L'0'), number.size()));
    return number;
}

/// Below 0, 0 or above 0. Numbers have any number of digits.
int CompareNumbers(std::wstring_view left, std::wstring_view right) noexcept {
    if (left.size() != right.size()) {
        return left.size() < right.size() ? -1 : 1;
    }
    return left.compare(right);
}

/// Without regard to case and leading zeros: below 0, 0 or above 0.
int Compare(std::wstring_view left, std::wstring_view right) noexcept {
    while (!left.empty() && !right.empty()) {
        if (base::IsDigit(left.front()) && base::IsDigit(right.front())) {
            const std::wstring_view leftNumber = TakeNumber(left);
            if (const int order = CompareNumbers(leftNumber, TakeNumber(right)); order != 0) {
                return order;
            }
            continue;
        }
        const wchar_t leftUnit = base::ToSmall(left.front());
        const wchar_t rightUnit = base::ToSmall(right.front());
        if (leftUnit != rightUnit) {
            return leftUnit < rightUnit ? -1 : 1;
        }
        left.remove_prefix(1);
        right.remove_prefix(1);
    }
    // What goes on is behind what has ended.
    return static_cast<int>(right.empty()) - static_cast<int>(left.empty());
}

}  // namespace

bool ComesBefore(std::wstring_view left, std::wstring_view right) noexcept {
    const int order = Compare(left, right);
    return order != 0 ? order < 0 : left < right;
}

void SortNames(std::vector<std::wstring>& names) {
    std::ranges::sort(names, ComesBefore);
}

}  // namespace ferry::dirmenu
