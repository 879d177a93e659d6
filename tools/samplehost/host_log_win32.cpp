#include "host_log_win32.h"

#include "base/utf16.h"

namespace ferry::samplehost {
namespace {

std::wstring Escaped(std::wstring_view field) {
    std::wstring text;
    for (const wchar_t unit : field) {
        switch (unit) {
            case L'\t':
                text += L"\\t";
                break;
            case L'\r':
                text += L"\\r";
                break;
            case L'\n':
                text += L"\\n";
                break;
            default:
                text += unit;
        }
    }
    return text;
}

void WriteBytes(HANDLE file, const std::string& bytes) {
    DWORD written = 0;
    // Best effort: a closed pipe must not end the host while Ferry runs.
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace

bool HostLog::OpenFile(const std::wstring& path) {
    file_.Reset(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return static_cast<bool>(file_);
}

void HostLog::Write(std::initializer_list<std::wstring_view> fields) {
    std::wstring line;
    for (const std::wstring_view field : fields) {
        if (!line.empty())
            line += L'\t';
        line += Escaped(field);
    }
    const std::string bytes = base::ToUtf8(line) + "\n";
    WriteBytes(GetStdHandle(STD_OUTPUT_HANDLE), bytes);
    if (file_)
        WriteBytes(file_.Get(), bytes);
    if (view_)
        view_(line);
}

std::wstring Hexadecimal(unsigned long long value) {
    std::wstring digits;
    do {
        digits.insert(digits.begin(), L"0123456789ABCDEF"[value % 16]);
        value /= 16;
    } while (value != 0);
    return L"0x" + digits;
}

}  // namespace ferry::samplehost
