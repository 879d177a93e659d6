#include "e2e/driver/message_file.h"

#include <span>

#include "base/utf16.h"
#include "e2e/driver/temp_tree.h"

namespace ferry::e2e {

std::wstring InstalledMessage(const std::wstring& appFolder, int number, const std::wstring& language) {
    const std::string bytes = ReadBytes(appFolder + L"\\Lang\\Msg." + language + L".txt");
    const std::wstring text = base::UnitsFromBytes(std::as_bytes(std::span(bytes)));
    const std::wstring key = L"\n" + std::to_wstring(number) + L"\t";
    const std::size_t at = text.find(key);
    if (at == std::wstring::npos)
        return {};
    const std::size_t begin = at + key.size();
    std::wstring message = text.substr(begin, text.find(L'\r', begin) - begin);
    for (std::size_t mark = message.find(L"\\n"); mark != std::wstring::npos; mark = message.find(L"\\n")) {
        message.replace(mark, 2, L"\n");
    }
    return message;
}

}  // namespace ferry::e2e
