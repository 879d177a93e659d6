// The block of TAB-terminated fields in which the host hands over its selection.
#include "hostlink/host_block.h"

#include <algorithm>
#include <cstdint>

#include "base/text.h"
#include "base/utf16.h"

namespace ferry::hostlink {

namespace {

/// Units looked at together. The test of such a chunk is a loop of fixed length without a branch,
/// which compilers turn into vector instructions; a search that stops at each unit they do not.
constexpr std::size_t kChunkUnits = 16;

/// Whether one of the kChunkUnits units from `at` on may be a TAB or a NUL: in the texts of a
/// block the two are the only units that are not above TAB.
bool MayHoldMark(const wchar_t* at) noexcept {
    unsigned found = 0;
    for (std::size_t i = 0; i < kChunkUnits; ++i) {
        found |= static_cast<unsigned>(at[i] <= L'\t');
    }
    return found != 0;
}

/// The first TAB or NUL in [at, end), or `end`.
wchar_t* FindMark(wchar_t* at, wchar_t* end) noexcept {
    while (static_cast<std::size_t>(end - at) >= kChunkUnits) {
        if (MayHoldMark(at)) {
            wchar_t* const chunkEnd = at + kChunkUnits;
            at = std::find_if(at, chunkEnd, [](wchar_t unit) { return unit == L'\t' || unit == L'\0'; });
            if (at != chunkEnd) {
                return at;
            }
        } else {
            at += kChunkUnits;
        }
    }
    return std::find_if(at, end, [](wchar_t unit) { return unit == L'\t' || unit == L'\0'; });
}

/// Sends each field where its number says.
class FieldRouter {
public:
    explicit FieldRouter(BlockSink sink) noexcept : sink_(sink) {}

    void Accept(std::wstring_view field) {
        const std::int64_t number = number_++;
        if (number >= kFirstListField) {
            AcceptListed(number, field);
        } else if (number == 0) {
            itemsEnd_ = kFirstListField + base::ToInt(field);
            foldersEnd_ = itemsEnd_;
        } else if (number == 1) {
            foldersEnd_ = itemsEnd_ + base::ToInt(field);
        } else if (number == 2) {
            sink_.CurrentDir = field;
        } else {
            sink_.Option = field;
        }
    }

private:
    static constexpr std::int64_t kFirstListField = 4;

    void AcceptListed(std::int64_t number, std::wstring_view field) {
        if (number < itemsEnd_) {
            sink_.SelectedItems.Append(field);
        } else if (number < foldersEnd_) {
            sink_.TabFolders.Append(field);
        }
    }

    BlockSink sink_;
    std::int64_t number_ = 0;
    // 64 bits, since the announced counts may be anything that an int holds.
    std::int64_t itemsEnd_ = kFirstListField;
    std::int64_t foldersEnd_ = kFirstListField;
};

}  // namespace

void ParseHostBlock(std::span<wchar_t> units, std::size_t bound, BlockSink sink) {
    FieldRouter router(sink);
    wchar_t* const end = units.data() + std::min(bound, units.size());
    wchar_t* field = units.data();
    for (wchar_t* mark = FindMark(field, end); mark != end && *mark == L'\t'; mark = FindMark(field, end)) {
        *mark = L'\0';
        router.Accept({field, static_cast<std::size_t>(mark - field)});
        field = mark + 1;
    }
}

std::wstring TextFromPayload(std::span<const std::byte> payload) {
    return base::TextFromBytes(payload);
}

}  // namespace ferry::hostlink
