#include "shown_text.h"

#include <algorithm>
#include <iterator>

namespace ferry::scripttools {

namespace {

constexpr wchar_t kBlankSign = 0x2420;

constexpr struct {
    wchar_t Unit;
    wchar_t Sign;
} kSigns[] = {{L'\n', 0x2424}, {L'\r', 0x240D}, {L'\t', 0x2409}};

wchar_t SignOf(wchar_t unit) noexcept {
    const auto* found = std::ranges::find(kSigns, unit, [](const auto& pair) { return pair.Unit; });
    return found == std::end(kSigns) ? unit : found->Sign;
}

wchar_t UnitOf(wchar_t sign) noexcept {
    if (sign == kBlankSign)
        return L' ';
    const auto* found = std::ranges::find(kSigns, sign, [](const auto& pair) { return pair.Sign; });
    return found == std::end(kSigns) ? sign : found->Unit;
}

}  // namespace

std::wstring WithSigns(std::wstring_view text) {
    std::wstring shown(text);
    std::ranges::transform(shown, shown.begin(), SignOf);
    if (shown.ends_with(L' '))
        shown.back() = kBlankSign;
    if (shown.starts_with(L' '))
        shown.front() = kBlankSign;
    return shown;
}

std::wstring FromSigns(std::wstring_view text) {
    std::wstring read(text);
    std::ranges::transform(read, read.begin(), UnitOf);
    return read;
}

}  // namespace ferry::scripttools
