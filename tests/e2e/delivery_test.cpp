// What a host may send while the dialog is open.
#include "e2e/fixture.h"
#include "samplehost/host_block_writer.h"

namespace ferry::e2e {
namespace {

class Delivery : public FerryTest {
protected:
    bool SendText(std::uint64_t tag, const std::wstring& text) const {
        return Send(tag, samplehost::TextPayload(text));
    }

    /// The whole destination is selected, so that typing replaces it.
    bool IsDestinationSelected() const {
        const auto range = static_cast<DWORD>(Ask(Dialog().DestinationEdit(), EM_GETSEL));
        return LOWORD(range) == 0 && HIWORD(range) == Dialog().Destination().size();
    }
};

TEST_F(Delivery, ABlockFillsTheListAndTheDestination) {
    ASSERT_TRUE(OpenWithoutHost());
    EXPECT_EQ(Dialog().SourceCount(), 0);
    ASSERT_TRUE(SendBlock({L"C:\\Work\\a.txt", L"C:\\Work\\あ"}, {L"D:\\Backup"}));
    EXPECT_EQ(Dialog().SourceCount(), 2);
    EXPECT_EQ(Dialog().SourceText(0), L"a.txt");
    EXPECT_EQ(Dialog().SourceText(1), L"あ");
    EXPECT_EQ(Dialog().Text(kItemCount), L"(2)");
    EXPECT_EQ(Dialog().Destination(), L"D:\\Backup\\");
    EXPECT_TRUE(Dialog().IsEnabled(kStart));
}

TEST_F(Delivery, ABlockSentThroughTheSampleHostArrives) {
    RunPlan plan = Plan({L"C:\\Work\\a.txt"});
    plan.HostArguments = {L"--no-variable", L"--send-block"};
    ASSERT_TRUE(Open(plan));
    EXPECT_TRUE(WaitUntil([&] { return Dialog().SourceCount() == 1; }));
}

TEST_F(Delivery, EachDestinationTagSetsAndSelectsTheDestination) {
    ASSERT_TRUE(Open(Plan({L"C:\\Work\\a.txt"})));
    for (const std::uint64_t tag : {100U, 200U, 300U}) {
        SCOPED_TRACE(tag);
        const std::wstring path = L"D:\\行き先 " + std::to_wstring(tag);
        ASSERT_TRUE(SendText(tag, path));
        EXPECT_TRUE(DestinationBecomes(path + L"\\"));
        EXPECT_TRUE(WaitUntil([&] { return IsDestinationSelected(); }));
    }
}

TEST_F(Delivery, ADestinationKeepsItsOwnTrailingSeparator) {
    ASSERT_TRUE(Open(Plan({L"C:\\Work\\a.txt"})));
    ASSERT_TRUE(SendText(100, L"D:\\"));
    EXPECT_TRUE(DestinationBecomes(L"D:\\"));
}

TEST_F(Delivery, AnotherTagChangesNothing) {
    ASSERT_TRUE(Open(Plan({L"C:\\Work\\a.txt"}, {L"D:\\Backup"})));
    for (const std::uint64_t tag : {0U, 99U, 101U, 254U, 256U, 301U}) {
        ASSERT_TRUE(SendText(tag, L"E:\\elsewhere"));
    }
    EXPECT_TRUE(StillHolds([&] { return Dialog().Destination() == L"D:\\Backup\\"; }));
    EXPECT_EQ(Dialog().SourceCount(), 1);
}

TEST_F(Delivery, ABlockAfterADropIsIgnored) {
    ASSERT_TRUE(OpenWithoutHost());
    const std::vector<std::wstring> dropped = {Tree().WriteFile(L"dropped.txt", "d")};
    ASSERT_TRUE(Drop(dropped));
    ASSERT_TRUE(WaitUntil([&] { return Dialog().SourceCount() == 1; }));
    ASSERT_TRUE(SendBlock({L"C:\\Work\\a.txt", L"C:\\Work\\b.txt"}, {L"D:\\Backup"}));
    EXPECT_TRUE(StillHolds([&] { return Dialog().SourceCount() == 1 && Dialog().Destination().empty(); }));
}

/// A hundred thousand items, each with a path as long as it may be without a prefix.
std::vector<std::wstring> ManyItems() {
    constexpr int kCount = 100'000;
    constexpr std::size_t kLength = 259;
    std::vector<std::wstring> items;
    items.reserve(kCount);
    for (int index = 1; index <= kCount; ++index) {
        const std::wstring name = L"\\" + std::to_wstring(index) + L".txt";
        items.push_back(L"C:\\" + std::wstring(kLength - 3 - name.size(), L'長') + name);
    }
    return items;
}

// Wine puts what the message carries on the stack of the thread that receives it.
TEST_F(Delivery, AHundredThousandItemsArriveInOneBlock) {
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(SendBlock(ManyItems(), {L"D:\\Backup"}));
    EXPECT_EQ(Dialog().SourceCount(), 100'000);
    EXPECT_EQ(Dialog().SourceText(0), L"1.txt");
    EXPECT_EQ(Dialog().SourceText(99'999), L"100000.txt");
    EXPECT_EQ(Dialog().Text(kItemCount), L"(100000)");
    EXPECT_EQ(Dialog().Destination(), L"D:\\Backup\\");
}

/// A window of this process: the program that a person works in when the delivery comes.
class OwnWindow {
public:
    OwnWindow()
        : window_(CreateWindowExW(0, L"Static", L"own", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100,
                                  nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)) {}
    ~OwnWindow() { DestroyWindow(window_); }
    OwnWindow(const OwnWindow&) = delete;
    OwnWindow& operator=(const OwnWindow&) = delete;

    HWND Get() const noexcept { return window_; }

private:
    HWND window_;
};

class DeliveryFromBehind : public Delivery {
protected:
    bool SendOneFile() const { return SendBlock({L"C:\\Work\\a.txt"}, {L"D:\\Backup"}); }

    /// Puts the focus where no delivery puts it.
    bool FocusCancel() const { return Dialog().Focus(Dialog().Control(kCancel)); }

    /// The dialog has the foreground and keeps it, and what is typed arrives in the destination.
    testing::AssertionResult IsInFrontAndTakesKeys() const {
        if (!WaitUntil([&] { return GetForegroundWindow() == Dialog().Window(); }))
            return testing::AssertionFailure() << "in front is " << GetForegroundWindow();
        if (!Dialog().WaitForFocus(Dialog().DestinationEdit()))
            return testing::AssertionFailure() << "the focus is elsewhere";
        TypeText(L"x");
        if (!DestinationBecomes(L"D:\\Backup\\x"))
            return testing::AssertionFailure() << "the key went elsewhere";
        if (!StillHolds([&] { return GetForegroundWindow() == Dialog().Window(); }))
            return testing::AssertionFailure() << "it fell back behind " << GetForegroundWindow();
        return testing::AssertionSuccess();
    }
};

TEST_F(DeliveryFromBehind, BringsTheDialogBeforeTheHost) {
    RunPlan plan = Plan({});
    plan.HostArguments = {L"--no-variable"};
    ASSERT_TRUE(Open(plan));
    ASSERT_TRUE(TakeForeground(Run().HostWindow()));
    ASSERT_TRUE(SendOneFile());
    EXPECT_TRUE(IsInFrontAndTakesKeys());
}

// The sender waits inside its call while the dialog takes the foreground away from it.
TEST_F(DeliveryFromBehind, BringsTheDialogBeforeTheWindowOfItsSender) {
    ASSERT_TRUE(OpenWithoutHost());
    const OwnWindow own;
    ASSERT_TRUE(TakeForeground(own.Get()));
    ASSERT_TRUE(SendOneFile());
    EXPECT_TRUE(IsInFrontAndTakesKeys());
}

TEST_F(DeliveryFromBehind, LeavesADialogInFrontThere) {
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(TakeForeground(Dialog().Window()));
    ASSERT_TRUE(SendOneFile());
    EXPECT_TRUE(IsInFrontAndTakesKeys());
}

TEST_F(DeliveryFromBehind, GivesTheFocusToTheDestinationWhateverHadItBefore) {
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(FocusCancel());
    const OwnWindow own;
    ASSERT_TRUE(TakeForeground(own.Get()));
    ASSERT_TRUE(SendOneFile());
    EXPECT_TRUE(IsInFrontAndTakesKeys());
}

TEST_F(DeliveryFromBehind, OpensAMinimisedDialog) {
    ASSERT_TRUE(OpenWithoutHost());
    const OwnWindow own;
    ShowWindowAsync(Dialog().Window(), SW_MINIMIZE);
    ASSERT_TRUE(WaitUntil([&] { return IsIconic(Dialog().Window()); }));
    ASSERT_TRUE(TakeForeground(own.Get()));
    ASSERT_TRUE(SendOneFile());
    EXPECT_FALSE(IsIconic(Dialog().Window()));
    EXPECT_TRUE(IsInFrontAndTakesKeys());
}

TEST_F(DeliveryFromBehind, GivesTheFocusToTheListOfFoldersWhereThatIsAskedFor) {
    ASSERT_TRUE(OpenWithoutHost({L"/t", L"/f=1"}));
    ASSERT_TRUE(FocusCancel());
    const OwnWindow own;
    ASSERT_TRUE(TakeForeground(own.Get()));
    ASSERT_TRUE(SendBlock({L"C:\\Work\\a.txt"}, {L"D:\\a", L"D:\\b"}));
    ASSERT_TRUE(WaitUntil([&] { return GetForegroundWindow() == Dialog().Window(); }));
    ASSERT_TRUE(Dialog().WaitForFocus(Dialog().Control(kTabFoldersList)));
    PressKey(VK_DOWN);
    EXPECT_TRUE(DestinationBecomes(L"D:\\b\\"));
}

}  // namespace
}  // namespace ferry::e2e
