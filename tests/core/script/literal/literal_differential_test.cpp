// The program's interpreter against one that is slow and plain, on random scripts.
#include <gtest/gtest.h>

#include <cstdint>
#include <iostream>
#include <string>

#include "core/script/literal/differential.h"
#include "core/script/literal/random_script.h"
#include "support/seeds.h"

namespace ferry::script::literal {
namespace {

std::string DifferenceOfSeed(std::uint64_t seed) {
    SeededDice dice(seed);
    const ScriptCase one = RandomCase(dice);
    if (DifferenceIn(one).empty())
        return {};
    return DifferenceIn(Shrunk(one));
}

TEST(RandomScripts, DoTheSameInBothInterpreters) {
    // A few seconds' worth under the sanitizers; whoever changes the interpreter asks for more.
    const std::uint64_t scripts = test::NumberFromEnvironment("FERRY_DIFFERENTIAL_SCRIPTS", 500);
    ASSERT_EQ(test::FirstFinding(scripts, "FERRY_DIFFERENTIAL_SEED", DifferenceOfSeed), "");
    std::cout << scripts << " scripts\n";
}

}  // namespace
}  // namespace ferry::script::literal
