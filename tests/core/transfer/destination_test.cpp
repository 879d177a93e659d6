// The typed destination and the folder that is made of it.
#include "transfer/destination.h"

#include <gtest/gtest.h>

#include "core/transfer/model_ports.h"

namespace ferry::transfer {
namespace {

using model::Fault;
using Lines = std::vector<std::wstring>;

TEST(WorkingDestination, IsTheTrimmedTextWithOneSeparatorAtItsEnd) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"D:\\work", L"D:\\work\\"},
        {L"D:\\work\\", L"D:\\work\\"},
        {L"  D:\\work \t\r\n", L"D:\\work\\"},
        {L"\x3000z:\\a b\x3000", L"z:\\a b\\"},
        {L"D:", L"D:\\"},
        {L"D:\\", L"D:\\"},
        {L"D:rel", L"D:rel\\"},
        {L"\\\\server\\share", L"\\\\server\\share\\"},
        {L"\\\\?\\C:\\x", L"\\\\?\\C:\\x\\"},
        {L"\\\\\\", L"\\\\\\"},
    };
    for (const auto& [typed, expected] : cases) {
        SCOPED_TRACE(typed);
        const WorkingDestination made = MakeWorkingDestination(typed);
        EXPECT_EQ(made.Path, expected);
        EXPECT_EQ(made.Message, 0);
    }
}

TEST(WorkingDestination, ATextWithASlashAnywhereGetsItsOwnSeparatorInsteadOfABackslash) {
    const std::pair<std::wstring, std::wstring> cases[] = {
        {L"D:/docs", L"D:/docs\x008B"},     {L"D:/docs/", L"D:/docs/\x008B"},
        {L"D:\\a/b\\", L"D:\\a/b\\\x008B"}, {L"D:/docs\x008B", L"D:/docs\x008B"},
        {L"\\\\/", L"\\\\/\x008B"},
    };
    for (const auto& [typed, expected] : cases) {
        SCOPED_TRACE(typed);
        EXPECT_EQ(MakeWorkingDestination(typed).Path, expected);
        EXPECT_EQ(MakeWorkingDestination(typed).Message, 0);
    }
}

TEST(WorkingDestination, WithoutADriveOrANetworkStartThereIsAMessageAndNoPath) {
    const wchar_t* const cases[] = {L"",        L" ",          L"D",    L" D ",      L"work",
                                    L"\\work",  L"1:\\x",      L"::",   L"/\\x",     L"//srv",
                                    L"\x00C4:", L"\xFF24:\\x", L"\\\\", L"  \\\\  ", L"..\\"};
    for (const wchar_t* const typed : cases) {
        SCOPED_TRACE(typed);
        EXPECT_EQ(MakeWorkingDestination(typed).Path, L"");
        EXPECT_EQ(MakeWorkingDestination(typed).Message, 62304);
    }
}

class DestinationFolder : public ::testing::Test {
protected:
    DestinationFolder() {
        world.Logging = true;
        world.Files.AddFolder(L"D:\\here");
        world.Files.AddFile(L"D:\\file", "bytes");
    }

    void FailCreationWith(Fault fault) {
        world.Faults = [fault](std::size_t, std::wstring_view port) {
            return port == L"MakeFolder" ? fault : Fault::None;
        };
    }

    void Expect(std::wstring_view path, FolderOutcome outcome, std::uint16_t message) {
        const EnsuredFolder ensured = EnsureDestinationFolder(files, files, shell, path);
        EXPECT_EQ(ensured.Outcome, outcome);
        EXPECT_EQ(ensured.Message, message);
    }

    model::World world;
    model::ModelFileSystem files{world};
    model::ModelShell shell{world};
};

TEST_F(DestinationFolder, IsMadeWithItsParentsAndTheShellIsTold) {
    Expect(L"D:\\new\\deep\\", FolderOutcome::Ready, 0);
    EXPECT_NE(world.Files.At(L"D:\\new\\deep"), nullptr);
    EXPECT_EQ(world.Log, (Lines{L"IsRoot D:\\new\\deep\\", L"Attributes D:\\new\\deep",
                                L"MakeFolder D:\\new\\deep", L"NotifyFolderMade D:\\new\\deep"}));
}

TEST_F(DestinationFolder, ThatExistsIsReadyAndTheShellIsNotTold) {
    Expect(L"D:\\here\\", FolderOutcome::Ready, 0);
    EXPECT_EQ(world.Log.back(), L"MakeFolder D:\\here");
}

TEST_F(DestinationFolder, ThatIsARootIsTakenAsItIs) {
    for (const wchar_t* const root : {L"D:\\", L"Z:\\"}) {
        SCOPED_TRACE(root);
        world.Log.clear();
        Expect(root, FolderOutcome::Ready, 0);
        EXPECT_EQ(world.Log.back().substr(0, 6), L"IsRoot");
    }
}

TEST_F(DestinationFolder, ThatIsAServerIsARootOnlyWhereTheSystemSaysSo) {
    for (const wchar_t* const server : {L"\\\\server\\", L"\\\\\\"}) {
        SCOPED_TRACE(server);
        world.ServersWithSeparatorAreRoots = false;
        Expect(server, FolderOutcome::Failed, 62306);
        world.ServersWithSeparatorAreRoots = true;
        Expect(server, FolderOutcome::Ready, 0);
    }
}

TEST_F(DestinationFolder, ThatIsAShareIsTakenWhereItIsThereAndRefusedWhereItIsNot) {
    Expect(L"\\\\server\\share\\", FolderOutcome::Failed, 62306);
    world.Files.AddFolder(L"\\\\server\\share");
    FailCreationWith(Fault::Fail);  // a share is not made as a folder is
    Expect(L"\\\\server\\share\\", FolderOutcome::Ready, 0);
}

TEST_F(DestinationFolder, BelowAShareThatIsNotThereFails) {
    Expect(L"\\\\server\\share\\folder\\", FolderOutcome::Failed, 62306);
}

TEST_F(DestinationFolder, ThatIsAFileFailsWithoutATryToMakeIt) {
    Expect(L"D:\\file\\", FolderOutcome::Failed, 62306);
    EXPECT_EQ(world.Log.back(), L"Attributes D:\\file");
}

TEST_F(DestinationFolder, ThatCannotBeMadeFails) {
    Expect(L"Q:\\nowhere\\", FolderOutcome::Failed, 62306);
    FailCreationWith(Fault::Fail);
    Expect(L"D:\\new\\", FolderOutcome::Failed, 62306);
    EXPECT_EQ(world.Files.At(L"D:\\new"), nullptr);
}

TEST_F(DestinationFolder, WhoseMakingThePersonCancelledIsAbandonedWithoutAMessage) {
    FailCreationWith(Fault::Cancel);
    Expect(L"D:\\new\\", FolderOutcome::Abandoned, 0);
}

TEST_F(DestinationFolder, AnEmptyPathHasItsOwnMessage) {
    Expect(L"", FolderOutcome::Failed, 62314);
    EXPECT_TRUE(world.Log.empty());
}

TEST_F(DestinationFolder, ThatEndsInTheSlashSeparatorIsMadeWithItAsPartOfItsName) {
    Expect(L"D:/new\x008B", FolderOutcome::Ready, 0);
    EXPECT_EQ(world.Log, (Lines{L"IsRoot D:/new\x008B", L"Attributes D:/new\x008B",
                                L"MakeFolder D:/new\x008B", L"NotifyFolderMade D:/new\x008B"}));
    EXPECT_NE(world.Files.At(L"D:\\new\x008B"), nullptr);
    EXPECT_EQ(world.Files.At(L"D:\\new"), nullptr);
}

TEST_F(DestinationFolder, BehindSlashesIsNotMadeTogetherWithItsParents) {
    Expect(L"D:/new/deep\x008B", FolderOutcome::Failed, 62306);
    EXPECT_EQ(world.Files.At(L"D:\\new"), nullptr);
}

}  // namespace
}  // namespace ferry::transfer
