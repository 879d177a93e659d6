// What the destination field completes, and what it does with odd, slow and vanishing folders.
#include <thread>

#include "e2e/completion_fixture.h"
#include "samplehost/delivery_win32.h"

namespace ferry::e2e {
namespace {

class Completion : public CompletionTest {
protected:
    /// Types `text` and presses Tab.
    bool Complete(const std::wstring& text) const {
        if (!Type(text))
            return false;
        PressKey(VK_TAB);
        return true;
    }

    std::vector<std::wstring> List() const {
        std::vector<std::wstring> texts;
        for (int index = 0; index < Dialog().DestinationListCount(); ++index) {
            texts.push_back(Dialog().DestinationListText(index));
        }
        return texts;
    }
};
INSTANTIATE_TEST_SUITE_P(Mode, Completion, testing::Bool(), ModeName);

TEST_P(Completion, ALetterBecomesADriveAndABackslashTheStartOfANetworkPath) {
    ASSERT_TRUE(Complete(L"c"));
    EXPECT_TRUE(DestinationBecomes(L"c:\\"));
    ASSERT_TRUE(Complete(L"\\"));
    EXPECT_TRUE(DestinationBecomes(L"\\\\"));
    ASSERT_TRUE(Complete(L"D:"));
    EXPECT_TRUE(DestinationBecomes(L"D:\\"));
    EXPECT_TRUE(StaysClosedWith(L"D:\\"));
}

TEST_P(Completion, TwoTypedLettersAreFoundAnywhereInAName) {
    ASSERT_TRUE(Complete(many_ + L"al"));
    ASSERT_TRUE(ListBecomes(true));
    ASSERT_EQ(Dialog().DestinationListCount(), 2);
    EXPECT_TRUE(List()[0].ends_with(L"Alpha\\"));
    EXPECT_TRUE(List()[1].ends_with(L"My alphabet\\"));
}

TEST_P(Completion, OneTypedLetterIsFoundOnlyAtTheStartOfAName) {
    ASSERT_TRUE(Complete(many_ + L"a"));
    EXPECT_TRUE(DestinationBecomes(many_ + L"Alpha\\"));
    EXPECT_TRUE(StaysClosedWith(many_ + L"Alpha\\"));
}

TEST_P(Completion, ASingleMatchGoesIntoTheFieldAtOnce) {
    ASSERT_TRUE(Complete(Tree().Path(L"single\\")));
    EXPECT_TRUE(DestinationBecomes(Tree().Path(L"single\\only one\\")));
    const int length = static_cast<int>(Dialog().Destination().size());
    EXPECT_EQ(Dialog().DestinationSelection(), std::pair(length, length));
}

TEST_P(Completion, FilesAreNeverOffered) {
    ASSERT_TRUE(Complete(many_ + L".txt"));
    EXPECT_TRUE(StaysClosedWith(many_ + L".txt"));
    EXPECT_EQ(Dialog().DestinationListCount(), 0);
}

TEST_P(Completion, ARelativeNameIsLookedForBesideTheSources) {
    ASSERT_TRUE(Complete(L"besi"));
    EXPECT_TRUE(DestinationBecomes(Tree().Path(L"source\\beside\\")));
}

TEST_P(Completion, ADroppedFolderIsTheDestinationAndTheNextSearchBase) {
    const std::vector<std::wstring> dropped = {Tree().Path(L"single"), Tree().Path(L"many")};
    ASSERT_TRUE(samplehost::DropPaths(Dialog().Control(kDestination), dropped));
    EXPECT_TRUE(DestinationBecomes(Tree().Path(L"single")));
    EXPECT_EQ(Dialog().SourceCount(), 1);
    ASSERT_TRUE(Complete(L"only"));
    EXPECT_TRUE(DestinationBecomes(Tree().Path(L"single\\only one\\")));
}

TEST_P(Completion, ADroppedFileGivesItsFolder) {
    const std::vector<std::wstring> dropped = {many_ + L"alpha.txt"};
    ASSERT_TRUE(samplehost::DropPaths(Dialog().Control(kDestination), dropped));
    EXPECT_TRUE(DestinationBecomes(many_));
}

TEST_P(Completion, NetworkRootsAndServersThatAreNotThereFindNothing) {
    for (const wchar_t* text : {L"\\\\", L"\\\\no-such-server.invalid\\", L"\\\\no-such-server.invalid\\sh",
                                L"\\\\no-such-server.invalid\\share\\x"}) {
        ASSERT_TRUE(Complete(text));
        EXPECT_TRUE(StaysClosedWith(text));
    }
}

TEST_P(Completion, FoldersThatCannotBeReadFindNothing) {
    for (const std::wstring& text : {Tree().Path(L"missing\\"), many_ + L"alpha.txt\\",
                                     std::wstring(L"Q:\\x\\"), std::wstring(L"C:\\a|b<\"")}) {
        ASSERT_TRUE(Complete(text));
        EXPECT_TRUE(StaysClosedWith(text));
    }
}

TEST_P(Completion, PathsBeyondTheFieldsLimitAreCompletedAndRefusedAtStart) {
    const std::wstring name(120, L'n');
    std::wstring folder = L"long";
    for (int level = 0; level < 3; ++level) {
        folder += L"\\" + name;
        Tree().MakeFolder(folder);
    }
    ASSERT_TRUE(Type(Tree().Path(L"long\\")));
    for (int level = 1; level <= 3; ++level) {
        PressKey(VK_TAB);
        const std::wstring expected = Tree().Path(L"long") + [&] {
            std::wstring levels;
            for (int below = 0; below < level; ++below) {
                levels += L"\\" + name;
            }
            return levels;
        }() + L"\\";
        ASSERT_TRUE(DestinationBecomes(expected)) << level;
    }
    ASSERT_TRUE(StartIsRefusedWith(L"250文字以内で入力してください。"));
    ASSERT_TRUE(Dialog().FocusDestination());
    PressKey(VK_PRIOR);
    EXPECT_TRUE(WaitUntil([&] { return Dialog().Destination().ends_with(L"n"); }));
}

TEST_P(Completion, AFolderThatVanishesDuringTheSearchDoesNoHarm) {
    constexpr int kFolders = 400;
    for (int index = 0; index < kFolders; ++index) {
        Tree().MakeFolder(L"vanishing\\folder " + std::to_wstring(index));
    }
    const std::wstring vanishing = Tree().Path(L"vanishing\\");
    ASSERT_TRUE(Type(vanishing));
    std::thread remover([&] { RemoveAll(Tree().Path(L"vanishing")); });
    for (int press = 0; press < 20; ++press) {
        PressKey(VK_DOWN);
        // By a message: without a list, Esc would end the dialog.
        Ask(Dialog().Control(kDestination), CB_SHOWDROPDOWN, FALSE, 0);
        Dialog().SetDestination(vanishing);
    }
    remover.join();
    EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
}

TEST_P(Completion, AFolderThatVanishesUnderTheOpenListLeavesItsNamesToBeChosen) {
    ASSERT_TRUE(OpenList());
    RemoveAll(Tree().Path(L"many"));
    ASSERT_FALSE(Exists(many_));
    PressKey(VK_DOWN);
    PressKey(VK_DOWN);
    ASSERT_TRUE(SelectionBecomes(1));
    EXPECT_TRUE(Dialog().IsDestinationListOpen());
    PressKey(VK_RETURN);
    ASSERT_TRUE(ListBecomes(false));
    EXPECT_TRUE(DestinationBecomes(many_ + L"beta\\"));
    // What is looked for now is not there any more.
    PressKey(VK_TAB);
    EXPECT_TRUE(StaysClosedWith(many_ + L"beta\\"));
    EXPECT_EQ(Dialog().DestinationListCount(), 0);
    // A destination that is missing is made at the start.
    PressKey(VK_RETURN);
    ASSERT_TRUE(EndsWell());
    EXPECT_EQ(ReadBytes(many_ + L"beta\\a.txt"), "a");
}

TEST_P(Completion, MoreThanFiveThousandFoldersAreCutOff) {
    constexpr int kFolders = 5100;
    Tree().MakeFolder(L"huge");
    for (int index = 0; index < kFolders; ++index) {
        CreateDirectoryW(Tree().Path(L"huge\\f" + std::to_wstring(index)).c_str(), nullptr);
    }
    ASSERT_TRUE(Complete(Tree().Path(L"huge\\")));
    ASSERT_TRUE(ListBecomes(true));
    EXPECT_EQ(Dialog().DestinationListCount(), 5001);
}

}  // namespace
}  // namespace ferry::e2e
