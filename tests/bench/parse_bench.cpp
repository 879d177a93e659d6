// How long a block of a million paths takes to read, against a bare pass that makes the same strings.
//
// Prints one line of JSON per comparison and ends with 1 when they could not be measured.
#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/text_list.h"
#include "comparison.h"
#include "hostlink/host_block.h"

namespace {

using ferry::base::TextList;
using ferry::bench::MillisecondsOf;

constexpr std::size_t kPathCount = 1'000'000;
constexpr double kGoal = 1.2;

/// A block in which the host selects kPathCount files of everyday depth and length.
std::wstring MakeBlock() {
    std::wstring block = std::to_wstring(kPathCount) + L"\t0\tC:\\Work\t\t";
    for (std::size_t i = 0; i < kPathCount; ++i) {
        block += L"C:\\Users\\Someone\\Documents\\Project " + std::to_wstring(i / 1000) + L"\\";
        block.append(i % 40, L'n');
        block += L"_" + std::to_wstring(i) + L".txt\t";
    }
    block.push_back(L'\0');
    return block;
}

/// The work of the program: the block's fields, sorted into their lists.
double TimeParse(const std::wstring& block, std::size_t& made) {
    std::wstring units = block;
    std::wstring currentDir;
    std::wstring option;
    TextList items;
    TextList folders;
    const double spent = MillisecondsOf(
        [&] { ferry::hostlink::ParseHostBlock(units, units.size(), {currentDir, option, items, folders}); });
    made = items.Size();
    return spent;
}

/// The least that makes the same strings: one look at each unit, one string per path.
/// `list` has room for the paths already, so that it pays for nothing but them.
double TimeBarePass(const std::wstring& block, std::size_t& made) {
    std::vector<std::wstring> list;
    list.reserve(kPathCount + 4);
    const double spent = MillisecondsOf([&] {
        const wchar_t* field = block.data();
        for (const wchar_t* at = field; *at != L'\0'; ++at) {
            if (*at == L'\t') {
                list.emplace_back(field, at);
                field = at + 1;
            }
        }
    });
    made = list.size() - 4;
    return spent;
}

/// The same with the library's fastest search and the program's own list.
double TimeBareListPass(const std::wstring& block, std::size_t& made) {
    TextList list;
    const double spent = MillisecondsOf([&] {
        std::wstring_view rest(block.data(), block.size() - 1);
        for (std::size_t tab = rest.find(L'\t'); tab != std::wstring_view::npos; tab = rest.find(L'\t')) {
            list.Append(rest.substr(0, tab));
            rest.remove_prefix(tab + 1);
        }
    });
    made = list.Size() - 4;
    return spent;
}

using Measure = double (*)(const std::wstring&, std::size_t&);

/// A side that makes the strings of `block`.
ferry::bench::Side Timed(const char* name, const std::wstring& block, Measure measure) {
    return [=, &block]() -> std::optional<double> {
        std::size_t made = 0;
        const double spent = measure(block, made);
        if (made == kPathCount)
            return spent;
        std::fprintf(stderr, "%zu strings were made by %s\n", made, name);
        return std::nullopt;
    };
}

bool MeasureParse() {
    const std::wstring block = MakeBlock();
    return ferry::bench::Compare(
        {Timed("the program", block, TimeParse), Timed("the pass", block, TimeBarePass),
         Timed("the pass into a text list", block, TimeBareListPass)},
        {{"parse 1000000 paths, against a bare pass", 0, 1, kGoal},
         {"parse 1000000 paths, against a bare pass into a text list", 0, 2, kGoal}});
}

}  // namespace

int main() {
    return ferry::bench::ResultOf(MeasureParse);
}
