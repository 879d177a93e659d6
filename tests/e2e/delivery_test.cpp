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
        const auto range = static_cast<DWORD>(SendMessageW(Dialog().DestinationEdit(), EM_GETSEL, 0, 0));
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
        EXPECT_TRUE(WaitUntil([&] { return Dialog().Destination() == path + L"\\"; }));
        EXPECT_TRUE(WaitUntil([&] { return IsDestinationSelected(); }));
    }
}

TEST_F(Delivery, ADestinationKeepsItsOwnTrailingSeparator) {
    ASSERT_TRUE(Open(Plan({L"C:\\Work\\a.txt"})));
    ASSERT_TRUE(SendText(100, L"D:\\"));
    EXPECT_TRUE(WaitUntil([&] { return Dialog().Destination() == L"D:\\"; }));
}

TEST_F(Delivery, AnotherTagChangesNothing) {
    ASSERT_TRUE(Open(Plan({L"C:\\Work\\a.txt"}, {L"D:\\Backup"})));
    for (const std::uint64_t tag : {0U, 99U, 101U, 254U, 256U, 301U}) {
        ASSERT_TRUE(SendText(tag, L"E:\\elsewhere"));
    }
    EXPECT_TRUE(Stays([&] { return Dialog().Destination() == L"D:\\Backup\\"; }));
    EXPECT_EQ(Dialog().SourceCount(), 1);
}

TEST_F(Delivery, ABlockAfterADropIsIgnored) {
    ASSERT_TRUE(OpenWithoutHost());
    const std::vector<std::wstring> dropped = {Tree().WriteFile(L"dropped.txt", "d")};
    ASSERT_TRUE(Drop(dropped));
    ASSERT_TRUE(WaitUntil([&] { return Dialog().SourceCount() == 1; }));
    ASSERT_TRUE(SendBlock({L"C:\\Work\\a.txt", L"C:\\Work\\b.txt"}, {L"D:\\Backup"}));
    EXPECT_TRUE(Stays([&] { return Dialog().SourceCount() == 1 && Dialog().Destination().empty(); }));
}

}  // namespace
}  // namespace ferry::e2e
