// One case run by both interpreters.
#pragma once

#include <string>

#include "core/script/literal/random_script.h"

namespace ferry::script::literal {

/// What both interpreters made of `one` where that differs, with the world and the scripts; empty where they
/// agree.
std::string DifferenceIn(const ScriptCase& one);

/// `one` with as few lines and as little world as still differ; `one` must differ.
ScriptCase Shrunk(ScriptCase one);

}  // namespace ferry::script::literal
