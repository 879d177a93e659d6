// The list that keeps many texts in few blocks.
#include "base/text_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace ferry::base {
namespace {

using namespace std::string_view_literals;
using testing::ElementsAre;

std::vector<std::wstring_view> TextsOf(const TextList& list) {
    return {list.begin(), list.end()};
}

/// The unit at `index`, which may be the zero behind the text.
wchar_t UnitAt(std::wstring_view text, std::size_t index) {
    return *(text.data() + index);
}

TEST(TextList, IsEmptyAtFirst) {
    const TextList list;
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(list.Size(), 0u);
    EXPECT_EQ(list.begin(), list.end());
}

TEST(TextList, KeepsTextsInOrder) {
    TextList list;
    list.Append(L"one");
    list.Append(L"");
    list.Append(L"two");
    EXPECT_THAT(TextsOf(list), ElementsAre(L"one"sv, L""sv, L"two"sv));
    EXPECT_EQ(list[2], L"two");
    EXPECT_FALSE(list.IsEmpty());
}

TEST(TextList, KeepsCopiesAndNotWhatItWasGiven) {
    std::wstring text = L"before";
    TextList list;
    list.Append(text);
    text = L"later.";
    EXPECT_EQ(list[0], L"before");
}

TEST(TextList, PutsANulAfterEachText) {
    TextList list;
    list.Append(L"ab");
    list.Append(L"");
    list.Append(L"c");
    for (const std::wstring_view text : list) {
        EXPECT_EQ(UnitAt(text, text.size()), L'\0');
    }
    EXPECT_EQ(UnitAt(list[0], 2), L'\0') << "the first text's end was overwritten by the second";
}

TEST(TextList, KeepsViewsValidWhileItGrowsOverManyBlocks) {
    TextList list;
    std::vector<std::wstring_view> views;
    for (int i = 0; i < 50000; ++i) {
        list.Append(L"text number " + std::to_wstring(i));
        views.push_back(list[list.Size() - 1]);
    }
    for (int i = 0; i < 50000; ++i) {
        ASSERT_EQ(views[static_cast<std::size_t>(i)], L"text number " + std::to_wstring(i));
        ASSERT_EQ(views[static_cast<std::size_t>(i)].data(), list[static_cast<std::size_t>(i)].data());
    }
}

TEST(TextList, TakesATextThatIsLongerThanABlock) {
    const std::wstring huge(5'000'000, L'x');
    TextList list;
    list.Append(L"small");
    list.Append(huge);
    list.Append(L"after");
    EXPECT_EQ(list[0], L"small");
    EXPECT_TRUE(list[1] == huge);
    EXPECT_EQ(UnitAt(list[1], huge.size()), L'\0');
    EXPECT_EQ(list[2], L"after");
}

TEST(TextList, FillsABlockToItsLastUnitAndNoFurther) {
    for (std::size_t length = 4000; length < 4200; ++length) {
        const std::wstring first(length, L'x');
        TextList list;
        list.Append(first);
        list.Append(L"y");
        ASSERT_EQ(list[0], first);
        ASSERT_EQ(UnitAt(list[0], length), L'\0') << length;
        ASSERT_EQ(list[1], L"y") << length;
    }
}

TEST(TextList, TakesATextOfItsOwn) {
    TextList list;
    list.Append(std::wstring(4000, L'x'));
    list.Append(list[0]);
    EXPECT_EQ(list[1], std::wstring(4000, L'x'));
}

TEST(TextList, KeepsViewsValidWhenItIsMovedAndLeavesTheOtherEmptyAndUsable) {
    TextList from;
    from.Append(L"kept");
    const std::wstring_view view = from[0];
    const TextList to(std::move(from));
    EXPECT_EQ(to[0].data(), view.data());
    EXPECT_EQ(view, L"kept");
    EXPECT_TRUE(from.IsEmpty());  // NOLINT(bugprone-use-after-move): the class promises this
    from.Append(L"new");
    EXPECT_THAT(TextsOf(from), ElementsAre(L"new"sv));
    EXPECT_THAT(TextsOf(to), ElementsAre(L"kept"sv));
}

TEST(TextList, ReplacesItsTextsWhenItIsAssignedTo) {
    TextList from;
    from.Append(L"new");
    TextList to;
    to.Append(L"old");
    to = std::move(from);
    EXPECT_THAT(TextsOf(to), ElementsAre(L"new"sv));
    EXPECT_TRUE(from.IsEmpty());  // NOLINT(bugprone-use-after-move): the class promises this
    from.Append(L"again");
    to.Append(L"more");
    EXPECT_THAT(TextsOf(from), ElementsAre(L"again"sv));
    EXPECT_THAT(TextsOf(to), ElementsAre(L"new"sv, L"more"sv));
}

TEST(TextList, SurvivesBeingAssignedToItself) {
    TextList list;
    list.Append(L"kept");
    TextList& same = list;
    list = std::move(same);
    EXPECT_THAT(TextsOf(list), ElementsAre(L"kept"sv));
}

TEST(TextList, IsEmptyAndUsableAfterClear) {
    TextList list;
    list.Append(L"gone");
    list.Clear();
    EXPECT_TRUE(list.IsEmpty());
    list.Append(L"new");
    EXPECT_THAT(TextsOf(list), ElementsAre(L"new"sv));
}

TEST(TextList, TakesOverAnotherListBehindItsOwnTexts) {
    TextList list;
    list.Append(L"one");
    TextList other;
    other.Append(L"two, which is longer");
    const wchar_t* const place = other[0].data();
    list.Append(std::move(other));
    EXPECT_EQ(list[1].data(), place);
    list.Append(L"three");
    EXPECT_THAT(TextsOf(list), ElementsAre(L"one"sv, L"two, which is longer"sv, L"three"sv));
    EXPECT_EQ(list[1].data(), place);
    EXPECT_TRUE(other.IsEmpty());  // NOLINT(bugprone-use-after-move): it may be used again
    other.Append(L"four");
    EXPECT_THAT(TextsOf(other), ElementsAre(L"four"sv));
    EXPECT_THAT(TextsOf(list), ElementsAre(L"one"sv, L"two, which is longer"sv, L"three"sv));
}

TEST(TextList, TakesOverWhereOneOfTheListsIsEmpty) {
    TextList list;
    list.Append(TextList());
    EXPECT_TRUE(list.IsEmpty());
    list.Append(L"one");
    list.Append(TextList());
    list.Append(L"two");
    TextList empty;
    empty.Append(std::move(list));
    empty.Append(L"three");
    EXPECT_THAT(TextsOf(empty), ElementsAre(L"one"sv, L"two"sv, L"three"sv));
}

}  // namespace
}  // namespace ferry::base
