// Digits at both ends of a name.
#include "naming/name_edits.h"
#include "support/text_cases.h"

namespace ferry::naming {
namespace {

using test::ExpectEach;
using test::LetterLocale;

TEST(RemoveTrailingDigits, TakesTheDigitsAtTheEnd) {
    ExpectEach(RemoveTrailingDigits, {{L"IMG_0012", L"IMG_"},
                                      {L"0012abc", L"0012abc"},
                                      {L"a1b2", L"a1b"},
                                      {L"資料2024", L"資料"},
                                      {L"name1.5", L"name1."},
                                      {L"name5 ", L"name5 "},
                                      {L"", L""}});
}

TEST(RemoveLeadingDigits, TakesTheDigitsAtTheStart) {
    ExpectEach(RemoveLeadingDigits, {{L"0012abc", L"abc"},
                                     {L"IMG_0012", L"IMG_0012"},
                                     {L"2024年", L"年"},
                                     {L"1.5name", L".5name"},
                                     {L" 5name", L" 5name"},
                                     {L"", L""}});
}

TEST(RemoveDigits, EmptiesANameOfNothingElse) {
    EXPECT_EQ(RemoveTrailingDigits(L"0123456789"), L"");
    EXPECT_EQ(RemoveLeadingDigits(L"0123456789"), L"");
}

// In two parts, since an escape takes every letter that is a digit of it.
constexpr std::wstring_view kDigitsAboveTheFirstPlane =
    L"\xD835\xDFCE"
    L"abc\xD835\xDFCE";

TEST(RemoveDigits, KnowsNoDigitsButThoseOfAscii) {
    const LetterLocale locale;
    static constexpr std::wstring_view kNames[] = {
        L"１２abc１２", L"٣abc٣", L"²abc²", L"一abc一",
        L"①abc①",       L"/abc/", L":abc:", kDigitsAboveTheFirstPlane};
    for (const std::wstring_view name : kNames) {
        SCOPED_TRACE(base::ToUtf8(name));
        EXPECT_EQ(RemoveTrailingDigits(name), name);
        EXPECT_EQ(RemoveLeadingDigits(name), name);
    }
}

TEST(RemoveDigits, StopsAtTheFirstOtherCharacter) {
    EXPECT_EQ(RemoveLeadingDigits(L"12１2abc"), L"１2abc");
    EXPECT_EQ(RemoveTrailingDigits(L"abc2１12"), L"abc2１");
    EXPECT_EQ(RemoveTrailingDigits(L"7か\x3099"
                                   L"7"),
              L"7か\x3099");
}

TEST(RemoveDigits, WorksOnTheLongestNames) {
    for (const std::size_t length : {std::size_t{512}, std::size_t{1100}}) {
        const std::wstring digits(length - 1, L'7');
        EXPECT_EQ(RemoveTrailingDigits(L"x" + digits), L"x");
        EXPECT_EQ(RemoveLeadingDigits(digits + L"x"), L"x");
        EXPECT_EQ(RemoveTrailingDigits(digits + L"x"), digits + L"x");
        EXPECT_EQ(RemoveLeadingDigits(L"x" + digits), L"x" + digits);
    }
}

}  // namespace
}  // namespace ferry::naming
