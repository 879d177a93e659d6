// Takes texts out of a fuzz target's bytes, and stops the run when a property does not hold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "base/utf16.h"

namespace ferry::fuzz {

/// The UTF-16 units of the input, little-endian, as they lie in files and in shared memory.
inline std::wstring UnitsOf(const std::uint8_t* data, std::size_t size) {
    return base::UnitsFromBytes(std::as_bytes(std::span(data, size)));
}

/// A copy of a text in memory of exactly its size, so that the sanitizer sees any unit read or
/// written beyond it; a std::wstring would have its terminator there.
class ExactUnits {
public:
    explicit ExactUnits(std::wstring_view text)
        : units_(std::make_unique<wchar_t[]>(text.size())), size_(text.size()) {
        text.copy(units_.get(), size_);
    }
    std::span<wchar_t> Span() const { return {units_.get(), size_}; }
    std::wstring_view View() const { return {units_.get(), size_}; }

private:
    std::unique_ptr<wchar_t[]> units_;
    std::size_t size_;
};

/// Ends the run with `what` when `holds` is false.
inline void Require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "property broken: %s\n", what);
        std::abort();
    }
}

/// Whether `part` lies within `whole` in memory; an empty text without memory lies anywhere.
inline bool LiesWithin(std::wstring_view part, std::wstring_view whole) {
    return part.data() == nullptr ||
           (part.data() >= whole.data() && part.data() + part.size() <= whole.data() + whole.size());
}

}  // namespace ferry::fuzz
