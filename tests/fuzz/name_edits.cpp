// The editing operations on names: what must hold of any name.
#include "naming/name_edits.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdlib>
#include <cwchar>
#include <cwctype>

#include "base/text.h"
#include "fuzz_input.h"
#include "naming/scan.h"

namespace {

using namespace ferry;
using fuzz::Require;

constexpr std::size_t kFieldCapacity = 1040;

bool IsDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

bool IsLatin(wchar_t unit) {
    return (unit >= L'A' && unit <= L'Z') || (unit >= L'a' && unit <= L'z') ||
           (unit >= L'\xFF21' && unit <= L'\xFF3A') || (unit >= L'\xFF41' && unit <= L'\xFF5A');
}

/// Whether `part` is left when some units are taken out of `whole`.
bool IsLeftOf(std::wstring_view part, std::wstring_view whole) {
    for (const wchar_t unit : whole) {
        if (part.starts_with(unit)) {
            part.remove_prefix(1);
        }
    }
    return part.empty();
}

void CheckDigits(std::wstring_view name) {
    const std::wstring front = naming::RemoveLeadingDigits(name);
    const std::wstring back = naming::RemoveTrailingDigits(name);
    Require(name.ends_with(front) && name.starts_with(back), "digits go from the ends");
    Require(front.empty() || !IsDigit(front.front()), "no digit stays in front");
    Require(back.empty() || !IsDigit(back.back()), "no digit stays behind");
    Require(std::ranges::all_of(name.substr(0, name.size() - front.size()), IsDigit),
            "only digits go in front");
    Require(std::ranges::all_of(name.substr(back.size()), IsDigit), "only digits go behind");
    Require(naming::RemoveLeadingDigits(front) == front, "front digits go once");
    Require(naming::RemoveTrailingDigits(back) == back, "back digits go once");
}

void CheckCase(std::wstring_view name) {
    const std::wstring upper = naming::ToUpper(name);
    const std::wstring lower = naming::ToLower(name);
    const std::wstring words = naming::CapitaliseWords(name);
    Require(upper.size() == name.size() && lower.size() == name.size() && words.size() == name.size(),
            "letter case changes no length");
    for (std::size_t i = 0; i < name.size(); ++i) {
        const bool isSurrogate = name[i] >= L'\xD800' && name[i] <= L'\xDFFF';
        Require(!isSurrogate || (upper[i] == name[i] && lower[i] == name[i]), "surrogates stay");
        Require(words[i] == name[i] || (IsLatin(name[i]) && std::abs(words[i] - name[i]) == 0x20),
                "only Latin letters change, into each other");
    }
    Require(naming::ToUpper(upper) == upper && naming::ToLower(lower) == lower, "letter case changes once");
    Require(naming::CapitaliseWords(words) == words, "words are capitalised once");
}

void CheckMarkers(std::wstring_view name) {
    const std::wstring left = naming::RemoveCopyMarkers(name);
    Require(IsLeftOf(left, name), "markers are only taken out");
    Require(left == name || name.find(L"コピー") != std::wstring_view::npos, "without a marker nothing goes");
}

/// Whether the C library and the scanner agree about what is white space in `text`.
bool HasPlainSpaces(std::wstring_view text) {
    return std::ranges::all_of(text, [](wchar_t unit) {
        return base::IsSpace(unit) == (std::iswspace(static_cast<std::wint_t>(unit)) != 0);
    });
}

void CheckScan(std::wstring_view view) {
    const std::wstring text(view);
    const naming::Scanned word = naming::Scan(view, L"%s - コピー (%d)", kFieldCapacity);
    Require(word.Field.empty() || fuzz::LiesWithin(word.Field, view), "a field lies in its text");
    Require(word.Field.size() < kFieldCapacity, "a field has room for its terminator");
    Require(std::ranges::none_of(word.Field, base::IsSpace), "a field has no white space");
    const std::optional<int> prefix = naming::Scan(view, L"コピー (%d) ～ ", kFieldCapacity).Number;
    if (!HasPlainSpaces(text) || text.size() >= kFieldCapacity) {
        return;
    }
    int number = 0;
    const bool hasNumber = std::swscanf(text.c_str(), L"コピー (%d) ～ ", &number) == 1;
    Require(prefix == (hasNumber ? std::optional(number) : std::nullopt), "the C library's number in front");
    std::array<wchar_t, kFieldCapacity> field{};
    const int assigned = std::swscanf(text.c_str(), L"%ls - コピー (%d)", field.data(), &number);
    Require((word.Field.empty() ? 0 : 1) + (word.Number ? 1 : 0) == std::max(assigned, 0),
            "as many as the C library assigns");
    Require(word.Field == std::wstring_view(assigned > 0 ? field.data() : L""), "the C library's field");
    Require(assigned < 2 || word.Number == number, "the C library's number behind");
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // Where it is known, the locale has letters and white space beyond ASCII.
    std::setlocale(LC_ALL, "C.UTF-8");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::ExactUnits name(fuzz::UnitsOf(data, size));
    CheckDigits(name.View());
    CheckCase(name.View());
    CheckMarkers(name.View());
    CheckScan(name.View());
    // Most texts hold no marker; these begin with one.
    const std::wstring text(name.View());
    for (const std::wstring& marked : {L"コピー (" + text, text + L" - コピー (2)", L"x - コピー (" + text}) {
        CheckMarkers(marked);
        CheckScan(marked);
    }
    return 0;
}
