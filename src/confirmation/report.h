// What is told at the end of a run that left something behind.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "transfer/leftovers.h"

namespace ferry::confirmation {

/// The texts of a report in the person's language.
struct ReportTexts {
    std::wstring Summary;  ///< With %1 for how many items stayed behind and %2 for how many there were.
    std::array<std::wstring, 8> Reasons;  ///< In the order of LeftReason.

    /// What the system says of an error of Windows or an HRESULT; empty where it says nothing.
    std::function<std::wstring(std::uint32_t code)> Describe = [](std::uint32_t) { return std::wstring(); };
};

/// The one line that says how many of how many items stayed behind.
std::wstring ReportSummary(const transfer::Leftovers& left, const ReportTexts& texts);

/// Every item that stayed behind, at most `most` of them, each in a line with its path and one with the
/// reason and, where there is one, what the system says of the error, and its number. The lines end with CR
/// LF.
std::wstring ReportList(const transfer::Leftovers& left, const ReportTexts& texts, std::size_t most);

}  // namespace ferry::confirmation
