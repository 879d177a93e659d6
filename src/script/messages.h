// What a person is told about a script.
#pragma once

#include <string>
#include <string_view>

#include "script/commands.h"
#include "script/source.h"
#include "script/variables.h"

namespace ferry::script {

/// The script at `path` cannot be read.
std::wstring UnreadableText(std::wstring_view path);
std::wstring SyntaxErrorText(const Line& line);
std::wstring StoppedText(const Line& line);
std::wstring TooDeepText(std::wstring_view path);

/// Labels and jumps. `limit` is the number of jumps backward.
std::wstring DoubledLabelText(const Line& line);
std::wstring UndefinedLabelText(std::wstring_view name);
std::wstring TooManyRepetitionsText(int limit);

/// Blocks: `word` closes or leaves what `opener` opens.
std::wstring UsedWithoutText(std::wstring_view word, std::wstring_view opener);
std::wstring TooManyBlocksText(const Line& line);
std::wstring EmptiedInLoopText();

/// The question about a line that is none of the language.
std::wstring UnknownLineText(const Line& line);

/// Why `name` cannot be declared; `other` is the variable that it collides with.
std::wstring NameFaultText(NameFault fault, std::wstring_view name, std::wstring_view other,
                           const Line& line);

std::wstring TooLongText(const Line& line);
std::wstring TooManyStepsText(const Line& line);

/// Why `line` was not carried out. `outcome` is neither Done nor EndRun.
std::wstring OutcomeText(Outcome outcome, const Line& line);

}  // namespace ferry::script
