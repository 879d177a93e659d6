// What the launcher says.
#include "launcher/launch_texts.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "base/utf16.h"

namespace ferry::launcher {
namespace {

constexpr std::wstring_view kSwitches[] = {
    L"/c",     L"/m",    L"/d ", L"/tab ",           L"/list ",
    L"/quiet", L"/wait", L"--",  L"/sendto install", L"/sendto remove"};

/// Every text of one language, in the order of the structure.
std::vector<std::wstring_view> AllOf(const Texts& texts) {
    return {texts.Help,        texts.UnknownSwitch,  texts.MissingValue,    texts.WrongValue,
            texts.SeeHelp,     texts.CannotTake,     texts.Missing,         texts.Wildcard,
            texts.Malformed,   texts.UnreadableList, texts.StandardInput,   texts.More,
            texts.TooMany,     texts.GoOn,           texts.NothingLeft,     texts.NoFerry,
            texts.CannotStart, texts.CannotShare,    texts.CannotAddSendTo, texts.CannotRemoveSendTo,
            texts.CopyLink,    texts.MoveLink};
}

TEST(LauncherTexts, AreCompleteInBothLanguages) {
    static_assert(sizeof(Texts) == 22 * sizeof(std::wstring_view));
    const auto english = AllOf(kEnglish);
    const auto japanese = AllOf(kJapanese);
    for (std::size_t index = 0; index < english.size(); ++index) {
        SCOPED_TRACE(base::ToUtf8(english[index]));
        EXPECT_FALSE(english[index].empty());
        EXPECT_NE(english[index], japanese[index]);
        EXPECT_EQ(english[index].find(L"%1") != std::wstring_view::npos,
                  japanese[index].find(L"%1") != std::wstring_view::npos);
        EXPECT_TRUE(std::ranges::all_of(english[index], [](wchar_t unit) { return unit < 0x80; }));
    }
}

TEST(LauncherTexts, ExplainEverySwitchInBothLanguages) {
    for (const Texts* texts : {&kEnglish, &kJapanese}) {
        for (const std::wstring_view name : kSwitches) {
            EXPECT_NE(texts->Help.find(L"\n" + std::wstring(name)), std::wstring_view::npos)
                << base::ToUtf8(name);
        }
    }
}

TEST(LauncherTexts, FollowTheLanguageOfTheHost) {
    EXPECT_EQ(&TextsFor(L".ja-JP"), &kJapanese);
    EXPECT_EQ(&TextsFor(L".en-US"), &kEnglish);
    EXPECT_EQ(&TextsFor(L".de-DE"), &kEnglish);
}

TEST(MistakeText, NamesTheArgumentAndPointsAtTheHelp) {
    EXPECT_EQ(
        MistakeText(kEnglish, {MistakeKind::UnknownSwitch, L"/x"}),
        L"FerryOpen does not know this switch:\n/x\n\n"
        L"FerryOpen /? shows what there is. A path that begins with \"/\" or \"-\" stands behind \"--\".");
    EXPECT_TRUE(MistakeText(kEnglish, {MistakeKind::MissingValue, L"/d"})
                    .starts_with(L"The value of this switch is missing:\n/d\n"));
    EXPECT_TRUE(MistakeText(kEnglish, {MistakeKind::WrongValue, L"/sendto:x"})
                    .starts_with(L"This switch cannot have that value:\n/sendto:x\n"));
}

/// A selection of `items` items from which `missing` paths were refused.
Selection SelectionOf(std::size_t items, std::size_t missing) {
    Selection selection;
    selection.Items.resize(items, L"C:\\a");
    for (std::size_t index = 0; index < missing; ++index) {
        selection.Refusals.push_back({L"m" + std::to_wstring(index), Reason::Missing});
    }
    return selection;
}

TEST(RefusalText, GivesEachReasonAndAsksWhetherToGoOn) {
    Selection selection = SelectionOf(3, 1);
    selection.Refusals.push_back({L"*.txt", Reason::Wildcard});
    selection.Refusals.push_back({L"a\tb", Reason::Malformed});
    selection.Refusals.push_back({L"l.txt", Reason::UnreadableList});
    selection.Refusals.push_back({L"-", Reason::UnreadableList});
    selection.TooMany = 7;
    EXPECT_EQ(RefusalText(kEnglish, selection),
              L"These cannot be copied or moved:\n\n"
              L"m0  (does not exist)\n"
              L"*.txt  (wildcards are not allowed)\n"
              L"a b  (is not a path)\n"
              L"l.txt  (the list cannot be read)\n"
              L"The standard input  (the list cannot be read)\n"
              L"7 items beyond the 1,000,000 that fit\n\n"
              L"Go on with the other 3?");
    EXPECT_EQ(RefusalText(kJapanese, SelectionOf(2, 1)),
              L"次のものはコピーも移動もできません。\n\nm0（存在しません）\n\n残りの 2 項目で続けますか?");
}

TEST(RefusalText, SaysWhenNothingIsLeft) {
    EXPECT_EQ(
        RefusalText(kEnglish, SelectionOf(0, 1)),
        L"These cannot be copied or moved:\n\nm0  (does not exist)\n\nNothing is left to copy or move.");
}

TEST(RefusalText, NamesTenAndCountsTheRest) {
    EXPECT_NE(RefusalText(kEnglish, SelectionOf(1, 11)).find(L"\nm10  ("), std::wstring::npos);
    const std::wstring text = RefusalText(kEnglish, SelectionOf(1, 12));
    EXPECT_NE(text.find(L"\nm9  ("), std::wstring::npos);
    EXPECT_EQ(text.find(L"m10"), std::wstring::npos);
    EXPECT_NE(text.find(L"\nand 2 more\n"), std::wstring::npos);
}

TEST(RefusalText, ShortensALongPathAndKeepsItsEnd) {
    Selection selection;
    selection.Refusals.push_back({L"C:\\" + std::wstring(300, L'x') + L"\\name.txt", Reason::Missing});
    const std::wstring text = RefusalText(kEnglish, selection);
    EXPECT_NE(text.find(L"C:\\xxx"), std::wstring::npos);
    EXPECT_NE(text.find(L"x…x"), std::wstring::npos);
    EXPECT_NE(text.find(L"xx\\name.txt  ("), std::wstring::npos);
    EXPECT_LT(text.size(), 250U);
}

TEST(LauncherTexts, FillAPathThatLooksLikeAPlaceAsItIs) {
    EXPECT_EQ(Filled(L"%1 there", L"%1%1"), L"%1%1 there");
}

}  // namespace
}  // namespace ferry::launcher
