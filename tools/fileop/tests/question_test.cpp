// The question about a taken name, answered by keys.
#include "service_fixture.h"
#include "window_driver.h"

namespace ferry::fileop {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr wchar_t kTitle[] = L"Replace or Skip Files";

class QuestionTest : public ServiceTest {
protected:
    QuestionTest() {
        for (const int number : {1, 2, 3}) {
            const std::wstring name = std::to_wstring(number);
            const std::string content = std::to_string(number);
            jobs_.push_back({false, folder_.MakeFile(L"from\\" + name, "incoming " + content), target_});
            folder_.MakeFile(L"to\\" + name, "existing " + content);
        }
    }

    std::vector<std::string> Contents() const {
        return {ContentOf(target_ + L"\\1"), ContentOf(target_ + L"\\2"), ContentOf(target_ + L"\\3")};
    }

    std::vector<Job> jobs_;
};

TEST_F(QuestionTest, EachFileIsReplacedOrSkippedAsAnswered) {
    WindowDriver driver({{kTitle, L'r'}, {kTitle, L's'}, {kTitle, L'r'}});
    const Outcome outcome = Perform(jobs_, FOF_SILENT);
    EXPECT_EQ(outcome.Performed, S_OK);
    EXPECT_TRUE(outcome.IsAborted) << "a skipped file was not transferred";
    EXPECT_EQ(driver.Finish().size(), 3U);
    EXPECT_THAT(Contents(), ElementsAre("incoming 1", "existing 2", "incoming 3"));
    EXPECT_THAT(Log(), Contains(L"Question\t" + target_ + L"\\1\treplace"));
    EXPECT_THAT(Log(), Contains(L"Question\t" + target_ + L"\\2\tskip"));
}

TEST_F(QuestionTest, CancelStopsTheRun) {
    const WindowDriver driver({{kTitle, L'r'}, {kTitle, VK_ESCAPE}});
    const Outcome outcome = Perform(jobs_, FOF_SILENT);
    EXPECT_EQ(outcome.Performed, kCancelled);
    EXPECT_TRUE(outcome.IsAborted);
    EXPECT_THAT(Contents(), ElementsAre("incoming 1", "existing 2", "existing 3"));
    EXPECT_THAT(Log(), Contains(L"Question\t" + target_ + L"\\2\tcancel"));
}

TEST_F(QuestionTest, AnAnswerForAllIsNotAskedAgain) {
    const WindowDriver driver({{kTitle, L'a'}, {kTitle, L'r'}});
    EXPECT_EQ(Perform(jobs_, FOF_SILENT).Performed, S_OK);
    EXPECT_THAT(Contents(), ElementsAre("incoming 1", "incoming 2", "incoming 3"));
}

TEST_F(QuestionTest, TheEnterKeySkips) {
    const WindowDriver driver({{kTitle, VK_RETURN}});
    EXPECT_EQ(Perform({jobs_[0]}, FOF_SILENT).Performed, S_OK);
    EXPECT_THAT(Contents(), ElementsAre("existing 1", "existing 2", "existing 3"));
}

TEST_F(QuestionTest, TheOwnerWindowOwnsIt) {
    const HWND owner = CreateWindowExW(0, L"STATIC", L"Owner", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                       nullptr, nullptr, nullptr);
    WindowDriver driver({{kTitle, VK_ESCAPE}});
    Perform({jobs_[0]}, FOF_SILENT, owner);
    ASSERT_EQ(driver.Finish().size(), 1U);
    EXPECT_EQ(driver.Finish()[0].Owner, owner);
    EXPECT_TRUE(IsWindowEnabled(owner));
    DestroyWindow(owner);
}

TEST_F(QuestionTest, TheDesktopAsOwnerStaysEnabled) {
    WindowDriver driver({{kTitle, L'r'}});
    EXPECT_EQ(Perform({jobs_[0]}, FOF_SILENT, GetDesktopWindow()).Performed, S_OK);
    EXPECT_EQ(driver.Finish().size(), 1U);
    EXPECT_TRUE(IsWindowEnabled(GetDesktopWindow()));
}

TEST_F(QuestionTest, IsNotAskedWithoutConfirmation) {
    EXPECT_EQ(Perform(jobs_, FOF_SILENT | FOF_NOCONFIRMATION).Performed, S_OK);
    EXPECT_THAT(Contents(), ElementsAre("incoming 1", "incoming 2", "incoming 3"));
    EXPECT_THAT(Log(), testing::Each(testing::Not(testing::StartsWith(L"Question"))));
}

// The folder went away after the operation was queued.
class MissingFolderTest : public ServiceTest {
protected:
    HRESULT CopyIntoRemovedFolder(DWORD flags) {
        const auto file = folder_.MakeFile(L"from\\a.txt", "content");
        const ComRef<IFileOperation> operation = NewOperation();
        operation->SetOperationFlags(flags);
        EXPECT_EQ(operation->CopyItems(ItemOf(file).Get(), ItemOf(target_).Get()), S_OK);
        EXPECT_TRUE(RemoveDirectoryW(target_.c_str()));
        return operation->PerformOperations();
    }
};

TEST_F(MissingFolderTest, IsMadeWithoutAQuestionWhenToldSo) {
    EXPECT_EQ(CopyIntoRemovedFolder(FOF_SILENT | FOF_NOCONFIRMMKDIR), S_OK);
    EXPECT_THAT(TreeOf(target_), ElementsAre(L"a.txt"));
}

TEST_F(MissingFolderTest, IsAskedForOtherwise) {
    WindowDriver driver({{L"Make Folder", L'y'}});
    EXPECT_EQ(CopyIntoRemovedFolder(FOF_SILENT), S_OK);
    EXPECT_EQ(driver.Finish().size(), 1U);
    EXPECT_THAT(TreeOf(target_), ElementsAre(L"a.txt"));
}

}  // namespace
}  // namespace ferry::fileop
