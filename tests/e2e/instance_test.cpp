// The presence mutex, which tells others that Ferry runs.
#include "base/handles_win32.h"
#include "e2e/driver/surroundings.h"
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

constexpr wchar_t kPresenceName[] = L"ExCommand.Ferry.exe";

bool IsPresent() {
    return static_cast<bool>(base::MutexHandle(OpenMutexW(SYNCHRONIZE, FALSE, kPresenceName)));
}

class Presence : public FerryTest {};

TEST_F(Presence, IsThereWhileFerryRunsAndGoneAfterwards) {
    ASSERT_FALSE(IsPresent());
    ASSERT_TRUE(OpenWithoutHost());
    EXPECT_TRUE(IsPresent());
    ASSERT_TRUE(CancelEndsWell());
    EXPECT_FALSE(IsPresent());
}

TEST_F(Presence, StaysWithTheFirstInstance) {
    ASSERT_TRUE(OpenWithoutHost());
    FerryRun second(PlanWithoutHost());
    ASSERT_TRUE(second.WaitForDialog().IsOpen());
    EXPECT_TRUE(Run().IsRunning());
    ASSERT_TRUE(second.CancelAndWait().IsGood());
    EXPECT_TRUE(IsPresent());
}

TEST_F(Presence, IsNotHeldByTheSecondInstance) {
    ASSERT_TRUE(OpenWithoutHost());
    FerryRun second(PlanWithoutHost());
    ASSERT_TRUE(second.WaitForDialog().IsOpen());
    ASSERT_TRUE(CancelEndsWell());
    EXPECT_FALSE(IsPresent());
    EXPECT_TRUE(second.IsRunning());
}

}  // namespace
}  // namespace ferry::e2e
