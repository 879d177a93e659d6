// The texts that the installed message file gives.
#pragma once

#include <string>

namespace ferry::e2e {

/// The text of message `number` in the Japanese message file below `appFolder`; empty when missing.
std::wstring InstalledMessage(const std::wstring& appFolder, int number);

}  // namespace ferry::e2e
