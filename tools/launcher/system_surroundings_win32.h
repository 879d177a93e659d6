// What the launcher asks the system: paths, lists, arguments.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "launcher/known_names.h"
#include "launcher/selection.h"

namespace ferry::launcher {

/// The most bytes of a list: more than the paths of a full selection have.
inline constexpr std::size_t kMostListBytes = std::size_t{1} << 30;

/// The system as a selection knows it.
class SystemSurroundings final : public Surroundings {
public:
    SystemSurroundings();

    std::wstring FullPath(const std::wstring& path) override;
    bool Exists(const std::wstring& path) override { return names_.Exists(path); }

private:
    KnownNames names_;
};

/// The current folder; empty when the system cannot tell.
std::wstring CurrentFolder();

/// The paths in the list `name`, which is a file or kStandardInput. Nothing when it cannot be read. A list
/// that is neither UTF-8 nor UTF-16 is read in the code page in which programs of the console write files.
std::optional<std::vector<std::wstring>> ReadList(const std::wstring& name);

/// The arguments of this process without the program's name.
std::vector<std::wstring> ArgumentsOfThisProcess();

}  // namespace ferry::launcher
