// Shows a test how this program calls a function of Windows, and lets the test answer for it.
//
// A program calls the functions of other libraries through its import table: one place for each function,
// which holds the function's address. A test that writes an address of its own there sees every call that
// this program makes, from whichever thread, with its arguments; the calls of the system's own libraries
// have tables of their own and stay as they are. So what cannot be seen from its effect can be looked at
// without a change to the product: which flags a call gets, in which order calls come, what is done when
// one of them fails.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <functional>
#include <mutex>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace ferry::test {

/// The place of the function `name` in this program's import table; null when it does not import it by name.
void** FindImport(const char* name) noexcept;

/// Writes `function` into `place` and gives what stood there.
void* ReplaceImport(void** place, void* function) noexcept;

/// Takes the place of one imported function for as long as it lives. One at a time for each function.
template <auto function>
class WatchedImport;

template <class Result, class... Arguments, Result(WINAPI* function)(Arguments...)>
class WatchedImport<function> {
public:
    using Call = std::tuple<std::decay_t<Arguments>...>;
    using Answer = std::function<Result(Arguments...)>;

    /// Passes every call on.
    explicit WatchedImport(const char* name) : WatchedImport(name, {}) {}

    /// Lets `answer` do what the function would; it runs on the thread of the call.
    WatchedImport(const char* name, Answer answer) : answer_(std::move(answer)), place_(FindImport(name)) {
        if (place_ == nullptr) {
            ADD_FAILURE() << name << " is not imported";
            return;
        }
        current_ = this;
        real_ = reinterpret_cast<RealFunction>(ReplaceImport(place_, reinterpret_cast<void*>(&Receive)));
    }

    ~WatchedImport() {
        if (place_ != nullptr) {
            ReplaceImport(place_, reinterpret_cast<void*>(real_));
            current_ = nullptr;
        }
    }

    WatchedImport(const WatchedImport&) = delete;
    WatchedImport& operator=(const WatchedImport&) = delete;

    /// What the system answers.
    Result CallReal(Arguments... arguments) const { return real_(arguments...); }

    /// The arguments of every call so far. What they point to may be gone.
    std::vector<Call> Calls() const {
        const std::lock_guard guard(lock_);
        return calls_;
    }

    /// The arguments of the only call; with any other number of calls a failure, and zeros.
    Call OnlyCall() const {
        const std::vector<Call> calls = Calls();
        EXPECT_EQ(calls.size(), 1U);
        return calls.size() == 1 ? calls.front() : Call();
    }

private:
    using RealFunction = Result(WINAPI*)(Arguments...);

    static Result WINAPI Receive(Arguments... arguments) {
        WatchedImport& watched = *current_;
        {
            const std::lock_guard guard(watched.lock_);
            watched.calls_.emplace_back(arguments...);
        }
        return watched.answer_ ? watched.answer_(arguments...) : watched.real_(arguments...);
    }

    static inline WatchedImport* current_ = nullptr;

    Answer answer_;
    void** place_;
    RealFunction real_ = nullptr;
    mutable std::mutex lock_;
    std::vector<Call> calls_;
};

}  // namespace ferry::test
