// The contract of the settings store.
#include "core/settings/store_contract.h"

namespace ferry::settings::contract {
namespace {

using namespace std::string_view_literals;

TEST_P(StoreContract, AMissingValueGivesTheDefaultAndItsKeyIsMade) {
    ASSERT_FALSE(HasKey(ProgramKey()));
    EXPECT_EQ(Store().ReadText(L"DateTime", L"%Y-%m-%d"), L"%Y-%m-%d");
    EXPECT_TRUE(HasKey(ProgramKey()));
    EXPECT_EQ(Store().ReadText(L"DateTime", L"other"), L"other") << "the default is not stored";
    EXPECT_EQ(Store().ReadNumber(L"FileNameSep", 1), 1u);
    EXPECT_EQ(Store().ReadNumber(L"FileNameSep", 0xFFFFFFFF), 0xFFFFFFFF);
}

TEST_P(StoreContract, ANumberThatIsReadMakesItsKeyToo) {
    EXPECT_EQ(Store().ReadNumber(L"Mode", 5), 5u);
    EXPECT_TRUE(HasKey(ProgramKey()));
}

TEST_P(StoreContract, AMissingHostValueGivesTheDefaultOrZeroAndTheHostsKeyIsMade) {
    ASSERT_FALSE(HasKey(kHostKey));
    EXPECT_EQ(Store().ReadHostText(L"NLS", L".ja-JP"), L".ja-JP");
    EXPECT_TRUE(HasKey(kHostKey));
    EXPECT_EQ(Store().ReadHostNumber(L"LangOut"), 0u);
    EXPECT_FALSE(HasKey(ProgramKey()));
}

TEST_P(StoreContract, AHostNumberThatIsReadMakesItsKeyToo) {
    EXPECT_EQ(Store().ReadHostNumber(L"LangOut"), 0u);
    EXPECT_TRUE(HasKey(kHostKey));
}

TEST_P(StoreContract, WhatWasWrittenIsReadBack) {
    EXPECT_TRUE(Store().WriteText(L"Ferry000", L"C:\\出力先"));
    EXPECT_EQ(Store().ReadText(L"Ferry000", L"a much longer default"), L"C:\\出力先");
    for (const std::uint32_t number : {0u, 1u, 0x80000000u, 0xFFFFFFFFu}) {
        EXPECT_TRUE(Store().WriteNumber(L"Mode", number));
        EXPECT_EQ(Store().ReadNumber(L"Mode", 5), number);
    }
    EXPECT_EQ(AtPlace().Text(ProgramKey(), L"Ferry000"), L"C:\\出力先");
    EXPECT_EQ(AtPlace().Number(ProgramKey(), L"Mode"), 0xFFFFFFFF);
}

TEST_P(StoreContract, NamesAreTheSameInCapitalsAndInSmallLetters) {
    ASSERT_TRUE(Store().WriteNumber(L"Mode", 3));
    EXPECT_EQ(Store().ReadNumber(L"mODE", 0), 3u);
    ASSERT_TRUE(Store().WriteNumberToKey(L"SOFTWARE\\marrowby\\kiv\\COMMAND\\ferry", L"MODE", 4));
    EXPECT_EQ(Store().ReadNumber(L"Mode", 0), 4u);
}

TEST_P(StoreContract, ANameHasOneValueWhicheverWayItWasWritten) {
    ASSERT_TRUE(Store().WriteText(L"Name", L"a longer text"));
    ASSERT_TRUE(Store().WriteNumber(L"Name", 0x41));
    EXPECT_EQ(Store().ReadNumber(L"Name", 9), 0x41u);
    EXPECT_EQ(Store().ReadText(L"Name", L""), L"A");
    ASSERT_TRUE(Store().WriteText(L"Name", L"7"));
    EXPECT_EQ(Store().ReadText(L"Name", L""), L"7");
}

// Windows stores a NUL that follows a text in memory with the text, so these texts are cut from longer ones.
TEST_P(StoreContract, ATextReadAsANumberGivesItsBytesWhenThereAreAtMostFour) {
    ASSERT_TRUE(Store().WriteText(L"Name", L"72"sv.substr(0, 1)));
    EXPECT_EQ(Store().ReadNumber(L"Name", 0xFFFFFFFF), 0x37u);
    ASSERT_TRUE(Store().WriteText(L"Name", L"abc"sv.substr(0, 2)));
    EXPECT_EQ(Store().ReadNumber(L"Name", 3), 0x00620061u);
    ASSERT_TRUE(Store().WriteText(L"Name", L"seven"));
    EXPECT_EQ(Store().ReadNumber(L"Name", 3), 3u);
}

TEST_P(StoreContract, AnEmptyTextLeavesTheDefaultStanding) {
    ASSERT_TRUE(Store().WriteText(L"Ferry003", L"old"));
    ASSERT_TRUE(Store().WriteText(L"Ferry003", L""));
    EXPECT_EQ(Store().ReadText(L"Ferry003", L""), L"");
    EXPECT_EQ(Store().ReadText(L"Ferry003", L"default"), L"default");
    EXPECT_EQ(Store().ReadNumber(L"Ferry003", 8), 8u);
}

TEST_P(StoreContract, ATextEndsAtItsFirstNul) {
    ASSERT_TRUE(Store().WriteText(L"Time", L"one\0two"sv));
    EXPECT_EQ(Store().ReadText(L"Time", L""), L"one");
}

TEST_P(StoreContract, ATextOfMoreThanItsLimitIsNotRead) {
    const std::wstring tooLong(kMaxTextBytes / 2 + 1, L'x');
    const std::wstring_view longest = std::wstring_view(tooLong).substr(1);
    ASSERT_TRUE(Store().WriteText(L"Fits", std::wstring_view(tooLong).substr(0, longest.size())));
    EXPECT_TRUE(Store().ReadText(L"Fits", L"default") == longest);
    ASSERT_TRUE(Store().WriteText(L"TooLong", tooLong));
    EXPECT_EQ(Store().ReadText(L"TooLong", L"default"), L"default");
}

TEST_P(StoreContract, AnyKeyCanBeWrittenAndIsMadeWithItsParents) {
    const std::wstring deep = L"Software\\Elsewhere\\Deep\\Key";
    EXPECT_TRUE(Store().WriteTextToKey(deep, L"text", L"value"));
    EXPECT_TRUE(Store().WriteNumberToKey(deep, L"number", 9));
    EXPECT_TRUE(HasKey(deep));
    EXPECT_TRUE(HasKey(L"Software\\Elsewhere"));
    EXPECT_FALSE(HasKey(L"Software\\Else"));
    EXPECT_EQ(AtPlace().Text(deep, L"text"), L"value");
    EXPECT_EQ(AtPlace().Number(deep, L"number"), 9u);
    EXPECT_EQ(Store().ReadText(L"text", L"none"), L"none") << "each key has values of its own";
}

TEST_P(StoreContract, TheProgramsAndTheHostsKeysAreReachedByTheirPathsToo) {
    EXPECT_TRUE(Store().WriteTextToKey(ProgramKey(), L"Time", L"%H"));
    EXPECT_TRUE(Store().WriteNumberToKey(ProgramKey(), L"Mode", 1));
    EXPECT_EQ(Store().ReadText(L"Time", L""), L"%H");
    EXPECT_EQ(Store().ReadNumber(L"Mode", 0), 1u);
    EXPECT_TRUE(Store().WriteTextToKey(kHostKey, L"NLS", L".en-US"));
    EXPECT_TRUE(Store().WriteNumberToKey(kHostKey, L"LangOut", 2));
    EXPECT_EQ(Store().ReadHostText(L"NLS", L".ja-JP"), L".en-US");
    EXPECT_EQ(Store().ReadHostNumber(L"LangOut"), 2u);
    EXPECT_EQ(Store().ReadText(L"NLS", L"none"), L"none");
}

TEST_P(StoreContract, AKeyThatCannotBeMadeGivesDefaultsAndFailedWrites) {
    // One component of a key's path has at most 255 units.
    const std::wstring path = L"Software\\" + std::wstring(300, L'k');
    const auto broken = AtPlace().Open(path);
    EXPECT_EQ(broken->ReadText(L"Time", L"default"), L"default");
    EXPECT_EQ(broken->ReadNumber(L"Mode", 4), 4u);
    EXPECT_FALSE(broken->WriteText(L"Time", L"text"));
    EXPECT_FALSE(broken->WriteNumber(L"Mode", 1));
    EXPECT_FALSE(Store().WriteTextToKey(path, L"Time", L"text"));
    EXPECT_FALSE(Store().WriteNumberToKey(path, L"Mode", 1));
    EXPECT_FALSE(HasKey(path));
}

}  // namespace
}  // namespace ferry::settings::contract
