// Chance from the C library's generator.
#pragma once

#include "script/ports.h"

namespace ferry::script {

/// Each one begins where the time says.
class SystemChance final : public Chance {
public:
    SystemChance();
    std::size_t Below(std::size_t count) override;
};

}  // namespace ferry::script
