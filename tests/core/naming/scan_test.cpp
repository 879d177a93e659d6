// The rules of scanf, by a table and beside the C library itself.
#include "naming/scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cwchar>
#include <limits>
#include <random>
#include <string>

#include "base/utf16.h"

namespace ferry::naming {
namespace {

constexpr std::size_t kCapacity = 1040;

std::optional<int> NumberIn(std::wstring_view text) {
    return Scan(text, L"%d", kCapacity).Number;
}

/// How many conversions were assigned.
int Assigned(const Scanned& scanned) {
    return (scanned.Field.empty() ? 0 : 1) + (scanned.Number ? 1 : 0);
}

TEST(Scan, ReadsASignedNumberBehindWhiteSpace) {
    EXPECT_EQ(NumberIn(L"12"), 12);
    EXPECT_EQ(NumberIn(L" \t\n\x3000-12x"), -12);
    EXPECT_EQ(NumberIn(L"+007"), 7);
    EXPECT_EQ(NumberIn(L"0x12"), 0);
    for (const std::wstring_view text : {L"", L" ", L"-", L"+", L"--1", L"- 1", L"x1", L"１２"}) {
        SCOPED_TRACE(base::ToUtf8(text));
        EXPECT_EQ(NumberIn(text), std::nullopt);
        EXPECT_EQ(Assigned(Scan(text, L"%d", kCapacity)), 0);
    }
}

TEST(Scan, TakesTheLowBitsOfALargeNumber) {
    EXPECT_EQ(NumberIn(L"2147483647"), 2147483647);
    EXPECT_EQ(NumberIn(L"2147483648"), std::numeric_limits<int>::min());
    EXPECT_EQ(NumberIn(L"-2147483648"), std::numeric_limits<int>::min());
    EXPECT_EQ(NumberIn(L"-2147483649"), 2147483647);
    EXPECT_EQ(NumberIn(L"4294967299"), 3);
    EXPECT_EQ(NumberIn(L"9223372036854775806"), -2);
    EXPECT_EQ(NumberIn(L"9223372036854775807"), -1);
    EXPECT_EQ(NumberIn(L"9223372036854775808"), -1);
    EXPECT_EQ(NumberIn(L"99999999999999999999999"), -1);
    EXPECT_EQ(NumberIn(L"-9223372036854775807"), 1);
    EXPECT_EQ(NumberIn(L"-99999999999999999999999"), 0);
}

TEST(Scan, ReadsAFieldUpToWhiteSpace) {
    EXPECT_EQ(Scan(L"  word rest", L"%s", kCapacity).Field, L"word");
    EXPECT_EQ(Scan(L"資料　rest", L"%s", kCapacity).Field, L"資料");
    EXPECT_EQ(Scan(L"a\x00A0rest", L"%s", kCapacity).Field, L"a");
    EXPECT_EQ(Assigned(Scan(L" ", L"%s", kCapacity)), 0);
    EXPECT_EQ(Assigned(Scan(L"", L"%s", kCapacity)), 0);
}

TEST(Scan, AssignsNoFieldThatDoesNotFitWithItsTerminator) {
    EXPECT_EQ(Scan(L"abc 7", L"%s %d", 4).Field, L"abc");
    EXPECT_EQ(Scan(L"abc 7", L"%s %d", 4).Number, 7);
    EXPECT_EQ(Assigned(Scan(L"abcd 7", L"%s %d", 4)), 0);
    EXPECT_EQ(Scan(L"abcd 7", L"%s %d", 4).Number, std::nullopt);
    EXPECT_EQ(Assigned(Scan(L"abcd", L"%s", 0)), 0);
}

TEST(Scan, MatchesWhiteSpaceOfAnyLength) {
    for (const std::wstring_view text : {L"a(1", L"a (1", L"a \t\x3000 (1", L"a\n( 1"}) {
        SCOPED_TRACE(base::ToUtf8(text));
        EXPECT_EQ(Scan(text, L"a (%d)", kCapacity).Number, 1);
    }
    EXPECT_EQ(Scan(L" a(1", L"a (%d)", kCapacity).Number, std::nullopt);
}

TEST(Scan, EndsWhereTextAndPatternDisagreeAndKeepsWhatWasAssigned) {
    EXPECT_EQ(Scan(L"a(1", L"a (%d) ～ ", kCapacity).Number, 1);
    const Scanned scanned = Scan(L"word x", L"%s - %d", kCapacity);
    EXPECT_EQ(Assigned(scanned), 1);
    EXPECT_EQ(scanned.Field, L"word");
    EXPECT_EQ(scanned.Number, std::nullopt);
    EXPECT_EQ(Assigned(Scan(L"word - 3", L"%s - %d", kCapacity)), 2);
}

TEST(Scan, EndsAtANul) {
    EXPECT_EQ(NumberIn(std::wstring_view(L"1\0"
                                         L"2",
                                         3)),
              1);
    EXPECT_EQ(Scan(std::wstring_view(L"a\0b", 3), L"%s", kCapacity).Field, L"a");
}

/// The same scan by the C library, whose %ls is wide everywhere.
Scanned ScanByLibrary(const std::wstring& text, const wchar_t* pattern, bool hasField) {
    static std::array<wchar_t, kCapacity> field;
    field.fill(L'\0');
    int number = 0;
    const int assigned = hasField ? std::swscanf(text.c_str(), pattern, field.data(), &number)
                                  : std::swscanf(text.c_str(), pattern, &number);
    Scanned scanned;
    if (hasField && assigned > 0) {
        scanned.Field = field.data();
    }
    if (assigned == (hasField ? 2 : 1)) {
        scanned.Number = number;
    }
    return scanned;
}

void ExpectTheSame(const Scanned& ours, const Scanned& librarys) {
    EXPECT_EQ(ours.Field, librarys.Field);
    EXPECT_EQ(ours.Number, librarys.Number);
}

/// Markers cut into pieces and put together anew: most texts nearly match.
class NearMarkers {
public:
    std::wstring Next() {
        std::wstring text;
        const unsigned kind = random_() % 4;
        if (kind == 0) {
            text = L"コピー (";
        } else if (kind == 1) {
            text = L"資料 - コピー (";
        }
        for (unsigned count = random_() % 8; count > 0; --count) {
            text += kPieces[random_() % kPieces.size()];
        }
        return text;
    }

private:
    static constexpr std::array<const wchar_t*, 24> kPieces{
        L"コピー", L"コピー (", L" - コピー (", L" - ", L"-",    L" ", L"\t", L"\n",
        L"(",      L")",        L") ～ ",       L"～",  L"+",    L"0", L"7",  L"12",
        L"007",    L"-3",       L"4294967299",  L"コ",  L"資料", L"a", L"%d", L"99999999999999999999"};
    std::mt19937 random_{20240501};
};

/// Whether the C library is one to go by for the numbers in `text`: where a long has 32 bits, it
/// takes the nearest limit for a larger number instead of the low bits.
bool IsWithinTheLibrary(std::wstring_view text) {
    std::size_t run = 0;
    for (const wchar_t unit : text) {
        run = unit >= L'0' && unit <= L'9' ? run + 1 : 0;
        if (run > 9 && sizeof(long) == 4) {
            return false;
        }
    }
    return true;
}

TEST(Scan, AgreesWithTheCLibrary) {
    NearMarkers texts;
    int numbers = 0;
    for (int i = 0; i < 200000 && !::testing::Test::HasFailure(); ++i) {
        const std::wstring text = texts.Next();
        if (!IsWithinTheLibrary(text)) {
            continue;
        }
        SCOPED_TRACE(base::ToUtf8(text));
        const Scanned prefix = Scan(text, L"コピー (%d) ～ ", kCapacity);
        ExpectTheSame(prefix, ScanByLibrary(text, L"コピー (%d) ～ ", false));
        const Scanned suffix = Scan(text, L"%s - コピー (%d)", kCapacity);
        ExpectTheSame(suffix, ScanByLibrary(text, L"%ls - コピー (%d)", true));
        numbers += (prefix.Number ? 1 : 0) + (suffix.Number ? 1 : 0);
    }
    EXPECT_GT(numbers, 10000) << "too few of the texts match";
}

}  // namespace
}  // namespace ferry::naming
