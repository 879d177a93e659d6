// Moving: by renaming, by copying to another volume, merging, and new names.
#include "base/handles_win32.h"
#include "service_fixture.h"

namespace ferry::fileop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MoveTest : public ServiceTest {};

TEST_F(MoveTest, TakesAFileAway) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "content");
    EXPECT_EQ(Move(file, target_).Performed, S_OK);
    EXPECT_THAT(TreeOf(source_), IsEmpty());
    EXPECT_EQ(ContentOf(target_ + L"\\a.txt"), "content");
}

TEST_F(MoveTest, ReplacesAnExistingFile) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "incoming");
    const auto old = folder_.MakeFile(L"to\\a.txt", "existing");
    SetFileAttributesW(old.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Move(file, target_).Performed, S_OK);
    EXPECT_FALSE(Exists(file));
    EXPECT_EQ(ContentOf(old), "incoming");
}

TEST_F(MoveTest, MergesAFolderIntoAnExistingOneAndRemovesTheEmptiedOne) {
    folder_.MakeFile(L"from\\d\\s\\new.txt", "new");
    folder_.MakeFile(L"from\\d\\both.txt", "incoming");
    folder_.MakeFile(L"to\\d\\s\\old.txt", "old");
    folder_.MakeFile(L"to\\d\\both.txt", "existing");
    EXPECT_EQ(Move(folder_.In(L"from\\d"), target_).Performed, S_OK);
    EXPECT_THAT(TreeOf(source_), IsEmpty());
    EXPECT_THAT(TreeOf(target_),
                ElementsAre(L"d\\", L"d\\both.txt", L"d\\s\\", L"d\\s\\new.txt", L"d\\s\\old.txt"));
    EXPECT_EQ(ContentOf(target_ + L"\\d\\both.txt"), "incoming");
}

TEST_F(MoveTest, ChangesTheCaseOfANameButRefusesTheSameName) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "content");
    EXPECT_EQ(Move(file, source_).Performed, kSameFile);
    EXPECT_EQ(Perform({{true, file, source_, L"A.txt"}}).Performed, S_OK);
    EXPECT_THAT(TreeOf(source_), ElementsAre(L"A.txt"));
    EXPECT_EQ(ContentOf(file), "content");
}

TEST_F(MoveTest, PicksAFreeNameOnCollision) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "incoming");
    folder_.MakeFile(L"to\\a.txt", "existing");
    EXPECT_EQ(Move(file, target_, kQuiet | FOF_RENAMEONCOLLISION).Performed, S_OK);
    EXPECT_THAT(TreeOf(target_), ElementsAre(L"a (2).txt", L"a.txt"));
    EXPECT_EQ(ContentOf(target_ + L"\\a (2).txt"), "incoming");
    EXPECT_EQ(ContentOf(target_ + L"\\a.txt"), "existing");
    EXPECT_FALSE(Exists(file));
}

TEST_F(MoveTest, RefusesAFolderIntoItself) {
    folder_.MakeFile(L"from\\d\\s\\a.txt", "content");
    EXPECT_EQ(Move(folder_.In(L"from\\d"), folder_.In(L"from\\d\\s")).Performed, kIntoItself);
    EXPECT_EQ(ContentOf(folder_.In(L"from\\d\\s\\a.txt")), "content");
}

std::wstring OtherVolume() {
    wchar_t path[MAX_PATH] = {};
    GetEnvironmentVariableW(L"FERRY_OTHER_VOLUME", path, MAX_PATH);
    return path;
}

// A folder on another volume than the folder for temporary files, which the caller names.
class OtherVolumeTest : public ServiceTest {
protected:
    OtherVolumeTest() : other_(OtherVolume()) {}

    void SetUp() override {
        ServiceTest::SetUp();
        if (IsSkipped()) {
            return;
        }
        if (other_.Path().empty() || !ItemOf(other_.Path())) {
            GTEST_SKIP() << "FERRY_OTHER_VOLUME names no folder";
        }
        const auto probe = folder_.MakeFile(L"probe", "");
        if (MoveFileExW(probe.c_str(), other_.In(L"probe").c_str(), 0) ||
            GetLastError() != ERROR_NOT_SAME_DEVICE) {
            GTEST_SKIP() << "it is the same volume";
        }
    }

    TestFolder other_;
};

TEST_F(OtherVolumeTest, TakesAFolderWithItsFilesAndAttributes) {
    const auto hidden = folder_.MakeFile(L"from\\d\\sub\\a.txt", "content");
    folder_.MakeFile(L"from\\d\\日本.txt", std::string(3'000'000, 'x'));
    SetFileAttributesW(hidden.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Move(folder_.In(L"from\\d"), other_.Path()).Performed, S_OK);
    EXPECT_THAT(TreeOf(source_), IsEmpty());
    EXPECT_THAT(TreeOf(other_.Path()), ElementsAre(L"d\\", L"d\\sub\\", L"d\\sub\\a.txt", L"d\\日本.txt"));
    EXPECT_EQ(ContentOf(other_.In(L"d\\sub\\a.txt")), "content");
    EXPECT_EQ(ContentOf(other_.In(L"d\\日本.txt")), std::string(3'000'000, 'x'));
}

TEST_F(OtherVolumeTest, KeepsTheSourceWhenTheTargetCannotBeReplaced) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "incoming");
    const auto old = other_.MakeFile(L"a.txt", "existing");
    base::FileHandle lock(
        CreateFileW(old.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_LT(Move(file, other_.Path()).Performed, 0);
    lock.Reset();
    EXPECT_EQ(ContentOf(file), "incoming");
    EXPECT_EQ(ContentOf(old), "existing");
    EXPECT_THAT(TreeOf(other_.Path()), ElementsAre(L"a.txt"));
}

}  // namespace
}  // namespace ferry::fileop
