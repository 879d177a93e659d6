// The switches on the program's command line.
#pragma once

#include <span>
#include <string_view>

#include "dialogs/start_options.h"

namespace ferry::app {

/// What the command line preset for the dialog.
using CommandLineOptions = dialogs::StartOptions;

/// Reads `arguments` (without the program's name) in order; later ones override earlier ones,
/// unknown ones are ignored. Never fails.
CommandLineOptions ParseCommandLine(std::span<const std::wstring_view> arguments);

}  // namespace ferry::app
