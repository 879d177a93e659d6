// The contract of the catalogue's source.
#include "core/lang/source_contract.h"

namespace ferry::lang::contract {
namespace {

using namespace std::string_view_literals;

TEST_P(SourceContract, AMissingFileGivesNothing) {
    EXPECT_EQ(Source().ReadMessageFile(), std::nullopt);
}

TEST_P(SourceContract, TheFilesUnitsComeAsTheyLie) {
    const std::wstring units(L"\xFEFF// 資料\r\n1\ta\tb\n\x1A\0after\rend\xD83D\xDE00"sv);
    AtPlace().Write(units);
    EXPECT_EQ(Source().ReadMessageFile(), units);
}

TEST_P(SourceContract, AnEmptyFileIsAFile) {
    AtPlace().Write(L"");
    EXPECT_EQ(Source().ReadMessageFile(), std::wstring());
}

TEST_P(SourceContract, ALargeFileComesWhole) {
    std::wstring units;
    for (int line = 0; line < 30'000; ++line)
        units += std::to_wstring(line) + L"\ttext\r\n";
    AtPlace().Write(units);
    EXPECT_TRUE(Source().ReadMessageFile() == units);
}

TEST_P(SourceContract, TheFileIsReadAnewEachTime) {
    EXPECT_FALSE(Source().ReadMessageFile());
    AtPlace().Write(L"1\told\r\n");
    EXPECT_EQ(Source().ReadMessageFile(), L"1\told\r\n");
    AtPlace().Write(L"1\tnew\r\n");
    EXPECT_EQ(Source().ReadMessageFile(), L"1\tnew\r\n");
    AtPlace().Remove();
    EXPECT_FALSE(Source().ReadMessageFile());
}

TEST_P(SourceContract, ThePersonIsToldEachTime) {
    EXPECT_TRUE(AtPlace().Reports());
    EXPECT_TRUE(AtPlace().Reports());
}

}  // namespace
}  // namespace ferry::lang::contract
