// Splitting, trimming, numbers and replacing.
#include "base/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <string>

#include "base/utf16.h"

namespace ferry::base {
namespace {

using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Split, GivesNoPiecesForAnEmptyText) {
    EXPECT_THAT(Split(L"", L':'), IsEmpty());
}

TEST(Split, GivesTheWholeTextWhenThereIsNoSeparator) {
    EXPECT_THAT(Split(L"abc", L':'), ElementsAre(L"abc"sv));
}

TEST(Split, KeepsEmptyPiecesBetweenAtTheStartAndAtTheEnd) {
    EXPECT_THAT(Split(L"a::b", L':'), ElementsAre(L"a"sv, L""sv, L"b"sv));
    EXPECT_THAT(Split(L":a", L':'), ElementsAre(L""sv, L"a"sv));
    EXPECT_THAT(Split(L"a:", L':'), ElementsAre(L"a"sv, L""sv));
    EXPECT_THAT(Split(L":", L':'), ElementsAre(L""sv, L""sv));
}

TEST(Split, EndsAtTheFirstNul) {
    EXPECT_THAT(Split(L"a:b\0c:d"sv, L':'), ElementsAre(L"a"sv, L"b"sv));
    EXPECT_THAT(Split(L"a:\0c"sv, L':'), ElementsAre(L"a"sv, L""sv));
    EXPECT_THAT(Split(L"\0c:d"sv, L':'), IsEmpty());
}

TEST(Split, GivesViewsIntoTheText) {
    const std::wstring text = L"one two";
    EXPECT_EQ(Split(text, L' ')[1].data(), text.data() + 4);
}

struct NumberCase {
    std::wstring_view Text;
    int Expected;
};

TEST(ToInt, ReadsNumbersAsTheCLibraryDoes) {
    const NumberCase cases[] = {
        {L"", 0},         {L"0", 0},          {L"7", 7},    {L"4312", 4312},     {L"-5", -5}, {L"+5", 5},
        {L"2x", 2},       {L"x2", 0},         {L" 12", 12}, {L"\t\r\n 12 ", 12}, {L"- 5", 0}, {L"--5", 0},
        {L"+-5", 0},      {L"007", 7},        {L"1.9", 1},  {L"0x10", 0},        {L"1 2", 1}, {L"-", 0},
        {L"\x3000 9", 9}, {L"\x00A0\x31", 1}, {L"一", 0},   {L"3\0004"sv, 3},
    };
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(ToUtf8(text));
        EXPECT_EQ(ToInt(text), expected);
    }
}

TEST(ToInt, ReadsTheDigitsOfEveryScriptThatTheCLibraryKnows) {
    const std::wstring zeros =
        L"0\x0660\x06F0\x0966\x09E6\x0A66\x0AE6\x0B66\x0C66\x0CE6\x0D66\x0E50\x0ED0\x0F20\x1040\x17E0"
        L"\x1810\xFF10";
    for (int unit = 1; unit <= 0xFFFF; ++unit) {
        const auto zero =
            std::ranges::find_if(zeros, [&](wchar_t first) { return unit >= first && unit < first + 10; });
        const std::wstring text{L'1', static_cast<wchar_t>(unit)};
        ASSERT_EQ(ToInt(text), zero == zeros.end() ? 1 : 10 + unit - *zero) << std::hex << unit;
    }
    EXPECT_EQ(ToInt(L" -２\x0661"
                    L"4９x"),
              -2149);
    EXPECT_EQ(ToInt(L"９９９９９９９９９９"), INT_MAX);
}

TEST(ToInt, GivesTheNearestLimitForNumbersOutsideThirtyTwoBits) {
    const NumberCase cases[] = {
        {L"2147483647", INT_MAX},
        {L"2147483648", INT_MAX},
        {L"-2147483648", INT_MIN},
        {L"-2147483649", INT_MIN},
        {L"4294967296", INT_MAX},
        {L"99999999999999999999999999999999", INT_MAX},
        {L"-99999999999999999999999999999999", INT_MIN},
    };
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(ToUtf8(text));
        EXPECT_EQ(ToInt(text), expected);
    }
}

TEST(IsSpace, HoldsForTheWhiteSpaceOfWindowsAndForNothingElse) {
    const std::wstring spaces =
        L"\t\n\v\f\r \x0085\x00A0\x1680\x2000\x2001\x2002\x2003\x2004\x2005\x2006\x2007\x2008\x2009\x200A"
        L"\x2028\x2029\x202F\x205F\x3000";
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const bool expected = spaces.find(static_cast<wchar_t>(unit)) != std::wstring::npos;
        ASSERT_EQ(IsSpace(static_cast<wchar_t>(unit)), expected) << std::hex << unit;
    }
}

TEST(IsDriveLetter, HoldsForAsciiLettersOnly) {
    for (const wchar_t unit : L"AZaz"sv) {
        EXPECT_TRUE(IsDriveLetter(unit));
    }
    for (const wchar_t unit : L"@[`{0\\:\x00E9\x3042\xFF21"sv) {
        EXPECT_FALSE(IsDriveLetter(unit)) << static_cast<unsigned>(unit);
    }
}

TEST(Trim, TakesWhiteSpaceOffBothEndsOnly) {
    EXPECT_EQ(Trim(L" \t a b \r\n\x3000"), L"a b");
    EXPECT_EQ(Trim(L" \t "), L"");
    EXPECT_EQ(Trim(L""), L"");
    EXPECT_EQ(Trim(L"a"), L"a");
}

TEST(TrimRight, LeavesTheStartAsItIs) {
    EXPECT_EQ(TrimRight(L"  a  "), L"  a");
    EXPECT_EQ(TrimRight(L"   "), L"");
}

TEST(ReplaceAll, ReplacesFromLeftToRightWithoutLookingAtWhatItPut) {
    EXPECT_EQ(ReplaceAll(L"aXbXc", L"X", L"--"), L"a--b--c");
    EXPECT_EQ(ReplaceAll(L"aaa", L"aa", L"a"), L"aa");
    EXPECT_EQ(ReplaceAll(L"a", L"a", L"aa"), L"aa");
    EXPECT_EQ(ReplaceAll(L"\r\r\n\n", L"\r\n", L""), L"\r\n");
    EXPECT_EQ(ReplaceAll(L"abc", L"b", L""), L"ac");
    EXPECT_EQ(ReplaceAll(L"", L"b", L"c"), L"");
}

TEST(ReplaceAll, ChangesNothingWhenThereIsNothingToFind) {
    EXPECT_EQ(ReplaceAll(L"abc", L"", L"x"), L"abc");
    EXPECT_EQ(ReplaceAll(L"abc", L"d", L"x"), L"abc");
}

TEST(EqualsIgnoringAsciiCase, FoldsAsciiLettersOnly) {
    EXPECT_TRUE(EqualsIgnoringAsciiCase(L"/F", L"/f"));
    EXPECT_TRUE(EqualsIgnoringAsciiCase(L"", L""));
    EXPECT_FALSE(EqualsIgnoringAsciiCase(L"/f", L"/fx"));
    EXPECT_FALSE(EqualsIgnoringAsciiCase(L"/fx", L"/f"));
    EXPECT_FALSE(EqualsIgnoringAsciiCase(L"@", L"`"));
    EXPECT_FALSE(EqualsIgnoringAsciiCase(L"[", L"{"));
    EXPECT_FALSE(EqualsIgnoringAsciiCase(L"\x00C9", L"\x00E9"));
}

}  // namespace
}  // namespace ferry::base
