// Scripts put together from the input, each byte a choice, in both interpreters.
#include <span>

#include "core/script/literal/differential.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ferry;
    script::literal::ByteDice dice({data, size});
    const script::literal::ScriptCase one = script::literal::RandomCase(dice);
    const std::string difference = script::literal::DifferenceIn(one);
    fuzz::Require(difference.empty(), difference.c_str());
    return 0;
}
