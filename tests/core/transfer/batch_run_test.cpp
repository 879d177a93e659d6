// The batch run: one operation of the shell with the right function and flags.
#include "transfer/batch_run.h"

#include <gtest/gtest.h>

#include "core/transfer/model_ports.h"

namespace ferry::transfer {
namespace {

class RecordingShell final : public ShellOperations {
public:
    ShellOutcome TransferFile(const ShellTransfer&) override { return {1, true}; }
    std::int32_t TransferBatch(const base::TextList& sources, std::wstring_view destination,
                               std::uint32_t function, std::uint32_t flags) override {
        ++Batches;
        Sources.assign(sources.begin(), sources.end());
        Destination = destination;
        Function = function;
        Flags = flags;
        return 1;
    }

    int Batches = 0;
    std::vector<std::wstring> Sources;
    std::wstring Destination;
    std::uint32_t Function = 0;
    std::uint32_t Flags = 0;
};

TEST(BatchRun, HandsAllSourcesToTheShellOnceInListOrder) {
    TransferRequest request;
    request.Sources.Append(L"C:\\b");
    request.Sources.Append(L"C:\\a");
    request.Destination = L"D:\\out\\";
    RecordingShell shell;
    RunBatch(request, shell);
    EXPECT_EQ(shell.Batches, 1);
    EXPECT_EQ(shell.Sources, (std::vector<std::wstring>{L"C:\\b", L"C:\\a"}));
    EXPECT_EQ(shell.Destination, L"D:\\out\\");
    EXPECT_EQ(shell.Function, 2u);
    EXPECT_EQ(shell.Flags, 0x2800u);
}

TEST(BatchRun, MovesWithFunctionOneAndLeavesOutTheConfirmationWhenToldNotToAsk) {
    TransferRequest request;
    request.What = Operation::Move;
    request.Settings.NoAsk = 1;
    RecordingShell shell;
    RunBatch(request, shell);
    EXPECT_EQ(shell.Function, 1u);
    EXPECT_EQ(shell.Flags, 0x2810u);
}

TEST(BatchRun, ASourceThatTheShellCannotParseIsLeftOutAndTheOthersGo) {
    model::World world;
    world.Files.AddFile(L"C:\\here\\f", "bytes");
    world.Files.AddFolder(L"D:\\out");
    model::ModelShell shell(world);
    TransferRequest request;
    request.What = Operation::Move;
    request.Sources.Append(L"C:\\gone");
    request.Sources.Append(L"C:\\here");
    request.Destination = L"D:\\out\\";
    RunBatch(request, shell);
    EXPECT_NE(world.Files.At(L"D:\\out\\here\\f"), nullptr);
    EXPECT_EQ(world.Files.At(L"C:\\here"), nullptr);
}

}  // namespace
}  // namespace ferry::transfer
