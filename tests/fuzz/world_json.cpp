// A world file: any bytes give a world or a message, and whatever the world is, its files are found in it.
#include "script/world_json.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ferry;
    const std::string json(reinterpret_cast<const char*>(data), size);
    scripttools::ReadWorld read = scripttools::WorldFromJson(json);
    fuzz::Require(read.World.has_value() == read.Mistake.empty(), "a world or a message");
    if (!read.World)
        return 0;
    const scripttools::PretendedWorld world(*std::move(read.World));
    const std::string result =
        scripttools::ResultToJson(world.Effects(), world.Files(), script::RunResult::Ended);
    fuzz::Require(!result.empty() && result.back() == '\n', "a result");
    return 0;
}
