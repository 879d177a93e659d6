// The remembered choices: their names in the store, their defaults, and what is kept as it is.
#include "transfer/request.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace ferry::transfer {
namespace {

class NumberStore final : public settings::SettingsStore {
public:
    std::map<std::wstring, std::uint32_t> Numbers;
    std::vector<std::wstring> Writes;
    bool Refuses = false;

    std::wstring ReadText(std::wstring_view, std::wstring_view defaultText) override {
        return std::wstring(defaultText);
    }
    std::uint32_t ReadNumber(std::wstring_view name, std::uint32_t defaultNumber) override {
        const auto found = Numbers.find(std::wstring(name));
        return found == Numbers.end() ? defaultNumber : found->second;
    }
    bool WriteText(std::wstring_view, std::wstring_view) override { return false; }
    bool WriteNumber(std::wstring_view name, std::uint32_t number) override {
        Writes.emplace_back(name);
        if (!Refuses)
            Numbers[std::wstring(name)] = number;
        return !Refuses;
    }
    std::wstring ReadHostText(std::wstring_view, std::wstring_view defaultText) override {
        return std::wstring(defaultText);
    }
    std::uint32_t ReadHostNumber(std::wstring_view) override { return 0; }
    bool WriteTextToKey(std::wstring_view, std::wstring_view, std::wstring_view) override { return false; }
    bool WriteNumberToKey(std::wstring_view, std::wstring_view, std::uint32_t) override { return false; }
};

TEST(TransferSettings, AFreshUserHasBatchModePolicyZeroExactTimesAndBothBoxesOff) {
    NumberStore store;
    EXPECT_EQ(LoadTransferSettings(store), TransferSettings());
    const TransferRequest request;
    EXPECT_EQ(request.What, Operation::Copy);
    EXPECT_EQ(request.Settings.Mode, static_cast<std::uint32_t>(WorkingMode::Batch));
    EXPECT_EQ(request.Settings.Policy, static_cast<std::uint32_t>(CollisionPolicy::OverwriteOlder));
}

TEST(TransferSettings, EachChoiceIsReadFromItsOwnValue) {
    NumberStore store;
    store.Numbers = {{L"Mode", 1}, {L"Name", 7}, {L"1", 3}, {L"OpenTarget", 4}, {L"TimeCmpType", 2}};
    EXPECT_EQ(LoadTransferSettings(store), (TransferSettings{1, 7, 3, 4, 2}));
}

TEST(TransferSettings, SavingWritesAllFiveValuesAndLoadingGivesThemBack) {
    NumberStore store;
    const TransferSettings settings{1, 5, 1, 0, 2};
    SaveTransferSettings(store, settings);
    const std::map<std::wstring, std::uint32_t> expected = {
        {L"Mode", 1}, {L"Name", 5}, {L"1", 1}, {L"OpenTarget", 0}, {L"TimeCmpType", 2}};
    EXPECT_EQ(store.Numbers, expected);
    EXPECT_EQ(LoadTransferSettings(store), settings);
}

TEST(TransferSettings, NumbersOutOfRangeAreKeptAsTheyAre) {
    NumberStore store;
    store.Numbers = {{L"Mode", 9}, {L"Name", 0xFFFFFFFF}, {L"TimeCmpType", 77}};
    EXPECT_EQ(LoadTransferSettings(store), (TransferSettings{9, 0xFFFFFFFF, 0, 0, 77}));
}

TEST(TransferSettings, AStoreThatRefusesIsAskedForEveryValueAllTheSame) {
    NumberStore store;
    store.Refuses = true;
    SaveTransferSettings(store, {1, 1, 1, 1, 1});
    EXPECT_EQ(store.Writes.size(), 5u);
    EXPECT_TRUE(store.Numbers.empty());
}

}  // namespace
}  // namespace ferry::transfer
