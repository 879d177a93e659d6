#include "completion/type_ahead.h"

#include "base/text.h"

namespace ferry::completion {
namespace {

// The digits of the keypad have codes of their own.
constexpr unsigned kKeypad0 = 0x60;
constexpr unsigned kKeypad9 = 0x69;

// The character of a key that types into the text, else 0. The codes of the other keys are those of the
// digits and the capital letters.
wchar_t TypedBy(unsigned key) noexcept {
    if (key >= kKeypad0 && key <= kKeypad9) {
        return static_cast<wchar_t>(L'0' + (key - kKeypad0));
    }
    const bool types = (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
    return types ? static_cast<wchar_t>(key) : L'\0';
}

}  // namespace

bool TypeAhead::Press(unsigned key, std::uint32_t timeMs) {
    // Unsigned, so that the clock may wrap around between two keys.
    if (timeMs - lastMs_ > kPauseMs) {
        text_.clear();
    }
    lastMs_ = timeMs;
    stepsOn_ = false;
    const wchar_t unit = TypedBy(key);
    if (unit == L'\0') {
        text_.clear();
        return false;
    }
    stepsOn_ = text_.size() == 1 && text_.front() == unit;
    if (!stepsOn_) {
        text_ += unit;
    }
    return true;
}

bool BeginsWith(std::wstring_view name, std::wstring_view text) noexcept {
    if (name.size() < text.size()) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (base::LowerAscii(name[i]) != base::LowerAscii(text[i])) {
            return false;
        }
    }
    return true;
}

std::optional<std::size_t> FindFrom(std::size_t start, std::size_t count,
                                    const std::function<bool(std::size_t)>& matches) {
    for (std::size_t step = 0; step < count; ++step) {
        const std::size_t index = start < count ? (start + step) % count : step;
        if (matches(index)) {
            return index;
        }
    }
    return std::nullopt;
}

}  // namespace ferry::completion
