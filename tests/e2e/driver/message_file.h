// The texts that the installed message file gives.
#pragma once

#include <string>

namespace ferry::e2e {

/// The text of message `number` in a message file below `appFolder`; empty when missing.
std::wstring InstalledMessage(const std::wstring& appFolder, int number,
                              const std::wstring& language = L"ja-JP");

}  // namespace ferry::e2e
