// What stays when the shell's operation fails or is cancelled: no file is lost.
#include "base/utf16.h"
#include "e2e/driver/surroundings.h"
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

class FaultyShell : public TransferTest {
protected:
    void SetUp() override {
        TransferTest::SetUp();
        for (const wchar_t* name : {L"a.txt", L"b.txt", L"c.txt"}) {
            items_.push_back(Tree().WriteFile(std::wstring(L"元\\") + name, base::ToUtf8(name)));
        }
    }

    /// Moves the three files with these faults, in batch mode (0) or individually (1).
    testing::AssertionResult MoveWithFaults(const std::wstring& faults, DWORD mode) {
        SetVariable(L"FERRY_FILEOP_FAULTS", faults);
        WriteNumber(kProgramKey, L"Mode", mode);
        RunPlan plan = Plan(items_);
        plan.Switches = {L"/m"};
        if (const auto opened = Open(plan); !opened)
            return opened;
        return Transfer(Tree().MakeFolder(L"先"));
    }

    /// The names that are at the destination; each file must be whole in exactly one place.
    std::wstring Arrived() const {
        std::wstring names;
        for (const wchar_t* name : {L"a", L"b", L"c"}) {
            const std::wstring file = std::wstring(name) + L".txt";
            const bool isThere = ReadBytes(Tree().Path(L"先\\" + file)) == base::ToUtf8(file);
            const bool isHere = ReadBytes(Tree().Path(L"元\\" + file)) == base::ToUtf8(file);
            EXPECT_NE(isThere, isHere);
            if (isThere)
                names += name;
        }
        return names;
    }

    std::vector<std::wstring> items_;
};

TEST_F(FaultyShell, AnIndividualMoveGoesOnAfterAFailureAndKeepsThatSource) {
    ASSERT_TRUE(MoveWithFaults(L"fail@2", 1));
    EXPECT_EQ(Arrived(), L"ac");
}

TEST_F(FaultyShell, AnIndividualMoveStopsAtACancelledOperation) {
    ASSERT_TRUE(MoveWithFaults(L"abort@2", 1));
    EXPECT_EQ(Arrived(), L"a");
}

TEST_F(FaultyShell, ABatchMoveLosesNothingToAFailure) {
    ASSERT_TRUE(MoveWithFaults(L"fail@1", 0));
    EXPECT_EQ(Arrived(), L"bc");
}

TEST_F(FaultyShell, ABatchMoveLosesNothingToACancel) {
    ASSERT_TRUE(MoveWithFaults(L"abort@3", 0));
    EXPECT_EQ(Arrived(), L"ab");
}

}  // namespace
}  // namespace ferry::e2e
