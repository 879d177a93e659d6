// UTF-16 units, their bytes, and UTF-8.
#include "base/utf16.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace ferry::base {
namespace {

using namespace std::string_view_literals;
using testing::ElementsAre;

constexpr std::byte B(int value) {
    return static_cast<std::byte>(value);
}

TEST(UnitsFromBytes, ReadsLittleEndianUnits) {
    const std::array bytes = {B(0x41), B(0x00), B(0xFF), B(0xFE), B(0x42), B(0x30), B(0x00), B(0x00)};
    EXPECT_EQ(UnitsFromBytes(bytes), L"A\xFEFF\x3042\0"sv);
}

TEST(UnitsFromBytes, LeavesOutAnOddLastByte) {
    const std::array bytes = {B(0x41), B(0x00), B(0x42)};
    EXPECT_EQ(UnitsFromBytes(bytes), L"A");
    EXPECT_EQ(UnitsFromBytes(std::span(bytes).first(1)), L"");
    EXPECT_EQ(UnitsFromBytes({}), L"");
}

TEST(UnitsFromBytes, KeepsSurrogatesAsTwoUnits) {
    const std::array bytes = {B(0x3D), B(0xD8), B(0x00), B(0xDE)};
    const std::wstring units = UnitsFromBytes(bytes);
    ASSERT_EQ(units.size(), 2u);
    EXPECT_EQ(units[0], wchar_t{0xD83D});
    EXPECT_EQ(units[1], wchar_t{0xDE00});
}

TEST(BytesFromUnits, WritesLittleEndianWithoutMarkOrTerminator) {
    EXPECT_THAT(BytesFromUnits(L"A\x3042"), ElementsAre(B(0x41), B(0x00), B(0x42), B(0x30)));
    EXPECT_TRUE(BytesFromUnits(L"").empty());
}

TEST(BytesFromUnits, GivesBackEveryUnitThroughUnitsFromBytes) {
    std::wstring all;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        all.push_back(static_cast<wchar_t>(unit));
    }
    EXPECT_EQ(UnitsFromBytes(BytesFromUnits(all)), all);
}

/// Two units on every host, where a literal would be one unit on some.
std::wstring Pair(unsigned high, unsigned low) {
    return {static_cast<wchar_t>(high), static_cast<wchar_t>(low)};
}

TEST(FromUtf8, ReadsWellFormedText) {
    EXPECT_EQ(FromUtf8(""), L"");
    EXPECT_EQ(FromUtf8("a\xC3\xA9\xE3\x81\x82"), L"a\x00E9\x3042");
    EXPECT_EQ(FromUtf8("\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF"), L"\x0080\x07FF\x0800\xFFFF");
    EXPECT_EQ(FromUtf8("a\0b"sv), L"a\0b"sv);
}

TEST(FromUtf8, MakesASurrogatePairOfAPointBeyondSixteenBits) {
    EXPECT_EQ(FromUtf8("\xF0\x9F\x98\x80"), Pair(0xD83D, 0xDE00));
    EXPECT_EQ(FromUtf8("\xF0\x90\x80\x80"), Pair(0xD800, 0xDC00));
    EXPECT_EQ(FromUtf8("\xF4\x8F\xBF\xBF"), Pair(0xDBFF, 0xDFFF));
}

TEST(FromUtf8, ReplacesIllFormedSequences) {
    struct Case {
        std::string_view Bytes;
        std::wstring_view Expected;
    };
    const Case cases[] = {
        {"\x80", L"\xFFFD"},
        {"a\xFFz", L"a\xFFFDz"},
        {"\xC0\xAF", L"\xFFFD\xFFFD"},
        {"\xC1\x81", L"\xFFFD\xFFFD"},
        {"\xE0\x80\xAF", L"\xFFFD\xFFFD\xFFFD"},
        {"\xED\xA0\x80", L"\xFFFD\xFFFD\xFFFD"},
        {"\xF4\x90\x80\x80", L"\xFFFD\xFFFD\xFFFD\xFFFD"},
        {"\xF0\x80\x80\xAF", L"\xFFFD\xFFFD\xFFFD\xFFFD"},
        {"\xF5\x80", L"\xFFFD\xFFFD"},
        {"\xE3\x81", L"\xFFFD"},
        {"\xE3\x81z", L"\xFFFDz"},
        {"\xF0\x9F\x98", L"\xFFFD"},
        {"\xF0\x9F\x98\xE3\x81\x82", L"\xFFFD\x3042"},
        {"\xC3", L"\xFFFD"},
    };
    for (const auto& [bytes, expected] : cases) {
        SCOPED_TRACE(testing::PrintToString(bytes));
        EXPECT_EQ(FromUtf8(bytes), expected);
    }
}

TEST(ToUtf8, WritesEachLengthOfSequence) {
    EXPECT_EQ(ToUtf8(L"a\x7F\x80\x07FF\x0800\xFFFF"), "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
    EXPECT_EQ(ToUtf8(Pair(0xD83D, 0xDE00)), "\xF0\x9F\x98\x80");
    EXPECT_EQ(ToUtf8(Pair(0xDBFF, 0xDFFF)), "\xF4\x8F\xBF\xBF");
}

TEST(ToUtf8, ReplacesUnpairedSurrogates) {
    EXPECT_EQ(ToUtf8(Pair(0xD83D, L'a')),
              "\xEF\xBF\xBD"
              "a");
    EXPECT_EQ(ToUtf8(Pair(L'a', 0xD83D)), "a\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(Pair(0xDE00, 0xD83D)), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(Pair(0xD83D, 0xD83D) + Pair(0xDE00, L'z')), "\xEF\xBF\xBD\xF0\x9F\x98\x80z");
}

}  // namespace
}  // namespace ferry::base
