// Where the manual's pages are.
#include "process/manual.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ferry::process {
namespace {

using testing::ElementsAre;

constexpr wchar_t kProgram[] = L"C:\\App\\Ferry.exe";
constexpr wchar_t kMainPage[] = L"C:\\App\\Manual\\kiv\\man5\\6.Command\\2.DefaultCommand\\Ferry.html";
constexpr wchar_t kEnglishMainPage[] =
    L"C:\\App\\.en-US\\Manual\\kiv\\man5\\6.Command\\2.DefaultCommand\\Ferry.html";

/// The place of a page beside the main one.
std::wstring Beside(const wchar_t* page) {
    return std::wstring(L"C:\\App\\Manual\\kiv\\man5\\6.Command\\2.DefaultCommand\\Ferry\\") + page;
}

TEST(ManualAddress, PutsThePagesPathAfterTheBase) {
    EXPECT_EQ(ManualAddress(L"https://manual.example", kFerryManualPage, L"C:\\App\\Ferry.exe"),
              L"https://manual.example/kiv/man5/6.Command/2.DefaultCommand/Ferry.html");
}

TEST(ManualAddress, NamesTheInstalledPageWhenThereIsNoBase) {
    EXPECT_EQ(ManualAddress(L"", kFerryManualPage, L"C:\\App\\Command\\Ferry\\Ferry.exe"),
              L"C:\\App\\Command\\Ferry\\Manual\\kiv\\man5\\6.Command\\2.DefaultCommand\\Ferry.html");
}

TEST(ManualPlaces, OfTheMainPageAreThoseOfTheUsersLanguageFirst) {
    EXPECT_EQ(ManualPlaces({L"", L"", L".ja-JP", kProgram}).front(), kMainPage);
    EXPECT_THAT(ManualPlaces({L"", L"", L".en-US", kProgram}), ElementsAre(kEnglishMainPage, kMainPage));
    EXPECT_THAT(ManualPlaces({L"", L"", L".fr-FR", kProgram}),
                ElementsAre(L"C:\\App\\.fr-FR\\Manual\\kiv\\man5\\6.Command\\2.DefaultCommand\\Ferry.html",
                            kEnglishMainPage, kMainPage));
}

TEST(ManualPlaces, OfAnotherPageAreAFolderForEachLanguageAndAtLastTheMainPage) {
    EXPECT_THAT(ManualPlaces({L"", L"rename", L".ja-JP", kProgram}),
                ElementsAre(Beside(L"ja\\rename.html"), kMainPage));
    EXPECT_THAT(ManualPlaces({L"", L"report", L".en-US", kProgram}),
                ElementsAre(Beside(L"en\\report.html"), kMainPage));
    EXPECT_THAT(ManualPlaces({L"", L"report", L".fr-FR", kProgram}),
                ElementsAre(Beside(L"fr\\report.html"), Beside(L"en\\report.html"), kMainPage));
}

TEST(ManualPlaces, UnderABaseAreOneAndInALanguageThatComesWithTheProgram) {
    const auto under = [](std::wstring_view topic, std::wstring_view language) {
        return ManualPlaces({L"https://manual.example", topic, language, kProgram});
    };
    for (const wchar_t* const language : {L".ja-JP", L".en-US", L".fr-FR"}) {
        EXPECT_THAT(under(L"", language),
                    ElementsAre(L"https://manual.example/kiv/man5/6.Command/2.DefaultCommand/Ferry.html"));
    }
    EXPECT_THAT(
        under(L"rename", L".ja-JP"),
        ElementsAre(L"https://manual.example/kiv/man5/6.Command/2.DefaultCommand/Ferry/ja/rename.html"));
    EXPECT_THAT(
        under(L"rename", L".fr-FR"),
        ElementsAre(L"https://manual.example/kiv/man5/6.Command/2.DefaultCommand/Ferry/en/rename.html"));
}

TEST(ManualPlaces, StayPathsWhateverTheSettingNames) {
    EXPECT_EQ(ManualPlaces({L"", L"rename", L"", kProgram}).back(), kMainPage);
    EXPECT_EQ(ManualPlaces({L"", L"", L"xx", kProgram}).back(), kMainPage);
}

}  // namespace
}  // namespace ferry::process
