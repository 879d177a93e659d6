// A stored value's bytes: any bytes give a text, and a text written without terminator comes back.
#include "fuzz_input.h"
#include "settings/settings_store.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ferry;
    const std::span<const std::byte> bytes = std::as_bytes(std::span(data, size));
    std::wstring expected;
    for (std::size_t i = 0; i + 1 < size; i += 2) {
        const auto unit = static_cast<wchar_t>(data[i] | (data[i + 1] << 8));
        if (unit == L'\0') {
            break;
        }
        expected.push_back(unit);
    }
    const std::wstring text = settings::TextFromValue(bytes);
    fuzz::Require(text == expected, "the units up to the first NUL");
    fuzz::Require(settings::TextFromValue(base::BytesFromUnits(text)) == text, "a written text comes back");

    // What such a text looks like in UTF-8 must be readable again, but for unpaired surrogates.
    const std::wstring once = base::FromUtf8(base::ToUtf8(text));
    fuzz::Require(once.size() == text.size(), "as many units as before");
    fuzz::Require(base::FromUtf8(base::ToUtf8(once)) == once, "UTF-8 and back is stable");
    const std::string_view raw(reinterpret_cast<const char*>(data), size);
    const std::string clean = base::ToUtf8(base::FromUtf8(raw));
    fuzz::Require(base::ToUtf8(base::FromUtf8(clean)) == clean, "cleaned UTF-8 stays");
    return 0;
}
