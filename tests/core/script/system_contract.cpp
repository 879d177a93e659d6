// The contract of the system around a script.
#include "core/script/system_contract.h"

namespace ferry::script::contract {
namespace {

TEST_P(ClipboardContract, WhatAnotherProgramCopiedIsItsText) {
    for (const std::wstring& text : {std::wstring(L"資料\r\nsecond\tthird"), std::wstring(100'000, L'x')}) {
        AtPlace().Copy(text);
        EXPECT_TRUE(AtPlace().TheClipboard().Text() == text);
    }
}

TEST_P(ClipboardContract, AnEmptyOneHasNoText) {
    AtPlace().Copy(L"before");
    AtPlace().Clear();
    EXPECT_EQ(AtPlace().TheClipboard().Text(), L"");
}

TEST_P(ClipboardContract, WhatIsSetAnotherProgramPastes) {
    for (const std::wstring& text :
         {std::wstring(L"資料\r\nsecond"), std::wstring(100'000, L'x'), std::wstring()}) {
        AtPlace().TheClipboard().SetText(text);
        EXPECT_TRUE(AtPlace().Pasted() == text);
        EXPECT_TRUE(AtPlace().TheClipboard().Text() == text);
    }
}

TEST_P(SurroundingsContract, VariablesOfTheEnvironmentAreReplacedWhateverTheirCase) {
    AtPlace().SetVariable(L"FERRY_A", L"one");
    EXPECT_EQ(Around().ExpandEnvironment(L"%FERRY_A%"), L"one");
    EXPECT_EQ(Around().ExpandEnvironment(L"x%Ferry_a%%FERRY_A%y"), L"xoneoney");
}

TEST_P(SurroundingsContract, NamesThatNobodyKnowsStay) {
    for (const wchar_t* text : {L"", L"plain", L"%FERRY_UNKNOWN%", L"100 % sure", L"%", L"a%User_dir%b"})
        EXPECT_EQ(Around().ExpandEnvironment(text), text);
}

TEST_P(SurroundingsContract, ExpandedTextsHaveAnyLength) {
    for (const std::size_t length : {258U, 259U, 260U, 261U, 5000U}) {
        AtPlace().SetVariable(L"FERRY_A", std::wstring(length, L'a'));
        EXPECT_EQ(Around().ExpandEnvironment(L"%FERRY_A%"), std::wstring(length, L'a'));
        EXPECT_EQ(Around().ExpandEnvironment(L"%FERRY_A%%FERRY_A%"), std::wstring(2 * length, L'a'));
    }
}

TEST_P(SurroundingsContract, TheCurrentFolderIsTheOneThatPathsCountFrom) {
    const std::wstring folder = AtPlace().CurrentFolder();
    EXPECT_EQ(Around().CurrentFolder(), folder);
    EXPECT_EQ(Around().FullPath(L"a.txt"), folder + L"\\a.txt");
    EXPECT_EQ(Around().FullPath(L"b\\..\\a.txt"), folder + L"\\a.txt");
    EXPECT_EQ(Around().FullPath(L".\\a"), folder + L"\\a");
    EXPECT_EQ(Around().FullPath(L"\\a"), folder.substr(0, 2) + L"\\a");
}

TEST_P(SurroundingsContract, FullPathsLoseTheirDetours) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"C:\\a\\b.txt", L"C:\\a\\b.txt"},
        {L"C:\\a\\..\\..\\b", L"C:\\b"},
        {L"C:\\a\\.\\b\\..\\..\\c\\", L"C:\\c\\"},
        {L"C:/a/b", L"C:\\a\\b"},
        {L"C:\\Kiv\\Command\\Ferry\\..\\..\\", L"C:\\Kiv\\"},
        {L"\\\\server\\share\\a\\..\\b", L"\\\\server\\share\\b"},
    };
    for (const auto& [path, full] : cases)
        EXPECT_EQ(Around().FullPath(path), full);
    EXPECT_EQ(Around().FullPath(L""), L"");
}

TEST_P(SurroundingsContract, FullPathsHaveAnyLength) {
    for (const std::size_t length : {250U, 256U, 257U, 258U, 5000U}) {
        const std::wstring name(length, L'n');
        EXPECT_EQ(Around().FullPath(L"C:\\a\\..\\" + name), L"C:\\" + name);
    }
}

TEST_P(SurroundingsContract, NarrowTextsHaveAQuestionMarkForWhatIsLacking) {
    EXPECT_EQ(Around().Narrow(L"plain text\r\n"), "plain text\r\n");
    EXPECT_EQ(Around().Narrow(L""), "");
    // Ethiopic, which no encoding of a country has.
    EXPECT_EQ(Around().Narrow(L"a\x1200z"), AtPlace().IsNarrowComplete() ? "a\xE1\x88\x80z" : "a?z");
}

TEST_P(SmallContract, HomesAreTheirsAndEndAsTheyShould) {
    const auto name = AtPlace().TheHomes().LoginName();
    ASSERT_TRUE(name);
    EXPECT_FALSE(name->empty());
    const auto local = AtPlace().TheHomes().LocalAppData();
    ASSERT_TRUE(local);
    EXPECT_FALSE(local->ends_with(L'\\'));
    EXPECT_NE(local->find(L":\\"), std::wstring::npos);
    EXPECT_TRUE(AtPlace().TheHomes().ProgramFolder().ends_with(L'\\'));
}

TEST_P(SmallContract, ChanceStaysBelowTheCount) {
    for (const std::size_t count : {1U, 2U, 7U, 32'768U, 32'769U, 1'000'000U}) {
        for (int draw = 0; draw < 200; ++draw)
            EXPECT_LT(AtPlace().TheChance().Below(count), count);
    }
}

TEST_P(SmallContract, ARunThatNobodyStopsGoesOn) {
    for (int statement = 0; statement < 1000; ++statement)
        ASSERT_TRUE(AtPlace().ThePace().GoesOn());
    AtPlace().ThePace().Sleep(0);
    AtPlace().ThePace().Sleep(1);
    EXPECT_TRUE(AtPlace().ThePace().GoesOn());
}

TEST_P(SmallContract, SpeakingNeverFails) {
    Speech& speech = AtPlace().TheSpeech();
    speech.SetFlags(1);
    for (const int number : {-2147483647, -11, 0, 10, 101, 2147483647}) {
        speech.SetVolume(number);
        speech.SetRate(number);
        speech.SetPitch(number);
    }
    speech.Speak(L"");
}

}  // namespace
}  // namespace ferry::script::contract
