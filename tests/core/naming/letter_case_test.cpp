// Capitals and small letters, of the locale's and of the Latin kind.
#include "naming/name_edits.h"

#include "base/language.h"
#include "support/text_cases.h"

namespace ferry::naming {
namespace {

using test::ExpectEach;
using test::LetterLocale;
using test::TextCase;

constexpr std::wstring_view kDeseretCapital = L"\xD801\xDC00";
constexpr std::wstring_view kDeseretSmall = L"\xD801\xDC28";

TEST(LetterCase, FollowsTheLocale) {
    const LetterLocale locale;
    constexpr TextCase kPairs[] = {{L"report", L"REPORT"}, {L"ａｂｃ", L"ＡＢＣ"}, {L"é", L"É"},
                                   {L"привет", L"ПРИВЕТ"}, {L"ω", L"Ω"},           {L"a1_b", L"A1_B"}};
    for (const auto& [small, capital] : kPairs) {
        SCOPED_TRACE(base::ToUtf8(small));
        EXPECT_EQ(ToUpper(small), capital);
        EXPECT_EQ(ToUpper(capital), capital);
        EXPECT_EQ(ToLower(capital), small);
        EXPECT_EQ(ToLower(small), small);
    }
}

TEST(LetterCase, FollowsTheLanguageThatStandsInForTheLocale) {
    base::Language language{};
    language.Capital = [](wchar_t unit) noexcept { return unit == L'é' ? L'É' : unit; };
    language.Small = [](wchar_t unit) noexcept { return unit == L'É' ? L'é' : unit; };
    {
        const base::LanguageInForce inForce(language);
        EXPECT_EQ(ToUpper(L"aé\xD83D\xDE00"), L"aÉ\xD83D\xDE00");
        EXPECT_EQ(ToLower(L"AÉ\xD83D\xDE00"), L"Aé\xD83D\xDE00");
    }
    EXPECT_EQ(ToUpper(L"aé"), L"Aé") << "the C library's locale again";
}

TEST(LetterCase, LeavesTextsWithoutCase) {
    const LetterLocale locale;
    for (const std::wstring_view text : {L"", L"資料 コピー", L"ｶﾞ", L"12-_ .", L"か\x3099"}) {
        EXPECT_EQ(ToUpper(text), text);
        EXPECT_EQ(ToLower(text), text);
    }
    EXPECT_EQ(ToUpper(L"e\x0301"), L"E\x0301");
    EXPECT_EQ(ToLower(L"E\x0301"), L"e\x0301");
}

TEST(LetterCase, LeavesTheUnitsOfSurrogatePairs) {
    const LetterLocale locale;
    for (const std::wstring_view text :
         {kDeseretCapital, kDeseretSmall, std::wstring_view(L"\xD83D\xDE00")}) {
        EXPECT_EQ(ToUpper(text), text);
        EXPECT_EQ(ToLower(text), text);
        EXPECT_EQ(CapitaliseWords(text), text);
    }
    EXPECT_EQ(ToUpper(L"a\xD83D\xDE00z\xDE00"), L"A\xD83D\xDE00Z\xDE00");
}

TEST(LetterCase, WorksOnTheLongestNames) {
    for (const std::size_t length : {std::size_t{512}, std::size_t{1100}}) {
        const std::wstring small(length, L'x');
        const std::wstring capital(length, L'X');
        EXPECT_EQ(ToUpper(small), capital);
        EXPECT_EQ(ToLower(capital), small);
        EXPECT_EQ(CapitaliseWords(capital), L"X" + small.substr(1));
    }
}

TEST(CapitaliseWords, PutsACapitalAtTheStartOfEachWordAndSmallLettersInside) {
    ExpectEach(CapitaliseWords, {{L"HELLO wORLD", L"Hello World"},
                                 {L"2nd-place_winner", L"2Nd-Place_Winner"},
                                 {L"a b-c_d9e", L"A B-C_D9E"},
                                 {L"  two  spaces", L"  Two  Spaces"},
                                 {L"", L""}});
}

TEST(CapitaliseWords, LeavesTheOtherCharactersInsideAWord) {
    ExpectEach(CapitaliseWords, {{L"my.file", L"My.file"},
                                 {L"MY.FILE", L"My.file"},
                                 {L"it's", L"It's"},
                                 {L"(draft)", L"(draft)"},
                                 {L"(DRAFT)", L"(draft)"},
                                 {L"資料abc", L"資料abc"},
                                 {L"資料ABC", L"資料abc"},
                                 {L"資料 abc", L"資料 Abc"},
                                 {L"a\tb", L"A\tb"},
                                 {L"a\x00A0"
                                  L"b",
                                  L"A\x00A0"
                                  L"b"},
                                 {L"a‐b—c", L"A‐b—c"},
                                 {L"e\x0301"
                                  L"a",
                                  L"E\x0301"
                                  L"a"},
                                 {L"\xD83D\xDE00"
                                  L"Ab",
                                  L"\xD83D\xDE00"
                                  L"ab"},
                                 {L"a\xD83D\xDE00 b", L"A\xD83D\xDE00 B"}});
}

TEST(CapitaliseWords, KnowsTheFullwidthLettersAndSeparators) {
    ExpectEach(CapitaliseWords, {{L"ａｂｃ ｄｅｆ", L"Ａｂｃ Ｄｅｆ"},
                                 {L"ＡＢＣ　ＤＥＦ", L"Ａｂｃ　Ｄｅｆ"},
                                 {L"ａ－ｂ＿ｃ１ｄ", L"Ａ－Ｂ＿Ｃ１Ｄ"},
                                 {L"a　b－c＿d０e９f", L"A　B－C＿D０E９F"},
                                 {L"ａ．ｂ", L"Ａ．ｂ"},
                                 {L"ｚＺ ｚＺ", L"Ｚｚ Ｚｚ"}});
}

TEST(CapitaliseWords, ChangesNoOtherLettersInAnyLocale) {
    const LetterLocale locale;
    for (const std::wstring_view text : {L"éÉ É", L"ßẞ", L"привет ПРИВЕТ", L"ωΩ Ω", L"ⅰⅠ", L"ｶﾞ ガ"}) {
        SCOPED_TRACE(base::ToUtf8(text));
        EXPECT_EQ(CapitaliseWords(text), text);
    }
    EXPECT_EQ(CapitaliseWords(L"éa éA"), L"éa éa");
    EXPECT_EQ(CapitaliseWords(L"/a:b"), L"/a:b");
    EXPECT_EQ(CapitaliseWords(L"A／ａ：ｂ"), L"A／ａ：ｂ");
}

TEST(CapitaliseWords, LeavesTheNeighboursOfTheLettersAtTheStartOfAWordAndInside) {
    for (const wchar_t neighbour : std::wstring_view(L"@[`{＠［｀｛")) {
        const std::wstring text{neighbour, L' ', L'X', neighbour};
        SCOPED_TRACE(base::ToUtf8(text));
        EXPECT_EQ(CapitaliseWords(text), text);
    }
}

TEST(CapitaliseWords, SaysTheSameTwice) {
    for (const std::wstring_view text :
         {L"HELLO wORLD", L"2nd-place_winner", L"ａ－ｂ＿ｃ１ｄ", L"資料ABC d"}) {
        const std::wstring once = CapitaliseWords(text);
        EXPECT_EQ(CapitaliseWords(once), once);
    }
}

}  // namespace
}  // namespace ferry::naming
