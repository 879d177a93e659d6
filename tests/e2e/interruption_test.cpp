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

constexpr wchar_t kProgressTitle[] = L"進捗状況";
constexpr DWORD kIndividualMode = 1;
constexpr DWORD kOverwrite = 3;

/// Long enough for thousands of files on a busy machine.
constexpr int kRunPatienceMs = 120'000;

/// Writes a file into a folder that exists; thousands of them would take too long otherwise.
void WriteQuickly(const std::wstring& path, const std::string& content) {
    const base::FileHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    DWORD written = 0;
    WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
}

class Interruption : public FerryTest {
protected:
    void TearDown() override { SetVariable(L"FERRY_FILEOP_FAULTS", L""); }

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
        Tree().MakeFolder(L"先");
        before_ = ReadTree(Source());
        order_ = FilesBelow(Source());
        outside_ = ReadTree(Tree().Path(L"外"));
    }

    std::wstring Source() const { return Tree().Path(L"元\\木"); }
    std::wstring Target() const { return Tree().Path(L"先\\木"); }
    const TreeSnapshot& Before() const { return before_; }
    std::size_t FileCount() const { return order_.size(); }

    /// Opens Ferry with the tree and presses "開始".
    testing::AssertionResult Start(bool isMove, DWORD mode, const std::wstring& faults = {}) {
        SetVariable(L"FERRY_FILEOP_FAULTS", faults);
        WriteNumber(kProgramKey, L"Mode", mode);
        WriteNumber(kProgramKey, L"Name", kOverwrite);
        RunPlan plan = Plan({Source()});
        if (isMove)
            plan.Switches = {L"/m"};
        if (const auto opened = Open(plan); !opened)
            return opened;
        Dialog().SetDestination(Tree().Path(L"先"));
        Dialog().Click(kStart);
        return testing::AssertionSuccess();
    }

    bool WaitForFerry() { return WaitForProcess(Run().FerryId(), kRunPatienceMs); }

    /// Waits until the `number`-th file, counted in the order of a search, is at the destination.
    bool WaitUntilArrived(std::size_t number) const {
        const std::wstring file = Target() + order_.at(number - 1).substr(Source().size());
        return WaitUntil([&] { return Exists(file); }, kRunPatienceMs);
    }

    /// Every file is whole at its place at the source or at the destination, at both after a copy
    /// that reached it; nothing else is there, and nothing outside has changed.
    void ExpectNothingLost(bool isMove) const {
        const TreeSnapshot source = ReadTree(Source());
        const TreeSnapshot target = ReadTree(Target());
        for (const auto& [name, entry] : Before()) {
            if (entry.IsFolder)
                continue;
            const bool isHere = source.contains(name) && source.at(name).Content == entry.Content;
            const bool isThere = target.contains(name) && target.at(name).Content == entry.Content;
            const std::size_t copies = (isHere ? 1U : 0U) + (isThere ? 1U : 0U);
            EXPECT_TRUE(isMove ? copies == 1 : isHere) << testing::PrintToString(name);
        }
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

private:
    TreeSnapshot before_;
    std::vector<std::wstring> order_;
    TreeSnapshot outside_;
};

struct FaultCase {
    const char* Name;
    const wchar_t* Faults;
    bool IsComplete;
};

void PrintTo(const FaultCase& faults, std::ostream* stream) {
    *stream << faults.Name;
}

using Case = std::tuple<DWORD, bool, FaultCase>;

class FaultyService : public Interruption, public testing::WithParamInterface<Case> {};

TEST_P(FaultyService, LosesNoFile) {
    const auto& [mode, isMove, faults] = GetParam();
    MakeTrees(3, 4);
    // A folder that is missing there moves as one item; those that exist are merged file by file.
    for (const wchar_t* folder : {L"0", L"1", L"2"})
        Tree().MakeFolder(std::wstring(L"先\\木\\") + folder);
    ASSERT_TRUE(Start(isMove, mode, faults.Faults));
    ASSERT_TRUE(WaitForFerry());
    ExpectNothingLost(isMove);
    if (faults.IsComplete)
        ExpectComplete(isMove);
    else
        EXPECT_LT(FilesBelow(Target()).size(), FileCount());
}

constexpr FaultCase kFaultCases[] = {
    {"FailAtTheFirst", L"fail@1", false},          {"FailInTheMiddle", L"fail@5", false},
    {"FailEverywhere", L"fail@*", false},          {"AbortAtTheFirst", L"abort@1", false},
    {"AbortInTheMiddle", L"abort@5", false},       {"SlowInTheMiddle", L"slow@5:200", true},
    {"SlowThenFail", L"slow@3:100,fail@3", false},
};

std::string NameOfCase(const testing::TestParamInfo<Case>& info) {
    return std::string(std::get<0>(info.param) == 0 ? "Batch" : "Individual") +
           (std::get<1>(info.param) ? "Move" : "Copy") + std::get<2>(info.param).Name;
}

INSTANTIATE_TEST_SUITE_P(Faults, FaultyService,
                         testing::Combine(testing::Values(0U, 1U), testing::Bool(),
                                          testing::ValuesIn(kFaultCases)),
                         NameOfCase);

class CancelledRun : public Interruption, public testing::WithParamInterface<bool> {};

TEST_P(CancelledRun, StopsBetweenTwoFilesAndLosesNone) {
    const bool isMove = GetParam();
    MakeTrees(4, 10);
    ASSERT_TRUE(Start(isMove, kIndividualMode, L"slow@*:40"));
    const HWND progress = WaitForWindowOf(Run().FerryId(), kProgressTitle);
    ASSERT_NE(progress, nullptr);
    ASSERT_TRUE(WaitUntilArrived(3));
    PostMessageW(GetDlgItem(progress, kCancel), BM_CLICK, 0, 0);
    ASSERT_TRUE(WaitForFerry());
    ExpectNothingLost(isMove);
    EXPECT_LT(FilesBelow(Target()).size(), FileCount());
    EXPECT_TRUE(Exists(Source() + L"\\0")) << "a stopped run removes no folder";
}

INSTANTIATE_TEST_SUITE_P(CopyAndMove, CancelledRun, testing::Bool());

class KilledRun : public Interruption {
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
    void EndHardAndRunAgain(bool isMove, std::size_t count) {
        ASSERT_TRUE(Start(isMove, kIndividualMode));
        ASSERT_TRUE(WaitUntilArrived(count));
        ASSERT_TRUE(EndProcessHard(Run().FerryId()));
        RemoveUnfinished();
        ASSERT_LT(FilesBelow(Target()).size(), FileCount()) << "it was over before it could be ended";
        ExpectNothingLost(isMove);
        ASSERT_TRUE(Start(isMove, kIndividualMode));
        ASSERT_TRUE(WaitForFerry());
        ExpectComplete(isMove);
    }
};

TEST_F(KilledRun, AMoveOfTwoThousandFilesGoesOnWhereItWasEndedHard) {
    MakeTrees(20, 100);
    EndHardAndRunAgain(true, 500);
}

TEST_F(KilledRun, ACopyIsCompletedWhenItIsRunAgain) {
    MakeTrees(5, 50);
    EndHardAndRunAgain(false, 60);
}

}  // namespace
}  // namespace ferry::e2e
