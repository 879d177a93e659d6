// The block of TAB-terminated fields in which the host hands over its selection.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "base/text_list.h"

namespace ferry::hostlink {

/// Where the fields of a block go. The lists are appended to, the texts replaced.
struct BlockSink {
    std::wstring& CurrentDir;
    std::wstring& Option;
    base::TextList& SelectedItems;
    base::TextList& TabFolders;
};

/// Reads the block in `units` into `sink`.
/// The walk ends at the first NUL, at `bound` or at the end of `units`, whichever comes first. `bound`
/// is an index, though callers pass the block's size in bytes, as the wire format has it: a host that
/// announces too few bytes is read all the same, as far as `units`, all that may be touched, go. Each TAB is
/// overwritten with NUL where it lies, so a block can be read only once. Fields beyond the
/// announced counts, and a last field without its TAB, are ignored.
void ParseHostBlock(std::span<wchar_t> units, std::size_t bound, BlockSink sink);

/// The text of a destination message: the units of `payload` up to the first NUL or the end.
std::wstring TextFromPayload(std::span<const std::byte> payload);

}  // namespace ferry::hostlink
