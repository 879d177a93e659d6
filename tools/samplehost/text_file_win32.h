// Reads the files that the host's command line names.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace ferry::samplehost {

/// The bytes of the file at `path`, or nothing when it cannot be read.
std::optional<std::vector<std::byte>> ReadWholeFile(const std::wstring& path);

/// The non-empty lines of a UTF-8 file, with or without byte-order mark and CR; made for a million.
std::optional<std::vector<std::wstring>> ReadLines(const std::wstring& path);

}  // namespace ferry::samplehost
