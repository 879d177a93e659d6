// A text file in memory, for the tests of whatever reads texts. It keeps the contract of text files.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "lang/text_files.h"

namespace ferry::test {

/// The one file that there is, at every path; without `File` it is missing.
class MessageText : public lang::TextFiles {
public:
    MessageText() = default;
    explicit MessageText(std::wstring file) : File(std::move(file)) {}

    std::optional<std::wstring> Read(std::wstring_view path) override {
        Paths.emplace_back(path);
        return File;
    }

    bool Write(std::wstring_view path, std::wstring_view units) override {
        Paths.emplace_back(path);
        File = units;
        return true;
    }

    std::optional<std::wstring> File;
    std::vector<std::wstring> Paths;  ///< What was read and written, in this order.
};

}  // namespace ferry::test
