// The estimate needs no font: the dialogs' font differs from system to system, and the tests for Windows
// measure with the one that is there. It takes the widest of what the usual ones have.
#include "texts/text_width.h"

#include <algorithm>

#include "base/line_reader.h"
#include "base/text.h"

namespace ferry::texts {

namespace {

// Widths are tenths of a dialog unit, of which four are the mean width of the 52 Latin letters. From the
// blank on: the wider of DejaVu Sans, which is drawn like the English fonts of Windows, and IPA P Gothic,
// like the Japanese one.
constexpr unsigned char kAsciiWidths[] = {
    21, 26, 30, 54, 43, 57, 50, 18, 25, 25, 32, 54, 21, 24, 21, 34, 43, 43, 43,  //
    43, 43, 43, 43, 43, 43, 43, 22, 22, 54, 54, 54, 37, 65, 44, 45, 49, 51, 41,  //
    39, 51, 51, 20, 26, 44, 36, 61, 51, 54, 42, 54, 45, 41, 41, 51, 44, 64, 46,  //
    42, 44, 25, 43, 25, 54, 34, 34, 40, 42, 37, 42, 40, 23, 41, 41, 18, 18, 37,  //
    18, 63, 41, 41, 42, 42, 27, 34, 25, 41, 38, 53, 38, 38, 34, 41, 22, 41, 54};

/// The mean widths of other writings, by their first and last unit.
constexpr struct {
    wchar_t First;
    wchar_t Last;
    int Width;
} kRanges[] = {
    {L'\x3001', L'\x3002', 34},  // ideographic comma and full stop
    {L'\x3041', L'\x3096', 58},  // hiragana
    {L'\x30A1', L'\x30FC', 56},  // katakana
    {L'\xFF61', L'\xFF9F', 34},  // halfwidth katakana
    {L'\x2E80', L'\xFFFF', 68},  // ideographs, hangul and fullwidth forms
};
constexpr int kOtherWidth = 47;

// What a control needs around its text.
constexpr int kButtonFrame = 60;
constexpr int kChoiceGlyph = 100;
constexpr int kGroupEdge = 80;
constexpr int kListArrow = 110;
constexpr int kTitleFrame = 200;
constexpr int kLineHeight = 8;

int WidthOf(wchar_t unit) noexcept {
    if (unit < L' ') {
        return 0;
    }
    if (unit <= L'~') {
        return kAsciiWidths[unit - L' '];
    }
    const auto* const range = std::ranges::find_if(
        kRanges, [unit](const auto& candidate) { return unit >= candidate.First && unit <= candidate.Last; });
    return range == std::end(kRanges) ? kOtherWidth : range->Width;
}

int FrameOf(Shape shape) noexcept {
    switch (shape) {
        case Shape::Button:
            return kButtonFrame;
        case Shape::Choice:
            return kChoiceGlyph;
        case Shape::Frame:
            return kGroupEdge;
        case Shape::List:
            return kListArrow;
        default:
            return 0;
    }
}

}  // namespace

int TextWidth(std::wstring_view text, bool hasMnemonics) {
    int width = 0;
    bool isMarked = false;
    for (const wchar_t unit : text) {
        isMarked = hasMnemonics && unit == L'&' && !isMarked;
        width += isMarked ? 0 : WidthOf(unit);
    }
    return width;
}

int WidthBeyond(std::wstring_view text, const ControlSource& control) {
    if (control.Looks == Shape::NotMeasured) {
        return 0;
    }
    const int room = std::max(control.Width * 10 - FrameOf(control.Looks), 1);
    const bool wraps = control.Looks == Shape::Label;
    int left = wraps ? std::max(control.Height / kLineHeight, 1) : 1;
    const bool hasMnemonics = control.HasMnemonics && control.Looks != Shape::List;
    for (const std::wstring_view line : base::Split(text, L'\n')) {
        const int width = TextWidth(line, hasMnemonics);
        if (width > left * room) {
            return width - left * room;
        }
        left = std::max(left - std::max((width + room - 1) / room, 1), wraps ? 0 : 1);
    }
    return 0;
}

int TitleWidthBeyond(std::wstring_view title, int width) {
    return title.empty() ? 0 : std::max(TextWidth(title, false) - (width * 10 - kTitleFrame), 0);
}

}  // namespace ferry::texts
