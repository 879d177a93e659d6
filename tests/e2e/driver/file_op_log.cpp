#include "e2e/driver/file_op_log.h"

#include <cwchar>
#include <sstream>

#include "base/utf16.h"
#include "e2e/driver/temp_tree.h"

namespace ferry::e2e {

std::vector<FileOpLine> ReadFileOpLog(const std::wstring& path) {
    std::vector<FileOpLine> log;
    std::istringstream stream(ReadBytes(path));
    std::string line;
    while (std::getline(stream, line)) {
        if (line.ends_with('\r'))
            line.pop_back();
        FileOpLine fields;
        std::istringstream parts(line);
        std::string field;
        while (std::getline(parts, field, '\t')) {
            fields.push_back(base::FromUtf8(field));
        }
        if (!fields.empty())
            log.push_back(std::move(fields));
    }
    return log;
}

std::vector<FileOpLine> LinesOf(const std::vector<FileOpLine>& log, const std::wstring& method) {
    std::vector<FileOpLine> lines;
    for (const FileOpLine& line : log) {
        if (line.front() == method)
            lines.push_back(line);
    }
    return lines;
}

std::vector<unsigned long> FlagsIn(const std::vector<FileOpLine>& log) {
    std::vector<unsigned long> flags;
    for (const FileOpLine& line : LinesOf(log, L"SetOperationFlags")) {
        if (line.size() > 1)
            flags.push_back(std::wcstoul(line[1].c_str(), nullptr, 16));
    }
    return flags;
}

}  // namespace ferry::e2e
