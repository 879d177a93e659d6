// Where the manual's pages are, and which find-first call suits a shell.
#include "process/manual.h"

#include <gtest/gtest.h>

namespace ferry::process {
namespace {

TEST(ManualAddress, PutsThePagesPathAfterTheBase) {
    EXPECT_EQ(ManualAddress(L"https://manual.example", kFerryManualPage, L"C:\\App\\Ferry.exe"),
              L"https://manual.example/kiv/man5/6.Command/2.DefaultCommand/Ferry.html");
}

TEST(ManualAddress, NamesTheInstalledPageWhenThereIsNoBase) {
    EXPECT_EQ(ManualAddress(L"", kFerryManualPage, L"C:\\App\\Command\\Ferry\\Ferry.exe"),
              L"C:\\App\\Command\\Ferry\\Manual\\kiv\\man5\\6.Command\\2.DefaultCommand\\Ferry.html");
}

}  // namespace
}  // namespace ferry::process
