// A whole script of any bytes: it ends, and stays within its world.
#include <span>

#include "fuzz_input.h"
#include "script/engine.h"
#include "script_world.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ferry;
    const auto bytes = std::as_bytes(std::span(data, size));
    scripttools::PretendedWorld world(fuzz::SmallWorld({bytes.begin(), bytes.end()}), fuzz::kSmallBudget);
    script::Engine engine(world.Ports());
    std::vector<std::wstring> selection = world.Description().Selection;
    const script::RunResult result = engine.Run(fuzz::kScriptPath, selection);
    fuzz::Require(result == script::RunResult::Ended || result == script::RunResult::EndedAll,
                  "a script ends in one of two ways");
    for (const scripttools::Effect& effect : world.Effects()) {
        fuzz::Require(effect.Kind != L"send" || effect.ByteCount.has_value(), "a record has a size");
        fuzz::Require(effect.Text.size() < (std::size_t{1} << 22U), "no text grows without end");
    }
    return 0;
}
