// The watcher that other tests rely on.
#include "windows/watched_import_win32.h"

#include <windows.h>

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

TEST(WatchedImport, FindsNothingThatIsNotImported) {
    EXPECT_EQ(FindImport("NoFunctionOfThisName"), nullptr);
    EXPECT_NE(FindImport("MulDiv"), nullptr);
}

}  // namespace
}  // namespace ferry::test
