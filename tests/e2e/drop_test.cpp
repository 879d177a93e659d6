// Drops: the first is the selection, the second the folders, the third nothing.
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

class Dropping : public FerryTest {
protected:
    void SetUp() override {
        first_ = Tree().WriteFile(L"元\\一.txt", "1");
        second_ = Tree().MakeFolder(L"元\\二");
        folder_ = Tree().MakeFolder(L"先");
        other_ = Tree().MakeFolder(L"別");
    }

    bool DropSelection() const {
        return Drop({first_, second_}) && WaitUntil([&] { return Dialog().SourceCount() == 2; });
    }

    std::wstring first_, second_, folder_, other_;
};

TEST_F(Dropping, TheFirstDropIsTheSelection) {
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(DropSelection());
    EXPECT_EQ(Dialog().Text(kItemCount), L"(2)");
    EXPECT_EQ(Dialog().SourceText(0), L"一.txt");
    EXPECT_EQ(Dialog().SourceText(1), L"二");
}

TEST_F(Dropping, ADropOfNothingDoesNotCountSoTheNextOneIsTheSelection) {
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(Drop({}));
    ASSERT_TRUE(DropSelection());
    EXPECT_EQ(Dialog().Text(kItemCount), L"(2)");
    EXPECT_EQ(Dialog().Destination(), L"");
    ASSERT_TRUE(Drop({}));
    ASSERT_TRUE(Drop({folder_}));
    EXPECT_TRUE(DestinationBecomes(folder_ + L"\\"));
}

TEST_F(Dropping, TheSecondDropGivesTheDestination) {
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(DropSelection());
    ASSERT_TRUE(Drop({folder_, other_}));
    EXPECT_TRUE(DestinationBecomes(folder_ + L"\\"));
    EXPECT_TRUE(Dialog().IsEnabled(kStart));
    EXPECT_EQ(Dialog().SourceCount(), 2);
}

TEST_F(Dropping, TheSecondDropHonoursThePresetIndexAndFillsTheList) {
    ASSERT_TRUE(OpenWithoutHost({L"/t", L"/s=3"}));
    ASSERT_TRUE(DropSelection());
    ASSERT_TRUE(Drop({folder_, other_}));
    EXPECT_TRUE(DestinationBecomes(other_ + L"\\"));
    EXPECT_EQ(Dialog().TabFolders(), (std::vector<std::wstring>{folder_, other_}));
}

TEST_F(Dropping, TheThirdDropIsIgnored) {
    ASSERT_TRUE(OpenWithoutHost({L"/t", L"/s=1"}));
    ASSERT_TRUE(DropSelection());
    ASSERT_TRUE(Drop({folder_}));
    ASSERT_TRUE(DestinationBecomes(folder_ + L"\\"));
    ASSERT_TRUE(Drop({other_}));
    EXPECT_TRUE(
        StillHolds([&] { return Dialog().Destination() == folder_ + L"\\" && Dialog().SourceCount() == 2; }));
    EXPECT_EQ(Dialog().TabFolders(), std::vector<std::wstring>{folder_});
}

TEST_F(Dropping, DroppedFilesAreTransferred) {
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(DropSelection());
    ASSERT_TRUE(Transfer(folder_));
    EXPECT_EQ(ReadBytes(folder_ + L"\\一.txt"), "1");
    EXPECT_TRUE(Exists(folder_ + L"\\二"));
}

}  // namespace
}  // namespace ferry::e2e
