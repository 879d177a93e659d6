// The watcher that other tests rely on.
#include "windows/watched_import_win32.h"

#include <windows.h>

#include <atomic>
#include <thread>
#include <tuple>

#include "support/poll_win32.h"

namespace ferry::test {
namespace {

TEST(WatchedImport, PassesCallsOnAndNotesThem) {
    const WatchedImport<&MulDiv> watched("MulDiv");
    EXPECT_EQ(MulDiv(6, 7, 2), 21);
    EXPECT_EQ(watched.OnlyCall(), std::tuple(6, 7, 2));
}

TEST(WatchedImport, AnswersInThePlaceOfTheFunctionUntilItsEnd) {
    {
        const WatchedImport<&MulDiv> watched(
            "MulDiv", [&](int number, int, int) { return watched.CallReal(number, 10, 1) + 1; });
        EXPECT_EQ(MulDiv(6, 7, 2), 61);
    }
    EXPECT_EQ(MulDiv(6, 7, 2), 21);
}

TEST(WatchedImport, DoesNotEndBeforeAnAnswerOfAnotherThread) {
    std::atomic<bool> isAsked = false;
    std::atomic<bool> isEnding = false;
    std::atomic<bool> hasAnswered = false;
    std::thread caller;
    {
        const WatchedImport<&MulDiv> watched("MulDiv", [&](int, int, int) {
            isAsked = true;
            WaitUntil([&] { return isEnding.load(); });
            Sleep(100);
            hasAnswered = true;
            return 1;
        });
        caller = std::thread([] { MulDiv(6, 7, 2); });
        WaitUntil([&] { return isAsked.load(); });
        isEnding = true;
    }
    EXPECT_TRUE(hasAnswered);
    caller.join();
}

TEST(WatchedImport, PassesOnACallThatBeganBeforeItsEnd) {
    void* function = nullptr;
    {
        const WatchedImport<&MulDiv> watched("MulDiv", [](int, int, int) { return 1; });
        function = *FindImport("MulDiv");
    }
    ASSERT_NE(function, *FindImport("MulDiv"));
    EXPECT_EQ(reinterpret_cast<decltype(&MulDiv)>(function)(6, 7, 2), 21);
}

TEST(WatchedImport, FindsNothingThatIsNotImported) {
    EXPECT_EQ(FindImport("NoFunctionOfThisName"), nullptr);
    EXPECT_NE(FindImport("MulDiv"), nullptr);
}

}  // namespace
}  // namespace ferry::test
