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
    model::World world;
    model::ModelFileSystem files{world};
};

TEST_F(SourceListingTest, ReadsASubfolderWhereTheSearchMeetsIt) {
    world.Files.AddFile(L"C:\\s\\a.txt", "");
    world.Files.AddFile(L"C:\\s\\m\\x.txt", "");
    world.Files.AddFile(L"C:\\s\\m\\deep\\y.txt", "");
    world.Files.AddFile(L"C:\\s\\m\\z.txt", "");
    world.Files.AddFile(L"C:\\s\\n.txt", "");
    world.Files.AddFolder(L"C:\\s\\o");
    world.Files.AddFile(L"C:\\s\\p.txt", "");
    const SourceListing listing = ListSourceFolder(files, L"C:\\s");
    EXPECT_EQ(Texts(listing.Folders), (Paths{L"C:\\s", L"C:\\s\\m", L"C:\\s\\m\\deep", L"C:\\s\\o"}));
    EXPECT_EQ(Texts(listing.Files), (Paths{L"C:\\s\\a.txt", L"C:\\s\\m\\x.txt", L"C:\\s\\m\\deep\\y.txt",
                                           L"C:\\s\\m\\z.txt", L"C:\\s\\n.txt", L"C:\\s\\p.txt"}));
}

TEST_F(SourceListingTest, HasTheLastEntryHoweverShortItsName) {
    world.Files.AddFile(L"C:\\s\\a\\b", "");
    world.Files.AddFile(L"C:\\s\\a\\c\\d", "");
    world.Files.AddFile(L"C:\\s\\e", "");
    world.Files.AddFolder(L"C:\\s\\f");
    const SourceListing listing = ListSourceFolder(files, L"C:\\s");
    EXPECT_EQ(Texts(listing.Folders), (Paths{L"C:\\s", L"C:\\s\\a", L"C:\\s\\a\\c", L"C:\\s\\f"}));
    EXPECT_EQ(Texts(listing.Files), (Paths{L"C:\\s\\a\\b", L"C:\\s\\a\\c\\d", L"C:\\s\\e"}));
}

TEST_F(SourceListingTest, ADriveRootIsNotGivenASecondSeparator) {
    world.Files.AddFile(L"C:\\a", "");
    const SourceListing listing = ListSourceFolder(files, L"C:\\");
    EXPECT_EQ(Texts(listing.Folders), (Paths{L"C:\\"}));
    EXPECT_EQ(Texts(listing.Files), (Paths{L"C:\\a"}));
}

TEST_F(SourceListingTest, AFolderThatCannotBeReadIsListedAsEmpty) {
    world.Files.AddFile(L"C:\\s\\a", "");
    world.Files.AddFile(L"C:\\s\\sub\\b", "");
    world.Files.AddFile(L"C:\\s\\z", "");
    world.Faults = [](std::size_t index, std::wstring_view) {
        return index == 1 ? model::Fault::Fail : model::Fault::None;
    };
    const SourceListing listing = ListSourceFolder(files, L"C:\\s");
    EXPECT_EQ(Texts(listing.Folders), (Paths{L"C:\\s", L"C:\\s\\sub"}));
    EXPECT_EQ(Texts(listing.Files), (Paths{L"C:\\s\\a", L"C:\\s\\z"}));
}

TEST_F(SourceListingTest, NeverHasMoreThanOneSearchOpenHoweverDeepTheTree) {
    std::wstring path = L"C:\\s";
    for (int depth = 0; depth < 400; ++depth)
        path += L"\\d";
    world.Files.AddFile(path + L"\\bottom", "");
    const SourceListing listing = ListSourceFolder(files, L"C:\\s");
    EXPECT_EQ(listing.Folders.Size(), 401u);
    EXPECT_EQ(listing.Files[0], path + L"\\bottom");
    EXPECT_EQ(files.MostOpenSearches(), 1);
}

}  // namespace
}  // namespace ferry::transfer
