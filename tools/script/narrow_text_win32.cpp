#include <windows.h>

#include <array>

#include "narrow_text.h"

namespace ferry::scripttools {

namespace {

constexpr UINT kCodePage = 932;

std::string OneUnit(wchar_t unit) {
    std::array<char, 8> narrow{};
    // Nothing that merely looks alike: other hosts know nothing of that.
    const int length = WideCharToMultiByte(kCodePage, WC_NO_BEST_FIT_CHARS, &unit, 1, narrow.data(),
                                           static_cast<int>(narrow.size()), "?", nullptr);
    return length > 0 ? std::string(narrow.data(), static_cast<std::size_t>(length)) : "?";
}

}  // namespace

std::string InCodePage932(std::wstring_view text) {
    std::string narrow;
    for (const wchar_t unit : text)
        narrow += OneUnit(unit);
    return narrow;
}

}  // namespace ferry::scripttools
