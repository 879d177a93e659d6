// The person before the screen, asked and shown through real windows; and the journal.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "ports.h"
#include "progress_window_win32.h"

namespace ferry::fileop {

/// Shows the windows of one run on the calling thread.
class ShellPerson final : public Person {
public:
    /// `owner` may be null, the desktop window or a window that is gone: then nothing owns the
    /// windows. A silent person sees no progress window, and no message is handled for it.
    ShellPerson(HWND owner, bool isSilent, const std::wstring& message);

    CollisionAnswer AskCollision(const std::wstring& source, const std::wstring& target) override;
    bool AskMakeFolder(const std::wstring& path) override;
    ErrorAnswer AskError(const std::wstring& path, Result result) override;
    void ShowItem(const std::wstring& path) override;
    bool HasCancelled() override;
    void Wait(std::uint32_t milliseconds) override;

private:
    HWND owner_;
    std::optional<ProgressWindow> progress_;
    std::optional<CollisionAnswer> answerForAll_;
};

/// Writes the engine's journal into the log.
class LogJournal final : public Journal {
public:
    void Item(const ItemRecord& record) override;
    void Failure(std::wstring_view path, Result result) override;
    void Question(std::wstring_view path, std::wstring_view answer) override;
};

}  // namespace ferry::fileop
