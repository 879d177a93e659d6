// Texts compared without regard to case, and their order in a list.
#include "base/case_order.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

#include "base/text.h"

namespace ferry::base {

namespace {

// Capitals that lie together. With a step of 1 each of them has its small letter `Distance` further
// on; with a step of 2 capitals and small letters take turns.
struct Capitals {
    wchar_t First;
    wchar_t Last;
    int Step;
    int Distance;
};

constexpr Capitals kCapitals[] = {
    {0x00C0, 0x00D6, 1, 32},    // Latin-1
    {0x00D8, 0x00DE, 1, 32},    //
    {0x0100, 0x012E, 2, 1},     // Latin Extended-A; the dotted capital I has no simple mapping
    {0x0132, 0x0136, 2, 1},     //
    {0x0139, 0x0147, 2, 1},     //
    {0x014A, 0x0176, 2, 1},     //
    {0x0178, 0x0178, 1, -121},  //
    {0x0179, 0x017D, 2, 1},     //
    {0x0386, 0x0386, 1, 38},    // Greek
    {0x0388, 0x038A, 1, 37},    //
    {0x038C, 0x038C, 1, 64},    //
    {0x038E, 0x038F, 1, 63},    //
    {0x0391, 0x03A1, 1, 32},    //
    {0x03A3, 0x03AB, 1, 32},    //
    {0x0400, 0x040F, 1, 80},    // Cyrillic
    {0x0410, 0x042F, 1, 32},    //
    {0x0460, 0x0480, 2, 1},     //
    {0x048A, 0x04BE, 2, 1},     //
    {0x04D0, 0x0522, 2, 1},     //
    {0x0531, 0x0556, 1, 48},    // Armenian
    {0x1E00, 0x1E94, 2, 1},     // Latin Extended Additional
    {0x1EA0, 0x1EFE, 2, 1},     //
    {0x2160, 0x216F, 1, 16},    // Roman numerals
    {0x24B6, 0x24CF, 1, 26},    // circled letters
    {0xFF21, 0xFF3A, 1, 32},    // full-width letters
};

}  // namespace

wchar_t ToSmall(wchar_t unit) noexcept {
    if (unit < 0x80) {
        return LowerAscii(unit);
    }
    const auto* row = std::ranges::lower_bound(kCapitals, unit, {}, &Capitals::Last);
    if (row == std::end(kCapitals) || unit < row->First || (unit - row->First) % row->Step != 0) {
        return unit;
    }
    return static_cast<wchar_t>(unit + row->Distance);
}

std::wstring SmallLetters(std::wstring_view text) {
    std::wstring small(text.size(), L'\0');
    std::ranges::transform(text, small.begin(), ToSmall);
    return small;
}

bool EqualsIgnoringCase(std::wstring_view left, std::wstring_view right) noexcept {
    return std::ranges::equal(left, right, {}, ToSmall, ToSmall);
}

void SortIgnoringCase(std::vector<std::wstring>& texts) {
    // Each text is turned into small letters once, instead of at each of its comparisons.
    std::vector<std::pair<std::wstring, std::wstring>> keyed;
    keyed.reserve(texts.size());
    for (std::wstring& text : texts) {
        std::wstring key = SmallLetters(text);
        keyed.emplace_back(std::move(key), std::move(text));
    }
    std::ranges::sort(keyed);
    std::ranges::transform(keyed, texts.begin(), [](auto& pair) { return std::move(pair.second); });
}

}  // namespace ferry::base
