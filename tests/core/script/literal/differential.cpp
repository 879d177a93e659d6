// One case run by both interpreters.
#include "core/script/literal/differential.h"

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

#include "base/utf16.h"
#include "core/script/literal/literal_engine.h"
#include "script/engine.h"

namespace ferry::script::literal {
namespace {

using scripttools::Bytes;
using scripttools::Effect;
using scripttools::PretendedWorld;

/// All that a run leaves behind.
struct Outcome {
    std::vector<Effect> Effects;
    std::map<std::wstring, Bytes> Files;
    std::vector<std::wstring> Selection;
    RunResult Result = RunResult::Ended;

    bool operator==(const Outcome&) const = default;
};

template <typename Interpreter>
Outcome OutcomeOf(const ScriptCase& one) {
    PretendedWorld world(WorldOf(one), {.Statements = one.Statements, .EffectUnits = std::size_t{1} << 22U});
    Interpreter interpreter(world.Ports());
    Outcome outcome;
    outcome.Selection = world.Description().Selection;
    outcome.Result = interpreter.Run(world.Description().Script, outcome.Selection);
    outcome.Effects = world.Effects();
    outcome.Files = world.Files();
    return outcome;
}

/// `text` on one line, at a length that can be read.
std::string Shown(const std::wstring& text) {
    constexpr std::size_t kMost = 300;
    std::wstring shown;
    for (const wchar_t unit : text.substr(0, kMost)) {
        if (unit < L' ' || unit == 0x7F)
            shown += L"\\" + std::to_wstring(static_cast<unsigned>(unit)) + L";";
        else
            shown += unit;
    }
    return base::ToUtf8(shown) + (text.size() > kMost ? "... " + std::to_string(text.size()) + " units" : "");
}

std::string ShownEffects(const char* title, const std::vector<Effect>& effects, std::size_t from) {
    constexpr std::size_t kBefore = 3;
    constexpr std::size_t kMost = 12;
    std::string text = std::string(title) + ", " + std::to_string(effects.size()) + " effects\n";
    const std::size_t first = from - std::min(from, kBefore);
    for (std::size_t place = first; place < std::min(effects.size(), first + kMost); ++place) {
        const Effect& effect = effects[place];
        text += place < from ? "    " : "  * ";
        text += base::ToUtf8(effect.Kind) + " " + Shown(effect.Text);
        text += effect.ByteCount ? " (" + std::to_string(*effect.ByteCount) + " bytes)\n" : "\n";
    }
    return text;
}

std::string ShownScripts(const ScriptCase& one) {
    std::string text;
    for (const ScriptFile& file : one.Scripts) {
        text += "script " + base::ToUtf8(file.Path) + (file.HasMark ? "" : " without a mark") + "\n";
        std::size_t number = 0;
        for (const std::wstring& line : file.Lines)
            text += "  " + std::to_string(++number) + ": " + Shown(line) + "\n";
    }
    return text;
}

std::string ShownWorld(const ScriptCase& one) {
    const scripttools::WorldDescription& world = one.World;
    std::string text = "world: selection";
    for (const std::wstring& item : world.Selection)
        text += " " + Shown(item);
    text += "; answers";
    for (const int answer : world.Answers)
        text += " " + std::to_string(answer);
    text += world.HasHostWindow ? "; host" : "; no host";
    text += world.Trace == scripttools::TraceKind::None ? "; no trace" : "; trace";
    text += "; clipboard " + Shown(world.Clipboard) + "; cwd " + Shown(world.CurrentFolder);
    text += "; login " + Shown(world.LoginName) + "; local " + Shown(world.LocalAppData);
    text += "; " + std::to_string(world.HostSettings.size()) + " host settings";
    return text + "; " + std::to_string(one.Statements) + " statements\n";
}

std::string ShownRest(const char* title, const Outcome& outcome) {
    std::string text = std::string(title) + ": result " + std::to_string(static_cast<int>(outcome.Result));
    for (const std::wstring& item : outcome.Selection)
        text += ", item " + Shown(item);
    for (const auto& [path, bytes] : outcome.Files)
        text += ", " + Shown(path) + " " + std::to_string(bytes.size()) + " bytes";
    return text + "\n";
}

std::string Report(const ScriptCase& one, const Outcome& program, const Outcome& literal) {
    const auto [left, right] = std::ranges::mismatch(program.Effects, literal.Effects);
    const auto place = static_cast<std::size_t>(left - program.Effects.begin());
    std::string text = ShownScripts(one) + ShownWorld(one);
    if (program.Effects != literal.Effects) {
        text += ShownEffects("the program", program.Effects, place);
        return text + ShownEffects("the literal one", literal.Effects, place);
    }
    return text + ShownRest("the program", program) + ShownRest("the literal one", literal);
}

bool Differs(const ScriptCase& one) {
    return OutcomeOf<Engine>(one) != OutcomeOf<LiteralEngine>(one);
}

/// Does `change` to `one` when it differs still.
bool Try(ScriptCase& one, const std::function<void(ScriptCase&)>& change) {
    ScriptCase changed = one;
    change(changed);
    if (!Differs(changed))
        return false;
    one = std::move(changed);
    return true;
}

/// Removes lines of script `number`, `size` at a time; whether any went.
bool RemoveLines(ScriptCase& one, std::size_t number, std::size_t size) {
    bool hasRemoved = false;
    for (std::size_t first = 0; first + size <= one.Scripts[number].Lines.size();) {
        const bool isGone = Try(one, [=](ScriptCase& changed) {
            auto& lines = changed.Scripts[number].Lines;
            const auto begin = lines.begin() + static_cast<std::ptrdiff_t>(first);
            lines.erase(begin, begin + static_cast<std::ptrdiff_t>(size));
        });
        hasRemoved = hasRemoved || isGone;
        if (!isGone)
            ++first;
    }
    return hasRemoved;
}

bool RemoveLines(ScriptCase& one) {
    bool hasRemoved = false;
    for (std::size_t number = 0; number < one.Scripts.size(); ++number) {
        for (std::size_t size = std::max<std::size_t>(one.Scripts[number].Lines.size() / 2, 1); size > 0;
             size /= 2)
            hasRemoved = RemoveLines(one, number, size) || hasRemoved;
    }
    return hasRemoved;
}

void SimplifyWorld(ScriptCase& one) {
    while (!one.World.Selection.empty() && Try(one, [](ScriptCase& c) { c.World.Selection.pop_back(); })) {
    }
    Try(one, [](ScriptCase& c) { c.World.Answers.clear(); });
    Try(one, [](ScriptCase& c) { c.World.Trace = scripttools::TraceKind::None; });
    Try(one, [](ScriptCase& c) { c.World.HostSettings.clear(); });
    Try(one, [](ScriptCase& c) { c.World.Clipboard.clear(); });
}

}  // namespace

std::string DifferenceIn(const ScriptCase& one) {
    const Outcome program = OutcomeOf<Engine>(one);
    const Outcome literal = OutcomeOf<LiteralEngine>(one);
    return program == literal ? std::string() : Report(one, program, literal);
}

ScriptCase Shrunk(ScriptCase one) {
    while (RemoveLines(one)) {
    }
    SimplifyWorld(one);
    return one;
}

}  // namespace ferry::script::literal
