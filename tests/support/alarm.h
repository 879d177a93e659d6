// One alarm for a test program.
#pragma once

#include <chrono>

namespace ferry::test {

/// Calls `ring` on another thread after `delay`, unless StopAlarm comes before. One alarm at a time.
///
/// On Windows nothing of the test program runs until then: a thread that waited for it here would call into
/// the system at moments that a test which counts calls cannot know.
void StartAlarm(std::chrono::seconds delay, void (*ring)() noexcept);

void StopAlarm();

}  // namespace ferry::test
