// "run": one script, now.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <ostream>

#include "base/utf16.h"
#include "commands.h"
#include "encoding_check.h"
#include "pretended_world.h"
#include "real_disk.h"
#include "run_options.h"
#include "script/engine.h"
#include "shown_text.h"
#include "world_json.h"

namespace ferry::scripttools {

namespace {

calendar::CalendarFields Now() {
    constexpr int kFirstYear = 1900;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    return {local.tm_year + kFirstYear,
            local.tm_mon + 1,
            local.tm_mday,
            local.tm_hour,
            local.tm_min,
            local.tm_sec};
}

std::vector<std::wstring> SelectionOf(const RunOptions& options) {
    std::vector<std::wstring> selection;
    std::ranges::transform(options.Selection, std::back_inserter(selection), ScriptPathOf);
    return selection;
}

/// A world as on a machine of somebody who uses the host.
WorldDescription WorldOf(const RunOptions& options) {
    const std::wstring profile = L"C:\\Users\\User";
    WorldDescription world{.Script = ScriptPathOf(options.Script),
                           .Selection = SelectionOf(options),
                           .Clock = Now(),
                           .Environment = {{L"USERNAME", L"User"}, {L"USERPROFILE", profile}},
                           .Answers = options.Answers,
                           .OtherPrograms = PretendedProgram{},
                           .Trace = options.HasTraceWindow ? TraceKind::Trace : TraceKind::None,
                           .HasHostWindow = options.HasHostWindow,
                           .CurrentFolder = ScriptPathOf("."),
                           .LoginName = L"User",
                           .LocalAppData = profile + L"\\AppData\\Local",
                           .ProgramFolder = L"C:\\Kiv\\Command\\Ferry\\"};
    for (const auto& [name, value] : options.Environment)
        world.Environment[name] = value;
    return world;
}

ExitCode ExitCodeOf(bool hasToldOfErrors) noexcept {
    return hasToldOfErrors ? ExitCode::Findings : ExitCode::Fine;
}

ExitCode RunPretended(const RunOptions& options, const Console& console) {
    const RealDisk disk;
    PretendedWorld world(WorldOf(options), {}, &disk);
    if (!options.WritesJson) {
        world.Log().TellTo([&out = console.Out](const Effect& effect) {
            out << base::ToUtf8(effect.Kind + L' ' + WithSigns(effect.Text)) << '\n' << std::flush;
        });
    }
    std::vector<std::wstring> selection = world.Description().Selection;
    const script::RunResult result = script::Engine(world.Ports()).Run(world.Description().Script, selection);
    if (options.WritesJson)
        console.Out << ResultToJson(world.Effects(), world.Files(), result);
    if (world.IsBudgetSpent())
        console.Err << "the script did not come to an end and was stopped\n";
    return ExitCodeOf(
        std::ranges::any_of(world.Effects(), [](const Effect& effect) { return effect.Kind == L"err"; }));
}

}  // namespace

ExitCode RunScript(ArgumentsOfCommand arguments, const Console& console) {
    RunOptions options;
    if (const std::string mistake = ReadRunOptions(arguments, options); !mistake.empty()) {
        console.Err << "run: " << mistake << '\n';
        return ExitCode::WrongUsage;
    }
    const auto script = ReadFileBytes(options.Script);
    if (!script) {
        console.Err << "cannot read " << ShownPath(options.Script) << '\n';
        return ExitCode::WrongUsage;
    }
    // It runs all the same, as it does in the host.
    if (const std::wstring wrong = WrongEncoding(*script); !wrong.empty())
        console.Err << ShownPath(options.Script) << ": " << base::ToUtf8(wrong) << '\n';
    if (options.Pretends || console.RunForReal == nullptr)
        return RunPretended(options, console);
    return ExitCodeOf(console.RunForReal(ScriptPathOf(options.Script), SelectionOf(options)));
}

}  // namespace ferry::scripttools
