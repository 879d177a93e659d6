// What the item-by-item run is compared with: its calls of the system, written by hand.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace ferry::bench {

/// Copies or moves the folder `source` into `destination` (with its separator), file by file, with
/// the same calls of the file system and of the shell as the run and without any window. COM must
/// be initialised. How many files it handed to the shell.
std::size_t TransferByHand(const std::wstring& source, const std::wstring& destination, bool moves);

}  // namespace ferry::bench
