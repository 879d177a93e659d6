// Lists of paths in every encoding that they come in.
#include "launcher/list_text.h"

#include <gtest/gtest.h>

#include "base/utf16.h"

namespace ferry::launcher {
namespace {

using Words = std::vector<std::wstring>;

std::optional<std::wstring> Decode(std::string_view bytes) {
    return DecodeList(std::as_bytes(std::span(bytes)));
}

/// The bytes of `text` in UTF-16, the higher byte first when `isBigEndian`.
std::string Utf16(std::wstring_view text, bool isBigEndian) {
    std::string bytes;
    for (const std::byte byte : base::BytesFromUnits(text)) {
        bytes += static_cast<char>(byte);
    }
    for (std::size_t index = 0; isBigEndian && index + 1 < bytes.size(); index += 2) {
        std::swap(bytes[index], bytes[index + 1]);
    }
    return bytes;
}

constexpr wchar_t kText[] = L"C:\\元\\a.txt\r\nC:\\\xD83D\xDE00\r\n";

TEST(ListDecoder, ReadsUtf8WithAndWithoutItsMark) {
    const std::string bytes = base::ToUtf8(kText);
    EXPECT_EQ(Decode(bytes), kText);
    EXPECT_EQ(Decode("\xEF\xBB\xBF" + bytes), kText);
}

TEST(ListDecoder, ReadsBothKindsOfUtf16ByTheirMarks) {
    EXPECT_EQ(Decode("\xFF\xFE" + Utf16(kText, false)), kText);
    EXPECT_EQ(Decode("\xFE\xFF" + Utf16(kText, true)), kText);
    EXPECT_EQ(Decode("\xFF\xFE" + Utf16(L"元\\a", false)), L"元\\a");
}

TEST(ListDecoder, KnowsUtf16WithoutAMarkByTheFirstUnit) {
    EXPECT_EQ(Decode(Utf16(kText, false)), kText);
    EXPECT_EQ(Decode(Utf16(kText, true)), kText);
}

TEST(ListDecoder, LeavesAnOddLastByteOut) {
    EXPECT_EQ(Decode("\xFF\xFE" + Utf16(L"a", false) + "b"), L"a");
    EXPECT_EQ(Decode("\xFE\xFF" + Utf16(L"a", true) + std::string(1, '\0')), L"a");
}

TEST(ListDecoder, ReadsNothingFromNoBytes) {
    EXPECT_EQ(Decode(""), L"");
    EXPECT_EQ(Decode("\xEF\xBB\xBF"), L"");
    EXPECT_EQ(Decode("\xFF\xFE"), L"");
    EXPECT_EQ(Decode("a"), L"a");
}

TEST(ListDecoder, LeavesACodePageToTheSystem) {
    EXPECT_EQ(Decode("C:\\\x8C\xB3"), std::nullopt);
    EXPECT_EQ(Decode("\xFF"), std::nullopt);
}

TEST(ListDecoder, TakesAMarkedTextForUtf8WhateverIsInIt) {
    EXPECT_EQ(Decode("\xEF\xBB\xBF"
                     "a\xFF"
                     "b"),
              L"a\uFFFDb");
}

TEST(PathsOfList, AreItsLinesWhateverEndsThem) {
    const Words expected = {L"C:\\a", L"C:\\b c", L"d"};
    for (const std::wstring_view text :
         {std::wstring_view(L"C:\\a\nC:\\b c\nd\n"), std::wstring_view(L"C:\\a\r\nC:\\b c\r\nd"),
          std::wstring_view(L"C:\\a\rC:\\b c\rd\r"), std::wstring_view(L"C:\\a\0C:\\b c\0d\0", 14),
          std::wstring_view(L"\n\nC:\\a\n\r\n\nC:\\b c\nd\n\n")}) {
        EXPECT_EQ(PathsOfList(text), expected);
    }
    EXPECT_TRUE(PathsOfList(L"").empty());
    EXPECT_TRUE(PathsOfList(L"\r\n\"\"\n").empty());
}

TEST(PathsOfList, LoseTheQuotesAroundThem) {
    EXPECT_EQ(PathsOfList(L"\"C:\\a b\"\r\n\"C:\\c\nC:\\d\"\n\""),
              (Words{L"C:\\a b", L"\"C:\\c", L"C:\\d\"", L"\""}));
}

TEST(PathsOfList, KeepTheBlanksThatNamesBeginOrEndWith) {
    EXPECT_EQ(PathsOfList(L" a \n"), Words{L" a "});
}

}  // namespace
}  // namespace ferry::launcher
