#include "windows/test_deadline_win32.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace ferry::test {
namespace {

constexpr UINT kHungExitCode = 3;
// The way out of a box or dialog first.
constexpr int kButtons[] = {IDCANCEL, IDNO, IDOK, IDYES, IDCLOSE, IDABORT, IDIGNORE, IDRETRY};

void AnswerDialog(HWND dialog) {
    for (const int button : kButtons) {
        if (GetDlgItem(dialog, button) != nullptr) {
            PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
            return;
        }
    }
    PostMessageW(dialog, WM_CLOSE, 0, 0);
}

BOOL CALLBACK CloseIfOwn(HWND window, LPARAM) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == GetCurrentProcessId() && IsWindowVisible(window)) {
        CloseWaitingWindow(window);
    }
    return TRUE;
}

/// Watches over one test after the other from a thread of its own.
class Deadline : public testing::EmptyTestEventListener {
public:
    ~Deadline() override {
        if (!thread_.joinable()) {
            return;
        }
        {
            const std::lock_guard guard(lock_);
            isOver_ = true;
        }
        changed_.notify_all();
        thread_.join();
    }

    void OnTestProgramStart(const testing::UnitTest&) override {
        thread_ = std::thread([this] { Watch(); });
    }

    void OnTestStart(const testing::TestInfo& test) override {
        const std::lock_guard guard(lock_);
        running_ = std::string(test.test_suite_name()) + "." + test.name();
        started_ = std::chrono::steady_clock::now();
        isClosing_ = false;
    }

    void OnTestEnd(const testing::TestInfo&) override {
        const std::lock_guard guard(lock_);
        running_.clear();
    }

private:
    void Watch() {
        std::unique_lock guard(lock_);
        while (!changed_.wait_for(guard, std::chrono::seconds(1), [this] { return isOver_; })) {
            if (running_.empty()) {
                continue;
            }
            const auto passed = std::chrono::steady_clock::now() - started_;
            if (passed > kTestDeadline + kTestGrace) {
                std::printf("%s does not end\n", running_.c_str());
                std::fflush(stdout);
                TerminateProcess(GetCurrentProcess(), kHungExitCode);
            }
            if (passed > kTestDeadline) {
                if (!isClosing_) {
                    ADD_FAILURE() << "it waited for something that nobody did";
                }
                isClosing_ = true;
                CloseWaitingWindows();
            }
        }
    }

    std::mutex lock_;
    std::condition_variable changed_;
    std::thread thread_;
    std::string running_;
    std::chrono::steady_clock::time_point started_;
    bool isClosing_ = false;
    bool isOver_ = false;
};

// GoogleTest takes the listener over and ends it with the program.
[[maybe_unused]] const bool kIsWatching = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new Deadline);
    return true;
}();

}  // namespace

void CloseWaitingWindow(HWND window) {
    // An open menu belongs to the window that waits for its choice.
    PostMessageW(window, WM_CANCELMODE, 0, 0);
    wchar_t className[16] = {};
    GetClassNameW(window, className, 16);
    if (std::wstring_view(className) == L"#32770") {
        AnswerDialog(window);
    } else {
        PostMessageW(window, WM_CLOSE, 0, 0);
    }
}

void CloseWaitingWindows() {
    EnumWindows(&CloseIfOwn, 0);
}

}  // namespace ferry::test
