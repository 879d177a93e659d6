// Searches of short and long parts, beside the library's own.
#include "base/text_search.h"

#include <gtest/gtest.h>

#include <random>

#include "base/text.h"

namespace ferry::base {
namespace {

/// A text of two letters only, so that parts nearly match everywhere.
std::wstring TwoLetters(std::mt19937& random, std::size_t length) {
    std::wstring text(length, L'a');
    for (wchar_t& unit : text) {
        unit = random() % 8 == 0 ? L'b' : L'a';
    }
    return text;
}

TEST(TextSearch, FindsWhatThePlainSearchFinds) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        const std::wstring text = TwoLetters(random, 200);
        const std::size_t length = 1 + random() % 60;
        const std::wstring part =
            round % 2 == 0 ? text.substr(random() % 140, length) : TwoLetters(random, length);
        const std::size_t from = random() % 210;
        ASSERT_EQ(TextSearch(part).Find(text, from), text.find(part, from)) << round;
    }
}

TEST(TextSearch, TakesTimeThatGrowsWithTheLengthsAlone) {
    // Compared unit by unit at each place these would take days.
    const std::wstring text(4'000'000, L'a');
    const std::wstring part = std::wstring(2'000'000, L'a') + L'b';
    EXPECT_EQ(TextSearch(part).Find(text, 0), std::wstring::npos);
}

TEST(ReplaceAllWithin, ReplacesAsThePlainFunctionDoes) {
    std::mt19937 random(8);
    for (int round = 0; round < 500; ++round) {
        std::wstring text = TwoLetters(random, 300);
        const std::wstring from(1 + random() % 40, L'a');
        const std::wstring to(random() % 4, L'a');
        const std::wstring expected = ReplaceAll(text, from, to);
        ASSERT_TRUE(ReplaceAllWithin(text, from, to, 2000));
        ASSERT_EQ(text, expected);
    }
}

TEST(ReplaceAllWithin, LeavesATextThatWouldGetTooLong) {
    std::wstring text = L"xax";
    EXPECT_FALSE(ReplaceAllWithin(text, L"x", L"yyy", 6));
    EXPECT_EQ(text, L"xax");
    EXPECT_TRUE(ReplaceAllWithin(text, L"x", L"yyy", 7));
    EXPECT_EQ(text, L"yyyayyy");
    EXPECT_TRUE(ReplaceAllWithin(text, L"", L"z", 7));
    EXPECT_TRUE(ReplaceAllWithin(text, L"y", L"", 0 + 1));
    EXPECT_EQ(text, L"a");
    EXPECT_FALSE(ReplaceAllWithin(text, L"a", L"b", 0));
}

}  // namespace
}  // namespace ferry::base
