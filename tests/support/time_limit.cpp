// Ends a test program whose test takes too long: a hang is a failure with a name. Linked into every test
// program; FERRY_TEST_SECONDS gives another limit.
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>
#include <thread>

namespace ferry::test {
namespace {

constexpr int kUsualSeconds = 300;
constexpr int kExitCode = 124;  // what a program that exceeds its time leaves by custom

std::chrono::seconds Limit() {
    const char* const text = std::getenv("FERRY_TEST_SECONDS");
    const long seconds = text == nullptr ? 0 : std::strtol(text, nullptr, 10);
    return std::chrono::seconds(seconds > 0 ? seconds : kUsualSeconds);
}

/// Looks on from a thread of its own while a test runs.
class TimeLimit : public testing::EmptyTestEventListener {
public:
    void OnTestStart(const testing::TestInfo& test) override {
        isOver_ = false;
        name_ = std::string(test.test_suite_name()) + "." + test.name();
        watch_ = std::thread([this] { Watch(); });
    }

    void OnTestEnd(const testing::TestInfo&) override {
        {
            const std::lock_guard lock(mutex_);
            isOver_ = true;
        }
        changed_.notify_one();
        watch_.join();
    }

private:
    void Watch() {
        std::unique_lock lock(mutex_);
        const auto limit = Limit();
        if (changed_.wait_for(lock, limit, [this] { return isOver_; }))
            return;
        std::printf("time limit: error: %s did not end within %lld s\n", name_.c_str(),
                    static_cast<long long>(limit.count()));
        std::fflush(stdout);
        std::_Exit(kExitCode);
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::thread watch_;
    std::string name_;
    bool isOver_ = false;
};

[[maybe_unused]] const bool kIsWatched = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new TimeLimit);
    return true;
}();

}  // namespace
}  // namespace ferry::test
