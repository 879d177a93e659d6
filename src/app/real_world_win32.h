// The machine itself as the world of scripts.
#pragma once

#include <windows.h>

#include <memory>

#include "desktop/script_pace_win32.h"
#include "script/ports.h"

namespace ferry::app {

/// Every port of a script's world, on this machine. It lives as long as the engine that uses its ports, on
/// the thread that runs the scripts.
class RealWorld {
public:
    /// Scripts take `standIn` for the host's main window; it also owns what they have shown. When it is null,
    /// they get the host's own, the one that is found by its class now.
    explicit RealWorld(HWND standIn = nullptr);
    RealWorld(const RealWorld&) = delete;
    RealWorld& operator=(const RealWorld&) = delete;
    ~RealWorld();

    /// `speaker` tells a person of errors; it must outlive the engine, too.
    script::World Ports(lang::Speaker& speaker);

    /// The pace of the runs, for a person who has no console to stop them in.
    desktop::ScriptPace& Pace() noexcept;

private:
    struct Parts;

    std::unique_ptr<Parts> parts_;
};

}  // namespace ferry::app
