// Ends a test program whose test takes too long: a hang is a failure with a name. Linked into every test
// program; FERRY_TEST_SECONDS gives another limit.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/alarm.h"

namespace ferry::test {
namespace {

constexpr int kUsualSeconds = 300;
constexpr int kExitCode = 124;  // what a program that exceeds its time leaves by custom

std::chrono::seconds Limit() {
    const char* const text = std::getenv("FERRY_TEST_SECONDS");
    const long seconds = text == nullptr ? 0 : std::strtol(text, nullptr, 10);
    return std::chrono::seconds(seconds > 0 ? seconds : kUsualSeconds);
}

std::string running;

void EndProgram() noexcept {
    std::printf("time limit: error: %s did not end within %lld s\n", running.c_str(),
                static_cast<long long>(Limit().count()));
    std::fflush(stdout);
    std::_Exit(kExitCode);
}

class TimeLimit : public testing::EmptyTestEventListener {
public:
    void OnTestStart(const testing::TestInfo& test) override {
        running = std::string(test.test_suite_name()) + "." + test.name();
        StartAlarm(Limit(), &EndProgram);
    }

    void OnTestEnd(const testing::TestInfo&) override { StopAlarm(); }
};

[[maybe_unused]] const bool kIsWatched = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new TimeLimit);
    return true;
}();

}  // namespace
}  // namespace ferry::test
