// Names as a menu shows them.
#include "dirmenu/labels.h"

#include <algorithm>
#include <cstddef>

namespace ferry::dirmenu {

namespace {

constexpr wchar_t kEllipsis = L'\x2026';

/// Whether `unit` belongs to the character before it: the second half of a pair, an accent, a voicing mark of
/// the Japanese letters, wide or narrow, a choice between forms, whose pair of units begins with one that
/// stands for nothing else.
bool ContinuesCharacter(wchar_t unit) noexcept {
    const auto isIn = [unit](unsigned first, unsigned last) {
        return static_cast<unsigned>(unit) >= first && static_cast<unsigned>(unit) <= last;
    };
    return isIn(0xDC00, 0xDFFF) || isIn(0x0300, 0x036F) || isIn(0x3099, 0x309A) || isIn(0xFE00, 0xFE0F) ||
           isIn(0xFF9E, 0xFF9F) || isIn(0xDB40, 0xDB40);
}

/// `name` with no more than `kept` units of it, the larger half of them from its beginning.
std::wstring WithEllipsis(std::wstring_view name, std::size_t kept) {
    std::size_t head = (kept + 1) / 2;
    std::size_t tail = name.size() - kept / 2;
    while (head > 0 && ContinuesCharacter(name[head])) {
        --head;
    }
    while (tail < name.size() && ContinuesCharacter(name[tail])) {
        ++tail;
    }
    std::wstring text(name.substr(0, head));
    text.push_back(kEllipsis);
    return text.append(name.substr(tail));
}

}  // namespace

std::wstring MenuText(std::wstring_view name) {
    std::wstring text;
    text.reserve(name.size() + 1);
    for (const wchar_t unit : name) {
        text.push_back(unit < L' ' ? L' ' : unit);
        if (unit == L'&') {
            text.push_back(unit);
        }
    }
    return text;
}

std::wstring Shortened(std::wstring_view name, const std::function<bool(std::wstring_view)>& fits) {
    if (fits(name)) {
        return std::wstring(name);
    }
    std::size_t kept = 0;
    std::size_t tooMany = name.size();
    while (tooMany - kept > 1) {
        const std::size_t middle = kept + (tooMany - kept) / 2;
        (fits(WithEllipsis(name, middle)) ? kept : tooMany) = middle;
    }
    return WithEllipsis(name, kept);
}

}  // namespace ferry::dirmenu
