// Reads the lines of a text as the C library's fgetws does on a binary stream.
#include "base/line_reader.h"

namespace ferry::base {

bool LineReader::Next(std::wstring_view& line) noexcept {
    if (rest_.empty()) {
        return false;
    }
    const std::wstring_view window = rest_.substr(0, kMaxLineLength);
    const std::size_t feed = window.find(L'\n');
    line = feed == std::wstring_view::npos ? window : window.substr(0, feed + 1);
    rest_.remove_prefix(line.size());
    line = line.substr(0, line.find(L'\0'));
    return true;
}

}  // namespace ferry::base
