// File by file: every policy that asks nobody, with every precision, copying and moving.
#include <algorithm>
#include <string>
#include <tuple>

#include "base/utf16.h"
#include "e2e/driver/contents.h"
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

/// How many seconds the source is newer than the file of the same name at the destination.
constexpr int kAges[] = {-10, -3, -2, -1, 0, 1, 2, 3, 10};

constexpr int kRenameAutomatically = 6;

/// What a person expects of the file whose source is newer by `age` seconds.
bool Overwrites(int policy, int precision, int age) {
    switch (policy) {
        case 0:
            return age > precision;
        case 1:
            return -age > precision;
        case 2:
            return false;
        default:
            return true;
    }
}

std::wstring NameOf(int age) {
    return L"差 " + std::to_wstring(age) + L".txt";
}

using PolicyCase = std::tuple<int, int, bool>;

class IndividualTransfer : public TransferTest, public testing::WithParamInterface<PolicyCase> {
protected:
    int Policy() const { return std::get<0>(GetParam()); }
    int Precision() const { return std::get<1>(GetParam()); }
    bool IsMove() const { return std::get<2>(GetParam()); }

    static std::string Incoming(const std::wstring& name) { return "incoming " + base::ToUtf8(name); }
    static std::string Existing(const std::wstring& name) { return "existing " + base::ToUtf8(name); }

    void MakeTrees() const {
        for (const wchar_t* folder : {L"上", L"上\\下"}) {
            for (const int age : kAges) {
                const std::wstring name = std::wstring(folder) + L"\\" + NameOf(age);
                Tree().WriteFile(L"元\\" + name, Incoming(name), age);
                Tree().WriteFile(L"先\\" + name, Existing(name), 0);
            }
        }
        Tree().WriteFile(L"元\\上\\新しい.txt", "only here");
        Tree().MakeFolder(L"元\\上\\空");
    }

    testing::AssertionResult TransferIndividually() {
        RunPlan plan = Plan({Tree().Path(L"元\\上")});
        if (IsMove())
            plan.Switches = {L"/m"};
        if (const auto opened = Open(plan); !opened)
            return opened;
        if (!Dialog().Choose(kIndividual) || !Dialog().Choose(PolicyControl(Policy())))
            return testing::AssertionFailure() << "a choice cannot be made";
        Dialog().Select(kPrecision, Precision());
        return Transfer(Tree().Path(L"先"));
    }

    void ExpectFolder(const std::wstring& folder) const {
        for (const int age : kAges) {
            SCOPED_TRACE(age);
            const bool isRenamed = Policy() == kRenameAutomatically;
            const bool isOverwritten = !isRenamed && Overwrites(Policy(), Precision(), age);
            const bool isSourceGone = IsMove() && (isRenamed || isOverwritten);
            const std::wstring name = folder + NameOf(age);
            EXPECT_EQ(ReadBytes(Tree().Path(L"先\\" + name)),
                      isOverwritten ? Incoming(name) : Existing(name));
            EXPECT_EQ(ReadBytes(Tree().Path(L"元\\" + name)), isSourceGone ? "" : Incoming(name));
        }
    }
};

std::string NameOfPolicy(const testing::TestParamInfo<PolicyCase>& info) {
    return "Policy" + std::to_string(std::get<0>(info.param)) + "Precision" +
           std::to_string(std::get<1>(info.param)) + (std::get<2>(info.param) ? "Move" : "Copy");
}

TEST_P(IndividualTransfer, DecidesEachCollisionByThePolicy) {
    MakeTrees();
    ASSERT_TRUE(TransferIndividually());
    ExpectFolder(L"上\\");
    ExpectFolder(L"上\\下\\");
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\上\\新しい.txt")), "only here");
    EXPECT_TRUE(Exists(Tree().Path(L"先\\上\\空")));
    EXPECT_EQ(Exists(Tree().Path(L"元\\上\\新しい.txt")), !IsMove());
    EXPECT_EQ(Exists(Tree().Path(L"元\\上\\空")), !IsMove());
}

// What the policy overwrites is gone, and nothing else: each incoming content is in one place after a move,
// each existing one where it was or, made way for, nowhere.
TEST_P(IndividualTransfer, LosesNoContentBesideWhatItOverwrites) {
    MakeTrees();
    ASSERT_TRUE(TransferIndividually());
    Contents contents = ContentsBelow(Tree().Path(L"先"));
    for (const auto& [content, count] : ContentsBelow(Tree().Path(L"元"))) {
        contents[content] += count;
    }
    std::size_t arrived = 0;
    for (const wchar_t* folder : {L"上\\", L"上\\下\\"}) {
        for (const int age : kAges) {
            const std::wstring name = folder + NameOf(age);
            SCOPED_TRACE(base::ToUtf8(name));
            const bool arrives = Policy() == kRenameAutomatically || Overwrites(Policy(), Precision(), age);
            const bool isOverwritten = arrives && Policy() != kRenameAutomatically;
            EXPECT_EQ(contents[Incoming(name)], arrives && !IsMove() ? 2U : 1U);
            EXPECT_EQ(contents[Existing(name)], isOverwritten ? 0U : 1U);
            arrived += arrives ? 1 : 0;
        }
    }
    EXPECT_EQ(LinesOf(FileOps(), L"PerformOperations").size(), arrived + 1) << "one for each file that goes";
}

TEST_P(IndividualTransfer, AMoveRemovesOnlyTheFoldersThatItEmptied) {
    MakeTrees();
    ASSERT_TRUE(TransferIndividually());
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\上\\新しい.txt")), "only here") << "the run did nothing";
    const bool allGone = IsMove() && (Policy() == 3 || Policy() == kRenameAutomatically);
    EXPECT_EQ(Exists(Tree().Path(L"元\\上")), !allGone);
    EXPECT_EQ(Exists(Tree().Path(L"元\\上\\下")), !allGone);
}

INSTANTIATE_TEST_SUITE_P(Policies, IndividualTransfer,
                         testing::Combine(testing::Values(0, 1, 2, 3, kRenameAutomatically),
                                          testing::Values(0, 1, 2), testing::Bool()),
                         NameOfPolicy);

class IndividualRun : public TransferTest {
protected:
    testing::AssertionResult TransferWithPolicy(const std::vector<std::wstring>& items, int policy,
                                                std::vector<std::wstring> switches = {}) {
        RunPlan plan = Plan(items);
        plan.Switches = std::move(switches);
        WriteNumber(kProgramKey, L"Mode", 1);
        WriteNumber(kProgramKey, L"Name", static_cast<DWORD>(policy));
        if (const auto opened = Open(plan); !opened)
            return opened;
        return Transfer(Tree().Path(L"先"));
    }
};

TEST_F(IndividualRun, CopiesANestedTreeByteForByte) {
    const std::wstring source = Tree().MakeSample(L"元");
    const TreeSnapshot before = ReadTree(source);
    ASSERT_TRUE(TransferWithPolicy({source}, 0));
    EXPECT_EQ(Differences(before, ReadTree(Tree().Path(L"先\\元"))), "");
    EXPECT_EQ(Differences(before, ReadTree(source)), "");
}

TEST_F(IndividualRun, MovesANestedTreeAndLeavesNothingBehind) {
    const std::wstring source = Tree().MakeSample(L"元");
    const TreeSnapshot before = ReadTree(source);
    ASSERT_TRUE(TransferWithPolicy({source}, 0, {L"/m"}));
    EXPECT_EQ(Differences(before, ReadTree(Tree().Path(L"先\\元"))), "");
    EXPECT_FALSE(Exists(source));
}

TEST_F(IndividualRun, ShowsTheShellsProgressOnlyForLargeFiles) {
    const std::wstring small = Tree().WriteFile(L"元\\small.bin", std::string(0xA00000, 's'));
    const std::wstring large = Tree().WriteFile(L"元\\large.bin", std::string(0xA00001, 'l'));
    ASSERT_TRUE(TransferWithPolicy({small, large}, 3));
    EXPECT_EQ(FlagsIn(FileOps()), (std::vector<unsigned long>{0x2A14, 0x2A10}));
}

TEST_F(IndividualRun, TheConfirmationDialogOwnsEachTransferAndTheDesktopABatch) {
    const std::wstring first = Tree().WriteFile(L"元\\a.txt", "a");
    const std::wstring second = Tree().WriteFile(L"元\\b.txt", "b");
    for (const DWORD mode : {1U, 0U}) {
        WriteNumber(kProgramKey, L"Mode", mode);
        ASSERT_TRUE(Open(Plan({first, second})));
        const HWND expected = mode == 1 ? Dialog().Window() : GetDesktopWindow();
        ASSERT_TRUE(Transfer(Tree().Path(mode == 1 ? L"先" : L"別")));
        const auto owners = LinesOf(FileOps(), L"SetOwnerWindow");
        ASSERT_FALSE(owners.empty());
        EXPECT_EQ(std::stoull(owners.back()[1], nullptr, 16), reinterpret_cast<ULONG_PTR>(expected));
        EXPECT_EQ(owners.size(), mode == 1 ? 2U : 3U) << "one for each file, and one for the batch";
    }
}

TEST_F(IndividualRun, AFolderThatIsThereTakesTheAttributesOfItsSourceAndANewOneDoesNot) {
    Tree().WriteFile(L"元\\上\\a.txt", "a");
    Tree().MakeFolder(L"元\\上\\中", FILE_ATTRIBUTE_HIDDEN);
    Tree().MakeFolder(L"元\\上\\新", FILE_ATTRIBUTE_HIDDEN);
    Tree().MakeFolder(L"先\\上\\中");
    ASSERT_TRUE(TransferWithPolicy({Tree().Path(L"元\\上")}, 0));
    const TreeSnapshot after = ReadTree(Tree().Path(L"先\\上"));
    EXPECT_EQ(after.at(L"中").Attributes, DWORD{FILE_ATTRIBUTE_HIDDEN});
    EXPECT_EQ(after.at(L"新").Attributes, 0U);
    EXPECT_EQ(after.at(L"a.txt").Content, "a");
}

TEST_F(IndividualRun, PartsOfASecondCountOnlyAtTheFinestPrecision) {
    struct TimeCase {
        DWORD Precision;
        double Seconds;
        bool IsNewer;
    };
    const TimeCase cases[] = {{0, 0.0000001, true}, {0, 0, false},   {1, 0.9, false}, {1, 1.9, false},
                              {1, 2, true},         {2, 2.9, false}, {2, 3, true}};
    for (const auto& [precision, age, isNewer] : cases) {
        SCOPED_TRACE(std::to_string(precision) + " " + std::to_string(age));
        const std::wstring file = Tree().WriteFile(L"元\\a.txt", "incoming", age);
        Tree().WriteFile(L"先\\a.txt", "existing", 0);
        WriteNumber(kProgramKey, L"TimeCmpType", precision);
        ASSERT_TRUE(TransferWithPolicy({file}, 0));
        EXPECT_EQ(ReadBytes(Tree().Path(L"先\\a.txt")), isNewer ? "incoming" : "existing");
    }
}

TEST_F(IndividualRun, AnAutomaticNameKeepsBothFiles) {
    const std::wstring file = Tree().WriteFile(L"元\\a.txt", "incoming");
    Tree().WriteFile(L"先\\a.txt", "existing");
    ASSERT_TRUE(TransferWithPolicy({file}, kRenameAutomatically));
    const TreeSnapshot after = ReadTree(Tree().Path(L"先"));
    ASSERT_EQ(after.size(), 2U);
    EXPECT_EQ(after.at(L"a.txt").Content, "existing");
    EXPECT_TRUE(std::any_of(after.begin(), after.end(),
                            [](const auto& each) { return each.second.Content == "incoming"; }));
}

}  // namespace
}  // namespace ferry::e2e
