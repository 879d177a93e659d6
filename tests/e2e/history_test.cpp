// The history of destinations, over several runs of the program.
#include "e2e/completion_fixture.h"
#include "e2e/driver/message_file.h"
#include "e2e/driver/surroundings.h"

namespace ferry::e2e {
namespace {

constexpr int kSlots = 20;

std::wstring ValueName(int index) {
    const std::wstring digits = std::to_wstring(index);
    return L"Ferry" + std::wstring(3 - digits.size(), L'0') + digits;
}

class DestinationHistory : public CompletionTest {
protected:
    void SetUp() override { file_ = Tree().WriteFile(L"source\\a.txt", "a"); }

    static void Store(const std::vector<std::wstring>& entries) {
        for (std::size_t index = 0; index < entries.size(); ++index) {
            WriteText(kProgramKey, ValueName(static_cast<int>(index)), entries[index]);
        }
    }

    /// All twenty values; a value that is missing is told as such.
    static std::vector<std::wstring> Stored() {
        std::vector<std::wstring> entries;
        for (int index = 0; index < kSlots; ++index) {
            entries.push_back(ReadText(kProgramKey, ValueName(index)).value_or(L"(missing)"));
        }
        return entries;
    }

    static std::vector<std::wstring> Slots(std::vector<std::wstring> used) {
        used.resize(kSlots);
        return used;
    }

    testing::AssertionResult CancelWith(const std::wstring& destination) {
        Dialog().SetDestination(destination);
        if (!Run().CancelAndWait().IsGood())
            return testing::AssertionFailure() << "Cancel does not end it";
        return testing::AssertionSuccess();
    }
};
INSTANTIATE_TEST_SUITE_P(Mode, DestinationHistory, testing::Bool(), ModeName);

TEST_P(DestinationHistory, IsStoredByStartAndByCancel) {
    ASSERT_TRUE(OpenDialog());
    const std::wstring first = Tree().MakeFolder(L"first");
    ASSERT_TRUE(Transfer(first));
    EXPECT_EQ(Stored(), Slots({first}));
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(CancelWith(L"D:\\second"));
    EXPECT_EQ(Stored(), Slots({L"D:\\second", first}));
}

TEST_P(DestinationHistory, StaysAsItIsWhenTheDestinationIsEmpty) {
    Store({L"D:\\a", L"D:\\b"});
    ASSERT_TRUE(OpenDialog());
    Dialog().SetDestination(L"");
    ASSERT_TRUE(StartIsRefusedWith(InstalledMessage(AppFolder(), 62304)));
    ASSERT_TRUE(CancelWith(L""));
    EXPECT_EQ(Stored(), Slots({L"D:\\a", L"D:\\b"}));
}

TEST_P(DestinationHistory, AnEntryThatIsUsedAgainMovesToTheTop) {
    Store({L"D:\\a", L"D:\\b", L"D:\\c", L"D:\\d"});
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Type(L"D:\\"));
    PressKey(VK_UP);
    ASSERT_TRUE(ListBecomes(true));
    for (int press = 0; press < 3; ++press) {
        PressKey(VK_DOWN);
    }
    ASSERT_TRUE(SelectionBecomes(2));
    PressKey(VK_RETURN);
    ASSERT_TRUE(ListBecomes(false));
    ASSERT_TRUE(DestinationBecomes(L"D:\\c"));
    ASSERT_TRUE(CancelEndsWell());
    EXPECT_EQ(Stored(), Slots({L"D:\\c", L"D:\\a", L"D:\\b", L"D:\\d"}));
}

TEST_P(DestinationHistory, DropsTheOldestOfTwentyEntries) {
    std::vector<std::wstring> entries;
    for (int index = 0; index < kSlots; ++index) {
        entries.push_back(L"D:\\entry " + std::to_wstring(index));
    }
    Store(entries);
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(CancelWith(L"D:\\new"));
    entries.pop_back();
    entries.insert(entries.begin(), L"D:\\new");
    EXPECT_EQ(Stored(), entries);
}

// The host's programs read settings without asking for their type.
TEST_P(DestinationHistory, AValueOfAnotherTypeCountsByItsBytesAndIsStoredAsText) {
    Store({L"D:\\a", L"", L"D:\\c"});
    WriteValue(kProgramKey, ValueName(1), {REG_BINARY, {'D', 0, ':', 0}});
    ASSERT_TRUE(OpenDialog());
    EXPECT_TRUE(WaitUntil([&] { return Dialog().DestinationListCount() == 3; }));
    ASSERT_TRUE(CancelWith(L"D:\\new"));
    EXPECT_EQ(Stored(), Slots({L"D:\\new", L"D:\\a", L"D:", L"D:\\c"}));
    for (const auto& [name, value] : ReadValues(kProgramKey)) {
        EXPECT_TRUE(!name.starts_with(L"Ferry") || value.Type == REG_SZ);
    }
}

TEST_P(DestinationHistory, TellsEntriesApartByCaseAndSeparator) {
    Store({L"C:\\Data"});
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(CancelWith(L"c:\\data\\"));
    EXPECT_EQ(Stored(), Slots({L"c:\\data\\", L"C:\\Data"}));
}

TEST_P(DestinationHistory, IsClearedByCtrlHWhenThePersonAgrees) {
    Store({L"D:\\a", L"D:\\b"});
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Type(L"D:\\x"));
    PressChord({VK_CONTROL, 'H'});
    const ShownBox box = WaitForMessageBox(Run().FerryId());
    ASSERT_NE(box.Window, nullptr);
    EXPECT_EQ(box.Text, InstalledMessage(AppFolder(), 62400) + InstalledMessage(AppFolder(), 63007));
    ASSERT_TRUE(DismissMessageBox(box, IDYES));
    EXPECT_TRUE(WaitUntil([&] { return Stored() == Slots({}); }));
    EXPECT_EQ(Dialog().DestinationListCount(), 0);
    EXPECT_EQ(Dialog().Destination(), L"D:\\x");
}

TEST_P(DestinationHistory, StaysWhenThePersonDoesNotAgreeToClearIt) {
    Store({L"D:\\a", L"D:\\b"});
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Type(L""));
    PressChord({VK_CONTROL, 'H'});
    const ShownBox box = WaitForMessageBox(Run().FerryId());
    ASSERT_NE(box.Window, nullptr);
    ASSERT_TRUE(DismissMessageBox(box, IDNO));
    EXPECT_TRUE(StillHolds([&] { return Dialog().DestinationListCount() == 2; }));
    EXPECT_EQ(ReadText(kProgramKey, L"Ferry000"), L"D:\\a");
}

TEST_P(DestinationHistory, IsOfferedByTheArrowAfterASearchToo) {
    Store({L"D:\\a", L"D:\\b"});
    Tree().MakeFolder(L"many\\one");
    Tree().MakeFolder(L"many\\two");
    Tree().MakeFolder(L"many\\three");
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Type(Tree().Path(L"many\\")));
    PressKey(VK_TAB);
    ASSERT_TRUE(ListBecomes(true));
    EXPECT_EQ(Dialog().DestinationListCount(), 3);
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(ListBecomes(false));
    RECT box{};
    GetWindowRect(Dialog().Control(kDestination), &box);
    constexpr int kInsideTheArrow = 8;
    ClickAt({box.right - kInsideTheArrow, box.top + kInsideTheArrow});
    ASSERT_TRUE(ListBecomes(true));
    EXPECT_EQ(Dialog().DestinationListCount(), 2);
    EXPECT_EQ(Dialog().DestinationListText(1), L"D:\\b");
}

TEST_P(DestinationHistory, DoesNotDisturbThePresetDestination) {
    Store({L"D:\\a", L"D:\\b"});
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(WaitUntil([&] { return Dialog().DestinationListCount() == 2; }));
    EXPECT_EQ(Dialog().Destination(), Tree().Path(L"tab\\"));
}

}  // namespace
}  // namespace ferry::e2e
