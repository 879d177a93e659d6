// Text rules that every part of the program shares: splitting, trimming, numbers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ferry::base {

/// The pieces of `text` between separators, in order; views into `text`.
/// The walk ends at the first NUL. Empty pieces are kept, a trailing separator yields an empty
/// last piece, and an empty text has no pieces at all.
std::vector<std::wstring_view> Split(std::wstring_view text, wchar_t separator);

/// The number at the start of `text` by the rules of `_wtoi`: leading white space, an optional
/// sign, decimal digits of any script, even mixed, up to the first other character; 0 when there are
/// none. A number outside 32 bits gives the nearest limit, as the C library of Windows does.
int ToInt(std::wstring_view text) noexcept;

inline constexpr int kNoDigit = -1;

/// The value of the decimal digit `unit`, of any script whose digits the C library of Windows reads; kNoDigit
/// for any other unit.
int DigitOf(wchar_t unit) noexcept;

/// Whether `unit` is white space in the character table of Windows (C1_SPACE), on every host.
bool IsSpace(wchar_t unit) noexcept;

/// Whether `unit` is one of 0 to 9.
constexpr bool IsDigit(wchar_t unit) noexcept {
    return unit >= L'0' && unit <= L'9';
}

/// `unit` as a small letter, if it is an ASCII capital.
constexpr wchar_t LowerAscii(wchar_t unit) noexcept {
    return unit >= L'A' && unit <= L'Z' ? static_cast<wchar_t>(unit - L'A' + L'a') : unit;
}

/// Whether `unit` is an ASCII letter: what a drive may be called.
bool IsDriveLetter(wchar_t unit) noexcept;

/// `text` without white space at both ends; a view into `text`.
std::wstring_view Trim(std::wstring_view text) noexcept;

/// `text` without white space at its end; a view into `text`.
std::wstring_view TrimRight(std::wstring_view text) noexcept;

/// `text` with every occurrence of `from`, found from left to right, replaced by `to`.
/// An empty `from` changes nothing.
std::wstring ReplaceAll(std::wstring_view text, std::wstring_view from, std::wstring_view to);

/// Whether both texts are equal when ASCII letters are compared without regard to case.
bool EqualsIgnoringAsciiCase(std::wstring_view left, std::wstring_view right) noexcept;

}  // namespace ferry::base
