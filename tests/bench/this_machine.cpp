#include "this_machine.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <thread>
#include <vector>

namespace ferry::bench {
namespace {

// Some milliseconds, which is longer than a scheduler lets two threads share a processor unnoticed.
constexpr std::uint32_t kSteps = 4'000'000;
constexpr int kFirstSpins = 20;
constexpr double kCalm = 1.3;
constexpr std::chrono::milliseconds kPause{5};

volatile std::uint32_t nobodyReads;

double SpinMs() {
    const auto begin = std::chrono::steady_clock::now();
    std::uint32_t number = 1;
    for (std::uint32_t step = 0; step < kSteps; ++step) {
        number = number * 1664525U + 1013904223U;
    }
    nobodyReads = number;
    const std::chrono::duration<double, std::milli> spent = std::chrono::steady_clock::now() - begin;
    return spent.count();
}

/// On how many processors this program runs. FERRY_BENCH_PROCESSORS says so where the system does not: Wine
/// tells of all that there are, however few it may use.
std::size_t Processors() {
    const char* const told = std::getenv("FERRY_BENCH_PROCESSORS");
    const auto count =
        told != nullptr ? std::strtoul(told, nullptr, 10) : std::thread::hardware_concurrency();
    return std::max<std::size_t>(1, count);
}

/// How long each processor took, when all work at once.
std::vector<double> SpinEverywhereMs() {
    static const std::size_t count = Processors();
    std::vector<double> spent(count);
    std::vector<std::thread> threads;
    for (std::size_t place = 1; place < spent.size(); ++place) {
        threads.emplace_back([&spent, place] { spent[place] = SpinMs(); });
    }
    spent.front() = SpinMs();
    for (std::thread& thread : threads) {
        thread.join();
    }
    return spent;
}

}  // namespace

ThisMachine::ThisMachine() : fastestMs_(SpinMs()) {
    for (int spin = 1; spin < kFirstSpins; ++spin) {
        fastestMs_ = std::min(fastestMs_, SpinMs());
    }
}

bool ThisMachine::BecomesCalm(int patienceMs) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(patienceMs);
    while (!IsCalm()) {
        if (std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

double ThisMachine::Seconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

bool ThisMachine::IsCalm() {
    const auto spent = SpinEverywhereMs();
    const auto [least, most] = std::ranges::minmax(spent);
    fastestMs_ = std::min(fastestMs_, least);
    return most <= kCalm * fastestMs_;
}

}  // namespace ferry::bench
