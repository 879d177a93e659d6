// Whatever breaks off a transfer, every file is whole at the source or at the destination.
#include <string>
#include <tuple>

#include "base/handles_win32.h"
#include "e2e/driver/contents.h"
#include "e2e/driver/process_windows.h"
#include "e2e/driver/surroundings.h"
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

constexpr wchar_t kProgressCaption[] = L"進捗状況";
constexpr DWORD kIndividualMode = 1;

/// Long enough for thousands of files on a busy machine.
constexpr int kRunPatienceMs = 120'000;

/// Writes a file into a folder that exists; thousands of them would take too long otherwise.
void WriteQuickly(const std::wstring& path, const std::string& content) {
    const base::FileHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    DWORD written = 0;
    WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
}

/// Where a transfer goes: to the volume of the source, where a move only renames, or to another one.
enum class Volume { Same, Other };

class Interruption : public TransferTest {
protected:
    void SetUp() override {
        TransferTest::SetUp();
        ASSERT_FALSE(OtherVolume().empty()) << "FERRY_OTHER_VOLUME names no folder";
    }

    void UseVolume(Volume volume) {
        destination_ = volume == Volume::Same ? Tree().Path(L"先") : other_.Path(L"先");
    }

    /// Makes `folders` folders of `files` files, each with a content of its own, and a folder that
    /// no transfer has to do with.
    void MakeTrees(int folders, int files) {
        for (int folder = 0; folder < folders; ++folder) {
            const std::wstring parent = Tree().MakeFolder(L"元\\木\\" + std::to_wstring(folder));
            for (int file = 0; file < files; ++file) {
                const std::string content = std::to_string(folder) + "/" + std::to_string(file) + " ";
                WriteQuickly(parent + L"\\" + std::to_wstring(file) + L".bin",
                             content + std::string(500, '#'));
            }
        }
        Tree().MakeSample(L"外");
        MakeFolders(destination_);
        before_ = ReadTree(Source());
        order_ = FilesBelow(Source());
        outside_ = ReadTree(Tree().Path(L"外"));
    }

    std::wstring Source() const { return Tree().Path(L"元\\木"); }
    std::wstring Target() const { return destination_ + L"\\木"; }

    /// Makes the folders of the tree at the destination: a folder that is missing there may move as one item,
    /// those that exist are merged file by file.
    void MakeFoldersOfTarget() const {
        for (const auto& [name, entry] : before_) {
            if (entry.IsFolder)
                MakeFolders(Target() + L"\\" + name);
        }
    }

    const TreeSnapshot& Before() const { return before_; }
    std::size_t FileCount() const { return order_.size(); }

    /// Opens Ferry with the tree and presses "開始".
    testing::AssertionResult Start(bool isMove, DWORD mode, const std::wstring& faults = {}) {
        SetVariable(L"FERRY_FILEOP_FAULTS", faults);
        WriteNumber(kProgramKey, L"Mode", mode);
        WriteNumber(kProgramKey, L"Name", kOverwrite);
        WriteNumber(kProgramKey, L"1", 1);  // a batch overwrites, too, without asking
        RunPlan plan = Plan({Source()});
        if (isMove)
            plan.Switches = {L"/m"};
        if (const auto opened = Open(plan); !opened)
            return opened;
        Dialog().SetDestination(destination_);
        Dialog().Click(kStart);
        return testing::AssertionSuccess();
    }

    /// Waits until the `number`-th file, counted in the order of a search, is at the destination.
    bool WaitUntilArrived(std::size_t number) const {
        const std::wstring file = Target() + order_.at(number - 1).substr(Source().size());
        return WaitUntil([&] { return Exists(file); }, kRunPatienceMs);
    }

    /// Every file is whole at its place at the source or at the destination, at both after a copy
    /// that reached it; nothing else is there, and nothing outside has changed. A move between volumes that
    /// was ended hard may leave the file at hand at both.
    void ExpectNothingLost(bool isMove, std::size_t mayBeTwice = 0) const {
        std::size_t twice = 0;
        const TreeSnapshot source = ReadTree(Source());
        const TreeSnapshot target = ReadTree(Target());
        for (const auto& [name, entry] : Before()) {
            if (entry.IsFolder)
                continue;
            const bool isHere = source.contains(name) && source.at(name).Content == entry.Content;
            const bool isThere = target.contains(name) && target.at(name).Content == entry.Content;
            EXPECT_TRUE(isMove ? isHere || isThere : isHere) << testing::PrintToString(name);
            twice += isMove && isHere && isThere ? 1 : 0;
        }
        EXPECT_LE(twice, mayBeTwice);
        for (const TreeSnapshot* tree : {&source, &target}) {
            for (const auto& [name, entry] : *tree)
                EXPECT_TRUE(Before().contains(name)) << testing::PrintToString(name);
        }
        if (!isMove) {
            EXPECT_EQ(HashOf(source), HashOf(Before()));
        }
        EXPECT_EQ(HashOf(ReadTree(Tree().Path(L"外"))), HashOf(outside_));
    }

    /// Everything has arrived, and the source is gone after a move.
    void ExpectComplete(bool isMove) const {
        EXPECT_EQ(Differences(Before(), ReadTree(Target())), "");
        EXPECT_EQ(Exists(Source()), !isMove);
    }

    /// How many files the service has begun to transfer.
    std::size_t Transferred() const { return LinesOf(FileOps(), L"Item").size(); }

private:
    TempTree other_{OtherVolume().empty() ? BaseFolder() : OtherVolume() + L"\\ferry-e2e"};
    std::wstring destination_ = Tree().Path(L"先");
    TreeSnapshot before_;
    std::vector<std::wstring> order_;
    TreeSnapshot outside_;
};

struct PlannedFault {
    const char* Name;
    const wchar_t* Faults;
    std::size_t Arrives;  ///< How many of the twelve files have to arrive.
};

void PrintTo(const PlannedFault& faults, std::ostream* stream) {
    *stream << faults.Name;
}

using FaultCase = std::tuple<DWORD, bool, Volume, PlannedFault>;

class FaultyService : public Interruption, public testing::WithParamInterface<FaultCase> {};

TEST_P(FaultyService, LosesNoFileAndBringsTheOthers) {
    const auto& [mode, isMove, volume, faults] = GetParam();
    UseVolume(volume);
    MakeTrees(3, 4);
    MakeFoldersOfTarget();
    ASSERT_TRUE(Start(isMove, mode, faults.Faults));
    ASSERT_TRUE(EndsWell(kRunPatienceMs));
    ExpectNothingLost(isMove);
    EXPECT_EQ(FilesBelow(Target()).size(), faults.Arrives);
    EXPECT_GT(Transferred(), 0U);
    if (faults.Arrives == FileCount())
        ExpectComplete(isMove);
}

constexpr PlannedFault kFaults[] = {
    {"FailAtTheFirst", L"fail@1", 11},          {"FailInTheMiddle", L"fail@5", 11},
    {"FailEverywhere", L"fail@*", 0},           {"AbortAtTheFirst", L"abort@1", 0},
    {"AbortInTheMiddle", L"abort@5", 4},        {"SlowInTheMiddle", L"slow@5:200", 12},
    {"SlowThenFail", L"slow@3:100,fail@3", 11},
};

std::string JourneyName(DWORD mode, bool isMove, Volume volume) {
    return std::string(mode == 0 ? "Batch" : "Individual") + (isMove ? "Move" : "Copy") +
           (volume == Volume::Same ? "" : "ToAnotherVolume");
}

std::string NameOfFault(const testing::TestParamInfo<FaultCase>& info) {
    const auto& [mode, isMove, volume, faults] = info.param;
    return JourneyName(mode, isMove, volume) + faults.Name;
}

INSTANTIATE_TEST_SUITE_P(Faults, FaultyService,
                         testing::Combine(testing::Values(0U, 1U), testing::Bool(),
                                          testing::Values(Volume::Same, Volume::Other),
                                          testing::ValuesIn(kFaults)),
                         NameOfFault);

using Journey = std::tuple<DWORD, bool, Volume>;

std::string NameOfJourney(const testing::TestParamInfo<Journey>& info) {
    return std::apply(JourneyName, info.param);
}

class BetweenVolumes : public Interruption, public testing::WithParamInterface<Journey> {};

TEST_P(BetweenVolumes, ATreeArrivesWholeByteForByte) {
    const auto& [mode, isMove, volume] = GetParam();
    UseVolume(volume);
    MakeTrees(4, 5);
    ASSERT_TRUE(Start(isMove, mode));
    ASSERT_TRUE(EndsWell(kRunPatienceMs));
    ExpectComplete(isMove);
    ExpectNothingLost(isMove);
    EXPECT_GT(Transferred(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Journeys, BetweenVolumes,
                         testing::Combine(testing::Values(0U, 1U), testing::Bool(),
                                          testing::Values(Volume::Other)),
                         NameOfJourney);

class CancelledRun : public Interruption, public testing::WithParamInterface<bool> {};

TEST_P(CancelledRun, StopsBetweenTwoFilesAndLosesNone) {
    const bool isMove = GetParam();
    MakeTrees(4, 10);
    ASSERT_TRUE(Start(isMove, kIndividualMode, L"slow@*:40"));
    const HWND progress = WaitForWindowOf(Run().FerryId(), kProgressCaption);
    ASSERT_NE(progress, nullptr);
    ASSERT_TRUE(WaitUntilArrived(3));
    PostMessageW(GetDlgItem(progress, kCancel), BM_CLICK, 0, 0);
    ASSERT_TRUE(EndsWell(kRunPatienceMs));
    ExpectNothingLost(isMove);
    EXPECT_LT(FilesBelow(Target()).size(), FileCount());
    EXPECT_TRUE(Exists(Source() + L"\\0")) << "a stopped run removes no folder";
}

INSTANTIATE_TEST_SUITE_P(CopyAndMove, CancelledRun, testing::Bool());

class KilledRun : public Interruption, public testing::WithParamInterface<Journey> {
protected:
    /// Takes away the file that was being written at the end: until it is whole, it has a name of its own.
    void RemoveUnfinished() const {
        int count = 0;
        for (const auto& [name, entry] : ReadTree(Target())) {
            const std::wstring file = name.substr(name.rfind(L'\\') + 1);
            if (file.starts_with(L"~ferry") && file.ends_with(L".tmp")) {
                RemoveAll(Target() + L"\\" + name);
                ++count;
            }
        }
        EXPECT_LE(count, 1);
    }

    /// Starts a run, ends it hard when `count` files have arrived, and runs it again to its end.
    void EndHardAndRunAgain(std::size_t count) {
        const auto& [mode, isMove, volume] = GetParam();
        ASSERT_TRUE(Start(isMove, mode));
        ASSERT_TRUE(WaitUntilArrived(count));
        ASSERT_TRUE(Run().EndHard());
        RemoveUnfinished();
        ASSERT_LT(FilesBelow(Target()).size(), FileCount()) << "it was over before it could be ended";
        ExpectNothingLost(isMove, volume == Volume::Other ? 1 : 0);
        ASSERT_TRUE(Start(isMove, mode));
        ASSERT_TRUE(EndsWell(kRunPatienceMs));
        ExpectComplete(isMove);
    }
};

TEST_P(KilledRun, GoesOnWhereItWasEndedHard) {
    UseVolume(std::get<Volume>(GetParam()));
    MakeTrees(10, 50);
    MakeFoldersOfTarget();
    EndHardAndRunAgain(60);
}

INSTANTIATE_TEST_SUITE_P(Journeys, KilledRun,
                         testing::Combine(testing::Values(0U, 1U), testing::Bool(),
                                          testing::Values(Volume::Same, Volume::Other)),
                         NameOfJourney);

}  // namespace
}  // namespace ferry::e2e
