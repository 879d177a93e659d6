// The lines of a script as the engine counts them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ferry::tracewindow {

/// The most lines that are shown; the rest is left out.
inline constexpr std::size_t kMaxShownLines = 1000000;

/// A script's text with its lines.
class ScriptLines {
public:
    ScriptLines() = default;
    explicit ScriptLines(std::wstring text);
    ScriptLines(const ScriptLines&) = delete;
    ScriptLines(ScriptLines&&) = delete;
    ScriptLines& operator=(const ScriptLines&) = delete;
    ScriptLines& operator=(ScriptLines&&) = delete;
    ~ScriptLines() = default;

    std::size_t Count() const noexcept { return lines_.size(); }

    /// The line `number`, counted from 1; empty when there is none.
    std::wstring_view Line(std::size_t number) const noexcept;

private:
    std::wstring text_;
    std::vector<std::wstring_view> lines_;
};

/// Whether a script's file may be read by this path: it is a full one, of a file and no device.
bool IsPathOfFile(std::wstring_view path) noexcept;

}  // namespace ferry::tracewindow
