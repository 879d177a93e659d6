// Trying many made-up cases, each made of a number.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace ferry::test {

/// The number in the environment variable `name`; `otherwise` without it.
inline std::uint64_t NumberFromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* const text = std::getenv(name);
    return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

/// What is wrong with the case of a seed; empty when nothing is. It is called on several threads.
using CaseOfSeed = std::function<std::string(std::uint64_t)>;

/// What is wrong with one of the seeds from 1 to `last`, which all processors try, and the seed itself; empty
/// when nothing is. Where the environment variable `oneSeed` is set, that seed alone is tried.
inline std::string FirstFinding(std::uint64_t last, const char* oneSeed, const CaseOfSeed& findingOf) {
    if (std::getenv(oneSeed) != nullptr)
        return findingOf(NumberFromEnvironment(oneSeed, 1));
    std::atomic<std::uint64_t> next = 1;
    std::mutex guard;
    std::string first;
    const auto work = [&] {
        for (std::uint64_t seed = next++; seed <= last; seed = next++) {
            const std::string finding = findingOf(seed);
            if (finding.empty())
                continue;
            const std::lock_guard lock(guard);
            next = last + 1;
            if (first.empty())
                first = finding + "; run it again with " + oneSeed + "=" + std::to_string(seed);
        }
    };
    std::vector<std::thread> threads;
    for (unsigned count = std::max(1U, std::thread::hardware_concurrency()); count > 0; --count)
        threads.emplace_back(work);
    for (std::thread& thread : threads)
        thread.join();
    return first;
}

}  // namespace ferry::test
