#include "tracewindow/trace_texts.h"

#include <gtest/gtest.h>

#include <cwctype>
#include <set>

#include "core/tracewindow/records.h"

namespace ferry::tracewindow {
namespace {

using test::Sent;

/// The letter that works a control together with Alt; 0 when there is none.
wchar_t MnemonicOf(std::wstring_view label) {
    const std::size_t sign = label.find(L'&');
    return sign == std::wstring_view::npos || sign + 1 == label.size()
               ? L'\0'
               : static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(label[sign + 1])));
}

TEST(TraceTexts, GiveEveryControlALetterOfItsOwn) {
    for (const Texts* texts : {&kEnglish, &kJapanese}) {
        const wchar_t* const labels[] = {
            texts->ScriptLabel, texts->LinesLabel, texts->VariablesLabel, texts->WholeLabel,
            texts->NumberLabel, texts->Toggle,     texts->GoOn,           texts->Step,
            texts->HoldNothing, texts->Clear,      texts->Save,
        };
        std::set<wchar_t> letters;
        for (const wchar_t* label : labels) {
            SCOPED_TRACE(base::ToUtf8(label));
            EXPECT_NE(MnemonicOf(label), L'\0');
            EXPECT_TRUE(letters.insert(MnemonicOf(label)).second);
        }
    }
}

TEST(TraceTexts, AreThereInEachLanguage) {
    // A text that was left out is null, and stands at the place of the others.
    constexpr std::size_t kCount = sizeof(Texts) / sizeof(const wchar_t*);
    for (const Texts* texts : {&kEnglish, &kJapanese}) {
        const auto* const all = reinterpret_cast<const wchar_t* const*>(texts);
        for (std::size_t index = 0; index < kCount; ++index) {
            ASSERT_NE(all[index], nullptr) << index;
            EXPECT_NE(all[index][0], L'\0') << index;
        }
    }
}

TEST(ValueText, IsOneLineWithTheLengthOfWhatIsCut) {
    EXPECT_EQ(ValueText({.Name = L"a", .Value = L"x\r\ny", .Units = 4}, kEnglish), L"x\x240D\x2424y");
    EXPECT_EQ(ValueText({.Name = L"a", .Value = L"xyz", .Units = 4000}, kEnglish),
              L"xyz... (4000 characters)");
    EXPECT_EQ(ValueText({.Name = L"a", .Value = L"xyz", .Units = 4000}, kJapanese), L"xyz... (4000 文字)");
}

TEST(FileText, SaysWhatIsNotInIt) {
    TraceModel model;
    model.Take(Sent(2, L"4"));
    EXPECT_EQ(FileText(model, kEnglish), L"2\t4\r\n");
    for (std::size_t count = 0; count < kMaxRecords + 1; ++count)
        model.Take(Sent(2, L"7"));
    EXPECT_TRUE(FileText(model, kEnglish).starts_with(L"2 earlier records were not kept.\r\n2\t7\r\n"));
}

TEST(StatusText, TellsWhereTheScriptIs) {
    TraceModel model;
    Situation situation;
    EXPECT_EQ(StatusText(model, situation, kEnglish), L"Waiting for a script with a line \"debug\".");
    model.Take(Sent(1, L"C:\\s\\main.txt"));
    EXPECT_EQ(StatusText(model, situation, kEnglish), L"The script has started.  Records: 1.");
    situation.LineCount = 9;
    model.Take(Sent(2, L"9"));
    EXPECT_EQ(StatusText(model, situation, kEnglish), L"Last line: 9.  Records: 2.");
    situation.IsNextHeld = true;
    EXPECT_EQ(StatusText(model, situation, kEnglish),
              L"Last line: 9.  The next line will be held.  Records: 2.");
    situation.IsNextHeld = false;
    situation.HeldAt = 9;
    EXPECT_EQ(StatusText(model, situation, kEnglish),
              L"Held before line 9. The script waits for F5 or F10.  Records: 2.");
    EXPECT_EQ(StatusText(model, situation, kJapanese),
              L"9 行目の前で停止中です。F5 で続行、F10 で 1 行実行します。  記録: 2 件。");
}

TEST(StatusText, TellsWhatIsNotShownOfTheScript) {
    TraceModel model;
    model.Take(Sent(1, L"inner"));
    model.Take(Sent(2, L"12"));
    EXPECT_EQ(StatusText(model, {.Text = ScriptText::Read, .LineCount = 11}, kEnglish),
              L"Last line: 12.  This script has no line 12: it belongs to another one.  Records: 2.");
    EXPECT_EQ(StatusText(model, {.Text = ScriptText::Unreadable}, kEnglish),
              L"Last line: 12.  The script's file cannot be read.  Records: 2.");
    EXPECT_EQ(StatusText(model, {.Text = ScriptText::NotAFullPath}, kEnglish),
              L"Last line: 12.  The script's path is not a full one, so its file is not read.  Records: 2.");
}

TEST(StatusText, CountsWhatCameAndWhatIsLeftOfIt) {
    TraceModel model;
    model.Take(Sent(5, L""));
    model.Take(Sent(2, L""));
    for (std::size_t count = 0; count < kMaxRecords; ++count)
        model.Take(Sent(2, L"7"));
    EXPECT_EQ(StatusText(model, {}, kEnglish),
              L"Last line: 7.  Records: 100002.  Malformed: 2.  Only the last 100000 are kept.");
}

}  // namespace
}  // namespace ferry::tracewindow
