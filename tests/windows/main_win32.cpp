// Runs the tests, or plays the child process that one of them asked for.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which it builds on.
#include <commctrl.h>

#include "windows/child_process_win32.h"

int main(int argc, char** argv) {
    if (const auto exitCode = ferry::test::PlayChild()) {
        return *exitCode;
    }
    const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES};
    InitCommonControlsEx(&controls);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
