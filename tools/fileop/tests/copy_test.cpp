// Copying: collisions, merging, names, attributes, and what is refused.
#include "base/handles_win32.h"
#include "service_fixture.h"

namespace ferry::fileop {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CopyTest : public ServiceTest {};

TEST_F(CopyTest, PutsAFileIntoTheFolder) {
    const auto file = folder_.MakeFile(L"from\\日本語 ファイル.txt", "content");
    const Outcome outcome = Copy(file, target_);
    EXPECT_EQ(outcome.Queued, S_OK);
    EXPECT_EQ(outcome.Performed, S_OK);
    EXPECT_FALSE(outcome.IsAborted);
    EXPECT_EQ(ContentOf(target_ + L"\\日本語 ファイル.txt"), "content");
    EXPECT_EQ(ContentOf(file), "content");
}

TEST_F(CopyTest, GivesTheNewName) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "content");
    EXPECT_EQ(Perform({{false, file, target_, L"新しい名前.txt"}}).Performed, S_OK);
    EXPECT_THAT(TreeOf(target_), ElementsAre(L"新しい名前.txt"));
}

TEST_F(CopyTest, KeepsAttributesAndTheTimeOfWriting) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "content");
    base::FileHandle handle(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    const FILETIME written{0x12345680, 0x01C00000};
    ASSERT_TRUE(SetFileTime(handle.Get(), nullptr, nullptr, &written));
    handle.Reset();
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Copy(file, target_).Performed, S_OK);
    WIN32_FILE_ATTRIBUTE_DATA facts{};
    ASSERT_TRUE(GetFileAttributesExW((target_ + L"\\a.txt").c_str(), GetFileExInfoStandard, &facts));
    EXPECT_EQ(CompareFileTime(&facts.ftLastWriteTime, &written), 0);
    EXPECT_NE(facts.dwFileAttributes & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(CopyTest, MergesAFolderIntoAnExistingOne) {
    folder_.MakeFile(L"from\\d\\new.txt", "new");
    folder_.MakeFile(L"from\\d\\both.txt", "incoming");
    folder_.MakeFolder(L"from\\d\\空");
    folder_.MakeFile(L"to\\d\\old.txt", "old");
    folder_.MakeFile(L"to\\d\\both.txt", "existing and longer");
    EXPECT_EQ(Copy(folder_.In(L"from\\d"), target_).Performed, S_OK);
    EXPECT_THAT(TreeOf(target_),
                ElementsAre(L"d\\", L"d\\both.txt", L"d\\new.txt", L"d\\old.txt", L"d\\空\\"));
    EXPECT_EQ(ContentOf(target_ + L"\\d\\both.txt"), "incoming");
    EXPECT_EQ(TreeOf(source_).size(), 4U);
}

TEST_F(CopyTest, ReplacesAReadOnlyFileWithoutAskingWhenToldSo) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "incoming");
    const auto old = folder_.MakeFile(L"to\\a.txt", "existing");
    SetFileAttributesW(old.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(Copy(file, target_).Performed, S_OK);
    EXPECT_EQ(ContentOf(old), "incoming");
    EXPECT_EQ(GetFileAttributesW(old.c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
}

TEST_F(CopyTest, PicksANumberedNameInAnotherFolder) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "incoming");
    folder_.MakeFile(L"to\\a.txt", "existing");
    for (const DWORD flags : {kQuiet | FOF_RENAMEONCOLLISION, DWORD{FOF_SILENT | FOF_RENAMEONCOLLISION}}) {
        EXPECT_EQ(Copy(file, target_, flags).Performed, S_OK);
    }
    EXPECT_THAT(TreeOf(target_), ElementsAre(L"a (2).txt", L"a (3).txt", L"a.txt"));
    EXPECT_EQ(ContentOf(target_ + L"\\a.txt"), "existing");
    EXPECT_EQ(ContentOf(target_ + L"\\a (3).txt"), "incoming");
}

TEST_F(CopyTest, PicksACopyNameInTheSameFolder) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "a's content");
    folder_.MakeFile(L"from\\d.x\\b.txt", "b's content");
    const DWORD flags = kQuiet | FOF_RENAMEONCOLLISION;
    EXPECT_EQ(Copy(file, source_, flags).Performed, S_OK);
    EXPECT_EQ(Copy(file, source_, flags).Performed, S_OK);
    EXPECT_EQ(Copy(folder_.In(L"from\\d.x"), source_, flags).Performed, S_OK);
    EXPECT_THAT(TreeOf(source_), ElementsAre(L"a - Copy (2).txt", L"a - Copy.txt", L"a.txt", L"d.x - Copy\\",
                                             L"d.x - Copy\\b.txt", L"d.x\\", L"d.x\\b.txt"));
    EXPECT_EQ(ContentOf(source_ + L"\\a - Copy (2).txt"), "a's content");
    EXPECT_EQ(ContentOf(source_ + L"\\d.x - Copy\\b.txt"), "b's content");
}

TEST_F(CopyTest, RefusesToCopyAFileOntoItself) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "content");
    const Outcome outcome = Copy(file, source_);
    EXPECT_EQ(outcome.Performed, kSameFile);
    EXPECT_TRUE(outcome.IsAborted);
    EXPECT_EQ(Perform({{false, file, source_, L"A.TXT"}}).Performed, kSameFile);
    EXPECT_THAT(TreeOf(source_), ElementsAre(L"a.txt"));
    EXPECT_EQ(ContentOf(file), "content");
}

TEST_F(CopyTest, RefusesToCopyAFolderIntoItself) {
    folder_.MakeFile(L"from\\d\\sub\\a.txt", "content");
    const auto before = TreeOf(source_);
    EXPECT_EQ(Copy(folder_.In(L"from\\d"), folder_.In(L"from\\d\\sub")).Performed, kIntoItself);
    EXPECT_EQ(Copy(folder_.In(L"from\\d"), folder_.In(L"from\\d")).Performed, kIntoItself);
    EXPECT_EQ(TreeOf(source_), before);
}

TEST_F(CopyTest, RefusesAFileOntoAFolderAndAFolderOntoAFile) {
    folder_.MakeFile(L"from\\x", "content");
    folder_.MakeFile(L"to\\x\\y", "kept");
    EXPECT_EQ(Copy(folder_.In(L"from\\x"), target_).Performed, kFileOntoFolder);
    EXPECT_EQ(Copy(folder_.In(L"to\\x"), source_).Performed, kFolderOntoFile);
    EXPECT_EQ(ContentOf(folder_.In(L"from\\x")), "content");
    EXPECT_EQ(ContentOf(folder_.In(L"to\\x\\y")), "kept");
}

TEST_F(CopyTest, ReachesPathsBeyondTheOldLimit) {
    const std::wstring part(100, L'長');
    const std::wstring inside = L"d\\" + part + L"\\" + part + L"\\" + part + L"\\file.txt";
    folder_.MakeFile(L"from\\" + inside, "deep");
    EXPECT_EQ(Copy(folder_.In(L"from\\d"), target_).Performed, S_OK);
    EXPECT_EQ(ContentOf(target_ + L"\\" + inside), "deep");
    EXPECT_EQ(Copy(folder_.In(L"from\\d"), target_).Performed, S_OK) << "once more, over the first";
    EXPECT_EQ(Move(folder_.In(L"from\\d"), target_).Performed, S_OK);
    EXPECT_THAT(TreeOf(source_), IsEmpty());
    EXPECT_EQ(ContentOf(target_ + L"\\" + inside), "deep");
}

TEST_F(CopyTest, KeepsTheOldFileWhenItCannotBeReplaced) {
    const auto file = folder_.MakeFile(L"from\\a.txt", "incoming");
    const auto old = folder_.MakeFile(L"to\\a.txt", "existing");
    base::FileHandle lock(
        CreateFileW(old.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    const Outcome outcome = Copy(file, target_);
    lock.Reset();
    EXPECT_LT(outcome.Performed, 0);
    EXPECT_TRUE(outcome.IsAborted);
    EXPECT_EQ(ContentOf(old), "existing");
    EXPECT_THAT(TreeOf(target_), ElementsAre(L"a.txt"));
}

TEST_F(CopyTest, GoesOnAfterAFailureAndStopsEarlyWhenToldSo) {
    const auto same = folder_.MakeFile(L"to\\same.txt", "same");
    const auto other = folder_.MakeFile(L"from\\other.txt", "other");
    const std::vector<Job> jobs = {{false, same, target_}, {false, other, target_}};
    EXPECT_EQ(Perform(jobs, kQuiet | FOFX_EARLYFAILURE).Performed, kSameFile);
    EXPECT_THAT(TreeOf(target_), ElementsAre(L"same.txt"));
    EXPECT_EQ(Perform(jobs).Performed, kSameFile);
    EXPECT_THAT(TreeOf(target_), ElementsAre(L"other.txt", L"same.txt"));
    EXPECT_EQ(ContentOf(target_ + L"\\other.txt"), "other");
    EXPECT_EQ(ContentOf(target_ + L"\\same.txt"), "same");
}

}  // namespace
}  // namespace ferry::fileop
