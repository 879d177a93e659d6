// The batch run: one operation of the shell with the right function and flags.
#include "transfer/batch_run.h"

#include <gtest/gtest.h>

#include "core/transfer/model_ports.h"

namespace ferry::transfer {
namespace {

using Lines = std::vector<std::wstring>;

class BatchRun : public ::testing::Test {
protected:
    BatchRun() {
        world.Logging = true;
        request.Destination = L"D:\\out\\";
    }

    model::World world;
    model::ModelShell shell{world};
    TransferRequest request;
};

TEST_F(BatchRun, HandsAllSourcesToTheShellOnceInListOrder) {
    request.Sources.Append(L"C:\\b");
    request.Sources.Append(L"C:\\a");
    RunBatch(request, shell);
    EXPECT_EQ(world.Log, (Lines{L"Batch D:\\out\\ copy C:\\b C:\\a flags 2840"}));
}

TEST_F(BatchRun, MovesWithFunctionOneAndLeavesOutTheConfirmationWhenToldNotToAsk) {
    request.What = Operation::Move;
    request.Settings.NoAsk = 1;
    request.Sources.Append(L"C:\\a");
    RunBatch(request, shell);
    EXPECT_EQ(world.Log, (Lines{L"Batch D:\\out\\ move C:\\a flags 2850"}));
}

TEST_F(BatchRun, ChoicesOfTheIndividualModeChangeNothing) {
    request.Sources.Append(L"C:\\a");
    for (std::uint32_t policy = 0; policy <= 8; ++policy) {
        for (std::uint32_t precision = 0; precision <= 3; ++precision) {
            request.Settings = {1, policy, 0, 1, precision};
            world.Log.clear();
            RunBatch(request, shell);
            EXPECT_EQ(world.Log, (Lines{L"Batch D:\\out\\ copy C:\\a flags 2840"}));
        }
    }
}

TEST_F(BatchRun, AnyNumberButZeroMeansNotToAsk) {
    for (const std::uint32_t noAsk : {1u, 2u, 0x80000000u, 0xFFFFFFFFu}) {
        request.Settings.NoAsk = noAsk;
        world.Log.clear();
        RunBatch(request, shell);
        EXPECT_EQ(world.Log, (Lines{L"Batch D:\\out\\ copy flags 2850"}));
    }
}

TEST_F(BatchRun, ASourceThatTheShellCannotParseIsLeftOutAndTheOthersGo) {
    world.Files.AddFile(L"C:\\here\\f", "bytes");
    world.Files.AddFolder(L"D:\\out");
    request.What = Operation::Move;
    request.Sources.Append(L"C:\\gone");
    request.Sources.Append(L"C:\\here");
    const Leftovers left = RunBatch(request, shell);
    EXPECT_EQ(world.Files.ContentAt(L"D:\\out\\here\\f"), "bytes");
    EXPECT_EQ(world.Files.At(L"C:\\here"), nullptr);
    EXPECT_EQ(left.Items(), 2u);
    ASSERT_EQ(left.Left().size(), 1u);
    EXPECT_EQ(left.Left()[0].Path, L"C:\\gone");
    EXPECT_EQ(left.Left()[0].Why, LeftReason::NoSourceItem);
    EXPECT_EQ(left.Left()[0].Code, 0x80070002u);
}

TEST_F(BatchRun, IntoAFolderThatTheShellDoesNotKnowLeavesEverythingBehind) {
    world.Files.AddFile(L"C:\\here", "bytes");
    request.Sources.Append(L"C:\\here");
    const Leftovers left = RunBatch(request, shell);
    ASSERT_EQ(left.Left().size(), 1u);
    EXPECT_EQ(left.Left()[0].Why, LeftReason::NoFolderItem);
}

TEST_F(BatchRun, ThatTheShellPerformedLeavesNothingBehindEvenWhenItFailed) {
    world.Files.AddFile(L"C:\\here", "bytes");
    world.Files.AddFolder(L"D:\\out");
    request.Sources.Append(L"C:\\here");
    EXPECT_TRUE(RunBatch(request, shell).Left().empty());
    world.Faults = [](std::size_t, std::wstring_view) { return model::Fault::Fail; };
    EXPECT_TRUE(RunBatch(request, shell).Left().empty());
}

TEST_F(BatchRun, WithoutAnOperationObjectNothingHappensAndEverythingIsLeftBehind) {
    world.Files.AddFile(L"C:\\here", "bytes");
    world.Files.AddFolder(L"D:\\out");
    world.Faults = [](std::size_t, std::wstring_view) { return model::Fault::NoObject; };
    request.Sources.Append(L"C:\\here");
    const Leftovers left = RunBatch(request, shell);
    ASSERT_EQ(left.Left().size(), 1u);
    EXPECT_EQ(left.Left()[0].Path, L"C:\\here");
    EXPECT_EQ(left.Left()[0].Why, LeftReason::NoShell);
    EXPECT_EQ(world.Files.ContentAt(L"C:\\here"), "bytes");
    EXPECT_EQ(world.Files.At(L"D:\\out\\here"), nullptr);
}

}  // namespace
}  // namespace ferry::transfer
