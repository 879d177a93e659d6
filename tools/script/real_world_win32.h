// The machine itself as the world of scripts.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "script/ports.h"

namespace ferry::scripttools {

/// Every port of a script's world, on this machine. It lives as long as the engine that uses its ports, on
/// the thread that runs the scripts.
class RealWorld {
public:
    /// Scripts get the host's main window `host`; when that is null, the one that is found by its class now.
    explicit RealWorld(HWND host = nullptr);
    RealWorld(const RealWorld&) = delete;
    RealWorld& operator=(const RealWorld&) = delete;
    ~RealWorld();

    script::World Ports();

private:
    struct Parts;

    std::unique_ptr<Parts> parts_;
};

}  // namespace ferry::scripttools
