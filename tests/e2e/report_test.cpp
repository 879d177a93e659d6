// What a run says of the items that it had to leave behind.
#include "e2e/driver/clipboard.h"
#include "e2e/driver/keys.h"
#include "e2e/run_fixture.h"

namespace ferry::e2e {
namespace {

/// A run of many files, of which some cannot go.
class LeftBehind : public TransferTest {
protected:
    static constexpr int kAll = 1000;

    void SetUp() override {
        TransferTest::SetUp();
        // Each cannot go for a reason of its own, two for the same one.
        left_ = {Tree().Path(L"元\\gone 1.txt"),
                 Tree().Path(L"元\\gone 2.txt"),
                 Tree().Path(L"元\\no folder\\a.txt"),
                 L"Q:\\no drive\\a.txt",
                 L"\\\\nosuch\\share\\a.txt",
                 L"C:/slash/a.txt",
                 Tree().Path(L"元\\") + std::wstring(300, L'x')};
        for (std::size_t index = 0; index < kAll - left_.size(); ++index)
            items_.push_back(Tree().WriteFile(L"元\\" + std::to_wstring(index), std::to_string(index)));
        // In the middle, so that the others have to go on.
        items_.insert(items_.begin() + 500, left_.begin(), left_.end());
    }

    testing::AssertionResult Start(DWORD mode, const wchar_t* language) {
        WriteText(kHostKey, L"NLS", language);
        WriteNumber(kProgramKey, L"Mode", mode);
        // More than a command line holds.
        std::string lines;
        for (const std::wstring& item : items_)
            lines += base::ToUtf8(item) + "\n";
        RunPlan plan = Plan({});
        plan.HostArguments = {L"--items-file", Tree().WriteFile(L"items.txt", lines)};
        if (const auto opened = Open(plan); !opened)
            return opened;
        Dialog().SetDestination(Tree().MakeFolder(L"先"));
        Dialog().Click(kStart);
        return testing::AssertionSuccess();
    }

    /// The report, which comes when all the others went.
    RemoteDialog Report() {
        constexpr int kRunMs = 120'000;
        WaitUntil([this] { return FindRunDialog(Run().FerryId(), RunDialog::Report).IsOpen(); }, kRunMs);
        return WaitForRunDialog(Run().FerryId(), RunDialog::Report);
    }

    testing::AssertionResult AllOthersWent() const {
        for (std::size_t index = 0; index < kAll - left_.size(); ++index) {
            if (ReadBytes(Tree().Path(L"先\\" + std::to_wstring(index))) != std::to_string(index))
                return testing::AssertionFailure() << "not there: " << index;
        }
        return testing::AssertionSuccess();
    }

    std::vector<std::wstring> items_;
    std::vector<std::wstring> left_;
};

struct Way {
    DWORD Mode;
    const wchar_t* Language;
    const wchar_t* Title;
    const wchar_t* Summary;
};

class LeftBehindInEachWay : public LeftBehind, public testing::WithParamInterface<Way> {};

TEST_P(LeftBehindInEachWay, SevenOfAThousandFilesAreNamedAndTheOthersGo) {
    ASSERT_TRUE(Start(GetParam().Mode, GetParam().Language));
    const RemoteDialog report = Report();
    ASSERT_TRUE(report.IsOpen());
    EXPECT_EQ(report.Title(), GetParam().Title);
    EXPECT_EQ(report.Text(kReportSummary), GetParam().Summary);
    const std::wstring list = report.Text(kReportList);
    std::size_t at = 0;
    for (const std::wstring& path : left_) {
        at = list.find(path + L"\r\n", at);
        ASSERT_NE(at, std::wstring::npos) << testing::PrintToString(path) << " in its order";
    }
    report.Click(kReportCopy);
    EXPECT_TRUE(WaitUntil([&] { return ClipboardText() == GetParam().Summary + (L"\r\n" + list); }));
    ASSERT_TRUE(PressEscapeIn(report));
    ASSERT_TRUE(EndsWell());
    EXPECT_TRUE(AllOthersWent());
}

INSTANTIATE_TEST_SUITE_P(
    Report, LeftBehindInEachWay,
    testing::Values(Way{0, L".ja-JP", L"処理できなかった項目",
                        L"1000 項目のうち 7 項目を処理できませんでした。元の場所に残っています。"},
                    Way{1, L".ja-JP", L"処理できなかった項目",
                        L"1000 項目のうち 7 項目を処理できませんでした。元の場所に残っています。"},
                    Way{0, L".en-US", L"Items left behind",
                        L"7 of 1000 items could not be transferred. They are still where they were."},
                    Way{1, L".en-US", L"Items left behind",
                        L"7 of 1000 items could not be transferred. They are still where they were."}),
    [](const auto& way) {
        return std::string(way.param.Mode == 0 ? "Batch" : "Individual") +
               (std::wstring_view(way.param.Language) == L".ja-JP" ? "Japanese" : "English");
    });

}  // namespace
}  // namespace ferry::e2e
