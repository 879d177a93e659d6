// Dropped files, as the system hands them over.
#pragma once

#include <windows.h>
// After windows.h, which it builds on.
#include <shellapi.h>

#include <string>
#include <vector>

namespace ferry::test {

/// A drop of `paths`; whoever gets it ends it with DragFinish.
HDROP MakeDrop(const std::vector<std::wstring>& paths);

}  // namespace ferry::test
