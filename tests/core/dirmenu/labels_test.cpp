// Names as a menu shows them.
#include "dirmenu/labels.h"

#include <gtest/gtest.h>

#include "base/utf16.h"

namespace ferry::dirmenu {
namespace {

/// A measure by which every unit is equally wide.
std::function<bool(std::wstring_view)> UpTo(std::size_t units) {
    return [units](std::wstring_view text) { return text.size() <= units; };
}

TEST(MenuText, DoublesEveryAmpersand) {
    EXPECT_EQ(MenuText(L"R&D"), L"R&&D");
    EXPECT_EQ(MenuText(L"&first"), L"&&first");
    EXPECT_EQ(MenuText(L"last&"), L"last&&");
    EXPECT_EQ(MenuText(L"a && b"), L"a &&&& b");
    EXPECT_EQ(MenuText(L"日本"), L"日本");
    EXPECT_EQ(MenuText(L""), L"");
}

TEST(MenuText, HasABlankForWhatWouldMoveTheRestElsewhere) {
    EXPECT_EQ(MenuText(L"a\tb\nc\x08 d"), L"a b c  d");
    EXPECT_EQ(MenuText(L"a b\x7F"), L"a b\x7F");
}

TEST(Shortened, LeavesANameThatFits) {
    EXPECT_EQ(Shortened(L"name", UpTo(4)), L"name");
    EXPECT_EQ(Shortened(L"", UpTo(0)), L"");
}

TEST(Shortened, KeepsAsMuchOfBothEndsAsFits) {
    EXPECT_EQ(Shortened(L"0123456789", UpTo(9)),
              L"0123\x2026"
              L"6789");
    EXPECT_EQ(Shortened(L"0123456789", UpTo(8)),
              L"0123\x2026"
              L"789");
    EXPECT_EQ(Shortened(L"0123456789", UpTo(3)),
              L"0\x2026"
              L"9");
    EXPECT_EQ(Shortened(L"0123456789", UpTo(2)), L"0\x2026");
    EXPECT_EQ(Shortened(L"0123456789", UpTo(1)), L"\x2026");
}

TEST(Shortened, IsTheEllipsisWhereNothingFits) {
    EXPECT_EQ(Shortened(L"0123456789", UpTo(0)), L"\x2026");
    EXPECT_EQ(Shortened(L"0", UpTo(0)), L"\x2026");
}

TEST(Shortened, CutsNoCharacterInTwo) {
    // Each: one character of two units, a letter with an accent, two with a voicing mark, two with a chosen
    // form.
    for (const std::wstring_view character : {L"\xD842\xDFB7", L"e\x0301", L"\x304B\x3099", L"\xFF76\xFF9E",
                                              L"\x845B\xFE00", L"\x845B\xDB40\xDD00"}) {
        const std::size_t size = character.size();
        std::wstring name;
        for (int count = 0; count < 10; ++count) {
            name.append(character);
        }
        for (std::size_t width = 1; width < name.size(); ++width) {
            const std::wstring shortened = Shortened(name, UpTo(width));
            SCOPED_TRACE(base::ToUtf8(shortened));
            const std::size_t ellipsis = shortened.find(L'\x2026');
            ASSERT_NE(ellipsis, std::wstring::npos);
            EXPECT_LE(shortened.size(), width);
            EXPECT_EQ(ellipsis % size, 0U);
            EXPECT_EQ((shortened.size() - ellipsis - 1) % size, 0U);
            for (std::size_t at = 0; at < shortened.size(); at += at == ellipsis ? 1 : size) {
                EXPECT_TRUE(at == ellipsis || shortened.substr(at, size) == character);
            }
        }
    }
}

TEST(Shortened, MeasuresALongNameAFewTimesOnly) {
    const std::wstring name(32000, L'x');
    int measured = 0;
    const std::wstring shortened = Shortened(name, [&measured](std::wstring_view text) {
        ++measured;
        return text.size() <= 60;
    });
    EXPECT_EQ(shortened.size(), 60U);
    EXPECT_LE(measured, 20);
}

}  // namespace
}  // namespace ferry::dirmenu
