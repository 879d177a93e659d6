#include "installed_ferry_win32.h"

#include <cstdio>

#include "e2e/driver/surroundings.h"
#include "samplehost/host_block_writer.h"
#include "support/poll_win32.h"

namespace ferry::bench {

std::wstring InstalledFerry() {
    const std::wstring given = e2e::AppFolder();
    return e2e::FerryPath(given.empty() ? e2e::OwnFolder() + L"\\..\\..\\..\\app" : given);
}

bool HandOver::Prepare(std::wstring_view blockUnits) {
    samplehost::VariableFields variable;
    variable.FirstNumber = std::to_wstring(GetCurrentProcessId());
    const auto bytes = samplehost::BytesOfUnits(blockUnits);
    variable.BlockSize = std::to_wstring(bytes.size());
    e2e::SetVariable(samplehost::kVariableName, VariableText(variable));
    return block_.Create(variable, bytes, static_cast<std::uint32_t>(bytes.size()), false);
}

bool IsGood(const e2e::Ending& ending) {
    if (!ending.IsGood())
        std::fprintf(stderr, "the program: %s\n", TextOf(ending).c_str());
    return ending.IsGood();
}

bool HasEndedWell(const e2e::ChildProcess& process) {
    return IsGood(process.WaitForEnd(test::kPatienceMs));
}

}  // namespace ferry::bench
