// Comparisons.
#include "script/conditions.h"

#include <gtest/gtest.h>

#include "base/utf16.h"
#include "script/limits.h"

namespace ferry::script {
namespace {

/// Whether `text` is true; nothing when it is no condition.
std::optional<bool> Truth(std::wstring_view text) {
    const ConditionParts parts = SplitCondition(text);
    if (parts.Compare == Operator::None) {
        return std::nullopt;
    }
    std::wstring left(parts.Left);
    std::wstring right(parts.Right);
    return IsTrue(left, parts.Compare, right);
}

TEST(Condition, IsSplitAtTheOperatorThatIsLookedForFirst) {
    EXPECT_EQ(SplitCondition(L"a!=b==c").Left, L"a!=b");
    EXPECT_EQ(SplitCondition(L"a==b!=c").Right, L"b!=c");
    EXPECT_EQ(SplitCondition(L"a<b==c").Compare, Operator::Equal);
    EXPECT_EQ(SplitCondition(L"a!^b").Compare, Operator::NotLike);
    EXPECT_EQ(SplitCondition(L"a<=b>=c").Compare, Operator::AtMost);
    EXPECT_EQ(SplitCondition(L"a=>b").Compare, Operator::Above);
    EXPECT_EQ(SplitCondition(L"a===b").Right, L"=b");
    EXPECT_EQ(SplitCondition(L"a=b").Compare, Operator::None);
}

TEST(Condition, ComparesTextsAndNumbers) {
    constexpr std::pair<const wchar_t*, bool> kCases[] = {
        {L" Ab ==aB", true},
        {L"==", true},
        {L"a==", false},
        {L"a!=A", false},
        {L"0x10==16", true},
        {L"016==16", false},
        {L"1 000==1000", false},
        {L"0x10<17", true},
        {L"a<1", true},
        {L"5<=5", true},
        {L"5>=6", false},
        {L"5>4z", true},
        {L"-1<0", true},
        {L"3000000000==2147483647", false},
        {L"3000000000<=2147483647", true},
        {L"Name.TXT^*.txt", true},
        {L"abc^a?c", true},
        {L"abc^a?", false},
        {L"abc^b*", false},
        {L"^", true},
        {L"^*", true},
        {L"^?", false},
        {L"abcabc^*a*c", true},
        {L"abc!^*b*", false},
        {L"ａ==Ａ", true},
    };
    for (const auto& [text, isTrue] : kCases) {
        EXPECT_EQ(Truth(text), isTrue) << base::ToUtf8(text);
    }
}

TEST(Condition, ComparesNumbersAsItComparesTheirTexts) {
    constexpr std::int64_t kNumbers[] = {INT64_MIN, -3000000000, -2147483648, -1,       0,
                                         1,         2147483647,  2147483648,  INT64_MAX};
    for (const std::int64_t left : kNumbers) {
        for (const std::int64_t right : kNumbers) {
            for (const Operator compare : {Operator::Equal, Operator::NotEqual, Operator::AtMost,
                                           Operator::AtLeast, Operator::Below, Operator::Above}) {
                std::wstring leftText = std::to_wstring(left);
                std::wstring rightText = std::to_wstring(right);
                EXPECT_EQ(IsTrueOfNumbers(left, compare, right), IsTrue(leftText, compare, rightText))
                    << left << right;
            }
        }
    }
}

TEST(Condition, OfALongPatternThatFitsNearlyEverywhereIsGivenUp) {
    const std::wstring text(kMaxValueUnits, L'a');
    const std::wstring nearly = L"*" + std::wstring(kMaxValueUnits / 2, L'a') + L"b";
    EXPECT_EQ(IsLike(text, nearly), std::nullopt);
    for (const Operator compare : {Operator::Like, Operator::NotLike}) {
        std::wstring left = text;
        std::wstring right = nearly;
        EXPECT_EQ(IsTrue(left, compare, right), std::nullopt);
    }
}

TEST(Condition, OfTheLongestTextIsNotGivenUpForItsLength) {
    const std::wstring text(kMaxValueUnits, L'a');
    EXPECT_EQ(IsLike(text, text), true);
    EXPECT_EQ(IsLike(text, L"*" + text), true);
    EXPECT_EQ(IsLike(text, L"*aaa?aaa*b*"), false);
    EXPECT_EQ(IsLike(text, std::wstring(kMaxValueUnits, L'*')), true);
    // As long as it may take, and no longer.
    const std::size_t tries = kMaxLikeSteps / kMaxValueUnits;
    EXPECT_EQ(IsLike(text, L"*" + std::wstring(tries / 2, L'a') + L"b"), false);
}

}  // namespace
}  // namespace ferry::script
