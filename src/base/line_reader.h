// Reads the lines of a text as the C library's fgetws does on a binary stream.
#pragma once

#include <cstddef>
#include <string_view>

namespace ferry::base {

/// The most units that one read returns; a longer line comes in several reads.
inline constexpr std::size_t kMaxLineLength = 32767;

/// Walks over `text` line by line.
/// A line ends after its line feed, after kMaxLineLength units, or at the end of the text; what
/// follows a NUL inside a line is not seen, as a C string ends there.
class LineReader {
public:
    /// `text` must outlive the reader.
    explicit LineReader(std::wstring_view text) noexcept : rest_(text) {}

    /// Puts the next line, with its line end, into `line`; false at the end of the text.
    bool Next(std::wstring_view& line) noexcept;

private:
    std::wstring_view rest_;
};

}  // namespace ferry::base
