// Texts as numbers, by the rules of the C library of Windows.
#include "script/numbers.h"

#include <gtest/gtest.h>

#include "base/utf16.h"

namespace ferry::script {
namespace {

TEST(Numbers, OfSixtyFourBitsClamp) {
    constexpr std::pair<const wchar_t*, std::int64_t> kCases[] = {
        {L"", 0},
        {L"12", 12},
        {L" \t\n-12x", -12},
        {L"+7", 7},
        {L"- 7", 0},
        {L"--7", 0},
        {L"0x10", 0},
        {L"010", 10},
        {L"9223372036854775807", INT64_MAX},
        {L"9223372036854775808", INT64_MAX},
        {L"99999999999999999999999", INT64_MAX},
        {L"-9223372036854775808", INT64_MIN},
        {L"-9223372036854775809", INT64_MIN},
        {L"１２", 12},
    };
    for (const auto& [text, number] : kCases) {
        EXPECT_EQ(ToInt64(text), number) << base::ToUtf8(text);
    }
}

TEST(Numbers, OfBaseZeroClampAtThirtyTwoBits) {
    constexpr std::pair<const wchar_t*, std::int32_t> kCases[] = {
        {L"0x30", 48},
        {L"0X1f", 31},
        {L"0x", 0},
        {L"0xg", 0},
        {L" -0x10", -16},
        {L"017", 15},
        {L"019", 1},
        {L"12", 12},
        {L"0", 0},
        {L"x5", 0},
        {L"0x7FFFFFFF", INT32_MAX},
        {L"0x80000000", INT32_MAX},
        {L"-0x80000001", INT32_MIN},
        {L"99999999999", INT32_MAX},
    };
    for (const auto& [text, number] : kCases) {
        EXPECT_EQ(ToLong(text), number) << base::ToUtf8(text);
    }
}

TEST(Numbers, AreHexadecimalInOperandsWithAnX) {
    EXPECT_EQ(ToOperand(L"0x10"), 16);
    EXPECT_EQ(ToOperand(L"10"), 10);
    EXPECT_EQ(ToOperand(L"010"), 10);
    EXPECT_EQ(ToOperand(L"010x"), 8);
    EXPECT_EQ(ToOperand(L"0X10"), 0);
    EXPECT_EQ(ToOperand(L"4294967296"), 4294967296);
    EXPECT_EQ(ToOperand(L"4294967296x"), INT32_MAX);
    EXPECT_EQ(ToStyle(L"0x30"), 48);
    EXPECT_EQ(ToStyle(L"36"), 36);
    EXPECT_EQ(ToStyle(L"4294967296"), INT32_MAX);
}

TEST(NumericTest, TakesDigitsAndHexadecimalNumbersWithoutASign) {
    for (const wchar_t* const text : {L"", L"  ", L"12", L"1 2", L"0xA", L"0 x f F", L"007"}) {
        EXPECT_TRUE(IsNumeric(text)) << base::ToUtf8(text);
    }
    for (const wchar_t* const text : {L"-1", L"+1", L"0x", L"0X1", L"0xG", L"1.5", L"a"}) {
        EXPECT_FALSE(IsNumeric(text)) << base::ToUtf8(text);
    }
}

std::string Normalised(std::wstring text) {
    NormaliseNumber(text);
    return base::ToUtf8(text);
}

TEST(NormalisedNumber, IsDecimal) {
    EXPECT_EQ(Normalised(L"0x10"), "16");
    EXPECT_EQ(Normalised(L"0 x1 0"), "16");
    EXPECT_EQ(Normalised(L"0xFFFFFFFF"), "4294967295");
    EXPECT_EQ(Normalised(L"0xFFFFFFFFFFFFFFFFF"), "9223372036854775807");
    EXPECT_EQ(Normalised(L"1 000"), "1 000");
    EXPECT_EQ(Normalised(L"0x"), "0x");
    EXPECT_EQ(Normalised(L"a x b"), "a x b");
    EXPECT_EQ(ToArgument(L"0x10"), 16);
    EXPECT_EQ(ToArgument(L" 5z"), 5);
}

TEST(ExactNumber, IsTheDecimalFormAlone) {
    EXPECT_EQ(ExactNumber(L"0"), 0);
    EXPECT_EQ(ExactNumber(L"-12"), -12);
    EXPECT_EQ(ExactNumber(L"999999999999999999"), 999999999999999999);
    for (const wchar_t* const text :
         {L"", L"-", L"-0", L"00", L"+1", L" 1", L"1 ", L"0x1", L"１", L"9999999999999999999"}) {
        EXPECT_EQ(ExactNumber(text), std::nullopt) << base::ToUtf8(text);
    }
    std::wstring text = L"something longer than a number";
    WriteNumber(text, INT64_MIN);
    EXPECT_EQ(text, L"-9223372036854775808");
}

}  // namespace
}  // namespace ferry::script
