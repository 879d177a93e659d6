// Records as scripts send them.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "base/utf16.h"
#include "tracewindow/trace_model.h"

namespace ferry::tracewindow::test {

/// The bytes that a script sends for `text`: 8 for each unit and 8 more.
inline std::vector<std::byte> SentBytes(std::wstring_view text) {
    std::vector<std::byte> bytes = base::BytesFromUnits(text);
    bytes.resize(8 * text.size() + 8);
    return bytes;
}

inline TraceRecord Sent(std::uint64_t code, std::wstring_view text) {
    return ReadRecord(code, SentBytes(text));
}

}  // namespace ferry::tracewindow::test
