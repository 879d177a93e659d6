// The contract of the folder lookup.
#include "core/completion/lookup_contract.h"

#include <algorithm>

#include "base/case_order.h"
#include "completion/candidates.h"

namespace ferry::completion::contract {

LookupContract::Names LookupContract::Find(const std::wstring& mask) {
    Names names;
    Lookup().Search(Folder() + mask, [&](const Match& match) {
        names.push_back(std::wstring(match.Name) + (match.IsFolder ? L"\\" : L""));
        return true;
    });
    std::ranges::sort(names);
    return names;
}

namespace {

constexpr std::uint32_t kDirectory = 0x10;
constexpr std::uint32_t kMissing = 0xFFFFFFFF;

TEST_P(LookupContract, EverythingMeansTheDotsToo) {
    EXPECT_EQ(Find(L"*"), (Names{L"..\\", L".\\"}));
    AtPlace().AddFolder(L"folder");
    AtPlace().AddFile(L"file");
    EXPECT_EQ(Find(L"*"), (Names{L"..\\", L".\\", L"file", L"folder\\"}));
}

TEST_P(LookupContract, APartBetweenTwoStarsIsFoundAnywhereInANameWhateverItsCase) {
    for (const wchar_t* const name : {L"Windows", L"my window", L"other", L"wind"})
        AtPlace().AddFolder(name);
    AtPlace().AddFile(L"REWIND.txt");
    EXPECT_EQ(Find(L"*wind*"), (Names{L"REWIND.txt", L"Windows\\", L"my window\\", L"wind\\"}));
    EXPECT_EQ(Find(L"*WINDOW*"), (Names{L"Windows\\", L"my window\\"}));
    EXPECT_EQ(Find(L"*.txt*"), (Names{L"REWIND.txt"}));
    EXPECT_EQ(Find(L"*none*"), Names{});
}

TEST_P(LookupContract, APartBeforeOneStarIsFoundAtTheBeginningOnly) {
    AtPlace().AddFolder(L"Windows");
    AtPlace().AddFolder(L"my window");
    AtPlace().AddFile(L"w");
    EXPECT_EQ(Find(L"w*"), (Names{L"Windows\\", L"w"}));
    EXPECT_EQ(Find(L"夏*"), Names{});
}

TEST_P(LookupContract, NamesOfAnyAlphabetAreFoundAndGivenAsTheyAreSpelled) {
    AtPlace().AddFolder(L"夏休み ２０２４");
    AtPlace().AddFile(L"Ｎｏｔｅ é");
    EXPECT_EQ(Find(L"*休み*"), (Names{L"夏休み ２０２４\\"}));
    EXPECT_EQ(Find(L"*ｎＯＴＥ*"), (Names{L"Ｎｏｔｅ é"}));
}

TEST_P(LookupContract, AStarOrAQuestionMarkThatWasTypedStandsForOtherText) {
    AtPlace().AddFile(L"abc.txt");
    AtPlace().AddFile(L"axc.txt");
    AtPlace().AddFile(L"ac.txt");
    EXPECT_EQ(Find(L"*a?c*"), (Names{L"abc.txt", L"axc.txt"}));
    EXPECT_EQ(Find(L"*a*c*"), (Names{L"abc.txt", L"ac.txt", L"axc.txt"}));
}

TEST_P(LookupContract, ASearchEndsWhenItsVisitorWantsNoMore) {
    for (const wchar_t* const name : {L"a1", L"a2", L"a3", L"a4"})
        AtPlace().AddFolder(name);
    int visits = 0;
    Lookup().Search(Folder() + L"a*", [&](const Match&) { return ++visits < 3; });
    EXPECT_EQ(visits, 3);
    EXPECT_EQ(Find(L"a*").size(), 4u) << "the next search begins anew";
}

TEST_P(LookupContract, NothingIsFoundWhereThereIsNoFolder) {
    AtPlace().AddFile(L"file");
    AtPlace().AddFolder(L"folder");
    EXPECT_EQ(Find(L"missing\\*"), Names{});
    EXPECT_EQ(Find(L"missing\\*deeper*"), Names{});
    EXPECT_EQ(Find(L"file\\*"), Names{});
}

TEST_P(LookupContract, AttributesTellFoldersFromFilesAndFromNothing) {
    AtPlace().AddFile(L"File");
    AtPlace().AddFolder(L"Folder");
    EXPECT_EQ(Lookup().Attributes(Folder() + L"FILE") & kDirectory, 0u);
    EXPECT_EQ(Lookup().Attributes(Folder() + L"folder") & kDirectory, kDirectory);
    EXPECT_EQ(Lookup().Attributes(Folder()) & kDirectory, kDirectory);
    EXPECT_NE(Lookup().Attributes(Folder()), kMissing);
    EXPECT_EQ(Lookup().Attributes(Folder() + L"missing"), kMissing);
}

TEST_P(LookupContract, CandidatesAreTheMatchesWithoutTheDots) {
    AtPlace().AddFolder(L"My Windows");
    AtPlace().AddFolder(L"windmill");
    AtPlace().AddFolder(L"other");
    AtPlace().AddFile(L"window.txt");
    const auto paths = [this](const Names& names) {
        Names all;
        for (const std::wstring& name : names)
            all.push_back(Folder() + name);
        return all;
    };
    EXPECT_EQ(FindCandidates(Lookup(), Folder() + L"wind", true), paths({L"My Windows\\", L"windmill\\"}));
    EXPECT_EQ(FindCandidates(Lookup(), Folder() + L"w", false), paths({L"windmill\\", L"window.txt"}));
    EXPECT_EQ(FindCandidates(Lookup(), Folder(), true), paths({L"My Windows\\", L"other\\", L"windmill\\"}));
}

}  // namespace
}  // namespace ferry::completion::contract
