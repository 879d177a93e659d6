// The contract of the windows that scripts deal with.
#include "core/script/window_contract.h"

namespace ferry::script::contract {
namespace {

constexpr std::uint32_t kCommandMessage = 273;

TEST_P(HostContract, ARecordArrivesWithItsCodeAndItsByteCount) {
    for (const std::wstring text : {L"C:\\出力先\\a.txt", L"x", L""}) {
        AtPlace().Present().HandOver({.Code = 1003, .Text = text});
        EXPECT_EQ(AtPlace().TakeRecords(), (std::vector<ArrivedRecord>{{1003, 8 * text.size() + 8, text}}));
    }
}

TEST_P(HostContract, RecordsArriveInTheirOrder) {
    AtPlace().Present().HandOver({.Code = 1, .Text = L"one"});
    AtPlace().Present().HandOver({.Code = 2, .Text = std::wstring(5000, L'2')});
    AtPlace().Present().HandOver({.Code = 0xFFFFFFFF, .Text = L"three"});
    const std::vector<ArrivedRecord> expected{
        {1, 32, L"one"}, {2, 40'008, std::wstring(5000, L'2')}, {0xFFFFFFFF, 48, L"three"}};
    EXPECT_EQ(AtPlace().TakeRecords(), expected);
}

TEST_P(HostContract, MessagesArriveWithTheirSigns) {
    HostWindow& host = AtPlace().Present();
    host.Post(kCommandMessage, 100, 0);
    EXPECT_EQ(AtPlace().TakeMessages(), (std::vector<ArrivedMessage>{{kCommandMessage, 100, 0, true}}));
    host.Post(32'780, -2147483647, -5);
    EXPECT_EQ(AtPlace().TakeMessages(), (std::vector<ArrivedMessage>{{32'780, -2147483647, -5, true}}));
    host.Send(32'776, 2147483647, -1);
    EXPECT_EQ(AtPlace().TakeMessages(), (std::vector<ArrivedMessage>{{32'776, 2147483647, -1, false}}));
}

TEST_P(HostContract, TheWindowThatIsThereTellsItsPlace) {
    EXPECT_TRUE(AtPlace().Present().Exists());
    const auto place = AtPlace().Present().Position();
    const ScreenBox expected = AtPlace().Stands();
    ASSERT_TRUE(place);
    EXPECT_EQ(place->Left, expected.Left);
    EXPECT_EQ(place->Top, expected.Top);
    EXPECT_EQ(place->Right, expected.Right);
    EXPECT_EQ(place->Bottom, expected.Bottom);
}

TEST_P(HostContract, AWindowThatIsGoneGetsNothingAndHasNoPlace) {
    HostWindow& host = AtPlace().Absent();
    EXPECT_FALSE(host.Exists());
    EXPECT_FALSE(host.Position());
    host.HandOver({.Code = 1, .Text = L"one"});
    host.Post(kCommandMessage, 1, 2);
    host.Send(kCommandMessage, 1, 2);
    EXPECT_TRUE(AtPlace().TakeRecords().empty());
    EXPECT_TRUE(AtPlace().TakeMessages().empty());
}

TEST_P(TraceContract, TheWindowIsFoundByItsTitleAndGetsTheRecords) {
    TraceWindow& trace = AtPlace().Trace();
    ASSERT_TRUE(trace.Find(AtPlace().Title()));
    trace.Send({.Code = 1, .Text = L"C:\\s\\main.txt"});
    trace.Send({.Code = 11, .Text = L"name\tvalue"});
    const std::vector<ArrivedRecord> expected{{1, 112, L"C:\\s\\main.txt"}, {11, 88, L"name\tvalue"}};
    EXPECT_EQ(AtPlace().TakeRecords(), expected);
}

TEST_P(TraceContract, WithoutAWindowNothingIsSent) {
    TraceWindow& trace = AtPlace().Trace();
    trace.Send({.Code = 1, .Text = L"before"});
    EXPECT_FALSE(trace.Find(L"A window that nobody has"));
    trace.Send({.Code = 1, .Text = L"after"});
    EXPECT_TRUE(AtPlace().TakeRecords().empty());
}

struct Pressed {
    std::uint32_t Style;
    int Button;
};

TEST_P(BoxContract, TheTextIsReadAndThePressedButtonIsTold) {
    const std::wstring text = L"資料 & more\nsecond";
    // With OK; OK and Cancel; Yes, No and Cancel; Yes and No; the icons are not part of the answer.
    for (const auto& [style, button] :
         {Pressed{48, 1}, Pressed{1, 2}, Pressed{1, 1}, Pressed{3, 2}, Pressed{36, 6}, Pressed{36, 7}}) {
        int pressed = 0;
        const auto show = [&] { pressed = AtPlace().TheBoxes().Show(text, style); };
        EXPECT_EQ(AtPlace().ReadDuring(show, button), text);
        EXPECT_EQ(pressed, button);
    }
}

}  // namespace
}  // namespace ferry::script::contract
