// What is told at the end of a run that left something behind.
#include "confirmation/report.h"

#include <algorithm>

#include "base/text.h"

namespace ferry::confirmation {
namespace {

/// The number as programs of Windows show it: small ones are errors of the system, others HRESULTs.
std::wstring CodeText(std::uint32_t code) {
    constexpr std::uint32_t kFirstResult = 0x10000;
    if (code < kFirstResult)
        return std::to_wstring(code);
    std::wstring digits(8, L'0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, code >>= 4)
        *digit = L"0123456789ABCDEF"[code & 0xF];
    return L"0x" + digits;
}

}  // namespace

std::wstring ReportSummary(const transfer::Leftovers& left, const ReportTexts& texts) {
    const std::wstring counted = base::ReplaceAll(texts.Summary, L"%1", std::to_wstring(left.Left().size()));
    return base::ReplaceAll(counted, L"%2", std::to_wstring(left.Items()));
}

std::wstring ReportList(const transfer::Leftovers& left, const ReportTexts& texts, std::size_t most) {
    std::wstring list;
    const std::size_t count = std::min(most, left.Left().size());
    for (std::size_t index = 0; index < count; ++index) {
        const transfer::Leftover& item = left.Left()[index];
        list.append(item.Path).append(L"\r\n    ");
        list.append(texts.Reasons.at(static_cast<std::size_t>(item.Why)));
        if (item.Code != 0) {
            const std::wstring said = texts.Describe(item.Code);
            list.append(said.empty() ? L"" : L" ").append(said);
            list.append(L" (").append(CodeText(item.Code)).append(L")");
        }
        list.append(L"\r\n");
    }
    return list;
}

}  // namespace ferry::confirmation
