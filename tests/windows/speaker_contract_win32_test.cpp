// Message boxes keep the contract of the speaker.
#include <windows.h>

#include "core/lang/speaker_contract.h"
#include "desktop/message_boxes_win32.h"
#include "windows/answered_boxes_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::lang::contract {
namespace {

class Boxes final : public SpeakerPlace {
public:
    Speaker& TheSpeaker() override { return boxes_; }

    std::wstring ReadDuring(const std::function<void()>& speak, bool saysYes) override {
        const test::AnsweredBoxes asked(saysYes ? IDYES : IDNO);
        speak();
        return asked.Only().Text;
    }

private:
    desktop::MessageBoxes boxes_;
};

INSTANTIATE_TEST_SUITE_P(Boxes, SpeakerContract, testing::Values(&test::Make<SpeakerPlace, Boxes>));

struct Said {
    Tone Mark;
    UINT Icon;
};

TEST(MessageBoxes, ShowTheMarkOfTheToneAndTheButtonsThatFit) {
    desktop::MessageBoxes speaker;
    for (const auto& [tone, icon] :
         {Said{Tone::Plain, 0}, Said{Tone::Warning, MB_ICONEXCLAMATION}, Said{Tone::Error, MB_ICONERROR},
          Said{Tone::Question, MB_ICONQUESTION}}) {
        const test::AnsweredBoxes asked;
        speaker.Tell(L"text", tone);
        speaker.Ask(L"question", tone);
        ASSERT_EQ(asked.Asked.size(), 2U);
        EXPECT_EQ(asked.Asked[0].Style, MB_OK | icon);
        EXPECT_EQ(asked.Asked[1].Style, MB_YESNO | icon);
        for (const test::AskedBox& box : asked.Asked)
            EXPECT_EQ(box.Title, L"Ferry");
    }
}

TEST(MessageBoxes, StandOverTheActiveWindow) {
    const test::TestWindow window(CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                                  nullptr, nullptr, nullptr, nullptr));
    SetActiveWindow(window.Get());
    const test::AnsweredBoxes asked;
    desktop::MessageBoxes().Tell(L"text", Tone::Plain);
    EXPECT_EQ(asked.Only().Owner, window.Get());
}

TEST(MessageBoxes, StandOverTheGivenWindowWhileNoneIsActive) {
    const test::TestWindow window(
        CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr));
    const test::WatchedImport<&GetActiveWindow> active("GetActiveWindow", [] { return HWND{}; });
    const test::AnsweredBoxes asked;
    desktop::MessageBoxes(window.Get(), {}).Tell(L"text", Tone::Plain);
    EXPECT_EQ(asked.Only().Owner, window.Get());
    EXPECT_EQ(asked.Only().Title, L"Ferry");
}

TEST(MessageBoxes, SayInTheirTitlesWhatTheyAreAboutJustThen) {
    std::wstring about = L"a.txt (3)";
    desktop::MessageBoxes speaker(nullptr, [&] { return about; });
    const test::AnsweredBoxes asked;
    speaker.Tell(L"text", Tone::Plain);
    about.clear();
    speaker.Ask(L"question", Tone::Question);
    ASSERT_EQ(asked.Asked.size(), 2U);
    EXPECT_EQ(asked.Asked[0].Title, L"Ferry - a.txt (3)");
    EXPECT_EQ(asked.Asked[0].Text, L"text");
    EXPECT_EQ(asked.Asked[1].Title, L"Ferry");
}

}  // namespace
}  // namespace ferry::lang::contract
