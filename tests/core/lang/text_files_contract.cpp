// The contract of text files.
#include "core/lang/text_files_contract.h"

namespace ferry::lang::contract {
namespace {

using namespace std::string_view_literals;

TEST_P(TextFilesContract, AMissingFileGivesNothing) {
    EXPECT_EQ(Files().Read(Path()), std::nullopt);
}

TEST_P(TextFilesContract, TheFilesUnitsComeAsTheyLie) {
    const std::wstring units(L"\xFEFF// 資料\r\n1\ta\tb\n\x1A\0after\rend\xD83D\xDE00"sv);
    AtPlace().Write(units);
    EXPECT_EQ(Files().Read(Path()), units);
}

TEST_P(TextFilesContract, AnEmptyFileIsAFile) {
    AtPlace().Write(L"");
    EXPECT_EQ(Files().Read(Path()), std::wstring());
}

TEST_P(TextFilesContract, ALargeFileComesWhole) {
    std::wstring units;
    for (int line = 0; line < 30'000; ++line)
        units += std::to_wstring(line) + L"\ttext\r\n";
    AtPlace().Write(units);
    EXPECT_TRUE(Files().Read(Path()) == units);
}

TEST_P(TextFilesContract, TheFileIsReadAnewEachTime) {
    EXPECT_FALSE(Files().Read(Path()));
    AtPlace().Write(L"1\told\r\n");
    EXPECT_EQ(Files().Read(Path()), L"1\told\r\n");
    AtPlace().Write(L"1\tnew\r\n");
    EXPECT_EQ(Files().Read(Path()), L"1\tnew\r\n");
    AtPlace().Remove();
    EXPECT_FALSE(Files().Read(Path()));
}

TEST_P(TextFilesContract, WhatIsWrittenIsReadAndTakesThePlaceOfWhatWasThere) {
    for (const std::wstring_view units : {L"\xFEFF資料\r\n\0x"sv, L"short"sv, L""sv}) {
        EXPECT_TRUE(Files().Write(Path(), units));
        EXPECT_EQ(Files().Read(Path()), units);
    }
}

}  // namespace
}  // namespace ferry::lang::contract
