// What is told of a text that is too long, beside hosts of every age.
#include "lang/limit_text.h"

#include <gtest/gtest.h>

#include "core/lang/heard_speech.h"
#include "core/lang/message_text.h"

namespace ferry::lang {
namespace {

class TooLongTextTest : public testing::Test {
protected:
    std::wstring Text(std::wstring_view suffix, int limit) {
        Catalogue messages(file_, L"C:\\Lang\\Msg.txt", speech_);
        return TooLongText(messages, suffix, limit);
    }

    test::MessageText file_;
    test::HeardSpeech speech_;
};

TEST_F(TooLongTextTest, IsTheMessageWithTheNumberInItsPlace) {
    file_.File = L"65250\tPas plus de %1 (%1) !\r\n";
    EXPECT_EQ(Text(L".fr-FR", 250), L"Pas plus de 250 (250) !");
    EXPECT_EQ(Text(L".ja-JP", 512), L"Pas plus de 512 (512) !");
}

TEST_F(TooLongTextTest, IsBuiltInBesideAHostThatDoesNotHaveIt) {
    for (const wchar_t* messages : {L"62304\tsomething else\r\n", L"65250\tof the host's own\r\n", L""}) {
        file_.File = messages;
        EXPECT_EQ(Text(L".ja-JP", 250), L"250文字以内で入力してください。");
        EXPECT_EQ(Text(L".en-US", 250), L"Enter no more than 250 characters.");
        EXPECT_EQ(Text(L".fr-FR", 512), L"Enter no more than 512 characters.");
    }
}

TEST_F(TooLongTextTest, IsAllThatIsToldWhenThereIsNoMessageFile) {
    EXPECT_EQ(Text(L".ja-JP", 250), L"250文字以内で入力してください。");
    EXPECT_TRUE(speech_.Heard.empty());
}

}  // namespace
}  // namespace ferry::lang
