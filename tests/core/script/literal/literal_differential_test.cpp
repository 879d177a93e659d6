// The program's interpreter against one that is slow and plain, on random scripts.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iostream>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "core/script/literal/differential.h"
#include "core/script/literal/random_script.h"

namespace ferry::script::literal {
namespace {

std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* const text = std::getenv(name);
    return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

std::string DifferenceOfSeed(std::uint64_t seed) {
    SeededDice dice(seed);
    const ScriptCase one = RandomCase(dice);
    if (DifferenceIn(one).empty())
        return {};
    return DifferenceIn(Shrunk(one)) + "run it again with FERRY_DIFFERENTIAL_SEED=" + std::to_string(seed);
}

/// The difference of one of the seeds from 1 to `last`, which all processors try; empty when there is none.
std::string FirstDifference(std::uint64_t last) {
    std::atomic<std::uint64_t> next = 1;
    std::mutex guard;
    std::string first;
    const auto work = [&] {
        for (std::uint64_t seed = next++; seed <= last; seed = next++) {
            const std::string difference = DifferenceOfSeed(seed);
            if (difference.empty())
                continue;
            const std::lock_guard lock(guard);
            next = last + 1;
            if (first.empty())
                first = difference;
        }
    };
    std::vector<std::thread> threads;
    for (unsigned count = std::max(1u, std::thread::hardware_concurrency()); count > 0; --count)
        threads.emplace_back(work);
    for (std::thread& thread : threads)
        thread.join();
    return first;
}

TEST(RandomScripts, DoTheSameInBothInterpreters) {
    if (std::getenv("FERRY_DIFFERENTIAL_SEED") != nullptr) {
        EXPECT_EQ(DifferenceOfSeed(FromEnvironment("FERRY_DIFFERENTIAL_SEED", 1)), "");
        return;
    }
    // A few seconds' worth under the sanitizers; whoever changes the interpreter asks for more.
    const std::uint64_t scripts = FromEnvironment("FERRY_DIFFERENTIAL_SCRIPTS", 500);
    ASSERT_EQ(FirstDifference(scripts), "");
    std::cout << scripts << " scripts\n";
}

}  // namespace
}  // namespace ferry::script::literal
