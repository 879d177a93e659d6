// What Explorer says of the installed program, in both languages.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "e2e/driver/app_copy.h"
#include "e2e/driver/surroundings.h"

namespace ferry::e2e {
namespace {

constexpr wchar_t kJapanese[] = L"041104B0";
constexpr wchar_t kEnglish[] = L"040904B0";

/// The version resource of the program.
class ProgramVersion : public testing::Test {
protected:
    void SetUp() override {
        const std::wstring program = ProgramFolder(AppFolder()) + L"\\Ferry.exe";
        DWORD ignored = 0;
        resource_.resize(GetFileVersionInfoSizeW(program.c_str(), &ignored));
        ASSERT_FALSE(resource_.empty());
        ASSERT_TRUE(
            GetFileVersionInfoW(program.c_str(), 0, static_cast<DWORD>(resource_.size()), resource_.data()));
    }

    /// A text of one language; empty when there is none.
    std::wstring Text(const std::wstring& language, const std::wstring& name) const {
        void* text = nullptr;
        UINT length = 0;
        const std::wstring place = L"\\StringFileInfo\\" + language + L"\\" + name;
        const bool isThere = VerQueryValueW(resource_.data(), place.c_str(), &text, &length) != FALSE;
        return isThere && length > 0 ? std::wstring(static_cast<const wchar_t*>(text)) : std::wstring();
    }

    std::vector<std::byte> resource_;
};

TEST_F(ProgramVersion, DescribesTheProgramInBothLanguages) {
    EXPECT_EQ(Text(kJapanese, L"FileDescription"), L"Ferry: ファイルのコピーと移動");
    EXPECT_EQ(Text(kEnglish, L"FileDescription"), L"Ferry: copies and moves files");
}

TEST_F(ProgramVersion, SaysTheSameOtherwise) {
    for (const wchar_t* name :
         {L"FileVersion", L"InternalName", L"OriginalFilename", L"ProductName", L"ProductVersion"}) {
        EXPECT_NE(Text(kJapanese, name), L"") << name;
        EXPECT_EQ(Text(kJapanese, name), Text(kEnglish, name)) << name;
    }
    EXPECT_EQ(Text(kEnglish, L"OriginalFilename"), L"Ferry.exe");
}

TEST_F(ProgramVersion, NamesBothLanguages) {
    void* value = nullptr;
    UINT bytes = 0;
    ASSERT_TRUE(VerQueryValueW(resource_.data(), L"\\VarFileInfo\\Translation", &value, &bytes));
    const auto* const words = static_cast<const WORD*>(value);
    EXPECT_EQ(std::vector<WORD>(words, words + bytes / sizeof(WORD)),
              (std::vector<WORD>{0x0411, 0x04B0, 0x0409, 0x04B0}));
}

}  // namespace
}  // namespace ferry::e2e
