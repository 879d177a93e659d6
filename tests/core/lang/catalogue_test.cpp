// Message texts by number.
#include "lang/catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/line_reader.h"
#include "core/lang/heard_speech.h"
#include "core/lang/message_text.h"

namespace ferry::lang {
namespace {

using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

CatalogueEntries Parse(std::wstring_view text) {
    CatalogueEntries entries;
    ParseCatalogue(text, entries);
    return entries;
}

auto Entry(int number, const wchar_t* text) {
    return Pair(static_cast<std::uint16_t>(number), std::wstring(text));
}

TEST(ParseCatalogue, ReadsNumbersAndTexts) {
    EXPECT_THAT(Parse(L"\xFEFF"
                      L"62304\tFirst\r\n62306\tSecond text\r\n"),
                UnorderedElementsAre(Entry(62304, L"First"), Entry(62306, L"Second text")));
}

TEST(ParseCatalogue, TurnsTheEscapeIntoALineBreak) {
    EXPECT_THAT(Parse(L"62325\tFirst\\nSecond\r\n"), UnorderedElementsAre(Entry(62325, L"First\nSecond")));
}

TEST(ParseCatalogue, LosesALineBreakAtTheEndOfAText) {
    EXPECT_THAT(Parse(L"1\tText\\n\r\n"), UnorderedElementsAre(Entry(1, L"Text")));
}

TEST(ParseCatalogue, IgnoresLinesThatAreNoEntry) {
    EXPECT_THAT(Parse(L"1\ta\tb\r\n\r\n2\r\nno entry\r\n3\t\r\n\t\t\r\n4\tkept\r\n"),
                UnorderedElementsAre(Entry(4, L"kept")));
}

TEST(ParseCatalogue, SkipsCommentsAlsoWhenTheyLookLikeEntries) {
    EXPECT_THAT(Parse(L"//1\ta\r\n  // 2\tb\r\n/3\tc\r\n"), UnorderedElementsAre(Entry(0, L"c")));
}

TEST(ParseCatalogue, StopsAtTheEndLine) {
    EXPECT_THAT(Parse(L"1\ta\r\nEOF\r\n2\tb\r\n"), UnorderedElementsAre(Entry(1, L"a")));
    EXPECT_THAT(Parse(L"1\ta\r\n EOF \r\n2\tb\r\n"), UnorderedElementsAre(Entry(1, L"a")));
    EXPECT_THAT(Parse(L"eof\r\nEOF2\r\nEO\r\n2\tb\r\n"), UnorderedElementsAre(Entry(2, L"b")));
}

TEST(ParseCatalogue, KeepsTheLowSixteenBitsOfANumber) {
    EXPECT_THAT(Parse(L"65537\ta\r\n131074\tb\r\n-1\tc\r\n"),
                UnorderedElementsAre(Entry(1, L"a"), Entry(2, L"b"), Entry(65535, L"c")));
}

TEST(ParseCatalogue, LetsTheLaterTextWin) {
    EXPECT_THAT(Parse(L"1\told\r\n1\tnew\r\n"), UnorderedElementsAre(Entry(1, L"new")));
}

TEST(ParseCatalogue, RemovesByteOrderMarksEverywhere) {
    EXPECT_THAT(Parse(L"1\xFEFF\ta\xFEFF"
                      L"b\r\xFEFF\n\xFEFF"
                      L"2\tc\r\n"),
                UnorderedElementsAre(Entry(1, L"ab"), Entry(2, L"c")));
}

TEST(ParseCatalogue, TrimsLinesButNotTheirPieces) {
    EXPECT_THAT(Parse(L"\x3000 1 \t  a b  \r\n"), UnorderedElementsAre(Entry(1, L"  a b")));
}

TEST(ParseCatalogue, ReadsLinesWithABareLineFeedAndALastLineWithoutEnd) {
    EXPECT_THAT(Parse(L"1\ta\n2\tb"), UnorderedElementsAre(Entry(1, L"a"), Entry(2, L"b")));
}

TEST(ParseCatalogue, ReadsTheRestOfAnOverlongLineAsALineOfItsOwn) {
    const std::wstring filler(base::kMaxLineLength - 2, L'x');
    const CatalogueEntries entries = Parse(L"1\t" + filler + L"2\tb\r\n");
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries.at(1), filler);
    EXPECT_EQ(entries.at(2), L"b");
}

TEST(ComposeMessageFilePath, GoesTwoFoldersUpFromTheExecutable) {
    EXPECT_EQ(ComposeMessageFilePath(L"C:\\App\\Command\\Ferry\\Ferry.exe", L".ja-JP"),
              L"C:\\App\\Command\\Ferry\\..\\..\\Lang\\Msg.ja-JP.txt");
}

class CatalogueTest : public testing::Test {
protected:
    test::MessageText file_;
    test::HeardSpeech speech_;
    Catalogue catalogue_{file_, L"C:\\Lang\\Msg.txt", speech_};
};

TEST_F(CatalogueTest, LoadsAtTheFirstFetchAndOnlyOnce) {
    file_.File = L"1\tone\r\n2\ttwo\r\n";
    EXPECT_TRUE(file_.Paths.empty());
    EXPECT_EQ(catalogue_.Fetch(1), L"one");
    EXPECT_EQ(catalogue_.Fetch(2), L"two");
    EXPECT_EQ(catalogue_.Fetch(3), L"No message text.Please update message file.");
    EXPECT_EQ(file_.Paths, std::vector<std::wstring>{L"C:\\Lang\\Msg.txt"});
    EXPECT_TRUE(speech_.Heard.empty());
}

TEST_F(CatalogueTest, TellsThePersonAtEachFetchWhileTheFileIsMissing) {
    const test::HeardSpeech::Said complaint{L"Cannot open message file.\nC:\\Lang\\Msg.txt", Tone::Plain};
    EXPECT_EQ(catalogue_.Fetch(1), kMissingText);
    EXPECT_EQ(catalogue_.Fetch(1), kMissingText);
    EXPECT_THAT(speech_.Heard, testing::ElementsAre(complaint, complaint));
    file_.File = L"1\tone\r\n";
    EXPECT_EQ(catalogue_.Fetch(1), L"one");
    EXPECT_EQ(speech_.Heard.size(), 2u);
}

TEST_F(CatalogueTest, ReadsAgainWhileTheFileHoldsNoEntry) {
    file_.File = L"// nothing yet\r\n";
    EXPECT_EQ(catalogue_.Fetch(1), kMissingText);
    EXPECT_EQ(catalogue_.Fetch(1), kMissingText);
    EXPECT_EQ(file_.Paths.size(), 2u);
    EXPECT_TRUE(speech_.Heard.empty());
}

}  // namespace
}  // namespace ferry::lang
