// The contract of the search for entries.
#include "core/files/search_contract.h"

#include <algorithm>

#include "base/case_order.h"

namespace ferry::files::contract {

SearchContract::Names SearchContract::Find(const std::wstring& mask) {
    Names names;
    Search().Search(Folder() + mask, [&](const Match& match) {
        names.push_back(std::wstring(match.Name) + (IsFolder(match.Attributes) ? L"\\" : L""));
        return true;
    });
    std::ranges::sort(names);
    return names;
}

namespace {

TEST_P(SearchContract, EverythingMeansTheDotsToo) {
    EXPECT_EQ(Find(L"*"), (Names{L"..\\", L".\\"}));
    AtPlace().AddFolder(L"folder");
    AtPlace().AddFile(L"file");
    EXPECT_EQ(Find(L"*"), (Names{L"..\\", L".\\", L"file", L"folder\\"}));
}

TEST_P(SearchContract, APartBetweenTwoStarsIsFoundAnywhereInANameWhateverItsCase) {
    for (const wchar_t* const name : {L"Windows", L"my window", L"other", L"wind"})
        AtPlace().AddFolder(name);
    AtPlace().AddFile(L"REWIND.txt");
    EXPECT_EQ(Find(L"*wind*"), (Names{L"REWIND.txt", L"Windows\\", L"my window\\", L"wind\\"}));
    EXPECT_EQ(Find(L"*WINDOW*"), (Names{L"Windows\\", L"my window\\"}));
    EXPECT_EQ(Find(L"*.txt*"), (Names{L"REWIND.txt"}));
    EXPECT_EQ(Find(L"*none*"), Names{});
}

TEST_P(SearchContract, APartBeforeOneStarIsFoundAtTheBeginningOnly) {
    AtPlace().AddFolder(L"Windows");
    AtPlace().AddFolder(L"my window");
    AtPlace().AddFile(L"w");
    EXPECT_EQ(Find(L"w*"), (Names{L"Windows\\", L"w"}));
    EXPECT_EQ(Find(L"夏*"), Names{});
}

TEST_P(SearchContract, NamesOfAnyAlphabetAreFoundAndGivenAsTheyAreSpelled) {
    AtPlace().AddFolder(L"夏休み ２０２４");
    AtPlace().AddFile(L"Ｎｏｔｅ é");
    EXPECT_EQ(Find(L"*休み*"), (Names{L"夏休み ２０２４\\"}));
    EXPECT_EQ(Find(L"*ｎＯＴＥ*"), (Names{L"Ｎｏｔｅ é"}));
}

TEST_P(SearchContract, AStarOrAQuestionMarkThatWasTypedStandsForOtherText) {
    AtPlace().AddFile(L"abc.txt");
    AtPlace().AddFile(L"axc.txt");
    AtPlace().AddFile(L"ac.txt");
    EXPECT_EQ(Find(L"*a?c*"), (Names{L"abc.txt", L"axc.txt"}));
    EXPECT_EQ(Find(L"*a*c*"), (Names{L"abc.txt", L"ac.txt", L"axc.txt"}));
}

TEST_P(SearchContract, ASearchEndsWhenItsVisitorWantsNoMore) {
    for (const wchar_t* const name : {L"a1", L"a2", L"a3", L"a4"})
        AtPlace().AddFolder(name);
    int visits = 0;
    Search().Search(Folder() + L"a*", [&](const Match&) { return ++visits < 3; });
    EXPECT_EQ(visits, 3);
    EXPECT_EQ(Find(L"a*").size(), 4u) << "the next search begins anew";
}

TEST_P(SearchContract, AMatchHasTheTimesOfItsItem) {
    constexpr std::uint64_t kSecond = 10'000'000;
    constexpr std::uint64_t kSomeTime = 132'539'328'000'000'000;
    AtPlace().AddFile(L"file");
    AtPlace().SetTimes(L"file", {0, kSomeTime + 7 * kSecond, kSomeTime});
    int visits = 0;
    Search().Search(Folder() + L"file", [&](const Match& match) {
        EXPECT_EQ(match.Times.LastWrite, kSomeTime);
        EXPECT_EQ(match.Times.LastAccess, kSomeTime + 7 * kSecond);
        ++visits;
        return true;
    });
    EXPECT_EQ(visits, 1);
}

TEST_P(SearchContract, TellsASearchThatFailedFromOneThatFoundNothing) {
    AtPlace().AddFile(L"file");
    AtPlace().AddFolder(L"folder");
    const auto all = [](const Match&) { return true; };
    for (const wchar_t* const pattern : {L"*", L"file", L"none", L"*none*"})
        EXPECT_EQ(Search().Search(Folder() + pattern, all), 0u)
            << testing::PrintToString(std::wstring(pattern));
    EXPECT_EQ(Search().Search(Folder() + L"*", [](const Match&) { return false; }), 0u);
    EXPECT_NE(Search().Search(Folder() + L"missing\\*", all), 0u);
}

TEST_P(SearchContract, NothingIsFoundWhereThereIsNoFolder) {
    AtPlace().AddFile(L"file");
    AtPlace().AddFolder(L"folder");
    EXPECT_EQ(Find(L"missing\\*"), Names{});
    EXPECT_EQ(Find(L"missing\\*deeper*"), Names{});
    EXPECT_EQ(Find(L"file\\*"), Names{});
}

}  // namespace
}  // namespace ferry::files::contract
