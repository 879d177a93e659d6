#include "naming/name_edits.h"

#include <cwctype>
#include <optional>

#include "base/language.h"
#include "base/text.h"
#include "naming/scan.h"

namespace ferry::naming {

namespace {

/// The units of a first word in front of a numbered marker, with a terminator.
constexpr std::size_t kWordCapacity = 1040;

/// How many numbered markers are looked for at most, in front and behind each.
constexpr int kMaxPasses = 10;

// What Japanese shells have put into the names of copies: "copy of ..." in front, and "... - copy"
// behind, both with a number from the second copy on.
constexpr std::wstring_view kNumberedPrefix = L"コピー (%d) ～ ";
constexpr std::wstring_view kNumberedSuffix = L"%s - コピー (%d)";
constexpr std::wstring_view kSuffix = L" - コピー";

/// Stands for "no number" behind a name, so that a marker with this number is not one.
constexpr int kNoNumber = -1;

/// How far a Latin capital stands before its small letter, in ASCII and among the fullwidth forms.
constexpr wchar_t kCaseDistance = 0x20;

void RemoveAll(std::wstring& text, std::wstring_view part) {
    text = base::ReplaceAll(text, part, {});
}

/// The marker of `pattern` with `number`, and nothing for a first word.
std::wstring PrintMarker(std::wstring_view pattern, int number) {
    return base::ReplaceAll(base::ReplaceAll(pattern, L"%s", {}), L"%d", std::to_wstring(number));
}

/// Removes the markers of `pattern`, number by number as they are found; finding `stop` ends it.
void RemoveNumbered(std::wstring& name, std::wstring_view pattern, std::optional<int> stop) {
    for (int pass = 0; pass < kMaxPasses; ++pass) {
        const std::optional<int> number = Scan(name, pattern, kWordCapacity).Number;
        if (!number || number == stop) {
            return;
        }
        RemoveAll(name, PrintMarker(pattern, *number));
    }
}

bool IsWithin(wchar_t unit, wchar_t first, wchar_t last) noexcept {
    return unit >= first && unit <= last;
}

bool IsLatinSmall(wchar_t unit) noexcept {
    return IsWithin(unit, L'a', L'z') || IsWithin(unit, L'\xFF41', L'\xFF5A');
}

bool IsLatinCapital(wchar_t unit) noexcept {
    return IsWithin(unit, L'A', L'Z') || IsWithin(unit, L'\xFF21', L'\xFF3A');
}

/// Whether a word starts behind `unit`.
bool SeparatesWords(wchar_t unit) noexcept {
    constexpr std::wstring_view kSeparators = L" -_\x3000\xFF0D\xFF3F";
    return base::IsDigit(unit) || IsWithin(unit, L'\xFF10', L'\xFF19') ||
           kSeparators.find(unit) != std::wstring_view::npos;
}

/// Maps unit by unit; half of a surrogate pair is no character and has no case.
template <class Mapping>
std::wstring MapUnits(std::wstring_view text, Mapping mapping) {
    std::wstring mapped(text);
    for (wchar_t& unit : mapped) {
        if (!IsWithin(unit, L'\xD800', L'\xDFFF')) {
            unit = static_cast<wchar_t>(mapping(unit));
        }
    }
    return mapped;
}

}  // namespace

std::wstring RemoveCopyMarkers(std::wstring_view name) {
    std::wstring text(name);
    for (const std::wstring_view marker : {L"コピー ～ ", L"コピー ～", L"コピー～ "}) {
        RemoveAll(text, marker);
    }
    RemoveNumbered(text, kNumberedPrefix, std::nullopt);
    RemoveNumbered(text, kNumberedSuffix, kNoNumber);
    RemoveAll(text, kSuffix);
    return text;
}

std::wstring RemoveTrailingDigits(std::wstring_view name) {
    while (!name.empty() && base::IsDigit(name.back())) {
        name.remove_suffix(1);
    }
    return std::wstring(name);
}

std::wstring RemoveLeadingDigits(std::wstring_view name) {
    while (!name.empty() && base::IsDigit(name.front())) {
        name.remove_prefix(1);
    }
    return std::wstring(name);
}

std::wstring ToUpper(std::wstring_view text) {
    if (const base::Language* language = base::StandInLanguage(); language != nullptr) {
        return MapUnits(text, language->Capital);
    }
    return MapUnits(text, [](wchar_t unit) { return std::towupper(static_cast<std::wint_t>(unit)); });
}

std::wstring ToLower(std::wstring_view text) {
    if (const base::Language* language = base::StandInLanguage(); language != nullptr) {
        return MapUnits(text, language->Small);
    }
    return MapUnits(text, [](wchar_t unit) { return std::towlower(static_cast<std::wint_t>(unit)); });
}

std::wstring CapitaliseWords(std::wstring_view name) {
    std::wstring text(name);
    bool isAtWordStart = true;
    for (wchar_t& unit : text) {
        if (isAtWordStart && IsLatinSmall(unit)) {
            unit = static_cast<wchar_t>(unit - kCaseDistance);
        } else if (!isAtWordStart && IsLatinCapital(unit)) {
            unit = static_cast<wchar_t>(unit + kCaseDistance);
        }
        isAtWordStart = SeparatesWords(unit);
    }
    return text;
}

}  // namespace ferry::naming
