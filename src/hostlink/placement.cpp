// Where the dialog goes on the screen, as plain geometry.
#include "hostlink/placement.h"

#include <algorithm>
#include <cstdint>

namespace ferry::hostlink {

namespace {

/// One axis of the move: the new start of a window that was [begin, end). 64 bits, since the
/// difference of two coordinates need not fit an int.
std::int64_t CentredStart(std::int64_t hostBegin, std::int64_t hostEnd, std::int64_t size,
                          std::int64_t workBegin, std::int64_t workEnd) noexcept {
    std::int64_t start = hostBegin + (hostEnd - hostBegin - size) / 2;
    if (start + size > workEnd) {
        start = workEnd - size;
    }
    return std::max(start, workBegin);
}

}  // namespace

Box CentredOverHost(const Box& host, const Box& window, const Box& workArea) noexcept {
    const std::int64_t width = std::int64_t{window.Right} - window.Left;
    const std::int64_t height = std::int64_t{window.Bottom} - window.Top;
    const std::int64_t left = CentredStart(host.Left, host.Right, width, workArea.Left, workArea.Right);
    const std::int64_t top = CentredStart(host.Top, host.Bottom, height, workArea.Top, workArea.Bottom);
    return {static_cast<int>(left), static_cast<int>(top), static_cast<int>(left + width),
            static_cast<int>(top + height)};
}

WindowModeRule RuleOfWindowMode(int mode) noexcept {
    switch (mode) {
        case 1:
            return {.Topmost = true};
        case 2:
            return {.ToolWindow = true, .Topmost = true};
        case 3:
            return {};
        case 4:
            return {.ToolWindow = true, .RaiseOnce = true};
        default:
            return {.RaiseOnce = true};
    }
}

}  // namespace ferry::hostlink
