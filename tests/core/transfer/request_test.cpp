// The remembered choices: their names in the store, their defaults, and what is kept as it is.
#include "transfer/request.h"

#include <gtest/gtest.h>

#include "core/settings/memory_store.h"

namespace ferry::transfer {
namespace {

TEST(TransferSettings, AFreshUserHasBatchModePolicyZeroExactTimesAndBothBoxesOff) {
    test::MemoryStore store;
    const TransferSettings allZero{0, 0, 0, 0, 0};
    EXPECT_EQ(LoadTransferSettings(store), allZero);
    const TransferRequest request;
    EXPECT_EQ(request.What, Operation::Copy);
    EXPECT_EQ(request.Settings, allZero);
    EXPECT_EQ(static_cast<int>(Operation::Copy), 0);
    EXPECT_EQ(static_cast<int>(WorkingMode::Batch), 0);
    EXPECT_EQ(static_cast<int>(CollisionPolicy::IfSourceIsNewer), 0);
    EXPECT_EQ(static_cast<int>(TimePrecision::Exact), 0);
}

TEST(TransferSettings, EachChoiceIsReadFromItsOwnValue) {
    test::MemoryStore store;
    store.Numbers = {{L"Mode", 1}, {L"Name", 7}, {L"1", 3}, {L"OpenTarget", 4}, {L"TimeCmpType", 2}};
    EXPECT_EQ(LoadTransferSettings(store), (TransferSettings{1, 7, 3, 4, 2}));
}

TEST(TransferSettings, SavingWritesAllFiveValuesAndLoadingGivesThemBack) {
    test::MemoryStore store;
    const TransferSettings settings{1, 5, 1, 0, 2};
    SaveTransferSettings(store, settings);
    const test::NumberValues expected = {
        {L"Mode", 1}, {L"Name", 5}, {L"1", 1}, {L"OpenTarget", 0}, {L"TimeCmpType", 2}};
    EXPECT_EQ(store.Numbers, expected);
    EXPECT_EQ(LoadTransferSettings(store), settings);
}

TEST(TransferSettings, AreWrittenInTheirOrderAndNothingElseIs) {
    test::MemoryStore store;
    SaveTransferSettings(store, {});
    EXPECT_EQ(store.Writes,
              (std::vector<std::wstring>{L"Mode", L"Name", L"1", L"OpenTarget", L"TimeCmpType"}));
    EXPECT_TRUE(store.Texts.empty());
}

TEST(TransferSettings, LoadingWritesNothing) {
    test::MemoryStore store;
    LoadTransferSettings(store);
    EXPECT_TRUE(store.Writes.empty());
}

TEST(TransferSettings, NumbersOutOfRangeAreKeptAsTheyAre) {
    test::MemoryStore store;
    store.Numbers = {{L"Mode", 9}, {L"Name", 0xFFFFFFFF}, {L"TimeCmpType", 77}};
    EXPECT_EQ(LoadTransferSettings(store), (TransferSettings{9, 0xFFFFFFFF, 0, 0, 77}));
}

TEST(TransferSettings, AStoreThatRefusesIsAskedForEveryValueAllTheSame) {
    test::MemoryStore store;
    store.RefusesWrites = true;
    SaveTransferSettings(store, {1, 1, 1, 1, 1});
    EXPECT_EQ(store.Writes.size(), 5u);
    EXPECT_TRUE(store.Numbers.empty());
}

}  // namespace
}  // namespace ferry::transfer
