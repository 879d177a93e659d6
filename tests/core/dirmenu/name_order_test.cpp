// The order of names in a menu.
#include "dirmenu/name_order.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ferry::dirmenu {
namespace {

using Names = std::vector<std::wstring>;

/// `sorted` in an order of its own, sorted again.
Names SortedAnew(Names names) {
    std::ranges::reverse(names);
    SortNames(names);
    return names;
}

TEST(NameOrder, CountsDigitsThatLieTogetherAsOneNumber) {
    for (const Names& sorted : {
             Names{L"1 mail", L"2 backup", L"10 archive"},
             Names{L"a2b3", L"a2b20", L"a10b1"},
             Names{L"v1.9", L"v1.10", L"v1.10.1"},
             Names{L"9", L"10", L"99999999999999999999", L"100000000000000000000"},
             Names{L"x", L"x0", L"x1"},
         }) {
        EXPECT_EQ(SortedAnew(sorted), sorted);
    }
}

TEST(NameOrder, DoesNotTellCapitalsFromSmallLetters) {
    for (const Names& sorted : {
             Names{L"Alpha", L"beta", L"Gamma"}, Names{L"abc", L"ABCD", L"abcde"},
             Names{L"\xC4rger", L"\xE4rgern"},  // a capital and a small letter with an umlaut
             Names{L"\xFF21 1", L"\xFF41 2"},   // the same of full-width letters
         }) {
        EXPECT_EQ(SortedAnew(sorted), sorted);
    }
}

TEST(NameOrder, PutsSignsBeforeDigitsAndDigitsBeforeLettersAndThoseBeforeJapanese) {
    const Names sorted = {L"!now", L"(old)", L"1", L"_a", L"a", L"\x3042", L"\x30A2", L"\x65E5\x672C"};
    EXPECT_EQ(SortedAnew(sorted), sorted);
}

TEST(NameOrder, PutsABeginningBeforeWhatGoesOn) {
    const Names sorted = {L"", L"a", L"a b", L"a1", L"ab"};
    EXPECT_EQ(SortedAnew(sorted), sorted);
}

TEST(NameOrder, IsTheSameWhateverWasFoundFirst) {
    // Only the units themselves tell some of these apart.
    const Names sorted = {L"001", L"01", L"1", L"A", L"a", L"a0", L"a00"};
    Names names = sorted;
    do {
        Names found = names;
        SortNames(found);
        ASSERT_EQ(found, sorted);
    } while (std::ranges::next_permutation(names).found);
}

TEST(NameOrder, IsAnOrder) {
    const Names names = {L"",   L"0",  L"00",  L"01",  L"1",   L"1a",  L"01A", L"10",  L"2",    L"a",
                         L"A",  L"a1", L"A01", L"a 1", L"a-1", L"a_1", L"a10", L"a2",  L"\xE4", L"\xC4",
                         L"/1", L":1", L"1:",  L"1/",  L"1 2", L"12",  L"1b2", L"1b1", L"1B02", L"\x3042"};
    for (const std::wstring& one : names) {
        EXPECT_FALSE(ComesBefore(one, one));
        for (const std::wstring& other : names) {
            EXPECT_EQ(ComesBefore(one, other), one != other && !ComesBefore(other, one));
            for (const std::wstring& third : names) {
                if (ComesBefore(one, other) && ComesBefore(other, third)) {
                    EXPECT_TRUE(ComesBefore(one, third));
                }
            }
        }
    }
}

}  // namespace
}  // namespace ferry::dirmenu
