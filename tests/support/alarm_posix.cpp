#include "support/alarm.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace ferry::test {
namespace {

struct Watch {
    std::mutex Mutex;
    std::condition_variable Changed;
    bool IsOver = false;
    std::thread Thread;
};

Watch& TheWatch() {
    static Watch watch;
    return watch;
}

}  // namespace

void StartAlarm(std::chrono::seconds delay, void (*ring)() noexcept) {
    Watch& watch = TheWatch();
    watch.IsOver = false;
    watch.Thread = std::thread([&watch, delay, ring] {
        std::unique_lock lock(watch.Mutex);
        if (!watch.Changed.wait_for(lock, delay, [&watch] { return watch.IsOver; })) {
            ring();
        }
    });
}

void StopAlarm() {
    Watch& watch = TheWatch();
    {
        const std::lock_guard lock(watch.Mutex);
        watch.IsOver = true;
    }
    watch.Changed.notify_one();
    watch.Thread.join();
}

}  // namespace ferry::test
