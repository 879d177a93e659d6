// The order of a list without regard to case.
#include "base/case_order.h"

#include <gtest/gtest.h>

namespace ferry::base {
namespace {

using Texts = std::vector<std::wstring>;

Texts Sorted(Texts texts) {
    SortIgnoringCase(texts);
    return texts;
}

TEST(ToSmall, MapsTheCapitalsOfEverydayAlphabets) {
    const std::pair<wchar_t, wchar_t> cases[] = {
        {L'A', L'a'}, {L'Z', L'z'}, {L'À', L'à'}, {L'Þ', L'þ'}, {L'Ā', L'ā'},   {L'Į', L'į'},   {L'Ĺ', L'ĺ'},
        {L'Ÿ', L'ÿ'}, {L'Ž', L'ž'}, {L'Ά', L'ά'}, {L'Ω', L'ω'}, {L'Ѐ', L'ѐ'},   {L'Я', L'я'},   {L'Ґ', L'ґ'},
        {L'Ա', L'ա'}, {L'Ẹ', L'ẹ'}, {L'Ⅷ', L'ⅷ'}, {L'Ⓩ', L'ⓩ'}, {L'Ａ', L'ａ'}, {L'Ｚ', L'ｚ'},
    };
    for (const auto& [capital, small] : cases) {
        EXPECT_EQ(ToSmall(capital), small) << static_cast<unsigned>(capital);
        EXPECT_EQ(ToSmall(small), small) << static_cast<unsigned>(small);
    }
}

TEST(ToSmall, MapsTheFirstAndTheLastCapitalOfEachAlphabet) {
    constexpr std::wstring_view kCapitals = L"ÀÖØÞĀĮĲĶĹŇŊŶŹŽΈΊΌΎΏΑΡΣΫЀЏАЯѠҀҊҾӐԢԱՖḀẔẠỾⅠⅯⒶⓏＡＺ";
    constexpr std::wstring_view kSmall = L"àöøþāįĳķĺňŋŷźžέίόύώαρσϋѐџаяѡҁҋҿӑԣաֆḁẕạỿⅰⅿⓐⓩａｚ";
    EXPECT_EQ(SmallLetters(kCapitals), kSmall);
    EXPECT_EQ(SmallLetters(kSmall), kSmall);
}

TEST(ToSmall, LeavesEverythingElseAlone) {
    for (const wchar_t unit : {L'\0', L'0', L'@', L'[', L'_', L'×', L'ß', L'İ', L'ı', L'あ', L'漢', L'￿'}) {
        EXPECT_EQ(ToSmall(unit), unit) << static_cast<unsigned>(unit);
    }
    EXPECT_EQ(ToSmall(wchar_t{0xD835}), wchar_t{0xD835});
}

TEST(EqualsIgnoringCase, TakesTheCapitalsOfEveryAlphabetForTheSame) {
    EXPECT_TRUE(EqualsIgnoringCase(L"C:\\Ａé", L"c:\\ａÉ"));
    EXPECT_FALSE(EqualsIgnoringCase(L"ａ", L"ａａ"));
    EXPECT_FALSE(EqualsIgnoringCase(L"ａａ", L"ａ"));
    EXPECT_FALSE(EqualsIgnoringCase(L"ａ", L"ｂ"));
}

TEST(SortIgnoringCase, ComparesWholeTexts) {
    EXPECT_EQ(Sorted({L"b", L"A", L"a b", L"", L"B1", L"aa"}),
              (Texts{L"", L"A", L"a b", L"aa", L"b", L"B1"}));
}

TEST(SortIgnoringCase, PutsAFolderBeforeLongerNamesThatBeginLikeIt) {
    EXPECT_EQ(Sorted({L"ABC\\", L"ab\\", L"abd\\"}), (Texts{L"ab\\", L"ABC\\", L"abd\\"}));
}

TEST(SortIgnoringCase, OrdersTextsThatDifferInCaseOnlyByTheirUnits) {
    EXPECT_EQ(Sorted({L"ab", L"AB", L"aB", L"Ab"}), (Texts{L"AB", L"Ab", L"aB", L"ab"}));
}

TEST(SortIgnoringCase, KeepsAShortListAsItIs) {
    EXPECT_EQ(Sorted({}), Texts{});
    EXPECT_EQ(Sorted({L"one"}), Texts{L"one"});
}

}  // namespace
}  // namespace ferry::base
