// The text in a stored value's bytes.
#include "settings/settings_store.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/utf16.h"

namespace ferry::settings {
namespace {

using namespace std::string_view_literals;

std::wstring TextOf(std::wstring_view units) {
    return TextFromValue(base::BytesFromUnits(units));
}

// Other programs read and write the same values, so every letter counts.
TEST(SettingsKeys, AreSpelledAsOthersSpellThem) {
    EXPECT_STREQ(kProgramKeyPrefix, L"Software\\Marrowby\\KIV\\Command\\");
    EXPECT_STREQ(kProgramName, L"Ferry");
    EXPECT_STREQ(kHostKey, L"Software\\Marrowby\\Kiv\\Main001\\Settings");
    EXPECT_EQ(kMaxTextBytes, 2u * 16384u);
}

TEST(TextFromValue, ReadsAValueWithoutItsTerminator) {
    EXPECT_EQ(TextOf(L".en-US"), L".en-US");
}

TEST(TextFromValue, EndsAtTheFirstNul) {
    EXPECT_EQ(TextOf(L".en-US\0"sv), L".en-US");
    EXPECT_EQ(TextOf(L"one\0two\0\0"sv), L"one");
    EXPECT_EQ(TextOf(L"\0"sv), L"");
}

TEST(TextFromValue, IsEmptyForAnEmptyValue) {
    EXPECT_EQ(TextFromValue({}), L"");
}

TEST(TextFromValue, ReadsWhateverTypeTheBytesWereStoredWith) {
    const std::vector<std::byte> number = {std::byte{0x41}, std::byte{0}, std::byte{0}, std::byte{0}};
    EXPECT_EQ(TextFromValue(number), L"A");
    const std::vector<std::byte> odd = {std::byte{0x41}, std::byte{0}, std::byte{0x42}};
    EXPECT_EQ(TextFromValue(odd), L"A");
}

TEST(TextFromValue, ReadsTheLongestValue) {
    const std::wstring longest(kMaxTextBytes / 2, L'x');
    EXPECT_EQ(TextOf(longest), longest);
}

}  // namespace
}  // namespace ferry::settings
