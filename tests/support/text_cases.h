// Tables of texts: what goes in and what comes out.
#pragma once

#include <gtest/gtest.h>

#include <clocale>
#include <cstddef>
#include <string>
#include <string_view>

#include "base/utf16.h"

namespace ferry::test {

struct TextCase {
    std::wstring_view Input, Expected;
};

/// Expects of `edit` what the cases say, one failure for each that it does not hold of.
template <class Edit, std::size_t count>
void ExpectEach(Edit edit, const TextCase (&cases)[count]) {
    for (const auto& [input, expected] : cases) {
        SCOPED_TRACE(base::ToUtf8(input));
        EXPECT_EQ(base::ToUtf8(edit(input)), base::ToUtf8(expected));
    }
}

/// The C library in a locale that knows letters beyond ASCII, for as long as this lives.
class LetterLocale {
public:
    LetterLocale() : before_(std::setlocale(LC_ALL, nullptr)) {
        for (const char* name : {"Japanese_Japan.932", "C.UTF-8"}) {
            if (std::setlocale(LC_ALL, name) != nullptr) {
                return;
            }
        }
        ADD_FAILURE() << "there is no locale with letters beyond ASCII";
    }
    ~LetterLocale() { std::setlocale(LC_ALL, before_.c_str()); }

    LetterLocale(const LetterLocale&) = delete;
    LetterLocale& operator=(const LetterLocale&) = delete;

private:
    std::string before_;
};

}  // namespace ferry::test
