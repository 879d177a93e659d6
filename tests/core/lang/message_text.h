// A message file in memory, for the tests of whatever fetches texts. It keeps the source's contract.
#pragma once

#include <optional>
#include <string>
#include <utility>

#include "lang/catalogue.h"

namespace ferry::test {

/// A message file whose units are `File`; without any it is not there.
class MessageText : public lang::CatalogueSource {
public:
    MessageText() = default;
    explicit MessageText(std::wstring file) : File(std::move(file)) {}

    std::optional<std::wstring> ReadMessageFile() override {
        ++Reads;
        return File;
    }
    void ReportCannotOpen() override { ++Reports; }

    std::optional<std::wstring> File;
    int Reads = 0;
    int Reports = 0;  ///< How often the person was told that the file cannot be opened.
};

}  // namespace ferry::test
