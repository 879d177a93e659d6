// The environment variable through which the host announces its data.
#include "hostlink/host_variable.h"

#include <vector>

#include "base/text.h"
#include "paths/path_grammar.h"

namespace ferry::hostlink {

namespace {

constexpr std::size_t kFieldCount = 10;
constexpr std::wstring_view kShareTransport = L"Share";

}  // namespace

std::optional<HostVariable> ParseHostVariable(std::wstring_view value) {
    const std::vector<std::wstring_view> fields = base::Split(value, L':');
    if (fields.size() != kFieldCount) {
        return std::nullopt;
    }
    HostVariable variable;
    variable.WindowMode = base::ToInt(fields[0]);
    variable.ActivateHostOnExit = base::ToInt(fields[1]);
    variable.FirstNumber = base::ToInt(fields[2]);
    variable.SecondNumber = base::ToInt(fields[3]);
    variable.BlockSizeBytes = static_cast<std::uint32_t>(base::ToInt(fields[4]));
    variable.ShareMode = fields[8] == kShareTransport;
    return variable;
}

std::wstring BlockName(const HostVariable& variable) {
    return L"ShareMem_" + std::to_wstring(variable.FirstNumber) + L"_" +
           std::to_wstring(variable.SecondNumber);
}

std::wstring BlockGuardName(const HostVariable& variable) {
    return BlockName(variable) + L"_Mutex";
}

std::wstring PresenceMutexName(std::wstring_view modulePath) {
    return std::wstring(L"ExCommand.").append(paths::LastComponent(modulePath));
}

}  // namespace ferry::hostlink
