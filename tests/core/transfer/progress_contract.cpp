// The contract of the progress view.
#include "core/transfer/progress_contract.h"

namespace ferry::transfer::contract {
namespace {

TEST_P(ProgressContract, NothingStopsARunByItself) {
    for (int item = 0; item < 3; ++item)
        EXPECT_FALSE(View().DrainAndTakeCancel(Pause::Item));
}

TEST_P(ProgressContract, ACancelIsToldAtTheNextItemAndOnlyThere) {
    View().SetRange(3);
    AtPlace().RequestCancel();
    EXPECT_TRUE(View().DrainAndTakeCancel(Pause::Item));
    EXPECT_FALSE(View().DrainAndTakeCancel(Pause::Item));
}

TEST_P(ProgressContract, TheBarCountsTheStepsOfItsRange) {
    EXPECT_TRUE(AtPlace().Shows(0, 0, L""));
    View().SetRange(5);
    View().Step();
    View().Step();
    EXPECT_TRUE(AtPlace().Shows(2, 5, L""));
    View().Step();
    EXPECT_TRUE(AtPlace().Shows(3, 5, L""));
}

TEST_P(ProgressContract, EachRangeBeginsAtItsStart) {
    View().SetRange(2);
    View().Step();
    View().SetRange(65'535);
    EXPECT_TRUE(AtPlace().Shows(0, 65'535, L""));
    View().Step();
    EXPECT_TRUE(AtPlace().Shows(1, 65'535, L""));
}

TEST_P(ProgressContract, TheLineNamesTheLastItemAsItIsSpelled) {
    View().SetRange(2);
    for (const wchar_t* const name : {L"a & b", L"資料 (2).txt", L"C:\\"}) {
        View().ShowItem(name);
        EXPECT_TRUE(AtPlace().Shows(0, 2, name));
    }
}

TEST_P(ProgressContract, ANewRangeKeepsTheLine) {
    View().SetRange(1);
    View().Step();
    View().ShowItem(L"last of the first");
    View().SetRange(4);
    EXPECT_TRUE(AtPlace().Shows(0, 4, L"last of the first"));
}

}  // namespace
}  // namespace ferry::transfer::contract
