// The host's block: any units and any bound, against a reader that takes one unit at a time.
// The first two bytes choose the bound.
#include "hostlink/host_block.h"

#include <vector>

#include "base/text.h"
#include "fuzz_input.h"

namespace {

using namespace ferry;

struct Result {
    std::wstring CurrentDir = L"unset";
    std::wstring Option = L"unset";
    std::vector<std::wstring> Items;
    std::vector<std::wstring> Folders;
    std::wstring Units;

    bool operator==(const Result&) const = default;
};

Result ParseNaively(std::wstring units, std::size_t bound) {
    Result result;
    long long items = 0;
    long long folders = 0;
    long long number = 0;
    std::wstring field;
    for (std::size_t i = 0; i < bound && i < units.size() && units[i] != L'\0'; ++i) {
        if (units[i] != L'\t') {
            field.push_back(units[i]);
            continue;
        }
        units[i] = L'\0';
        if (number == 0) {
            items = base::ToInt(field);
        } else if (number == 1) {
            folders = base::ToInt(field);
        } else if (number == 2) {
            result.CurrentDir = field;
        } else if (number == 3) {
            result.Option = field;
        } else if (4 <= number && number < items + 4) {
            result.Items.push_back(field);
        } else if (items + 4 <= number && number < items + 4 + folders) {
            result.Folders.push_back(field);
        }
        field.clear();
        ++number;
    }
    result.Units = units;
    return result;
}

Result Parse(std::wstring_view text, std::size_t bound) {
    const fuzz::ExactUnits units(text);
    Result result;
    base::TextList items;
    base::TextList folders;
    hostlink::ParseHostBlock(units.Span(), bound, {result.CurrentDir, result.Option, items, folders});
    for (const std::wstring_view item : items) {
        fuzz::Require(*(item.data() + item.size()) == L'\0', "a NUL follows each text");
    }
    result.Items.assign(items.begin(), items.end());
    result.Folders.assign(folders.begin(), folders.end());
    result.Units = units.View();
    return result;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const std::size_t bound = data[0] | (std::size_t{data[1]} << 8);
    const std::wstring text = fuzz::UnitsOf(data + 2, size - 2);
    fuzz::Require(Parse(text, bound) == ParseNaively(text, bound), "as the plain reader, with a bound");
    fuzz::Require(Parse(text, size) == ParseNaively(text, size), "as the plain reader, bound in bytes");
    const std::wstring payload = hostlink::TextFromPayload(std::as_bytes(std::span(data + 2, size - 2)));
    fuzz::Require(payload == text.substr(0, text.find(L'\0')), "a payload's text ends at its NUL");
    return 0;
}
