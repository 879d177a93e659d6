// Which call begins a search.
#include "files/find_call.h"

#include <gtest/gtest.h>

namespace ferry::files {
namespace {

TEST(UsesPlainFindFirst, HoldsForTwoShellVersionsOnly) {
    for (int combined = 0; combined <= 2000; ++combined) {
        EXPECT_EQ(UsesPlainFindFirst(combined), combined == 501 || combined == 600) << combined;
    }
}

}  // namespace
}  // namespace ferry::files
