// A small pretended world for scripts made of a fuzz target's bytes.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/utf16.h"
#include "script/pretended_world.h"

namespace ferry::fuzz {

/// Where the script lies.
inline constexpr wchar_t kScriptPath[] = L"C:\\s\\main.txt";

/// A world in which a script finds something of everything.
inline scripttools::WorldDescription SmallWorld(scripttools::Bytes script) {
    scripttools::WorldDescription world;
    world.Script = kScriptPath;
    world.Selection = {L"C:\\sel\\a.txt", L"C:\\sel\\b c.tar.gz"};
    world.Clock = {2026, 2, 3, 4, 5, 6};
    world.Environment[L"TEMP"] = L"C:\\temp";
    world.Answers = {6, 7, 6, 7};
    world.Programs[L"a"] = {0, 0};
    world.Trace = scripttools::TraceKind::Trace;
    world.HasHostWindow = true;
    world.Clipboard = L"length(abc)";
    world.CurrentFolder = L"C:\\s";
    world.LoginName = L"u";
    world.LocalAppData = L"C:\\local";
    world.ProgramFolder = L"C:\\Kiv\\Command\\Ferry\\";
    world.Files[kScriptPath] = std::move(script);
    world.Files[L"C:\\s\\t"] = base::BytesFromUnits(L"\xFEFFone\r\ntwo\r\n");
    return world;
}

/// So much may a script of a fuzz target do.
inline constexpr scripttools::Budget kSmallBudget{.Statements = 100, .EffectUnits = std::size_t{1} << 20U};

}  // namespace ferry::fuzz
