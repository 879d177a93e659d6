// Faults made on purpose, as a whole operation sees them.
#include "base/utf16.h"
#include "service_fixture.h"
#include "window_driver.h"

namespace ferry::fileop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FaultRunTest : public ServiceTest {
protected:
    FaultRunTest() {
        for (const int number : {1, 2, 3}) {
            const auto file =
                folder_.MakeFile(L"from\\" + std::to_wstring(number), "content " + std::to_string(number));
            jobs_.push_back({true, file, target_});
        }
    }

    /// However a run ended: every file that is there has its own content.
    ~FaultRunTest() override {
        for (const std::wstring& folder : {source_, target_}) {
            for (const std::wstring& name : TreeOf(folder)) {
                EXPECT_EQ(ContentOf(folder + L"\\" + name), "content " + base::ToUtf8(name));
            }
        }
    }

    std::vector<Job> jobs_;
};

TEST_F(FaultRunTest, AFailedItemStaysAndTheOthersGoOn) {
    SetFaults(L"fail@2");
    const Outcome outcome = Perform(jobs_, FOF_SILENT);
    EXPECT_EQ(outcome.Performed, E_FAIL);
    EXPECT_FALSE(outcome.IsAborted);
    EXPECT_THAT(TreeOf(source_), ElementsAre(L"2"));
    EXPECT_THAT(TreeOf(target_), ElementsAre(L"1", L"3"));
}

TEST_F(FaultRunTest, AnAbortStopsBeforeItsItem) {
    SetFaults(L"abort@2");
    const Outcome outcome = Perform(jobs_);
    EXPECT_EQ(outcome.Performed, kCancelled);
    EXPECT_TRUE(outcome.IsAborted);
    EXPECT_THAT(TreeOf(source_), ElementsAre(L"2", L"3"));
    EXPECT_THAT(TreeOf(target_), ElementsAre(L"1"));
}

TEST_F(FaultRunTest, TheCountGoesOnOverOperations) {
    SetFaults(L"fail@3");
    EXPECT_EQ(Perform({jobs_[0], jobs_[1]}).Performed, S_OK);
    EXPECT_EQ(Perform({jobs_[2]}).Performed, E_FAIL);
}

TEST_F(FaultRunTest, ASlowItemTakesItsTime) {
    SetFaults(L"slow@1:300");
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(Perform({jobs_[0]}).Performed, S_OK);
    EXPECT_GE(GetTickCount64() - start, 300U);
    EXPECT_THAT(TreeOf(target_), ElementsAre(L"1"));
}

TEST_F(FaultRunTest, ASlowRunCanBeCancelledInItsProgressWindow) {
    SetFaults(L"slow@2:60000");
    WindowDriver driver({{L"File Operation", VK_ESCAPE}});
    const Outcome outcome = Perform(jobs_, FOF_NOCONFIRMATION);
    EXPECT_EQ(outcome.Performed, kCancelled);
    EXPECT_TRUE(outcome.IsAborted);
    EXPECT_EQ(driver.Finish().size(), 1U);
    EXPECT_THAT(Log(), testing::Contains(L"ProgressWindow\tshown"));
    EXPECT_EQ(TreeOf(source_).size() + TreeOf(target_).size(), 3U);
    EXPECT_GE(TreeOf(source_).size(), 2U);
}

TEST_F(FaultRunTest, ASilentRunShowsNoProgressWindow) {
    EXPECT_EQ(Perform(jobs_, FOF_SILENT).Performed, S_OK);
    EXPECT_THAT(Log(), testing::Not(testing::Contains(L"ProgressWindow\tshown")));
}

TEST_F(FaultRunTest, AnErrorIsToldAndMayBeTriedAgain) {
    SetFaults(L"error@1");
    WindowDriver driver({{L"Item Not Transferred", L't'}});
    const Outcome outcome = Perform(jobs_, FOF_SILENT);
    EXPECT_EQ(outcome.Performed, S_OK);
    EXPECT_FALSE(outcome.IsAborted);
    EXPECT_EQ(driver.Finish().size(), 1U);
    EXPECT_THAT(TreeOf(source_), IsEmpty());
}

TEST_F(FaultRunTest, AnErrorMayBeSkippedOrCancelTheRun) {
    SetFaults(L"error@1,error@2,error@3");
    WindowDriver driver({{L"Item Not Transferred", L's'},
                         {L"Item Not Transferred", VK_RETURN},
                         {L"Item Not Transferred", VK_ESCAPE}});
    const Outcome outcome = Perform(jobs_, FOF_SILENT);
    EXPECT_EQ(outcome.Performed, kCancelled);
    EXPECT_TRUE(outcome.IsAborted);
    EXPECT_EQ(driver.Finish().size(), 3U);
    EXPECT_THAT(TreeOf(source_), ElementsAre(L"1", L"2", L"3"));
}

TEST_F(FaultRunTest, AnErrorIsNotToldWithoutErrorWindows) {
    SetFaults(L"error@1");
    const Outcome outcome = Perform(jobs_, FOF_SILENT | FOF_NOERRORUI);
    EXPECT_EQ(outcome.Performed, E_FAIL);
    EXPECT_TRUE(outcome.IsAborted);
    EXPECT_THAT(TreeOf(source_), ElementsAre(L"1"));
}

TEST_F(FaultRunTest, ABadTextIsLoggedAndNothingFails) {
    SetEnvironmentVariableW(L"FERRY_FILEOP_FAULTS", L"fail@*,oops");
    EXPECT_EQ(Perform(jobs_).Performed, S_OK);
    EXPECT_THAT(Log(), testing::Contains(L"Faults\tnot understood\tfail@*,oops"));
}

}  // namespace
}  // namespace ferry::fileop
