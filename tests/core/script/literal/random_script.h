// Random scripts in random pretended worlds, made so that much happens in few lines.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "script/pretended_world.h"

namespace ferry::script::literal {

/// Where choices come from.
class Dice {
public:
    virtual ~Dice() = default;

    /// A number from 0 to below `limit`.
    virtual std::uint32_t Below(std::uint32_t limit) = 0;

    bool OneIn(std::uint32_t count) { return Below(count) == 0; }

    template <typename Choices>
    const auto& Pick(const Choices& choices) {
        return choices[Below(static_cast<std::uint32_t>(std::size(choices)))];
    }
};

/// Choices by chance, the same on every host.
class SeededDice final : public Dice {
public:
    explicit SeededDice(std::uint64_t seed) : engine_(seed) {}

    std::uint32_t Below(std::uint32_t limit) override {
        return static_cast<std::uint32_t>(engine_() % limit);
    }

private:
    std::mt19937_64 engine_;
};

/// Choices by given bytes, one for each; 0 when they have run out.
class ByteDice final : public Dice {
public:
    explicit ByteDice(std::span<const std::uint8_t> bytes) : rest_(bytes) {}

    std::uint32_t Below(std::uint32_t limit) override;

private:
    std::span<const std::uint8_t> rest_;
};

/// A script file.
struct ScriptFile {
    std::wstring Path;
    std::vector<std::wstring> Lines;
    bool HasMark = true;
    std::wstring LineEnd = L"\r\n";
    bool EndsLastLine = true;
};

/// A world with scripts, the first of which is run.
struct ScriptCase {
    scripttools::WorldDescription World;
    std::vector<ScriptFile> Scripts;
    std::uint64_t Statements = 300;  ///< So many are run, then somebody stops the script.
};

/// A case that depends on `dice` alone.
ScriptCase RandomCase(Dice& dice);

/// The world of `one`, its scripts among the files.
scripttools::WorldDescription WorldOf(const ScriptCase& one);

}  // namespace ferry::script::literal
