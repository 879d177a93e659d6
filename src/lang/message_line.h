// What the lines of message files and dialog text files have in common.
#pragma once

#include <string>
#include <string_view>

namespace ferry::lang {

/// `line` without any U+FEFF, wherever it stands, and without CR LF pairs. A file that was joined
/// from several has byte-order marks in its middle.
std::wstring WithoutMarks(std::wstring_view line);

/// Whether the cleaned `line` is a comment.
bool IsComment(std::wstring_view line) noexcept;

/// Whether the cleaned `line` ends the file before its last byte.
bool IsEndOfFile(std::wstring_view line) noexcept;

}  // namespace ferry::lang
