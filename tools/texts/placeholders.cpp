#include "texts/placeholders.h"

#include <algorithm>

namespace ferry::texts {

std::vector<std::wstring> PlaceholdersOf(std::wstring_view text) {
    std::vector<std::wstring> found;
    for (std::size_t at = 0; at + 1 < text.size(); ++at) {
        const wchar_t next = text[at + 1];
        const bool names = (next >= L'0' && next <= L'9') || next == L'd' || next == L's' || next == L'u';
        if (text[at] == L'%' && names) {
            found.emplace_back(text.substr(at, 2));
        }
    }
    std::ranges::sort(found);
    return found;
}

}  // namespace ferry::texts
