// What a pressed start becomes.
#include "confirmation/start.h"

#include <gtest/gtest.h>

#include "core/transfer/model_ports.h"
#include "transfer/destination.h"

namespace ferry::confirmation {
namespace {

using namespace transfer;

class StartTest : public testing::Test {
protected:
    StartTest() { world_.Files.AddFolder(L"D:\\out"); }

    Start Prepare(const std::wstring& destination) {
        return PrepareStart({destination, 1, {1, 5, 1, 0, 2}}, files_, files_, shell_);
    }

    model::World world_;
    model::ModelFileSystem files_{world_};
    model::ModelShell shell_{world_};
};

TEST_F(StartTest, BecomesARequestWithTheChoicesAndWithoutSources) {
    const Start start = Prepare(L"  D:\\out ");
    EXPECT_EQ(start.Message, 0);
    ASSERT_TRUE(start.Request);
    EXPECT_EQ(start.Request->Destination, L"D:\\out\\");
    EXPECT_EQ(start.Request->What, Operation::Move);
    EXPECT_EQ(start.Request->Settings, (TransferSettings{1, 5, 1, 0, 2}));
    EXPECT_TRUE(start.Request->Sources.IsEmpty());
}

TEST_F(StartTest, MakesTheFolderOfTheDestination) {
    EXPECT_TRUE(Prepare(L"D:\\out\\new\\deep").Request);
    EXPECT_NE(world_.Files.At(L"D:\\out\\new\\deep"), nullptr);
}

TEST_F(StartTest, IsRefusedWithTheMessageThatSaysWhy) {
    world_.Files.AddFile(L"D:\\file", "content");
    const std::pair<const wchar_t*, std::uint16_t> cases[] = {{L"", kMessageBadDestination},
                                                              {L"x", kMessageBadDestination},
                                                              {L"\\\\", kMessageBadDestination},
                                                              {L"D:\\file", kMessageNoFolder}};
    for (const auto& [typed, message] : cases) {
        const Start start = Prepare(typed);
        EXPECT_FALSE(start.Request);
        EXPECT_EQ(start.Message, message);
    }
}

TEST_F(StartTest, ThatThePersonAbandonsEndsWithoutAMessage) {
    world_.Faults = [](std::size_t, std::wstring_view port) {
        return port == L"MakeFolder" ? model::Fault::Cancel : model::Fault::None;
    };
    const Start start = Prepare(L"D:\\out\\new");
    EXPECT_FALSE(start.Request);
    EXPECT_EQ(start.Message, 0);
}

}  // namespace
}  // namespace ferry::confirmation
