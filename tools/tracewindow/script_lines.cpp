#include "script_lines.h"

#include <utility>

#include "paths/path_grammar.h"
#include "script/source.h"

namespace ferry::tracewindow {

ScriptLines::ScriptLines(std::wstring text) : text_(std::move(text)) {
    std::wstring_view rest = text_;
    while (!rest.empty() && lines_.size() < kMaxShownLines)
        lines_.push_back(script::TakeRawLine(rest));
}

std::wstring_view ScriptLines::Line(std::size_t number) const noexcept {
    return number >= 1 && number <= lines_.size() ? lines_[number - 1] : std::wstring_view();
}

// Reading from a pipe or a port would wait for whoever is at its other end.
bool IsPathOfFile(std::wstring_view path) noexcept {
    if (paths::StartsWithDrive(path))
        return path.size() > 2 && (path[2] == L'\\' || path[2] == L'/');
    return path.starts_with(paths::kNetworkStart) && !path.starts_with(LR"(\\.)") &&
           !path.starts_with(LR"(\\?)");
}

}  // namespace ferry::tracewindow
