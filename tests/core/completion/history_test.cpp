// The history of destinations, on a store in memory.
#include "completion/history.h"

#include <gtest/gtest.h>

#include <ranges>

#include "base/invalid_argument.h"
#include "core/settings/memory_store.h"

namespace ferry::completion {
namespace {

using Texts = std::vector<std::wstring>;

/// A history with these entries, the first one the most recent.
History HistoryOf(const Texts& entries) {
    History history;
    for (const std::wstring& entry : std::views::reverse(entries)) {
        history.Add(entry);
    }
    return history;
}

Texts TwentyEntries() {
    Texts entries;
    for (int index = 0; index < History::kSlotCount; ++index) {
        entries.push_back(L"C:\\" + std::to_wstring(index));
    }
    return entries;
}

TEST(History, NamesItsValuesByTheProgramAndThreeDigits) {
    EXPECT_EQ(History::ValueName(0), L"Ferry000");
    EXPECT_EQ(History::ValueName(7), L"Ferry007");
    EXPECT_EQ(History::ValueName(19), L"Ferry019");
}

TEST(History, RefusesAnIndexThatIsNoSlot) {
    const History history;
    for (const int index : {-1, 20, 1000}) {
        EXPECT_THROW(static_cast<void>(history.Slot(index)), base::InvalidArgument) << index;
        EXPECT_THROW(static_cast<void>(History::ValueName(index)), base::InvalidArgument) << index;
    }
    EXPECT_EQ(history.Slot(19), L"");
}

TEST(History, PutsANewEntryInFront) {
    History history = HistoryOf({L"b", L"c"});
    history.Add(L"a");
    EXPECT_EQ(history.Entries(), (Texts{L"a", L"b", L"c"}));
    EXPECT_EQ(history.Slot(3), L"");
}

TEST(History, MovesAnEntryThatIsUsedAgainToTheFront) {
    History history = HistoryOf({L"a", L"b", L"c", L"d", L"e"});
    history.Add(L"c");
    EXPECT_EQ(history.Entries(), (Texts{L"c", L"a", L"b", L"d", L"e"}));
    history.Add(L"c");
    EXPECT_EQ(history.Entries(), (Texts{L"c", L"a", L"b", L"d", L"e"}));
}

TEST(History, DropsTheOldestOfTwentyEntries) {
    Texts expected = TwentyEntries();
    History history = HistoryOf(expected);
    history.Add(L"D:\\new");
    expected.pop_back();
    expected.insert(expected.begin(), L"D:\\new");
    EXPECT_EQ(history.Entries(), expected);
}

TEST(History, MovesTheOldestOfTwentyEntriesWithoutLosingOne) {
    Texts expected = TwentyEntries();
    History history = HistoryOf(expected);
    history.Add(L"C:\\19");
    expected.pop_back();
    expected.insert(expected.begin(), L"C:\\19");
    EXPECT_EQ(history.Entries(), expected);
}

TEST(History, ComparesExactly) {
    History history = HistoryOf({L"C:\\Data"});
    history.Add(L"c:\\data\\");
    history.Add(L"c:\\data");
    EXPECT_EQ(history.Entries(), (Texts{L"c:\\data", L"c:\\data\\", L"C:\\Data"}));
}

TEST(History, IgnoresAnEmptyText) {
    History history = HistoryOf({L"a", L"b"});
    history.Add(L"");
    EXPECT_EQ(history.Slot(0), L"a");
    EXPECT_EQ(history.Slot(1), L"b");
}

TEST(History, KeepsUnusedSlotsBetweenEntriesWhereTheyWereStored) {
    test::MemoryStore store;
    store.Texts = {{L"Ferry001", L"a"}, {L"Ferry004", L"b"}};
    History history;
    history.Load(store);
    EXPECT_EQ(history.Entries(), (Texts{L"a", L"b"}));
    history.Add(L"b");
    EXPECT_EQ(history.Slot(0), L"b");
    EXPECT_EQ(history.Slot(1), L"");
    EXPECT_EQ(history.Slot(2), L"a");
    EXPECT_EQ(history.Slot(4), L"");
}

TEST(History, WritesAllTwentyValuesEveryTime) {
    test::MemoryStore store;
    HistoryOf({L"a", L"b"}).Save(store);
    ASSERT_EQ(store.Texts.size(), 20U);
    EXPECT_EQ(store.Texts[L"Ferry000"], L"a");
    EXPECT_EQ(store.Texts[L"Ferry001"], L"b");
    for (int index = 2; index < History::kSlotCount; ++index) {
        EXPECT_EQ(store.Texts[History::ValueName(index)], L"");
    }
}

TEST(History, ReadsWhatItWrote) {
    test::MemoryStore store;
    HistoryOf(TwentyEntries()).Save(store);
    History history;
    history.Load(store);
    EXPECT_EQ(history.Entries(), TwentyEntries());
}

TEST(History, ForgetsSlotsThatTheStoreNoLongerHas) {
    test::MemoryStore store;
    History history = HistoryOf({L"a", L"b"});
    history.Load(store);
    EXPECT_EQ(history.Entries(), Texts{});
}

TEST(History, ClearedIsEmptyInEverySlot) {
    test::MemoryStore store;
    History history = HistoryOf(TwentyEntries());
    history.Clear();
    history.Save(store);
    EXPECT_EQ(store.Texts.size(), 20U);
    for (const auto& [name, text] : store.Texts) {
        EXPECT_EQ(text, L"");
    }
}

}  // namespace
}  // namespace ferry::completion
