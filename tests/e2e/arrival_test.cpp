// Drops, blocks and destination messages, in whatever order they come.
#include "e2e/fixture.h"
#include "samplehost/host_block_writer.h"

namespace ferry::e2e {
namespace {

class Arrival : public FerryTest {
protected:
    void SetUp() override {
        file_ = Tree().WriteFile(L"元\\dropped.txt", "d");
        folder_ = Tree().MakeFolder(L"先");
    }

    bool SendDestination(std::uint64_t tag, const std::wstring& path) const {
        return Send(tag, samplehost::TextPayload(path));
    }

    /// Drops the file and waits until it is the one source.
    bool DropFile() const {
        return Drop({file_}) && WaitUntil([&] {
                   return Dialog().SourceCount() == 1 && Dialog().SourceText(0) == L"dropped.txt";
               });
    }
    bool DropFolder() const { return Drop({folder_}) && DestinationBecomes(folder_ + L"\\"); }

    std::wstring file_, folder_;
};

TEST_F(Arrival, TheFirstDropReplacesWhatTheHostHandedOver) {
    ASSERT_TRUE(Open(Plan({L"C:\\Work\\a.txt", L"C:\\Work\\b.txt"}, {L"D:\\tab"})));
    ASSERT_TRUE(DropFile());
    EXPECT_TRUE(WaitUntil([&] { return Dialog().Text(kItemCount) == L"(1)"; }));
    EXPECT_EQ(Dialog().Destination(), L"D:\\tab\\");
}

TEST_F(Arrival, TheSecondDropJoinsTheFoldersOfTheHost) {
    RunPlan plan = Plan({L"C:\\Work\\a.txt"}, {L"D:\\tab"});
    plan.Switches = {L"/t", L"/s=1"};
    ASSERT_TRUE(Open(plan));
    ASSERT_TRUE(DropFile());
    EXPECT_EQ(Dialog().TabFolders(), std::vector<std::wstring>{L"D:\\tab"});
    ASSERT_TRUE(DropFolder());
    EXPECT_EQ(Dialog().TabFolders(), (std::vector<std::wstring>{L"D:\\tab", folder_}));
}

TEST_F(Arrival, ABlockAddsToWhatTheHostHandedOverAtStart) {
    RunPlan plan = Plan({L"C:\\Work\\a.txt"}, {L"D:\\tab"});
    plan.Switches = {L"/t", L"/s=1"};
    ASSERT_TRUE(Open(plan));
    ASSERT_TRUE(SendBlock({L"C:\\Work\\b.txt"}, {L"D:\\later"}));
    EXPECT_TRUE(WaitUntil([&] { return Dialog().Text(kItemCount) == L"(2)"; }));
    EXPECT_EQ(Dialog().SourceText(1), L"b.txt");
    EXPECT_EQ(Dialog().Destination(), L"D:\\later\\");
    EXPECT_EQ(Dialog().TabFolders(), (std::vector<std::wstring>{L"D:\\tab", L"D:\\later"}));
}

TEST_F(Arrival, ABlockBetweenTheDropsLeavesNoTrace) {
    ASSERT_TRUE(OpenWithoutHost({L"/t"}));
    ASSERT_TRUE(DropFile());
    ASSERT_TRUE(SendBlock({L"C:\\Work\\a.txt"}, {L"D:\\ignored"}));
    ASSERT_TRUE(DropFolder());
    EXPECT_EQ(Dialog().TabFolders(), std::vector<std::wstring>{folder_});
    EXPECT_EQ(Dialog().SourceCount(), 1);
    EXPECT_EQ(Dialog().Text(kItemCount), L"(1)");
}

TEST_F(Arrival, ABlockAfterBothDropsLeavesNoTrace) {
    ASSERT_TRUE(OpenWithoutHost({L"/t"}));
    ASSERT_TRUE(DropFile());
    ASSERT_TRUE(DropFolder());
    ASSERT_TRUE(SendBlock({L"C:\\Work\\a.txt"}, {L"D:\\ignored"}));
    EXPECT_TRUE(StillHolds([&] { return Dialog().Destination() == folder_ + L"\\"; }));
    EXPECT_EQ(Dialog().TabFolders(), std::vector<std::wstring>{folder_});
    EXPECT_EQ(Dialog().SourceCount(), 1);
}

TEST_F(Arrival, WhatCountsIsAnsweredAndWhatDoesNotIsLeftToTheSystem) {
    const auto block = BlockBytes({L"C:\\Work\\a.txt"}, {});
    const auto path = samplehost::TextPayload(L"D:\\a");
    ASSERT_TRUE(OpenWithoutHost());
    EXPECT_EQ(AnswerTo(samplehost::kBlockTag, block), TRUE);
    EXPECT_EQ(AnswerTo(254, path), FALSE);
    ASSERT_TRUE(DropFile());
    EXPECT_EQ(AnswerTo(samplehost::kBlockTag, block), FALSE) << "something was dropped";
    EXPECT_EQ(AnswerTo(100, path), TRUE);
    EXPECT_EQ(AnswerTo(400, path), FALSE);
}

TEST_F(Arrival, ADestinationMessageCountsBeforeBetweenAndAfterTheDrops) {
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(SendDestination(100, L"D:\\before"));
    EXPECT_TRUE(DestinationBecomes(L"D:\\before\\"));
    EXPECT_FALSE(Dialog().IsEnabled(kStart)) << "a destination is no selection";
    ASSERT_TRUE(DropFile());
    EXPECT_EQ(Dialog().Destination(), L"D:\\before\\");
    ASSERT_TRUE(SendDestination(300, L"D:\\between"));
    EXPECT_TRUE(DestinationBecomes(L"D:\\between\\"));
    ASSERT_TRUE(DropFolder());
    ASSERT_TRUE(SendDestination(200, L"D:\\after"));
    EXPECT_TRUE(DestinationBecomes(L"D:\\after\\"));
    ASSERT_TRUE(Drop({L"D:\\third"}));
    EXPECT_TRUE(StillHolds([&] { return Dialog().Destination() == L"D:\\after\\"; }));
}

TEST_F(Arrival, WhatWasDroppedIsTransferredAndWhatTheHostHandedOverIsNot) {
    const std::wstring handedOver = Tree().WriteFile(L"元\\handed.txt", "h");
    ASSERT_TRUE(Open(Plan({handedOver})));
    ASSERT_TRUE(DropFile());
    ASSERT_TRUE(Transfer(folder_));
    EXPECT_EQ(ReadBytes(folder_ + L"\\dropped.txt"), "d");
    EXPECT_FALSE(Exists(folder_ + L"\\handed.txt"));
}

}  // namespace
}  // namespace ferry::e2e
