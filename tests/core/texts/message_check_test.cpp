// What is found in a message file.
#include "texts/message_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ferry::texts {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Finding In(std::size_t line, const wchar_t* what) {
    return {L"Msg.txt", line, what};
}

TEST(UsedNumbers, AreThoseThatASourceGivesNamesTo) {
    UsedNumbers used;
    FindUsedNumbers(
        L"#include <a>\nconstexpr std::uint16_t kMessageA = 62304;\n"
        L"inline constexpr std::uint16_t kB = 5953;\nconstexpr std::uint16_t kSmall = 520;\n"
        L"constexpr int kOther = 62305;\nconstexpr std::uint16_t kSum = 62306 + 1;\n",
        L"a.cpp", used);
    ASSERT_EQ(used.size(), 2U);
    EXPECT_EQ(used.at(62304).File, L"a.cpp");
    EXPECT_EQ(used.at(62304).Line, 2U);
    EXPECT_EQ(used.at(5953).Line, 3U);
}

TEST(CheckMessages, FindsNothingInAGoodFile) {
    EXPECT_THAT(CheckMessages(L"\xFEFF// why\r\n62304\tA\\nB\r\n\r\n5953\tC\r\nEOF\r\nx\r\n", L"Msg.txt",
                              {{std::uint16_t{5953}, {L"a.cpp", 1}}}),
                IsEmpty());
}

TEST(CheckMessages, FindsANumberThatStandsTwice) {
    EXPECT_THAT(CheckMessages(L"1\tA\n// b\n1\tB\n", L"Msg.txt", {}),
                ElementsAre(In(3, L"message 1 stands in line 1 already")));
}

TEST(CheckMessages, FindsLinesWithoutEffectAndTextsThatAreEmpty) {
    EXPECT_THAT(CheckMessages(L"1 A\n2\tB\tC\n", L"Msg.txt", {}),
                ElementsAre(In(1, L"this line has no effect: \"1 A\""),
                            In(2, L"this line has no effect: \"2\tB\tC\"")));
}

TEST(CheckMessages, FindsANumberThatTheProgramUsesAndTheFileLacks) {
    EXPECT_THAT(CheckMessages(L"1\tA\n", L"Msg.txt", {{std::uint16_t{2}, {L"a.cpp", 7}}}),
                ElementsAre(Finding{L"a.cpp", 7, L"message 2 is not in Msg.txt"}));
}

TEST(CompareMessages, FindsNothingInAWholeTranslation) {
    EXPECT_THAT(CompareMessages(L"2\ttwo %1\n1\tone\n", L"Msg.txt", L"1\teins\n2\t%1 zwei\n"), IsEmpty());
}

TEST(CompareMessages, FindsMissingAndSurplusNumbersAndOtherPlaceholders) {
    EXPECT_THAT(CompareMessages(L"2\ttwo\n3\tthree\n", L"Msg.txt", L"1\teins\n2\t%1 zwei\n"),
                ElementsAre(In(1, L"the placeholders of message 2 differ: \"two\""),
                            In(2, L"message 3 is surplus"), In(0, L"message 1 is missing: \"eins\"")));
}

}  // namespace
}  // namespace ferry::texts
