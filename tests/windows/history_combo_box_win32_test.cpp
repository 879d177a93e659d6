// The path field with a history: loading, storing, clearing.
#include "controls/history_combo_box.h"

#include "windows/combo_box_fixture_win32.h"

namespace ferry::test {
namespace {

class HistoryComboBoxTest : public ComboBoxTest {
protected:
    void SetUp() override {
        store_.Texts = {{L"Ferry000", L"C:\\one"}, {L"Ferry001", L"C:\\two"}, {L"Ferry004", L"C:\\three"}};
        ASSERT_TRUE(box_.Prepare(Control()));
        box_.SetSaveOnClose(true);
        box_.LoadSoon();
    }

    controls::CComplementComboBox& Box() override { return box_; }

    Texts Stored() {
        Texts stored;
        for (const auto& [name, text] : store_.Texts) {
            stored.push_back(text);
        }
        return stored;
    }

    /// Stored texts with the unused slots behind them.
    static Texts Slots(Texts used) {
        used.resize(20);
        return used;
    }

    controls::CHistryComboBoxEx box_{info_, folders_, messages_, speaker_, store_};
};

TEST_F(HistoryComboBoxTest, IsLoadedByACommandOfItsOwn) {
    constexpr WPARAM kLoad = 55500;
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, Control(), WM_COMMAND, WM_COMMAND, PM_REMOVE));
    EXPECT_EQ(message.wParam, kLoad);
    EXPECT_EQ(message.lParam, 0);
    EXPECT_FALSE(PeekMessageW(&message, Control(), WM_COMMAND, WM_COMMAND, PM_REMOVE));
    for (const WPARAM other : {kLoad - 1, kLoad + 1}) {
        SendMessageW(Control(), WM_COMMAND, other, 0);
        EXPECT_EQ(Shown(), Texts{});
    }
    SendMessageW(Control(), WM_COMMAND, kLoad, 0);
    EXPECT_EQ(Shown(), (Texts{L"C:\\one", L"C:\\two", L"C:\\three"}));
}

TEST_F(HistoryComboBoxTest, IsLoadedWhenTheOwnersMessagesAreHandled) {
    EXPECT_EQ(Shown(), Texts{});
    Type(L"C:\\preset\\");
    PumpCommands();
    EXPECT_EQ(Shown(), (Texts{L"C:\\one", L"C:\\two", L"C:\\three"}));
    EXPECT_EQ(Text(), L"C:\\preset\\");
}

TEST_F(HistoryComboBoxTest, IsOfferedByUpAndTakenWithEnter) {
    PumpCommands();
    Type(L"");
    EXPECT_TRUE(Press(VK_UP));
    EXPECT_TRUE(IsOpen());
    EXPECT_TRUE(Press(VK_DOWN));
    EXPECT_TRUE(Press(VK_DOWN));
    EXPECT_TRUE(Press(VK_RETURN));
    EXPECT_EQ(Text(), L"C:\\two");
    EXPECT_EQ(box_.ChosenText(), L"C:\\two");
}

TEST_F(HistoryComboBoxTest, AnEmptyHistoryOpensAsAnEmptyList) {
    store_.Texts.clear();
    PumpCommands();
    Type(L"C:\\x");
    EXPECT_TRUE(Press(VK_UP));
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Shown(), Texts{});
    EXPECT_TRUE(Press(VK_DOWN));
    EXPECT_TRUE(Press(VK_UP));
    EXPECT_TRUE(Press(VK_RETURN));
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Text(), L"C:\\x");
}

TEST_F(HistoryComboBoxTest, StoresTheTextInFrontWhenItIsDestroyed) {
    PumpCommands();
    Type(L"D:\\new");
    DestroyWindow(Control());
    EXPECT_EQ(Stored(), Slots({L"D:\\new", L"C:\\one", L"C:\\two", L"", L"", L"C:\\three"}));
    EXPECT_EQ(store_.Writes.size(), 20U);
}

TEST_F(HistoryComboBoxTest, StoresTheTextWhenItsWindowGoesWithItsParent) {
    PumpCommands();
    Type(L"D:\\new");
    DestroyWindow(Parent());
    EXPECT_EQ(store_.Texts[L"Ferry000"], L"D:\\new");
}

TEST_F(HistoryComboBoxTest, RewritesTheSameEntriesWhenTheTextIsEmpty) {
    PumpCommands();
    Type(L"");
    DestroyWindow(Control());
    EXPECT_EQ(Stored(), Slots({L"C:\\one", L"C:\\two", L"", L"", L"C:\\three"}));
    EXPECT_EQ(store_.Writes.size(), 20U);
}

TEST_F(HistoryComboBoxTest, StoresNothingUnlessItIsToSaveOnClose) {
    box_.SetSaveOnClose(false);
    PumpCommands();
    Type(L"D:\\new");
    DestroyWindow(Control());
    EXPECT_TRUE(store_.Writes.empty());
}

TEST_F(HistoryComboBoxTest, KeepsWhatIsStoredWhenItIsDestroyedBeforeItWasLoaded) {
    Type(L"D:\\new");
    DestroyWindow(Control());
    EXPECT_EQ(Stored(), Slots({L"D:\\new", L"C:\\one", L"C:\\two", L"", L"", L"C:\\three"}));
}

TEST_F(HistoryComboBoxTest, StoresTheTypedTextWhenTheListIsStillOpen) {
    PumpCommands();
    Type(L"D:\\typed");
    EXPECT_TRUE(Press(VK_UP));
    EXPECT_TRUE(Press(VK_DOWN));
    DestroyWindow(Control());
    EXPECT_EQ(store_.Texts[L"Ferry000"], L"D:\\typed");
}

TEST_F(HistoryComboBoxTest, ClearingEmptiesListSlotsAndStoreAtOnce) {
    PumpCommands();
    Type(L"C:\\x");
    auto question = AnswerNextBox(IDYES);
    EXPECT_TRUE(Press('H', {VK_CONTROL}));
    EXPECT_EQ(question.get(), L"History: clear?");
    PumpCommands();
    EXPECT_EQ(Shown(), Texts{});
    EXPECT_EQ(Stored(), Slots({}));
    EXPECT_EQ(Text(), L"C:\\x");
}

TEST_F(HistoryComboBoxTest, ClearingUnderTheOpenListLeavesNothingToChoose) {
    PumpCommands();
    Type(L"C:\\x");
    EXPECT_TRUE(Press(VK_UP));
    EXPECT_TRUE(Press(VK_DOWN));
    ASSERT_EQ(Text(), L"C:\\one");
    SendMessageW(Control(), WM_APP + 5, 0, 0);
    EXPECT_EQ(Shown(), Texts{});
    EXPECT_EQ(box_.Candidates(), Texts{});
    EXPECT_EQ(Stored(), Slots({}));
    Press(VK_RETURN);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Text(), L"C:\\x");
    EXPECT_EQ(box_.ChosenText(), L"");
}

TEST_F(HistoryComboBoxTest, LoadingUnderTheOpenListOfASearchKeepsWhatIsShownAndChosenTheSame) {
    folders_.Items = {{L"a", true}, {L"b", true}};
    Type(L"C:\\x\\");
    EXPECT_TRUE(Press(VK_DOWN));
    EXPECT_TRUE(Press(VK_DOWN));
    PumpCommands();
    EXPECT_EQ(box_.Candidates(), Shown());
    if (IsOpen()) {
        Press(VK_ESCAPE);
    }
    EXPECT_EQ(Text(), L"C:\\x\\");
    EXPECT_TRUE(Press(VK_UP));
    EXPECT_EQ(Shown(), (Texts{L"C:\\one", L"C:\\two", L"C:\\three"}));
}

TEST_F(HistoryComboBoxTest, StaysWhenTheQuestionIsAnsweredWithNo) {
    PumpCommands();
    Type(L"C:\\x");
    auto question = AnswerNextBox(IDNO);
    EXPECT_TRUE(Press('H', {VK_CONTROL}));
    question.wait();
    PumpCommands();
    EXPECT_EQ(Shown(), (Texts{L"C:\\one", L"C:\\two", L"C:\\three"}));
    EXPECT_TRUE(store_.Writes.empty());
}

TEST_F(HistoryComboBoxTest, ComesBackToTheListAfterASearch) {
    PumpCommands();
    folders_.Items = {{L"a", true}, {L"b", true}};
    Type(L"C:\\x\\");
    EXPECT_TRUE(Press(VK_DOWN));
    EXPECT_EQ(Shown(), (Texts{L"C:\\x\\a\\", L"C:\\x\\b\\"}));
    EXPECT_TRUE(Press(VK_ESCAPE));
    EXPECT_TRUE(Press(VK_UP));
    EXPECT_EQ(Shown(), (Texts{L"C:\\one", L"C:\\two", L"C:\\three"}));
}

TEST_F(HistoryComboBoxTest, LongEntriesAreTakenWhole) {
    const std::wstring entry = L"C:\\" + std::wstring(200, L'm') + L"\\end";
    store_.Texts = {{L"Ferry000", entry}};
    PumpCommands();
    EXPECT_NE(Shown(), Texts{entry});
    Type(L"");
    EXPECT_TRUE(Press(VK_DOWN));
    EXPECT_EQ(Text(), entry);
}

}  // namespace
}  // namespace ferry::test
