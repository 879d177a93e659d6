// Reading lines as the C library does.
#include "base/line_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace ferry::base {
namespace {

using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::wstring> LinesOf(std::wstring_view text) {
    std::vector<std::wstring> lines;
    LineReader reader(text);
    for (std::wstring_view line; reader.Next(line);) {
        lines.emplace_back(line);
    }
    return lines;
}

TEST(LineReader, FindsNoLineInAnEmptyText) {
    EXPECT_THAT(LinesOf(L""), IsEmpty());
}

TEST(LineReader, KeepsTheLineEndWithEachLine) {
    EXPECT_THAT(LinesOf(L"a\r\nb\n\nc"), ElementsAre(L"a\r\n", L"b\n", L"\n", L"c"));
}

TEST(LineReader, FindsNoFurtherLineAfterALastLineFeed) {
    EXPECT_THAT(LinesOf(L"a\r\n"), ElementsAre(L"a\r\n"));
}

TEST(LineReader, TakesALoneCarriageReturnAsText) {
    EXPECT_THAT(LinesOf(L"a\rb\n"), ElementsAre(L"a\rb\n"));
}

TEST(LineReader, HidesTheRestOfALineAfterANul) {
    EXPECT_THAT(LinesOf(L"ab\0cd\nef\n"sv), ElementsAre(L"ab", L"ef\n"));
    EXPECT_THAT(LinesOf(L"\0cd\nef"sv), ElementsAre(L"", L"ef"));
}

TEST(LineReader, GivesALineOfTheGreatestLengthInOneRead) {
    const std::wstring longest = std::wstring(kMaxLineLength - 1, L'x') + L"\n";
    EXPECT_THAT(LinesOf(longest + L"y"), ElementsAre(longest, L"y"));
}

TEST(LineReader, GivesALongerLineInSeveralReads) {
    const std::wstring full(kMaxLineLength, L'x');
    EXPECT_THAT(LinesOf(full + L"\ny"), ElementsAre(full, L"\n", L"y"));
    EXPECT_THAT(LinesOf(full + full + L"z\n"), ElementsAre(full, full, L"z\n"));
}

TEST(LineReader, StaysAtTheEnd) {
    LineReader reader(L"a");
    std::wstring_view line;
    EXPECT_TRUE(reader.Next(line));
    EXPECT_FALSE(reader.Next(line));
    EXPECT_FALSE(reader.Next(line));
}

}  // namespace
}  // namespace ferry::base
