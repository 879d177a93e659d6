// The host's log: one UTF-8 line for each thing that happened.
#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>

#include "base/handles_win32.h"

namespace ferry::samplehost {

/// Writes lines of TAB-separated fields to the standard output, to a file and to a view.
/// TAB, CR and LF inside a field are written as "\t", "\r" and "\n".
class HostLog {
public:
    /// Also writes to `path`, emptied first. False when it cannot be made.
    bool OpenFile(const std::wstring& path);

    /// Also hands every line to `view`.
    void SetView(std::function<void(const std::wstring&)> view) { view_ = std::move(view); }

    /// Writes one line at once.
    void Write(std::initializer_list<std::wstring_view> fields);

private:
    base::FileHandle file_;
    std::function<void(const std::wstring&)> view_;
};

/// `value` as "0x" and hexadecimal digits.
std::wstring Hexadecimal(unsigned long long value);

}  // namespace ferry::samplehost
