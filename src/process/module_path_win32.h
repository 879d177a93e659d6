// Where the running executable lies.
#pragma once

#include <string>

namespace ferry::process {

/// The full path of the running executable, at any length.
std::wstring ModulePath();

}  // namespace ferry::process
