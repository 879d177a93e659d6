// The folders of the host and its user.
#include <gtest/gtest.h>

#include "script_run.h"

namespace ferry::script {
namespace {

constexpr const wchar_t* kShowsUser =
    L"messagebox=0,%Script_dir%\nmessagebox=0,%User_dir%\nmessagebox=0,%Menu_dir%";

TEST(HostFolders, LieTwoLevelsAboveTheProgram) {
    EXPECT_EQ(
        EffectsOf(L"messagebox=0,%App_Dir%|%CMD_Dir%|%CmdPlugin_Dir%|%Viewer_Dir%|%UserCmd_Dir%"),
        Lines{
            "msg 0 "
            "C:\\Kiv\\|C:\\Kiv\\command\\Default\\|C:\\Kiv\\command\\CmdPlugin\\|C:\\Kiv\\command\\Viewer\\|"
            "C:\\Kiv\\command\\User\\"});
}

TEST(UserFolder, LiesWithTheApplicationData) {
    ScriptRun run;
    EXPECT_EQ(run.Run(kShowsUser), (Lines{"mkdir C:\\Local\\Kiv", "msg 0 C:\\Local\\Kiv\\Script\\",
                                          "msg 0 C:\\Local\\Kiv\\", "msg 0 C:\\Local\\Kiv\\Menu\\"}));
    ScriptRun made;
    made.World.Found[L"C:\\Local\\Kiv"] = 0x10;
    EXPECT_EQ(made.Run(L"messagebox=0,%User_dir%"), Lines{"msg 0 C:\\Local\\Kiv\\"});
    ScriptRun unknown;
    unknown.World.Local.reset();
    EXPECT_EQ(unknown.Run(L"messagebox=0,%User_dir%"), Lines{"msg 0 C:\\Kiv\\"});
}

TEST(UserFolder, LiesWhereTheSettingsSay) {
    ScriptRun run;
    run.World.HostNumbers[L"UserDirMode"] = 2;
    EXPECT_EQ(run.Run(L"messagebox=0,%User_dir%"), Lines{"msg 0 D:\\mine\\"});
}

TEST(UserFolder, LiesBelowTheHost) {
    ScriptRun run;
    run.World.HostNumbers[L"UserDirMode"] = 1;
    EXPECT_EQ(run.Run(L"messagebox=0,%User_dir%"),
              (Lines{"mkdir C:\\Kiv\\Ubar\\u", "msg 0 C:\\Kiv\\Ubar\\u\\"}));
    ScriptRun nobody;
    nobody.World.HostNumbers[L"UserDirMode"] = 3;
    nobody.World.Login.reset();
    EXPECT_EQ(nobody.Run(L"messagebox=0,%User_dir%"),
              (Lines{"mkdir C:\\Kiv\\Ubar", "msg 0 C:\\Kiv\\Ubar\\"}));
}

}  // namespace
}  // namespace ferry::script
