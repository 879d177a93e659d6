// A message of the host or of a stranger: any tag, any bytes.
#include "hostlink/host_message.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "base/text_list.h"
#include "confirmation/arrivals.h"
#include "fuzz_input.h"
#include "hostlink/host_block.h"

namespace {

using namespace ferry;

/// The bytes in memory of exactly their size, so that any byte read beyond them is seen.
std::unique_ptr<std::byte[]> Exact(std::span<const std::byte> bytes) {
    auto copy = std::make_unique<std::byte[]>(bytes.size());
    std::ranges::copy(bytes, copy.get());
    return copy;
}

void CheckDestination(std::span<const std::byte> payload) {
    const auto exact = Exact(payload);
    const std::wstring text = hostlink::TextFromPayload({exact.get(), payload.size()});
    fuzz::Require(text.find(L'\0') == std::wstring::npos, "a destination ends at its first NUL");
    fuzz::Require(text.size() <= payload.size() / 2, "a destination is no longer than what was sent");
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto low = std::to_integer<unsigned>(payload[2 * at]);
        const auto high = std::to_integer<unsigned>(payload[2 * at + 1]);
        fuzz::Require(static_cast<unsigned>(text[at]) == (high << 8 | low), "unit by unit as it was sent");
    }
    fuzz::Require(text.size() == payload.size() / 2 || (payload[2 * text.size()] == std::byte{} &&
                                                        payload[2 * text.size() + 1] == std::byte{}),
                  "nothing is cut off");
}

void CheckDelivery(std::span<const std::byte> payload) {
    const fuzz::ExactUnits units(base::UnitsFromBytes(payload));
    base::TextList items;
    base::TextList folders;
    std::wstring current;
    std::wstring option;
    hostlink::ParseHostBlock(units.Span(), payload.size(), {current, option, items, folders});
    fuzz::Require(items.Size() + folders.Size() <= units.View().size(), "an entry has a mark at least");
}

void CheckDrops(std::span<const std::byte> counts) {
    confirmation::Arrivals arrivals;
    int drops = 0;
    for (const std::byte count : counts) {
        const bool counted = count != std::byte{} && drops < 2;
        const confirmation::Drop expected = !counted       ? confirmation::Drop::Nothing
                                            : drops++ == 0 ? confirmation::Drop::Items
                                                           : confirmation::Drop::Folders;
        fuzz::Require(arrivals.TakeDrop(std::to_integer<std::size_t>(count)) == expected,
                      "which drops count");
        fuzz::Require(arrivals.TakesDeliveries() == (drops == 0), "deliveries count until a drop");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::uint64_t tag = 0;
    if (size < sizeof(tag)) {
        return 0;
    }
    std::memcpy(&tag, data, sizeof(tag));
    const auto payload = std::as_bytes(std::span(data, size).subspan(sizeof(tag)));
    constexpr std::array<std::uint64_t, 3> kDestinations{100, 200, 300};
    const bool isDestination = std::ranges::find(kDestinations, tag) != kDestinations.end();
    const hostlink::HostMessage kind = hostlink::HostMessageOf(tag);
    fuzz::Require(kind == (tag == 255      ? hostlink::HostMessage::Block
                           : isDestination ? hostlink::HostMessage::Destination
                                           : hostlink::HostMessage::None),
                  "four tags are known");
    CheckDestination(payload);
    CheckDelivery(payload);
    CheckDrops(payload);
    return 0;
}
