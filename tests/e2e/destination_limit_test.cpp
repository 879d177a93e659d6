// The longest destination, by every way that one can arrive.
#include "e2e/completion_fixture.h"
#include "samplehost/delivery_win32.h"
#include "samplehost/host_block_writer.h"

namespace ferry::e2e {
namespace {

constexpr std::size_t kLimit = 250;
constexpr wchar_t kRefusal[] = L"250文字以内で入力してください。";

class DestinationLimit : public FerryTest {
protected:
    void SetUp() override { file_ = Tree().WriteFile(L"source\\a.txt", "a"); }

    /// An existing folder whose path has `length` units.
    std::wstring FolderOfLength(std::size_t length) const {
        const std::wstring upper = L"upper " + std::wstring(100, L'u');
        const std::size_t used = Tree().Path(upper + L"\\").size();
        return Tree().MakeFolder(upper + L"\\" + std::wstring(length - used, L'd'));
    }

    /// The destination is `text`, the start refuses it, and the next start with a shorter one works.
    testing::AssertionResult IsRefused(const std::wstring& text) {
        if (!DestinationBecomes(text))
            return testing::AssertionFailure() << testing::PrintToString(Dialog().Destination());
        if (auto refused = StartIsRefusedWith(kRefusal); !refused)
            return refused;
        if (Dialog().Destination() != text)
            return testing::AssertionFailure() << "the text has changed";
        if (auto done = Transfer(Tree().Path(L"short")); !done)
            return done;
        if (ReadBytes(Tree().Path(L"short\\a.txt")) != "a")
            return testing::AssertionFailure() << "nothing was copied";
        return testing::AssertionSuccess();
    }

    std::wstring file_;
};

TEST_F(DestinationLimit, TwoHundredAndFiftyUnitsAreTaken) {
    ASSERT_TRUE(Open(Plan({file_})));
    const std::wstring folder = FolderOfLength(kLimit);
    ASSERT_TRUE(Transfer(folder));
    EXPECT_EQ(ReadBytes(folder + L"\\a.txt"), "a");
}

TEST_F(DestinationLimit, OneUnitMoreIsRefused) {
    ASSERT_TRUE(Open(Plan({file_})));
    const std::wstring folder = FolderOfLength(kLimit + 1);
    Dialog().SetDestination(folder);
    EXPECT_TRUE(IsRefused(folder));
}

TEST_F(DestinationLimit, TheSeparatorOfAMessageCounts) {
    ASSERT_TRUE(Open(Plan({file_})));
    const std::wstring folder = FolderOfLength(kLimit);
    ASSERT_TRUE(Send(100, samplehost::TextPayload(folder)));
    EXPECT_TRUE(IsRefused(folder + L"\\"));
}

TEST_F(DestinationLimit, ALongerFolderOfAnotherTabIsRefused) {
    const std::wstring folder = FolderOfLength(kLimit);
    ASSERT_TRUE(Open(Plan({file_}, {folder})));
    EXPECT_TRUE(IsRefused(folder + L"\\"));
}

TEST_F(DestinationLimit, ALongerFolderOfABlockIsRefused) {
    ASSERT_TRUE(OpenWithoutHost());
    const std::wstring folder = FolderOfLength(kLimit + 20);
    ASSERT_TRUE(SendBlock({file_}, {folder}));
    EXPECT_TRUE(IsRefused(folder + L"\\"));
}

TEST_F(DestinationLimit, ALongerDroppedFolderIsRefused) {
    ASSERT_TRUE(OpenWithoutHost());
    const std::wstring folder = FolderOfLength(kLimit + 5);
    ASSERT_TRUE(Drop({file_}));
    ASSERT_TRUE(WaitUntil([&] { return Dialog().SourceCount() == 1; }));
    ASSERT_TRUE(Drop({folder}));
    EXPECT_TRUE(IsRefused(folder + L"\\"));
}

TEST_F(DestinationLimit, ALongerFolderDroppedOnTheFieldIsRefused) {
    ASSERT_TRUE(Open(Plan({file_})));
    const std::vector<std::wstring> dropped = {FolderOfLength(kLimit + 5)};
    ASSERT_TRUE(samplehost::DropPaths(Dialog().Control(kDestination), dropped));
    EXPECT_TRUE(IsRefused(dropped.front()));
}

TEST_F(DestinationLimit, ALongerEntryOfTheHistoryIsRefusedAndKept) {
    const std::wstring folder = FolderOfLength(kLimit + 5);
    WriteText(kProgramKey, L"Ferry000", folder);
    ASSERT_TRUE(Open(Plan({file_})));
    Dialog().SetDestination(L"");
    ASSERT_TRUE(Dialog().FocusDestination());
    PressKey(VK_UP);
    ASSERT_TRUE(WaitUntil([&] { return Dialog().IsDestinationListOpen(); }));
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitUntil([&] { return !Dialog().IsDestinationListOpen(); }));
    EXPECT_TRUE(IsRefused(folder));
    ASSERT_TRUE(EndsWell());
    EXPECT_EQ(ReadText(kProgramKey, L"Ferry001"), folder);
}

}  // namespace
}  // namespace ferry::e2e
