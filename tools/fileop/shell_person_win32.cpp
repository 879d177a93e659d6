#include "shell_person_win32.h"

#include <algorithm>

#include "log_win32.h"
#include "question_windows_win32.h"

namespace ferry::fileop {
namespace {

constexpr DWORD kWaitStepMs = 20;

// A modal window disables its owner; doing that to the desktop would stop everything.
HWND UsableOwner(HWND owner) noexcept {
    return owner != nullptr && owner != GetDesktopWindow() && IsWindow(owner) ? owner : nullptr;
}

}  // namespace

ShellPerson::ShellPerson(HWND owner, bool isSilent, const std::wstring& message)
    : owner_(UsableOwner(owner)) {
    if (!isSilent) {
        progress_.emplace(owner_, message);
        if (progress_->IsShown()) {
            WriteLog({L"ProgressWindow", L"shown"});
        }
    }
}

CollisionAnswer ShellPerson::AskCollision(const std::wstring& source, const std::wstring& target) {
    if (answerForAll_) {
        return *answerForAll_;
    }
    const CollisionChoice choice = ShowCollisionWindow(owner_, source, target);
    if (choice.IsForAll) {
        answerForAll_ = choice.Answer;
    }
    return choice.Answer;
}

bool ShellPerson::AskMakeFolder(const std::wstring& path) {
    return ShowMakeFolderWindow(owner_, path);
}

ErrorAnswer ShellPerson::AskError(const std::wstring& path, Result result) {
    return ShowErrorWindow(owner_, path, result);
}

void ShellPerson::ShowItem(const std::wstring& path) {
    if (progress_) {
        progress_->ShowItem(path);
    }
}

bool ShellPerson::HasCancelled() {
    if (!progress_) {
        return false;
    }
    progress_->Drain();
    return progress_->HasCancelled();
}

void ShellPerson::Wait(std::uint32_t milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    for (ULONGLONG now = GetTickCount64(); now < end && !HasCancelled(); now = GetTickCount64()) {
        Sleep(std::min(kWaitStepMs, static_cast<DWORD>(end - now)));
    }
}

void LogJournal::Item(const ItemRecord& record) {
    WriteLog({L"Item", std::to_wstring(record.Count), record.Verb, record.Source, record.Target,
              HexResult(record.Outcome)});
}

void LogJournal::Failure(std::wstring_view path, Result result) {
    WriteLog({L"Error", path, HexResult(result)});
}

void LogJournal::Question(std::wstring_view path, std::wstring_view answer) {
    WriteLog({L"Question", path, answer});
}

}  // namespace ferry::fileop
