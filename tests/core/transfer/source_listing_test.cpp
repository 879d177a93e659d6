// The listing of a source folder: its order, and its appetite for stack and searches.
#include "transfer/source_listing.h"

#include <gtest/gtest.h>

#include "core/transfer/model_ports.h"

namespace ferry::transfer {
namespace {

using Paths = std::vector<std::wstring>;

Paths Texts(const base::TextList& list) {
    return {list.begin(), list.end()};
}

class SourceListingTest : public ::testing::Test {
protected:
    SourceListing List(std::wstring_view folder) {
        return ListSourceFolder(files, files, folder, [this] { return --patience != 0; });
    }

    /// Puts a link named `path` that leads to the folder at `target`.
    void AddLink(std::wstring_view path, std::wstring_view target) {
        model::Node& link = world.Files.AddFolder(path);
        link.Attributes |= files::kAttributeLink;
        link.LeadsTo = world.Files.At(target);
    }

    model::World world;
    model::ModelFileSystem files{world};
    int patience = 0;  ///< At which entry the listing is stopped; never for 0.
};

TEST_F(SourceListingTest, ReadsASubfolderWhereTheSearchMeetsIt) {
    world.Files.AddFile(L"C:\\s\\a.txt", "");
    world.Files.AddFile(L"C:\\s\\m\\x.txt", "");
    world.Files.AddFile(L"C:\\s\\m\\deep\\y.txt", "");
    world.Files.AddFile(L"C:\\s\\m\\z.txt", "");
    world.Files.AddFile(L"C:\\s\\n.txt", "");
    world.Files.AddFolder(L"C:\\s\\o");
    world.Files.AddFile(L"C:\\s\\p.txt", "");
    const SourceListing listing = List(L"C:\\s");
    EXPECT_EQ(Texts(listing.Folders), (Paths{L"C:\\s", L"C:\\s\\m", L"C:\\s\\m\\deep", L"C:\\s\\o"}));
    EXPECT_EQ(Texts(listing.Files), (Paths{L"C:\\s\\a.txt", L"C:\\s\\m\\x.txt", L"C:\\s\\m\\deep\\y.txt",
                                           L"C:\\s\\m\\z.txt", L"C:\\s\\n.txt", L"C:\\s\\p.txt"}));
}

TEST_F(SourceListingTest, HasTheLastEntryHoweverShortItsName) {
    world.Files.AddFile(L"C:\\s\\a\\b", "");
    world.Files.AddFile(L"C:\\s\\a\\c\\d", "");
    world.Files.AddFile(L"C:\\s\\e", "");
    world.Files.AddFolder(L"C:\\s\\f");
    const SourceListing listing = List(L"C:\\s");
    EXPECT_EQ(Texts(listing.Folders), (Paths{L"C:\\s", L"C:\\s\\a", L"C:\\s\\a\\c", L"C:\\s\\f"}));
    EXPECT_EQ(Texts(listing.Files), (Paths{L"C:\\s\\a\\b", L"C:\\s\\a\\c\\d", L"C:\\s\\e"}));
}

TEST_F(SourceListingTest, ADriveRootIsNotGivenASecondSeparator) {
    world.Files.AddFile(L"C:\\a", "");
    const SourceListing listing = List(L"C:\\");
    EXPECT_EQ(Texts(listing.Folders), (Paths{L"C:\\"}));
    EXPECT_EQ(Texts(listing.Files), (Paths{L"C:\\a"}));
}

TEST_F(SourceListingTest, AFolderThatCannotBeReadIsListedAsEmptyAndNamed) {
    world.Files.AddFile(L"C:\\s\\a", "");
    world.Files.AddFile(L"C:\\s\\sub\\b", "");
    world.Files.AddFile(L"C:\\s\\z", "");
    world.Faults = [](std::size_t index, std::wstring_view) {
        return index == 1 ? model::Fault::Fail : model::Fault::None;
    };
    const SourceListing listing = List(L"C:\\s");
    EXPECT_EQ(Texts(listing.Folders), (Paths{L"C:\\s", L"C:\\s\\sub"}));
    EXPECT_EQ(Texts(listing.Files), (Paths{L"C:\\s\\a", L"C:\\s\\z"}));
    ASSERT_EQ(listing.Left.size(), 1u);
    EXPECT_EQ(listing.Left[0].Path, L"C:\\s\\sub");
    EXPECT_EQ(listing.Left[0].Why, LeftReason::NotListed);
    EXPECT_EQ(listing.Left[0].Code, 5u);
}

TEST_F(SourceListingTest, ALinkBackToAFolderThatHoldsItIsNamedAndNotFollowed) {
    world.Files.AddFile(L"C:\\s\\sub\\a", "");
    AddLink(L"C:\\s\\sub\\back", L"C:\\s");
    AddLink(L"C:\\s\\sub\\self", L"C:\\s\\sub");
    const SourceListing listing = List(L"C:\\s");
    EXPECT_EQ(Texts(listing.Folders), (Paths{L"C:\\s", L"C:\\s\\sub"}));
    EXPECT_EQ(Texts(listing.Files), (Paths{L"C:\\s\\sub\\a"}));
    ASSERT_EQ(listing.Left.size(), 2u);
    EXPECT_EQ(listing.Left[0].Path, L"C:\\s\\sub\\back");
    EXPECT_EQ(listing.Left[1].Path, L"C:\\s\\sub\\self");
    EXPECT_EQ(listing.Left[0].Why, LeftReason::LeadsBack);
}

TEST_F(SourceListingTest, ALinkToAPlaceAboveTheSourceIsFollowedOnce) {
    world.Files.AddFile(L"C:\\top\\s\\a", "");
    AddLink(L"C:\\top\\s\\up", L"C:\\top");
    const SourceListing listing = List(L"C:\\top\\s");
    EXPECT_EQ(Texts(listing.Files), (Paths{L"C:\\top\\s\\a", L"C:\\top\\s\\up\\s\\a"}));
    ASSERT_EQ(listing.Left.size(), 1u);
    EXPECT_EQ(listing.Left[0].Path, L"C:\\top\\s\\up\\s\\up");
}

TEST_F(SourceListingTest, ALinkToAnotherFolderIsWalkedAsAFolder) {
    world.Files.AddFile(L"C:\\s\\one\\a", "");
    world.Files.AddFile(L"D:\\far\\b", "");
    AddLink(L"C:\\s\\two", L"D:\\far");
    AddLink(L"C:\\s\\three", L"C:\\s\\one");
    const SourceListing listing = List(L"C:\\s");
    EXPECT_EQ(Texts(listing.Files), (Paths{L"C:\\s\\one\\a", L"C:\\s\\two\\b", L"C:\\s\\three\\a"}));
    EXPECT_TRUE(listing.Left.empty());
}

/// Folders whose search breaks off after the first entry.
class BreakingSearch final : public files::FolderSearch {
public:
    explicit BreakingSearch(files::FolderSearch& whole) noexcept : whole_(whole) {}

    std::uint32_t Search(std::wstring_view pattern,
                         const std::function<bool(const files::Match&)>& visit) override {
        int entries = 0;
        const std::uint32_t error = whole_.Search(pattern, [&](const files::Match& match) {
            return visit(match) && (match.Name.starts_with(L'.') || ++entries < 1);
        });
        return entries > 0 ? 64 : error;
    }

private:
    files::FolderSearch& whole_;
};

TEST_F(SourceListingTest, ASearchThatBreaksOffIsNamedWithWhatItHadFound) {
    const std::wstring far = L"C:\\s\\sub\\" + std::wstring(300, L'n');
    world.Files.AddFile(far, "");
    world.Files.AddFile(L"C:\\s\\sub\\z", "");
    BreakingSearch search(files);
    const SourceListing listing = ListSourceFolder(search, files, L"C:\\s", [] { return true; });
    EXPECT_EQ(Texts(listing.Files), (Paths{far}));
    ASSERT_EQ(listing.Left.size(), 2u);
    EXPECT_EQ(listing.Left[0].Path, L"C:\\s");
    EXPECT_EQ(listing.Left[1].Path, L"C:\\s\\sub");
    EXPECT_EQ(listing.Left[1].Code, 64u);
}

TEST_F(SourceListingTest, AStopInASubfolderEndsTheWholeListing) {
    world.Files.AddFile(L"C:\\s\\one\\a", "");
    world.Files.AddFile(L"C:\\s\\two\\b", "");
    patience = 3;  // the two folders, then the file of the first
    const SourceListing stopped = List(L"C:\\s");
    EXPECT_TRUE(stopped.IsStopped);
    EXPECT_EQ(Texts(stopped.Folders), (Paths{L"C:\\s", L"C:\\s\\one"}));
}

TEST_F(SourceListingTest, EndsAtTheEntryAtWhichItIsStopped) {
    for (int entry = 0; entry < 10; ++entry)
        world.Files.AddFile(L"C:\\s\\sub\\" + std::to_wstring(entry), "");
    patience = 4;  // the folder, then its files
    const SourceListing stopped = List(L"C:\\s");
    EXPECT_TRUE(stopped.IsStopped);
    EXPECT_EQ(stopped.Files.Size(), 3u);
    patience = 0;
    const SourceListing whole = List(L"C:\\s");
    EXPECT_FALSE(whole.IsStopped);
    EXPECT_EQ(whole.Files.Size(), 10u);
}

TEST_F(SourceListingTest, NeverHasMoreThanOneSearchOpenHoweverDeepTheTree) {
    std::wstring path = L"C:\\s";
    for (int depth = 0; depth < 400; ++depth)
        path += L"\\d";
    world.Files.AddFile(path + L"\\bottom", "");
    const SourceListing listing = List(L"C:\\s");
    EXPECT_EQ(listing.Folders.Size(), 401u);
    EXPECT_EQ(listing.Files[0], path + L"\\bottom");
    EXPECT_EQ(files.MostOpenSearches(), 1);
}

}  // namespace
}  // namespace ferry::transfer
