// The texts that come with the program, as they lie in its sources.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "base/line_reader.h"
#include "base/text.h"
#include "base/utf16.h"
#include "core/lang/heard_speech.h"
#include "core/lang/message_text.h"
#include "lang/catalogue.h"
#include "lang/dialog_text.h"
#include "lang/limit_text.h"
#include "lang/message_line.h"

namespace ferry::lang {
namespace {

std::wstring ReadText(const std::string& name) {
    std::ifstream file(std::string(FERRY_TEXTS) + "/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return base::FromUtf8(std::string(std::istreambuf_iterator<char>(file), {}));
}

CatalogueEntries Messages(const std::string& name) {
    CatalogueEntries entries;
    ParseCatalogue(ReadText(name), entries);
    return entries;
}

/// The lines of a text that are neither comments nor empty.
std::size_t LinesThatSaySomething(const std::wstring& text) {
    base::LineReader reader(text);
    std::size_t count = 0;
    for (std::wstring_view line; reader.Next(line);)
        count += !IsComment(base::Trim(line)) && !base::Trim(line).empty();
    return count;
}

constexpr std::uint16_t kNumbers[] = {5953,  5954,  6269,  62304, 62306, 62314, 62325, 62400,          62401,
                                      62402, 62535, 62541, 62544, 62547, 63007, 63503, kTooLongMessage};

TEST(ShippedTexts, HaveEveryMessageThatTheProgramAndItsHostShowInBothLanguages) {
    for (const char* const name : {"Msg.ja-JP.txt", "Msg.en-US.txt"}) {
        const CatalogueEntries entries = Messages(name);
        for (const std::uint16_t number : kNumbers) {
            ASSERT_TRUE(entries.contains(number)) << name << " " << number;
            EXPECT_FALSE(entries.at(number).empty()) << name << " " << number;
        }
    }
}

TEST(ShippedTexts, HaveTheSameMessagesInBothLanguagesAndNoMalformedLine) {
    const auto numbersOf = [](const CatalogueEntries& entries) {
        std::set<std::uint16_t> numbers;
        for (const auto& [number, text] : entries)
            numbers.insert(number);
        return numbers;
    };
    const CatalogueEntries japanese = Messages("Msg.ja-JP.txt");
    const CatalogueEntries english = Messages("Msg.en-US.txt");
    EXPECT_EQ(numbersOf(japanese), numbersOf(english));
    EXPECT_EQ(japanese.size(), LinesThatSaySomething(ReadText("Msg.ja-JP.txt")));
    EXPECT_EQ(english.size(), LinesThatSaySomething(ReadText("Msg.en-US.txt")));
}

TEST(ShippedTexts, TellOfATooLongTextInTheWordsThatAreBuiltIn) {
    for (const auto& [suffix, name] :
         {std::pair{kBuiltInSuffix, "Msg.ja-JP.txt"}, {L".en-US", "Msg.en-US.txt"}}) {
        test::MessageText file;
        test::HeardSpeech speech;
        Catalogue none(file, L"", speech);
        test::MessageText shipped;
        shipped.File = ReadText(name);
        Catalogue messages(shipped, L"", speech);
        EXPECT_EQ(TooLongText(messages, L".fr-FR", 250), TooLongText(none, suffix, 250));
    }
}

TEST(ShippedTexts, OfTheDialogsHaveATitleAndNoMalformedLine) {
    for (const char* const name : {"102.txt", "131.txt", "133.txt", "134.txt"}) {
        SCOPED_TRACE(name);
        const std::wstring text = ReadText(std::string("en-US/") + name);
        const std::vector<DialogTextEdit> edits = ParseDialogText(text);
        ASSERT_FALSE(edits.empty());
        EXPECT_EQ(edits.front().What, DialogTextEdit::Kind::SetTitle);
        EXPECT_EQ(edits.size(), LinesThatSaySomething(text));
    }
}

}  // namespace
}  // namespace ferry::lang
