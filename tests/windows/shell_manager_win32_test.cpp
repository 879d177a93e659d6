// The system's small icons at several scalings.
#include "framework/shell_manager.h"

#include <windows.h>
#include <gtest/gtest.h>

namespace ferry::framework {
namespace {

int WidthAt(CShellManager& shell, UINT dpi) {
    int width = 0;
    int height = 0;
    EXPECT_TRUE(ImageList_GetIconSize(shell.SmallIcons(dpi), &width, &height));
    return width;
}

TEST(SmallIcons, AreTheLargestOfTheSystemsThatFitTheScaling) {
    if (GetDpiForSystem() != USER_DEFAULT_SCREEN_DPI) {
        GTEST_SKIP() << "the system's icons have other sizes on this screen";
    }
    CShellManager shell;
    for (const auto& [dpi, width] :
         {std::pair(96U, 16), std::pair(144U, 16), std::pair(192U, 32), std::pair(288U, 48)}) {
        EXPECT_EQ(WidthAt(shell, dpi), width) << dpi;
    }
    EXPECT_EQ(shell.SmallIcons(192), shell.SmallIcons(192));
}

}  // namespace
}  // namespace ferry::framework
