// What the lines of message files and dialog text files have in common.
#include "lang/message_line.h"

#include "base/text.h"

namespace ferry::lang {

std::wstring WithoutMarks(std::wstring_view line) {
    std::wstring text(line);
    std::erase(text, L'\xFEFF');
    return base::ReplaceAll(text, L"\r\n", L"");
}

bool IsComment(std::wstring_view line) noexcept {
    return line.starts_with(L"//");
}

bool IsEndOfFile(std::wstring_view line) noexcept {
    return line == L"EOF";
}

}  // namespace ferry::lang
