// The address of the command's manual page.
#include "process/manual.h"

#include <algorithm>

#include "paths/path_grammar.h"

namespace ferry::process {

namespace {

/// Where the pages lie under the manual's base.
constexpr std::wstring_view kManualFolder = L"/kiv/man5/";

}  // namespace

std::wstring ManualAddress(std::wstring_view base, std::wstring_view page, std::wstring_view modulePath) {
    if (!base.empty()) {
        return std::wstring(base).append(kManualFolder).append(page);
    }
    std::wstring installed = std::wstring(L"Manual").append(kManualFolder).append(page);
    std::replace(installed.begin(), installed.end(), L'/', L'\\');
    return std::wstring(paths::ParentWithSeparator(modulePath)).append(installed);
}

}  // namespace ferry::process
