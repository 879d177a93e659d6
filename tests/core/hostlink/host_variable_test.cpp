// The host's variable and the names built from it.
#include "hostlink/host_variable.h"

#include <gtest/gtest.h>

namespace ferry::hostlink {
namespace {

using namespace std::string_view_literals;

TEST(HostVariable, ReadsItsFieldsWhenThereAreTen) {
    const auto variable = ParseHostVariable(L"1:0:10:20:4096:x:y:z:Share:");
    ASSERT_TRUE(variable);
    EXPECT_EQ(variable->WindowMode, 1);
    EXPECT_EQ(variable->ActivateHostOnExit, 0);
    EXPECT_EQ(variable->FirstNumber, 10);
    EXPECT_EQ(variable->SecondNumber, 20);
    EXPECT_EQ(variable->BlockSizeBytes, 4096u);
    EXPECT_TRUE(variable->ShareMode);
    EXPECT_EQ(BlockName(*variable), L"ShareMem_10_20");
}

TEST(HostVariable, AnnouncesABlockOnlyByTheExactWord) {
    for (const auto* value :
         {L"1:1:10:20:4096:x:y:z:share:", L"1:1:10:20:4096:x:y:z:SHARE:", L"1:1:10:20:4096:x:y:z::",
          L"1:1:10:20:4096:x:y:z:Share :", L"1:1:10:20:4096:x:y:z:Shared:", L"1:1:1:1:1:x:y:Share:z:Share"}) {
        const auto variable = ParseHostVariable(value);
        ASSERT_TRUE(variable);
        EXPECT_FALSE(variable->ShareMode);
        EXPECT_EQ(variable->WindowMode, 1);
        EXPECT_EQ(variable->ActivateHostOnExit, 1);
    }
}

TEST(HostVariable, IsNothingUnlessThereAreExactlyTenFields) {
    EXPECT_FALSE(ParseHostVariable(L""));
    EXPECT_FALSE(ParseHostVariable(L"3"));
    EXPECT_FALSE(ParseHostVariable(L"3:1:10:20:4096:x:y:z:Share"));
    EXPECT_FALSE(ParseHostVariable(L"3:1:10:20:4096:x:y:z:Share::"));
    EXPECT_FALSE(ParseHostVariable(L"3:1:10:20:4096:x:y\0:z:Share:"sv));
    EXPECT_TRUE(ParseHostVariable(L":::::::::"));
}

TEST(HostVariable, ReadsFieldsThatAreNoNumbersAsZero) {
    const auto variable = ParseHostVariable(L"a:b:c:d:e:f:g:h:Share:j");
    ASSERT_TRUE(variable);
    EXPECT_EQ(variable->WindowMode, 0);
    EXPECT_EQ(variable->ActivateHostOnExit, 0);
    EXPECT_EQ(BlockName(*variable), L"ShareMem_0_0");
    EXPECT_EQ(variable->BlockSizeBytes, 0u);
    EXPECT_TRUE(variable->ShareMode);
}

TEST(HostVariable, PrintsTheNumbersOfTheNamesBackWithTheirSigns) {
    HostVariable variable;
    variable.FirstNumber = 4312;
    variable.SecondNumber = 7;
    EXPECT_EQ(BlockName(variable), L"ShareMem_4312_7");
    EXPECT_EQ(BlockGuardName(variable), L"ShareMem_4312_7_Mutex");
    variable.FirstNumber = -1;
    variable.SecondNumber = -2147483647 - 1;
    EXPECT_EQ(BlockName(variable), L"ShareMem_-1_-2147483648");
}

TEST(PresenceMutexName, HoldsTheFileNameWithItsExtension) {
    EXPECT_EQ(PresenceMutexName(L"C:\\App\\Command\\Ferry\\Ferry.exe"), L"ExCommand.Ferry.exe");
    EXPECT_EQ(PresenceMutexName(L"Ferry.exe"), L"ExCommand.Ferry.exe");
}

}  // namespace
}  // namespace ferry::hostlink
