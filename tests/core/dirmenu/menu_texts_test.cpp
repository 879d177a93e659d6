// What menus say where there is nothing to choose, beside hosts of every age.
#include "dirmenu/menu_texts.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "base/utf16.h"
#include "core/lang/heard_speech.h"
#include "core/lang/message_text.h"

namespace ferry::dirmenu {
namespace {

class MenuTextsTest : public testing::Test {
protected:
    MenuTexts Texts(std::wstring_view suffix) {
        lang::Catalogue messages(file_, L"C:\\Lang\\Msg.txt", speech_);
        return TextsOf(messages, suffix);
    }

    test::MessageText file_;
    test::HeardSpeech speech_;
};

TEST_F(MenuTextsTest, AreTheMessages) {
    file_.File = L"65261\tvide\r\n65262\tillisible\r\n65263\ttrop\r\n65264\tencore %1\r\n";
    const MenuTexts texts = Texts(L".fr-FR");
    EXPECT_EQ(texts.Empty, L"vide");
    EXPECT_EQ(texts.Unreadable, L"illisible");
    EXPECT_EQ(texts.TooDeep, L"trop");
    EXPECT_EQ(texts.LeftOut, L"encore %1");
}

TEST_F(MenuTextsTest, AreBuiltInBesideAHostThatDoesNotHaveThem) {
    for (const wchar_t* messages : {L"62304\tsomething else\r\n", L"65264\tof the host's own\r\n", L""}) {
        file_.File = messages;
        EXPECT_EQ(Texts(L".ja-JP").Empty, L"（空）");
        EXPECT_EQ(Texts(L".en-US").Empty, L"(empty)");
        EXPECT_EQ(Texts(L".fr-FR").Unreadable, L"(cannot be read)");
        EXPECT_EQ(Texts(L".fr-FR").LeftOut, L"(%1 more are not shown)");
    }
}

TEST_F(MenuTextsTest, TellNobodyThatThereIsNoMessageFile) {
    EXPECT_EQ(Texts(L".ja-JP").TooDeep, L"（これより深い階層は表示できません）");
    EXPECT_TRUE(speech_.Heard.empty());
}

TEST_F(MenuTextsTest, ShipInTheWordsThatAreBuiltIn) {
    for (const auto& [suffix, name] : {std::pair{L".ja-JP", "Msg.ja-JP.txt"}, {L".en-US", "Msg.en-US.txt"}}) {
        SCOPED_TRACE(name);
        const MenuTexts own = Texts(suffix);
        std::ifstream file(std::string(FERRY_TEXTS) + "/" + name, std::ios::binary);
        file_.File = base::FromUtf8(std::string(std::istreambuf_iterator<char>(file), {}));
        for (const wchar_t* number : {L"65261", L"65262", L"65263", L"65264"}) {
            EXPECT_NE(file_.File->find(number), std::wstring::npos);
        }
        const MenuTexts shipped = Texts(L".fr-FR");
        EXPECT_EQ(shipped.Empty, own.Empty);
        EXPECT_EQ(shipped.Unreadable, own.Unreadable);
        EXPECT_EQ(shipped.TooDeep, own.TooDeep);
        EXPECT_EQ(shipped.LeftOut, own.LeftOut);
        file_.File.reset();
    }
}

}  // namespace
}  // namespace ferry::dirmenu
