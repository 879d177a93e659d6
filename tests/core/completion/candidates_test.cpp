// The search for what completes a typed path, on a made-up file system.
#include "completion/candidates.h"

#include <gtest/gtest.h>

#include "base/utf16.h"
#include "core/files/fake_folders.h"

namespace ferry::completion {
namespace {

using Texts = std::vector<std::wstring>;

TEST(SearchText, PutsARelativeTextBelowTheBase) {
    EXPECT_EQ(SearchText(L"Win", L"C:\\base"), L"C:\\base\\Win");
    EXPECT_EQ(SearchText(L"Win", L"C:\\base\\"), L"C:\\base\\Win");
    EXPECT_EQ(SearchText(L"\\Win", L"C:\\base"), L"C:\\base\\Win");
    EXPECT_EQ(SearchText(L"D:\\Win", L"C:\\base"), L"D:\\Win");
    EXPECT_EQ(SearchText(L"\\\\srv", L"C:\\base"), L"\\\\srv");
    EXPECT_EQ(SearchText(L"\\Win", L""), L"\\Win");
}

TEST(SearchPattern, LooksForNamesThatContainTwoOrMoreTypedUnits) {
    const std::pair<std::wstring_view, std::wstring_view> cases[] = {
        {L"C:\\Win", L"C:\\*Win*"},
        {L"C:\\Wi", L"C:\\*Wi*"},
        {L"C:\\W", L"C:\\W*"},
        {L"C:\\", L"C:\\*"},
        {L"C:\\a\\b c", L"C:\\a\\*b c*"},
        {L"C:", L"C:*C:*"},
        {L"\\\\srv\\share\\", L"\\\\srv\\share\\*"},
        {L"\\\\srv\\share\\夏休み", L"\\\\srv\\share\\*夏休み*"},
        {L"\\\\", L"\\\\*"},
        {L"\\\\s", L"\\\\s*"},
        {L"\\\\srv", L"\\\\*srv*"},
        {L"\\\\srv\\", L"\\\\srv\\*"},
        {L"\\\\srv\\s", L"\\\\srv\\s*"},
        {L"\\\\srv\\share", L"\\\\srv\\*share*"},
        {L"C:\\.", L"C:\\.*"},
        {L"C:\\..", L"C:\\*..*"},
        {L"C:\\a.", L"C:\\*a.*"},
        {L"C:\\dir.\\a", L"C:\\dir.\\a*"},
        // One character outside the basic plane is two units.
        {L"C:\\\xD842\xDFB7", L"C:\\*\xD842\xDFB7*"},
    };
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(base::ToUtf8(text));
        EXPECT_EQ(SearchPattern(text), expected);
    }
}

TEST(FindCandidates, StandBesideTheTypedPartOfANetworkPath) {
    test::FakeFolders folders;
    folders.Items = {{L"found", true}};
    const std::pair<std::wstring_view, std::wstring_view> cases[] = {
        {L"\\\\", L"\\\\found\\"},
        {L"\\\\fo", L"\\\\found\\"},
        {L"\\\\srv\\", L"\\\\srv\\found\\"},
        {L"\\\\srv\\fo", L"\\\\srv\\found\\"},
        {L"\\\\srv\\share\\f", L"\\\\srv\\share\\found\\"},
        {L"C:\\a.b\\fo", L"C:\\a.b\\found\\"},
    };
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(base::ToUtf8(text));
        EXPECT_EQ(FindCandidates(folders, text, true), Texts{std::wstring(expected)});
    }
}

TEST(FindCandidates, AreFullPathsWithABackslashBehindFolders) {
    test::FakeFolders folders;
    folders.Items = {{L"Windows", true}, {L"Win.txt", false}};
    EXPECT_EQ(FindCandidates(folders, L"C:\\dir\\Win", false),
              (Texts{L"C:\\dir\\Win.txt", L"C:\\dir\\Windows\\"}));
    EXPECT_EQ(folders.Patterns, Texts{L"C:\\dir\\*Win*"});
}

TEST(FindCandidates, NeverOfferTheDotsOfAFolder) {
    test::FakeFolders folders;
    folders.Items = {{L".git", true}, {L"..old", true}, {L"...", false}};
    EXPECT_EQ(FindCandidates(folders, L"C:\\", true), (Texts{L"C:\\..old\\", L"C:\\.git\\"}));
    EXPECT_EQ(FindCandidates(folders, L"C:\\.", true), (Texts{L"C:\\..old\\", L"C:\\.git\\"}));
    EXPECT_EQ(FindCandidates(folders, L"C:\\..", true), (Texts{L"C:\\..old\\"}));
    EXPECT_EQ(FindCandidates(folders, L"C:\\", false).size(), 3U);
}

TEST(FindCandidates, NeverOfferFilesWhenOnlyFoldersAreWanted) {
    test::FakeFolders folders;
    folders.Items = {{L"a.txt", false}, {L"b", true}, {L"c", false}};
    EXPECT_EQ(FindCandidates(folders, L"\\\\srv\\share\\", true), Texts{L"\\\\srv\\share\\b\\"});
}

TEST(FindCandidates, AreSortedWithoutRegardToCase) {
    test::FakeFolders folders;
    folders.Items = {
        {L"beta", true}, {L"Gamma", true}, {L"ALPHA", true}, {L"alpha 2", true}, {L"_old", true}};
    EXPECT_EQ(FindCandidates(folders, L"C:\\", true),
              (Texts{L"C:\\_old\\", L"C:\\alpha 2\\", L"C:\\ALPHA\\", L"C:\\beta\\", L"C:\\Gamma\\"}));
}

TEST(FindCandidates, AreNotSearchedForBelowTwoUnits) {
    test::FakeFolders folders;
    folders.Items = {{L"a", true}};
    EXPECT_EQ(FindCandidates(folders, L"", true), Texts{});
    EXPECT_EQ(FindCandidates(folders, L"C", true), Texts{});
    EXPECT_TRUE(folders.Patterns.empty());
    EXPECT_EQ(FindCandidates(folders, L"C:", true), Texts{});
    EXPECT_EQ(folders.Patterns, Texts{L"C:*C:*"}) << "two units are searched for, though no name has a colon";
}

TEST(FindCandidates, StopOnceMoreThanFiveThousandAreThere) {
    test::FakeFolders folders;
    for (std::size_t index = 0; index < 5000; ++index) {
        folders.Items.push_back({L"file " + std::to_wstring(index), false});
        folders.Items.push_back({L"folder " + std::to_wstring(index), true});
    }
    EXPECT_EQ(FindCandidates(folders, L"C:\\", true).size(), 5000U);
    EXPECT_EQ(folders.Visited, 10002U) << "the two dots are matches, too";
    folders.Visited = 0;
    EXPECT_EQ(FindCandidates(folders, L"C:\\", false).size(), 5001U);
    EXPECT_EQ(folders.Visited, 5003U);
}

TEST(FindCandidates, OfAFailedSearchAreNone) {
    test::FakeFolders folders;
    folders.Items = {{L"a", true}};
    folders.OnlyFolder = L"C:\\";
    EXPECT_EQ(FindCandidates(folders, L"C:\\no access\\", true), Texts{});
}

TEST(FindCandidates, KeepTheFolderAsItWasTyped) {
    test::FakeFolders folders;
    folders.Items = {{L"sub", true}};
    EXPECT_EQ(FindCandidates(folders, L"c:\\DIR\\..\\s", true), Texts{L"c:\\DIR\\..\\sub\\"});
}

}  // namespace
}  // namespace ferry::completion
