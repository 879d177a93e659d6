// Exceptions of the framework, and the one place that reports them.
#pragma once

#include "base/invalid_argument.h"

namespace ferry::framework {

using base::InvalidArgument;

/// Shows the exception that is being handled in a message box. Call from a catch block only.
void ReportCurrentException() noexcept;

}  // namespace ferry::framework
