// A world that scripts cannot tell from the real one, and in which nothing happens: it is described
// beforehand, and what a script does to it is written down.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "calendar/date_time.h"
#include "effects.h"
#include "pretended_disk.h"
#include "script/ports.h"

namespace ferry::scripttools {

/// How a program ends.
struct PretendedProgram {
    std::uint32_t ExitCode = 0;
    std::uint32_t DurationMs = 0;

    bool operator==(const PretendedProgram&) const = default;
};

/// Which trace window there is.
enum class TraceKind { None, Trace, Debugger };

/// A value of the host's settings.
using HostSetting = std::variant<std::wstring, std::uint32_t>;

/// What there is before a script runs. What is left out is empty.
struct WorldDescription {
    // NOLINTBEGIN(readability-redundant-member-init): most worlds leave most of it out
    std::wstring Script = {};                  ///< The script that is run; what it holds is among `Files`.
    std::vector<std::wstring> Selection = {};  ///< Full paths.
    calendar::CalendarFields Clock{2000, 1, 1, 0, 0, 0};
    std::map<std::wstring, HostSetting> HostSettings = {};
    std::map<std::wstring, std::wstring> Environment = {};
    std::vector<int> Answers =
        {};  ///< Buttons for boxes with a choice, in order; then the first one of each box.
    std::map<std::wstring, PretendedProgram> Programs = {};
    std::optional<PretendedProgram> OtherPrograms = {};  ///< Without it, other programs cannot be started.
    TraceKind Trace = TraceKind::None;
    bool HasHostWindow = false;
    std::wstring Clipboard = {};
    std::wstring CurrentFolder = {};
    std::wstring LoginName = {};     ///< Empty: it cannot be read.
    std::wstring LocalAppData = {};  ///< Empty: the system does not know it.
    std::wstring ProgramFolder = {};
    std::map<int, int> Metrics = {};
    std::vector<std::wstring> Folders = {};
    std::map<std::wstring, Bytes> Files = {};
    // NOLINTEND(readability-redundant-member-init)
};

/// How much a script may do before it is stopped, as a person would stop it.
struct Budget {
    std::uint64_t Statements = 10'000'000;
    std::size_t EffectUnits = std::size_t{1} << 26U;  ///< Of the texts of all effects together.
};

/// The place of the host's window.
inline constexpr script::ScreenBox kHostPlace{100, 50, 1100, 750};

/// Implements every port of a script's world. It lives as long as the engine that uses its ports.
class PretendedWorld {
public:
    /// What `description` does not have is looked for on the disk `below`, which may be null.
    explicit PretendedWorld(WorldDescription description, Budget budget = {},
                            const DiskBelow* below = nullptr);
    PretendedWorld(const PretendedWorld&) = delete;
    PretendedWorld& operator=(const PretendedWorld&) = delete;
    ~PretendedWorld();

    script::World Ports();

    /// What was done so far; the log can also tell at once.
    const std::vector<Effect>& Effects() const noexcept { return log_.All(); }
    EffectLog& Log() noexcept { return log_; }

    /// All files as they are now.
    std::map<std::wstring, Bytes> Files() const;

    /// Whether a script was stopped because it did too much.
    bool IsBudgetSpent() const noexcept;

    const WorldDescription& Description() const noexcept { return description_; }

private:
    struct Parts;

    WorldDescription description_;
    EffectLog log_;
    std::unique_ptr<Parts> parts_;
};

}  // namespace ferry::scripttools
