// Sends to Ferry's dialog what a host sends: messages with data, and drops.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace ferry::samplehost {

/// The dialog that the process `processId` shows, or null while there is none.
/// It is told by its source list, not by its title, which follows the language.
HWND FindFerryDialog(DWORD processId);

/// Sends WM_COPYDATA and waits for the answer, at most `timeoutMs`. Nothing when none came.
std::optional<LRESULT> AnswerToData(HWND target, HWND sender, std::uint64_t tag,
                                    std::span<const std::byte> bytes, unsigned timeoutMs);

/// The same. False when no answer came.
bool SendData(HWND target, HWND sender, std::uint64_t tag, std::span<const std::byte> bytes,
              unsigned timeoutMs);

/// The DROPFILES structure for `paths`, followed by the names, as the shell lays it out.
std::vector<std::byte> DropBlock(std::span<const std::wstring> paths);

/// Posts WM_DROPFILES with `paths` to a window of another process. False when it could not.
bool DropPaths(HWND target, std::span<const std::wstring> paths);

}  // namespace ferry::samplehost
