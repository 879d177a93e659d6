// The block of fields in which the host hands over its selection.
#include "hostlink/host_block.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/utf16.h"

namespace ferry::hostlink {
namespace {

using namespace std::string_view_literals;

struct Parsed {
    std::wstring CurrentDir;
    std::wstring Option;
    std::vector<std::wstring> Items;
    std::vector<std::wstring> Folders;
};

std::vector<std::wstring> TextsOf(const base::TextList& list) {
    return {list.begin(), list.end()};
}

Parsed ParseUpTo(std::wstring& block, std::size_t bound) {
    std::wstring currentDir;
    std::wstring option;
    base::TextList items;
    base::TextList folders;
    ParseHostBlock(block, bound, {currentDir, option, items, folders});
    return {currentDir, option, TextsOf(items), TextsOf(folders)};
}

Parsed Parse(std::wstring_view units) {
    std::wstring block(units);
    return ParseUpTo(block, block.size() * 2);
}

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::wstring_view kExample = L"2\t1\tC:\\Work\t\tC:\\Work\\a.txt\tC:\\Work\\b\tD:\\Backup\t\0"sv;

TEST(HostBlock, SendsEachFieldToItsPlace) {
    const Parsed parsed = Parse(kExample);
    EXPECT_EQ(parsed.CurrentDir, L"C:\\Work");
    EXPECT_EQ(parsed.Option, L"");
    EXPECT_THAT(parsed.Items, ElementsAre(L"C:\\Work\\a.txt", L"C:\\Work\\b"));
    EXPECT_THAT(parsed.Folders, ElementsAre(L"D:\\Backup"));
}

TEST(HostBlock, YieldsNothingFromFourEmptyOrZeroFields) {
    const Parsed parsed = Parse(L"0\t0\t\t\t\0"sv);
    EXPECT_EQ(parsed.CurrentDir, L"");
    EXPECT_EQ(parsed.Option, L"");
    EXPECT_THAT(parsed.Items, IsEmpty());
    EXPECT_THAT(parsed.Folders, IsEmpty());
}

TEST(HostBlock, LosesALastFieldWithoutItsTab) {
    EXPECT_THAT(Parse(L"2\t0\td\to\tone\ttwo\0"sv).Items, ElementsAre(L"one"));
    EXPECT_THAT(Parse(L"2\t0\td\to\tone\ttwo").Items, ElementsAre(L"one"));
    EXPECT_EQ(Parse(L"0\t0\td\toption").Option, L"");
}

TEST(HostBlock, EndsAtTheFirstNul) {
    EXPECT_THAT(Parse(L"3\t0\td\to\tone\t\0two\tthree\t"sv).Items, ElementsAre(L"one"));
    EXPECT_THAT(Parse(L"3\t0\td\to\tone\ttw\0o\tthree\t"sv).Items, ElementsAre(L"one"));
    EXPECT_THAT(Parse(L"\0003\t0\td\to\tone\t"sv).Items, IsEmpty());
}

TEST(HostBlock, GivesShorterListsWhenTheCountsPromiseMore) {
    const Parsed parsed = Parse(L"5\t5\td\to\tone\ttwo\t\0"sv);
    EXPECT_THAT(parsed.Items, ElementsAre(L"one", L"two"));
    EXPECT_THAT(parsed.Folders, IsEmpty());
}

TEST(HostBlock, IgnoresFieldsBeyondTheCounts) {
    const Parsed parsed = Parse(L"1\t1\td\to\tone\tfolder\textra\tmore\t\0"sv);
    EXPECT_THAT(parsed.Items, ElementsAre(L"one"));
    EXPECT_THAT(parsed.Folders, ElementsAre(L"folder"));
}

TEST(HostBlock, BearsAnyCounts) {
    EXPECT_THAT(Parse(L"2147483647\t2147483647\td\to\tone\t\0"sv).Items, ElementsAre(L"one"));
    EXPECT_THAT(Parse(L"99999999999\t-99999999999\td\to\tone\t\0"sv).Items, ElementsAre(L"one"));
    EXPECT_THAT(Parse(L"x\ty\td\to\tone\t\0"sv).Items, IsEmpty());
    EXPECT_THAT(Parse(L"1x\t1\td\to\tone\ttwo\t\0"sv).Items, ElementsAre(L"one"));
}

TEST(HostBlock, TakesANegativeItemCountOffTheFolderCount) {
    const Parsed parsed = Parse(L"-2\t5\td\to\tone\ttwo\tthree\tfour\t\0"sv);
    EXPECT_THAT(parsed.Items, IsEmpty());
    EXPECT_THAT(parsed.Folders, ElementsAre(L"one", L"two", L"three"));
    EXPECT_THAT(Parse(L"-2147483648\t2147483647\td\to\tone\t\0"sv).Folders, IsEmpty());
}

TEST(HostBlock, KeepsEmptyFieldsInTheLists) {
    EXPECT_THAT(Parse(L"3\t0\td\to\tone\t\tthree\t\0"sv).Items, ElementsAre(L"one", L"", L"three"));
}

TEST(HostBlock, ReadsNothingAtOrBeyondTheBound) {
    const std::wstring whole(kExample);
    for (std::size_t bound = 0; bound <= whole.size(); ++bound) {
        std::wstring bounded = whole;
        std::wstring cut = whole.substr(0, bound);
        const Parsed expected = ParseUpTo(cut, cut.size());
        const Parsed parsed = ParseUpTo(bounded, bound);
        EXPECT_EQ(parsed.Items, expected.Items) << bound;
        EXPECT_EQ(parsed.Folders, expected.Folders) << bound;
        EXPECT_EQ(bounded.substr(bound), whole.substr(bound)) << bound;
    }
}

TEST(HostBlock, TakesTheBoundForAnIndexWithinTheBuffer) {
    std::wstring block(kExample);
    EXPECT_THAT(ParseUpTo(block, static_cast<std::size_t>(-1)).Folders, ElementsAre(L"D:\\Backup"));
    const std::size_t lastTab = kExample.size() - 2;
    block = kExample;
    EXPECT_THAT(ParseUpTo(block, lastTab).Folders, IsEmpty());
    block = kExample;
    EXPECT_THAT(ParseUpTo(block, lastTab + 1).Folders, ElementsAre(L"D:\\Backup"));
}

TEST(HostBlock, CanBeReadOnlyOnceSinceItsTabsBecomeNuls) {
    std::wstring block(kExample);
    ParseUpTo(block, block.size());
    std::wstring expected(kExample);
    for (wchar_t& unit : expected) {
        unit = unit == L'\t' ? L'\0' : unit;
    }
    EXPECT_EQ(block, expected);
    EXPECT_THAT(ParseUpTo(block, block.size()).Items, IsEmpty());
}

TEST(HostBlock, OverwritesTheTabsOfIgnoredFieldsToo) {
    std::wstring block = L"0\t0\t\t\textra\t";
    ParseUpTo(block, block.size());
    EXPECT_EQ(block.find(L'\t'), std::wstring::npos);
}

TEST(HostBlock, TakesAnEmptyBufferForAnEmptyBlock) {
    std::wstring empty;
    EXPECT_THAT(ParseUpTo(empty, 100).Items, IsEmpty());
}

TEST(HostBlock, AppendsToTheListsAndReplacesTheTexts) {
    std::wstring currentDir = L"old";
    std::wstring option = L"old";
    base::TextList items;
    items.Append(L"first");
    base::TextList folders;
    folders.Append(L"tab");
    std::wstring block = L"1\t1\tnew\t\tsecond\tother\t";
    ParseHostBlock(block, block.size(), {currentDir, option, items, folders});
    EXPECT_EQ(currentDir, L"new");
    EXPECT_EQ(option, L"");
    EXPECT_THAT(TextsOf(items), ElementsAre(L"first", L"second"));
    EXPECT_THAT(TextsOf(folders), ElementsAre(L"tab", L"other"));
}

TEST(HostBlock, FindsMarksAtEveryDistanceAndPassesOverOtherControlUnits) {
    for (std::size_t length = 0; length < 70; ++length) {
        std::wstring text(length, L'x');
        if (length > 2) {
            text[length / 2] = L'\x1';
            text[length - 1] = L'\x8';
        }
        std::wstring block = L"2\t0\t\t\t" + text + L"\t" + text + L"\t";
        EXPECT_THAT(ParseUpTo(block, block.size()).Items, ElementsAre(text, text)) << length;
    }
}

TEST(HostBlock, EndsAtANulAtEveryDistanceFromTheNextTab) {
    for (std::size_t distance = 0; distance < 70; ++distance) {
        const std::wstring before(distance, L'x');
        std::wstring block = L"9\t0\t\t\t" + before + L"\t" + before;
        block.push_back(L'\0');
        block += std::wstring(50, L'y') + L"\tnot seen\t";
        EXPECT_THAT(ParseUpTo(block, block.size()).Items, ElementsAre(before)) << distance;
    }
}

TEST(TextFromPayload, EndsAtTheFirstNulOrWithThePayload) {
    EXPECT_EQ(TextFromPayload(base::BytesFromUnits(L"C:\\Dest\0rest"sv)), L"C:\\Dest");
    EXPECT_EQ(TextFromPayload(base::BytesFromUnits(L"C:\\Dest\0rest\0"sv)), L"C:\\Dest");
    EXPECT_EQ(TextFromPayload(base::BytesFromUnits(L"C:\\Dest")), L"C:\\Dest");
    EXPECT_EQ(TextFromPayload({}), L"");
    auto odd = base::BytesFromUnits(L"ab");
    odd.push_back(std::byte{'c'});
    EXPECT_EQ(TextFromPayload(odd), L"ab");
}

}  // namespace
}  // namespace ferry::hostlink
