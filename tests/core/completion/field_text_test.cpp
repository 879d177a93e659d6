// What a path field makes of its text.
#include "completion/field_text.h"

#include <gtest/gtest.h>

#include "base/utf16.h"

namespace ferry::completion {
namespace {

TEST(IsRelative, HoldsForAllButADriveOrTwoBackslashesInFront) {
    const std::pair<std::wstring_view, bool> cases[] = {
        {L"", true},       {L"c", true},        {L"\\", true},
        {L"ab", true},     {L"\\Win", true},    {L"1:\\x", true},
        {L"あ:\\x", true}, {L"..\\x", true},    {L"/x", true},
        {L"c:", false},    {L"C:\\Win", false}, {L"C:Win", false},
        {L"\\\\", false},  {L"\\\\srv", false}, {L"\\\\?\\C:\\x", false},
    };
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(base::ToUtf8(text));
        EXPECT_EQ(IsRelative(text), expected);
    }
}

struct TextCase {
    std::wstring_view Input, Expected;
};

TEST(Canonical, ResolvesDotsWithoutLeavingTheRoot) {
    const TextCase cases[] = {
        {L"C:\\a\\..\\b", L"C:\\b"},
        {L"C:\\a\\.\\b\\", L"C:\\a\\b\\"},
        {L"C:\\a\\b\\..", L"C:\\a"},
        {L"C:\\a\\b\\..\\", L"C:\\a\\"},
        {L"C:\\..\\..\\x", L"C:\\x"},
        {L"C:\\a\\..", L"C:\\"},
        {L"C:\\", L"C:\\"},
        {L"C:", L"C:"},
        {L"C:/a//b/", L"C:\\a\\b\\"},
        {L"C:\\a.b\\...\\c", L"C:\\a.b\\...\\c"},
        {L"\\\\srv\\share\\..\\x", L"\\\\srv\\share\\x"},
        {L"\\\\srv\\share\\a\\..\\..\\", L"\\\\srv\\share\\"},
        {L"\\\\srv\\share", L"\\\\srv\\share"},
        {L"\\\\srv", L"\\\\srv"},
        {L"\\\\", L"\\\\"},
        {L"\\\\?\\C:\\a\\..\\b", L"\\\\?\\C:\\a\\..\\b"},
        {L"..\\x", L"..\\x"},
        {L"", L""},
    };
    for (const auto& [input, expected] : cases) {
        SCOPED_TRACE(base::ToUtf8(input));
        EXPECT_EQ(Canonical(input), expected);
    }
}

TEST(ResolveAgainst, PutsTheBaseWithItsSeparatorInFront) {
    EXPECT_EQ(ResolveAgainst(L"C:\\base", L"sub"), L"C:\\base\\sub");
    EXPECT_EQ(ResolveAgainst(L"C:\\base\\", L"..\\sub\\"), L"C:\\sub\\");
    EXPECT_EQ(ResolveAgainst(L"C:\\base", L"\\sub"), L"C:\\base\\sub");
    EXPECT_EQ(ResolveAgainst(L"C:\\base", L""), L"C:\\base\\");
}

TEST(UpOneLevel, DropsTheLastComponentOrTheSeparatorBehindIt) {
    const TextCase cases[] = {
        {L"C:\\a\\b\\c", L"C:\\a\\b\\"},
        {L"C:\\a\\b\\", L"C:\\a\\b"},
        {L"C:\\a", L"C:\\"},
        {L"C:\\", L"C:"},
        {L"C:\\a\\.git", L"C:\\a\\"},
        {L"C:\\a\\b.txt", L"C:\\a\\"},
        {L"\\\\srv\\x", L"\\\\srv\\"},
        {L"\\\\srv", L"\\\\"},
        {L"\\\\", L"\\"},
        {L"a\\b", L"a\\"},
        {L"\\\\srv\\share\\", L"\\\\srv\\share"},
    };
    for (const auto& [input, expected] : cases) {
        SCOPED_TRACE(base::ToUtf8(input));
        EXPECT_EQ(UpOneLevel(input), expected);
    }
}

TEST(UpOneLevel, LeavesATextAloneOfWhichNothingWouldBeLeft) {
    for (const std::wstring_view text : {L"", L"\\", L"C:", L"name", L".git"}) {
        SCOPED_TRACE(base::ToUtf8(text));
        EXPECT_EQ(UpOneLevel(text), std::nullopt);
    }
}

TEST(RootFor, CompletesADriveAndTheStartOfANetworkPath) {
    const TextCase cases[] = {{L"c", L"c:\\"}, {L"Z", L"Z:\\"}, {L"\\", L"\\\\"}, {L"d:", L"d:\\"}};
    for (const auto& [input, expected] : cases) {
        SCOPED_TRACE(base::ToUtf8(input));
        EXPECT_EQ(RootFor(input), expected);
    }
}

TEST(RootFor, IsNothingForAnyOtherText) {
    for (const std::wstring_view text : {L"", L"1", L"あ", L"/", L"ab", L"1:", L"\\\\", L"c:\\"}) {
        SCOPED_TRACE(base::ToUtf8(text));
        EXPECT_EQ(RootFor(text), std::nullopt);
    }
}

TEST(FieldTextOfDrop, TakesTheParentOfAFileWhenOnlyFoldersAreWanted) {
    constexpr std::uint32_t kFile = 0x20;
    constexpr std::uint32_t kFolder = 0x10;
    constexpr std::uint32_t kUnknown = 0xFFFFFFFF;
    EXPECT_EQ(FieldTextOfDrop(L"C:\\a\\f.txt", kFile, true), L"C:\\a\\");
    EXPECT_EQ(FieldTextOfDrop(L"C:\\a\\f.txt", kFile, false), L"C:\\a\\f.txt");
    EXPECT_EQ(FieldTextOfDrop(L"C:\\a\\b", kFolder, true), L"C:\\a\\b");
    EXPECT_EQ(FieldTextOfDrop(L"C:\\a\\gone", kUnknown, true), L"C:\\a\\gone");
}

TEST(OfferFor, LooksAtTheTextFirstAndThenAtTheList) {
    EXPECT_EQ(OfferFor(L"c", 7), Offer::PutRoot);
    EXPECT_EQ(OfferFor(L"c:", 0), Offer::PutRoot);
    EXPECT_EQ(OfferFor(L"C:\\x", 0), Offer::Nothing);
    EXPECT_EQ(OfferFor(L"C:\\x", 1), Offer::PutOnlyItem);
    EXPECT_EQ(OfferFor(L"C:\\x", 2), Offer::OpenList);
    EXPECT_EQ(OfferFor(L"", 0), Offer::Nothing);
    EXPECT_EQ(OfferFor(L"", 2), Offer::OpenList);
}

TEST(OfferFor, LeavesASingleCharacterThatIsNoRootAlone) {
    for (const wchar_t* text : {L"1", L"写", L"/", L"."}) {
        for (const std::size_t itemCount : {0, 1, 2}) {
            EXPECT_EQ(OfferFor(text, itemCount), Offer::Nothing) << itemCount;
        }
    }
    EXPECT_EQ(OfferFor(L"12", 1), Offer::PutOnlyItem);
}

TEST(NextItem, WrapsAtTheEndAndBeginsWithTheFirst) {
    EXPECT_EQ(NextItem(-1, 3), 0);
    EXPECT_EQ(NextItem(0, 3), 1);
    EXPECT_EQ(NextItem(2, 3), 0);
    EXPECT_EQ(NextItem(0, 1), 0);
    EXPECT_EQ(NextItem(-1, 0), -1);
}

TEST(PreviousItem, WrapsAtTheStartAndBeginsWithTheLast) {
    EXPECT_EQ(PreviousItem(-1, 3), 2);
    EXPECT_EQ(PreviousItem(0, 3), 2);
    EXPECT_EQ(PreviousItem(2, 3), 1);
    EXPECT_EQ(PreviousItem(0, 1), 0);
    EXPECT_EQ(PreviousItem(-1, 0), -1);
}

}  // namespace
}  // namespace ferry::completion
