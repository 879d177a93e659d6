// What a script did to its world, in order.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ferry::scripttools {

using Bytes = std::vector<std::byte>;

/// One thing that a script did. The kinds and their texts are those of world files.
struct Effect {
    std::wstring Kind;
    std::wstring Text;
    std::optional<std::size_t> ByteCount;  ///< Of what was sent to the host (cbData).

    bool operator==(const Effect&) const = default;
};

/// Writes effects down and tells whoever wants to know at once.
class EffectLog {
public:
    using Listener = std::function<void(const Effect&)>;

    void Add(std::wstring_view kind, std::wstring text, std::optional<std::size_t> byteCount = std::nullopt);

    const std::vector<Effect>& All() const noexcept { return effects_; }

    /// How long all texts are together, in units.
    std::size_t Length() const noexcept { return length_; }

    /// Calls `listener` with each effect from now on.
    void TellTo(Listener listener) { listener_ = std::move(listener); }

private:
    std::vector<Effect> effects_;
    std::size_t length_ = 0;
    Listener listener_;
};

/// `bytes` as small hexadecimal digits.
std::wstring HexDigits(std::span<const std::byte> bytes);

/// The bytes of hexadecimal `digits`; nothing when they are none, or one is missing.
std::optional<Bytes> BytesFromHex(std::wstring_view digits);

}  // namespace ferry::scripttools
