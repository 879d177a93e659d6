// Random worlds for a run, and random answers of the person in front of it.
#pragma once

#include <cstdint>
#include <iterator>
#include <random>

#include "core/transfer/model_run.h"

namespace ferry::transfer::model {

/// Random choices that are the same on every host.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : engine_(seed) {}

    std::uint32_t Below(std::uint32_t limit) { return static_cast<std::uint32_t>(engine_() % limit); }
    bool OneIn(std::uint32_t count) { return Below(count) == 0; }

    template <typename Choices>
    auto Pick(const Choices& choices) {
        return choices[Below(static_cast<std::uint32_t>(std::size(choices)))];
    }

private:
    std::mt19937_64 engine_;
};

/// Fills `run` with trees, a request and answers that depend on `dice` alone. The answers go on
/// throwing the dice, which must outlive the run.
void SetUpRandomRun(ModelRun& run, Dice& dice);

/// Fills `folder` with files and folders, to a few levels below `depth`.
void FillFolder(World& world, Dice& dice, const std::wstring& folder, int depth);

/// Whether the destination of `run` lies among its sources.
bool Overlaps(const ModelRun& run);

}  // namespace ferry::transfer::model
