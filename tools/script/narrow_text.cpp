#include "narrow_text.h"

#include <iconv.h>

#include <array>
#include <cstddef>

#include "base/utf16.h"

namespace ferry::scripttools {

namespace {

/// The C library's conversion into the code page.
class Conversion {
public:
    Conversion() : handle_(iconv_open("CP932", "UTF-8")) {}
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;
    ~Conversion() {
        if (IsOpen())
            iconv_close(handle_);
    }

    /// One character; "?" when the code page has none such, or the C library does not know the code page.
    std::string Of(std::string character) {
        constexpr std::size_t kMostBytes = 8;
        std::array<char, kMostBytes> narrow{};
        char* from = character.data();
        std::size_t left = character.size();
        char* to = narrow.data();
        std::size_t room = narrow.size();
        if (!IsOpen() || iconv(handle_, &from, &left, &to, &room) != 0)
            return "?";
        return {narrow.data(), to};
    }

private:
    bool IsOpen() const noexcept {
        return handle_ != reinterpret_cast<iconv_t>(-1);  // NOLINT: the C library's own word for a failure
    }

    iconv_t handle_;
};

}  // namespace

std::string InCodePage932(std::wstring_view text) {
    constexpr wchar_t kFirstBeyondAscii = 0x80;
    Conversion conversion;
    std::string narrow;
    for (const wchar_t unit : text) {
        if (unit < kFirstBeyondAscii)
            narrow += static_cast<char>(unit);
        else
            narrow += conversion.Of(base::ToUtf8({&unit, 1}));
    }
    return narrow;
}

}  // namespace ferry::scripttools
