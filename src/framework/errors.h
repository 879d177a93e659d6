// Exceptions of the framework, and the one place that reports them.
#pragma once

#include <stdexcept>

namespace ferry::framework {

/// A caller handed over a value that cannot be meant. A bug or hostile input, never expected.
class InvalidArgument : public std::invalid_argument {
public:
    InvalidArgument() : std::invalid_argument("Encountered an improper argument.") {}
};

/// Shows the exception that is being handled in a message box. Call from a catch block only.
void ReportCurrentException() noexcept;

}  // namespace ferry::framework
