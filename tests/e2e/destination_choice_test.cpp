// Each way to choose the destination, used twice: the file goes to the second choice and nowhere else.
#include "e2e/completion_fixture.h"
#include "samplehost/delivery_win32.h"
#include "samplehost/host_block_writer.h"

namespace ferry::e2e {
namespace {

class DestinationChoice : public CompletionTest {
protected:
    void SetUp() override {
        file_ = Tree().WriteFile(L"source\\a.txt", "a");
        first_ = Tree().MakeFolder(L"places\\1 first");
        second_ = Tree().MakeFolder(L"places\\2 second");
    }

    testing::AssertionResult OpenToMove() {
        RunPlan plan = Plan({file_}, {first_, second_});
        plan.Switches = {L"/m"};
        if (GetParam()) {
            plan.Switches.emplace_back(L"/t");
        }
        return Open(plan);
    }

    /// Presses Enter in the destination field.
    testing::AssertionResult MovesToTheSecond() {
        if (!Dialog().FocusDestination())
            return testing::AssertionFailure() << "no focus";
        PressKey(VK_RETURN);
        if (!Run().WaitForEnd().IsGood())
            return testing::AssertionFailure() << "still running";
        if (ReadBytes(second_ + L"\\a.txt") != "a" || Exists(first_ + L"\\a.txt") || Exists(file_))
            return testing::AssertionFailure() << "the file is not where it should be";
        return testing::AssertionSuccess();
    }

    /// Opens the completion list of the parent folder and takes an item.
    bool TakeFromList(WORD opener, int item) const {
        PressKey(opener);
        if (!ListBecomes(true))
            return false;
        for (int press = 0; press <= item; ++press) {
            PressKey(VK_DOWN);
        }
        if (!SelectionBecomes(item))
            return false;
        PressKey(VK_RETURN);
        return ListBecomes(false);
    }

    /// Lets the browser begin at the destination that stands in the field. Null when it did not.
    HWND OpenBrowserAt(const std::wstring& folder) const {
        Dialog().SetDestination(folder);
        HWND browser = nullptr;
        const bool hasOpened = Dialog().PressWithKeys(kBrowse) && WaitUntil([&] {
                                   browser = GetLastActivePopup(Dialog().Window());
                                   return browser != Dialog().Window() && IsWindowVisible(browser);
                               });
        // Its own field names the folder once it stands there.
        constexpr int kBrowserMs = 1000;
        const auto standsThere = [&] {
            const std::wstring shown = RemoteText(FindWindowExW(browser, nullptr, L"Edit", nullptr));
            return !shown.empty() && folder.ends_with(shown);
        };
        if (hasOpened && WaitUntil(standsThere, kBrowserMs))
            return browser;
        PostMessageW(browser, WM_COMMAND, IDCANCEL, 0);
        WaitUntil([&] { return !IsWindow(browser); });
        return nullptr;
    }

    /// The same, as often as it takes: Wine's browser does not always begin where it is told to, and a
    /// person would open it again.
    HWND OpenBrowserPatientlyAt(const std::wstring& folder) const {
        constexpr int kTries = 10;
        HWND browser = nullptr;
        for (int attempt = 0; attempt < kTries && browser == nullptr; ++attempt) {
            browser = OpenBrowserAt(folder);
        }
        return browser;
    }

    std::wstring first_, second_;
};
INSTANTIATE_TEST_SUITE_P(Mode, DestinationChoice, testing::Bool(), ModeName);

TEST_P(DestinationChoice, ByCompletion) {
    ASSERT_TRUE(OpenToMove());
    for (const int item : {0, 1}) {
        ASSERT_TRUE(Type(Tree().Path(L"places\\")));
        ASSERT_TRUE(TakeFromList(VK_TAB, item));
        ASSERT_TRUE(DestinationBecomes((item == 0 ? first_ : second_) + L"\\"));
    }
    ASSERT_TRUE(MovesToTheSecond());
}

TEST_P(DestinationChoice, ByHistory) {
    WriteText(kProgramKey, L"Ferry000", first_);
    WriteText(kProgramKey, L"Ferry001", second_);
    ASSERT_TRUE(OpenToMove());
    ASSERT_TRUE(Dialog().FocusDestination());
    for (const int item : {0, 1}) {
        ASSERT_TRUE(TakeFromList(VK_UP, item));
        ASSERT_TRUE(DestinationBecomes(item == 0 ? first_ : second_));
    }
    ASSERT_TRUE(MovesToTheSecond());
    EXPECT_EQ(ReadText(kProgramKey, L"Ferry000"), second_);
    EXPECT_EQ(ReadText(kProgramKey, L"Ferry001"), first_);
}

TEST_P(DestinationChoice, ByTheMenuOrTheListOfOtherTabs) {
    ASSERT_TRUE(OpenToMove());
    for (const int item : {1, 0, 1}) {
        if (GetParam()) {
            ASSERT_TRUE(Dialog().Focus(Dialog().Control(kTabFoldersList)));
            PressKey(item == 0 ? VK_UP : VK_DOWN);
        } else {
            ASSERT_TRUE(Dialog().PressWithKeys(kTabFoldersButton));
            ASSERT_TRUE(WaitUntil([&] { return IsMenuOpen(); }));
            for (int press = 0; press <= item; ++press) {
                PressKey(VK_DOWN);
            }
            PressKey(VK_RETURN);
        }
        ASSERT_TRUE(DestinationBecomes((item == 0 ? first_ : second_) + L"\\"));
    }
    ASSERT_TRUE(MovesToTheSecond());
}

TEST_P(DestinationChoice, ByAMessageOfTheHostAlsoWhileTheListIsOpen) {
    ASSERT_TRUE(OpenToMove());
    for (const std::wstring& folder : {first_, second_}) {
        ASSERT_TRUE(Type(Tree().Path(L"places\\")));
        PressKey(VK_DOWN);
        ASSERT_TRUE(ListBecomes(true));
        PressKey(VK_DOWN);
        ASSERT_TRUE(SelectionBecomes(0));
        ASSERT_TRUE(samplehost::SendData(Dialog().Window(), nullptr, 100, samplehost::TextPayload(folder),
                                         kPatienceMs));
        ASSERT_TRUE(DestinationBecomes(folder + L"\\"));
        EXPECT_TRUE(ListBecomes(false));
    }
    ASSERT_TRUE(MovesToTheSecond());
}

TEST_P(DestinationChoice, ByTheFolderBrowser) {
    ASSERT_TRUE(OpenToMove());
    for (const std::wstring& folder : {first_, second_}) {
        const HWND browser = OpenBrowserPatientlyAt(folder);
        ASSERT_NE(browser, nullptr);
        Dialog().SetDestination(L"");
        PostMessageW(browser, WM_COMMAND, IDOK, 0);
        ASSERT_TRUE(DestinationBecomes(folder + L"\\"));
        const std::pair whole(0, static_cast<int>(folder.size()) + 1);
        EXPECT_TRUE(WaitUntil([&] { return Dialog().DestinationSelection() == whole; }));
    }
    ASSERT_TRUE(MovesToTheSecond());
}

TEST_P(DestinationChoice, ACancelledFolderBrowserChangesNothing) {
    ASSERT_TRUE(OpenToMove());
    const HWND browser = OpenBrowserPatientlyAt(first_);
    ASSERT_NE(browser, nullptr);
    Dialog().SetDestination(L"D:\\typed");
    PostMessageW(browser, WM_COMMAND, IDCANCEL, 0);
    ASSERT_TRUE(WaitUntil([&] { return !IsWindow(browser); }));
    EXPECT_TRUE(StaysClosedWith(L"D:\\typed"));
}

}  // namespace
}  // namespace ferry::e2e
