// What shows a person that a script runs.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>

namespace ferry::desktop {

/// Stands as long as it lives, on the thread that runs the script.
class ScriptSign {
public:
    virtual ~ScriptSign() = default;

    /// Sees `message` first; true when it took it and nobody else is to get it.
    virtual bool TakesMessage(MSG& message) = 0;

    /// Whether the person asked to stop the script.
    virtual bool IsStopped() = 0;
};

using SignMaker = std::function<std::unique_ptr<ScriptSign>()>;

}  // namespace ferry::desktop
