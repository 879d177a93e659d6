#include "completion/type_ahead.h"

#include <gtest/gtest.h>

#include <array>

namespace ferry::completion {
namespace {

constexpr unsigned kDownKey = 0x28;
constexpr unsigned kShiftKey = 0x10;
constexpr unsigned kKeypad0 = 0x60;
constexpr unsigned kKeypad9 = 0x69;

TEST(TypeAhead, LettersAndDigitsBuildTheText) {
    TypeAhead typing;
    EXPECT_TRUE(typing.Press('A', 100));
    EXPECT_TRUE(typing.Press('Z', 200));
    EXPECT_TRUE(typing.Press('0', 300));
    EXPECT_TRUE(typing.Press('9', 400));
    EXPECT_EQ(typing.Text(), L"AZ09");
    EXPECT_FALSE(typing.StepsOn());
}

TEST(TypeAhead, TheDigitsOfTheKeypadAreDigits) {
    TypeAhead typing;
    for (unsigned key = kKeypad0; key <= kKeypad9; ++key) {
        EXPECT_TRUE(typing.Press(key, 100));
    }
    EXPECT_EQ(typing.Text(), L"0123456789");
}

TEST(TypeAhead, ADigitIsTheSameOnBothPartsOfTheKeyboard) {
    TypeAhead typing;
    typing.Press('9', 100);
    typing.Press(kKeypad9, 200);
    EXPECT_EQ(typing.Text(), L"9");
    EXPECT_TRUE(typing.StepsOn());
}

TEST(TypeAhead, APauseOfExactlyOneSecondGoesOn) {
    TypeAhead typing;
    typing.Press('A', 100);
    typing.Press('B', 1100);
    EXPECT_EQ(typing.Text(), L"AB");
}

TEST(TypeAhead, ALongerPauseBeginsAnew) {
    TypeAhead typing;
    typing.Press('A', 100);
    typing.Press('B', 1101);
    EXPECT_EQ(typing.Text(), L"B");
}

TEST(TypeAhead, ThePauseIsMeasuredBetweenKeysAndNotFromTheFirst) {
    TypeAhead typing;
    typing.Press('A', 0);
    typing.Press('B', 900);
    typing.Press('C', 1800);
    EXPECT_EQ(typing.Text(), L"ABC");
}

TEST(TypeAhead, TheClockMayWrapAround) {
    TypeAhead typing;
    typing.Press('A', 0xFFFFFF00U);
    typing.Press('B', 0xFFFFFFF0U);
    typing.Press('C', 0x00000010U);
    EXPECT_EQ(typing.Text(), L"ABC");
    typing.Press('D', 0x00000010U + TypeAhead::kPauseMs + 1);
    EXPECT_EQ(typing.Text(), L"D");
}

TEST(TypeAhead, AnyOtherKeyEmptiesTheText) {
    for (const unsigned key :
         std::array{kDownKey, kShiftKey, kKeypad0 - 1, kKeypad9 + 1, 0U, 0xE5U, 0x40U, 0x5BU, 0x2FU, 0x3AU}) {
        TypeAhead typing;
        typing.Press('A', 100);
        EXPECT_FALSE(typing.Press(key, 200)) << key;
        EXPECT_EQ(typing.Text(), L"") << key;
        typing.Press('B', 300);
        EXPECT_EQ(typing.Text(), L"B") << key;
    }
}

TEST(TypeAhead, TheSameKeyAgainStepsOn) {
    TypeAhead typing;
    typing.Press('A', 100);
    EXPECT_FALSE(typing.StepsOn());
    for (std::uint32_t time = 200; time < 700; time += 100) {
        EXPECT_TRUE(typing.Press('A', time));
        EXPECT_EQ(typing.Text(), L"A");
        EXPECT_TRUE(typing.StepsOn());
    }
}

TEST(TypeAhead, AnotherKeyAfterSteppingOnExtendsTheText) {
    TypeAhead typing;
    typing.Press('A', 100);
    typing.Press('A', 200);
    typing.Press('B', 300);
    EXPECT_EQ(typing.Text(), L"AB");
    EXPECT_FALSE(typing.StepsOn());
}

TEST(TypeAhead, ARepeatedKeyInALongerTextIsPartOfIt) {
    TypeAhead typing;
    typing.Press('A', 100);
    typing.Press('B', 200);
    typing.Press('B', 300);
    EXPECT_EQ(typing.Text(), L"ABB");
    EXPECT_FALSE(typing.StepsOn());
    typing.Press('A', 400);
    EXPECT_EQ(typing.Text(), L"ABBA");
    EXPECT_FALSE(typing.StepsOn());
}

TEST(TypeAhead, TheSameKeyAfterAPauseIsAFirstKey) {
    TypeAhead typing;
    typing.Press('A', 100);
    typing.Press('A', 1200);
    EXPECT_EQ(typing.Text(), L"A");
    EXPECT_FALSE(typing.StepsOn());
}

TEST(BeginsWith, LooksAtTheBeginningWhateverTheCase) {
    EXPECT_TRUE(BeginsWith(L"readme.txt", L"READ"));
    EXPECT_TRUE(BeginsWith(L"ReadMe.txt", L"READ"));
    EXPECT_TRUE(BeginsWith(L"2024", L"20"));
    EXPECT_TRUE(BeginsWith(L"a", L"A"));
    EXPECT_FALSE(BeginsWith(L"my readme", L"READ"));
    EXPECT_FALSE(BeginsWith(L"rea", L"READ"));
    EXPECT_FALSE(BeginsWith(L"", L"A"));
    EXPECT_FALSE(BeginsWith(L"ａ", L"A")) << "a fullwidth letter is another character";
    EXPECT_FALSE(BeginsWith(L"{", L"[")) << "only letters have a case";
}

std::optional<std::size_t> FindNumber(std::size_t start, std::size_t count, std::size_t wanted) {
    return FindFrom(start, count, [=](std::size_t index) { return index == wanted; });
}

TEST(FindFrom, LooksAtTheStartFirstAndFromTheTopAfterTheEnd) {
    std::wstring order;
    EXPECT_EQ(FindFrom(2, 4,
                       [&](std::size_t index) {
                           order += static_cast<wchar_t>(L'0' + index);
                           return false;
                       }),
              std::nullopt);
    EXPECT_EQ(order, L"2301");
}

TEST(FindFrom, FindsTheFirstMatch) {
    EXPECT_EQ(FindNumber(0, 4, 3), 3U);
    EXPECT_EQ(FindNumber(3, 4, 0), 0U);
    EXPECT_EQ(FindNumber(1, 4, 1), 1U);
}

TEST(FindFrom, BehindTheEndBeginsAtTheTop) {
    EXPECT_EQ(FindNumber(4, 4, 0), 0U);
    EXPECT_EQ(FindFrom(6, 4, [](std::size_t index) { return index % 2 == 1; }), 1U);
    EXPECT_EQ(FindFrom(6, 4, [](std::size_t) { return true; }), 0U);
    EXPECT_EQ(FindNumber(static_cast<std::size_t>(-1), 4, 3), 3U);
}

TEST(FindFrom, AnEmptyListHasNoMatch) {
    EXPECT_EQ(FindNumber(0, 0, 0), std::nullopt);
}

}  // namespace
}  // namespace ferry::completion
