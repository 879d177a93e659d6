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
///
/// Threads that no test started may call, too: the system's own ones come and go at any moment, and the
/// runtime library of this program has work to do for each. What a test says of every call of a function
/// that the runtime uses, it says of its own thread's calls.
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
        const Guard guard;
        real_ = reinterpret_cast<RealFunction>(*place_);
        current_ = this;
        ReplaceImport(place_, reinterpret_cast<void*>(&Receive));
    }

    /// Waits for answers that are under way on other threads.
    ~WatchedImport() {
        if (place_ == nullptr) {
            return;
        }
        ReplaceImport(place_, reinterpret_cast<void*>(real_));
        const Guard guard;
        current_ = nullptr;
        while (answering_ != 0) {
            SleepConditionVariableSRW(&answered_, &lock_, INFINITE, 0);
        }
    }

    WatchedImport(const WatchedImport&) = delete;
    WatchedImport& operator=(const WatchedImport&) = delete;

    /// What the system answers.
    Result CallReal(Arguments... arguments) const { return real_(arguments...); }

    /// The arguments of every call so far. What they point to may be gone.
    std::vector<Call> Calls() const {
        const Guard guard;
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

    /// The system's own lock: that of the standard library may call what is watched.
    class Guard {
    public:
        Guard() noexcept { AcquireSRWLockExclusive(&lock_); }
        ~Guard() { ReleaseSRWLockExclusive(&lock_); }
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;
    };

    /// Notes a call, and keeps the watcher alive while it answers.
    class Visit {
    public:
        explicit Visit(Arguments... arguments) {
            const Guard guard;
            if (current_ == nullptr) {
                return;
            }
            current_->calls_.emplace_back(arguments...);
            if (current_->answer_) {
                answer_ = &current_->answer_;
                ++answering_;
            }
        }
        ~Visit() {
            if (answer_ != nullptr) {
                const Guard guard;
                --answering_;
                WakeAllConditionVariable(&answered_);
            }
        }
        Visit(const Visit&) = delete;
        Visit& operator=(const Visit&) = delete;

        /// Null when the call is to be passed on: also when the watcher ended after the call had begun.
        const Answer* Asked() const noexcept { return answer_; }

    private:
        const Answer* answer_ = nullptr;
    };

    static Result WINAPI Receive(Arguments... arguments) {
        const Visit visit(arguments...);
        return visit.Asked() != nullptr ? (*visit.Asked())(arguments...) : real_(arguments...);
    }

    static inline SRWLOCK lock_ = SRWLOCK_INIT;
    static inline CONDITION_VARIABLE answered_ = CONDITION_VARIABLE_INIT;
    static inline WatchedImport* current_ = nullptr;
    static inline int answering_ = 0;
    static inline RealFunction real_ = nullptr;

    Answer answer_;
    void** place_;
    std::vector<Call> calls_;
};

}  // namespace ferry::test
