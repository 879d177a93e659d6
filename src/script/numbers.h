// How texts are read as numbers: by the rules of the C library of Windows, on every host.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ferry::script {

/// The number at the start of `text` by the rules of `_wtoi64`.
std::int64_t ToInt64(std::wstring_view text) noexcept;

/// The number at the start of `text` by the rules of `wcstol` with base 0 and a `long` of 32 bits: "0x"
/// begins hexadecimal digits, another "0" octal ones.
std::int32_t ToLong(std::wstring_view text) noexcept;

/// The number that a sum or product takes from `text`: a text with an "x" in it may be hexadecimal.
std::int64_t ToOperand(std::wstring_view text) noexcept;

/// The number of `text`, a style, by the same choice with 32 bits.
std::int32_t ToStyle(std::wstring_view text) noexcept;

/// Whether `text`, its blanks left out, is empty, or has decimal digits alone, or "0x" and hexadecimal
/// digits.
bool IsNumeric(std::wstring_view text) noexcept;

/// Replaces `text` by its decimal form when it is hexadecimal once its blanks are left out; other texts stay.
void NormaliseNumber(std::wstring& text);

/// The number of an argument of a function: `_wtoi` of the normalised text.
int ToArgument(std::wstring_view text);

/// The number that `text` is the decimal form of, as "%lld" writes it; nothing for any other text.
std::optional<std::int64_t> ExactNumber(std::wstring_view text) noexcept;

/// Makes `text` the decimal form of `number`; it keeps its memory.
void WriteNumber(std::wstring& text, std::int64_t number);

}  // namespace ferry::script
