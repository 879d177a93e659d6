// The log that tests read: one line for each call, item and question.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace ferry::fileop {

/// Appends the fields, separated by tabs, as one line to the UTF-8 file that the environment
/// variable FERRY_FILEOP_LOG names; does nothing without it. Tabs and line ends inside a field
/// become blanks. Several processes may write to one file: each line stays whole.
void WriteLog(std::initializer_list<std::wstring_view> fields);

/// "0x" and the hexadecimal digits of `number`, without leading zeros.
std::wstring Hex(std::uint64_t number);

/// "0x" and the eight hexadecimal digits of a result code.
std::wstring HexResult(std::int32_t result);

/// The value of an environment variable; empty when there is none.
std::wstring EnvironmentText(const wchar_t* name);

}  // namespace ferry::fileop
