// The environment variable through which the host announces its data.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ferry::hostlink {

/// The variable's name.
inline constexpr wchar_t kHostVariableName[] = L"KIV_ExCommand";

/// The number of units, terminator included, that the variable's value may have.
inline constexpr std::size_t kHostVariableCapacity = 2048;

/// The fields of the variable that the program reads.
struct HostVariable {
    int WindowMode = 0;
    int ActivateHostOnExit = 0;
    int FirstNumber = 0;   ///< First number of the block's name.
    int SecondNumber = 0;  ///< Second number of the block's name.
    std::uint32_t BlockSizeBytes = 0;
    bool ShareMode = false;  ///< The transport word is exactly "Share".
};

/// Reads the ten ":"-separated fields of `value`; nothing when there are not exactly ten.
std::optional<HostVariable> ParseHostVariable(std::wstring_view value);

/// "ShareMem_<first>_<second>": the name of the block's file mapping.
std::wstring BlockName(const HostVariable& variable);

/// The name of the mutex that guards the block: the block's name and "_Mutex".
std::wstring BlockGuardName(const HostVariable& variable);

/// "ExCommand.<file name>": the name of the presence mutex of the executable at `modulePath`.
std::wstring PresenceMutexName(std::wstring_view modulePath);

}  // namespace ferry::hostlink
