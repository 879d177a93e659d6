// The paths of dropped items.
#pragma once

#include <windows.h>
// After windows.h, which the shell's header builds on.
#include <shellapi.h>

#include <string>
#include <string_view>

namespace ferry::controls {

/// `path` with its short (8.3) components expanded and without any "\\?\" prefix; unchanged when
/// the system knows no long form.
std::wstring ExpandLongName(std::wstring_view path);

/// The dropped path at `index`, after long-name expansion; empty when there is none.
std::wstring DroppedFileName(HDROP drop, UINT index);

}  // namespace ferry::controls
