// The path helpers that ask the system or the shell.
#pragma once

#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shellapi.h>
#include <shobjidl.h>

#include <string>
#include <string_view>

namespace ferry::paths {

/// `path` with its short (8.3) components expanded and without any "\\?\" prefix; unchanged when
/// the system knows no long form.
std::wstring ExpandLongName(std::wstring_view path);

/// The dropped path at `index`, after long-name expansion; empty when there is none.
std::wstring DroppedFileName(HDROP drop, UINT index);

/// Queues a copy of `source` to `destination`, a full path whose last component is the new name.
/// The result of the first call that failed, or of the queueing; 1 without an `operation`.
HRESULT QueueCopy(IFileOperation* operation, std::wstring_view source, std::wstring_view destination);

/// Queues a move; otherwise like QueueCopy.
HRESULT QueueMove(IFileOperation* operation, std::wstring_view source, std::wstring_view destination);

}  // namespace ferry::paths
