// What the tests of several adapters share: folders, files, windows, message boxes.
#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <future>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/unique_resource.h"
#include "support/disk_win32.h"
#include "support/poll_win32.h"

namespace ferry::test {

/// Handles the messages that wait for this thread.
void Pump();

/// Handles messages until `isTrue` holds; false when it does not within kPatienceMs.
bool PumpUntil(const std::function<bool()>& isTrue);

/// A fresh folder that vanishes with everything in it.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();

    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// The folder, without a trailing separator.
    const std::wstring& Path() const noexcept { return path_; }

    /// The path of `name` in it.
    std::wstring operator/(std::wstring_view name) const;

    /// A folder in it whose own path has more than 300 units; it exists.
    std::wstring LongFolder() const;

private:
    std::wstring path_;
};

void WriteBytes(const std::wstring& path, const std::vector<std::byte>& bytes);

/// Writes `units` as UTF-16 without a byte-order mark.
void WriteUnits(const std::wstring& path, std::wstring_view units);

/// The bytes of the file at `path`, or nothing when it is not there.
std::optional<std::vector<std::byte>> ReadBytes(const std::wstring& path);

/// The units of the file at `path`; empty when it is not there.
std::wstring ReadUnits(const std::wstring& path);

/// Whether the system's operation object transfers. Wine's own does not; the service that stands in
/// for it there has a library of its own.
bool ShellTransfers();

/// What a test says that is skipped where ShellTransfers() does not hold.
inline constexpr char kNoTransfers[] = "this system's file operation does not copy";

/// A name that no other process and no other test uses.
std::wstring UniqueName(std::wstring_view prefix);

/// Waits on another thread for this process's next message box, runs `whileOpen`, then presses
/// `button`. The future gives the box's text; empty when no box came within kPatienceMs. A box without
/// that button is a failure, and is closed.
std::future<std::wstring> AnswerNextBox(int button, std::function<void()> whileOpen = {});

/// Makes this thread believe that these keys, and no others, are held.
void HoldKeys(const std::vector<int>& keys);

/// Puts the session's foreground lock back at its end: bringing a window to the front changes it for every
/// program, and so for the next test.
class ForegroundLockKeeper {
public:
    ForegroundLockKeeper() noexcept;
    ~ForegroundLockKeeper();
    ForegroundLockKeeper(const ForegroundLockKeeper&) = delete;
    ForegroundLockKeeper& operator=(const ForegroundLockKeeper&) = delete;

private:
    DWORD lockMs_ = 0;
};

/// Whether the session gives this program the foreground when it plainly asks for it.
bool MayTakeForeground();

/// What a test says that is skipped where MayTakeForeground() does not hold.
inline constexpr char kNoForeground[] = "this session does not give the tests the foreground";

struct WindowTraits {
    using Value = HWND;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value window) noexcept { DestroyWindow(window); }
};
using TestWindow = base::UniqueResource<WindowTraits>;

/// The text of a window or control.
std::wstring TextOfWindow(HWND window);

}  // namespace ferry::test
