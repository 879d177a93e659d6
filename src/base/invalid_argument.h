// The exception for values that cannot be meant.
#pragma once

#include <stdexcept>

namespace ferry::base {

/// A caller handed over a value that cannot be meant. A bug or hostile input, never expected.
class InvalidArgument : public std::invalid_argument {
public:
    InvalidArgument() : std::invalid_argument("Encountered an improper argument.") {}
};

}  // namespace ferry::base
