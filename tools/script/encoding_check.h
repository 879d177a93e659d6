// Scripts that were saved in another encoding than theirs.
#pragma once

#include <cstddef>
#include <span>
#include <string>

namespace ferry::scripttools {

/// What is wrong with the encoding of a script of these bytes; empty for UTF-16LE, with or without a mark.
std::wstring WrongEncoding(std::span<const std::byte> script);

}  // namespace ferry::scripttools
