#include "script/pretended_disk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/utf16.h"
#include "core/files/search_contract.h"

namespace ferry::scripttools {
namespace {

using script::OpenMode;
using testing::ElementsAre;

Bytes BytesOf(std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

std::string ReadAll(script::InFile& file, std::size_t atATime) {
    std::string text;
    Bytes buffer(atATime);
    while (const std::size_t count = file.Read(buffer)) {
        for (const std::byte value : std::span(buffer).first(count))
            text += static_cast<char>(value);
    }
    return text;
}

std::vector<std::string> Kept(const EffectLog& log) {
    std::vector<std::string> texts;
    for (const Effect& effect : log.All())
        texts.push_back(base::ToUtf8(effect.Kind + L" " + effect.Text));
    return texts;
}

class PretendedDiskTest : public testing::Test {
protected:
    std::vector<std::wstring> Names(const std::wstring& pattern) {
        std::vector<std::wstring> names;
        lastError_ = disk_.Search(pattern, [&names](const files::Match& match) {
            names.push_back(std::wstring(match.Name) + (files::IsFolder(match.Attributes) ? L"\\" : L""));
            return true;
        });
        return names;
    }

    EffectLog log_;
    PretendedDisk disk_{L"C:\\cur", log_, nullptr};
    std::uint32_t lastError_ = 0;
};

TEST_F(PretendedDiskTest, FindsAFileHoweverItsPathIsWritten) {
    disk_.AddFile(L"C:\\Dir\\Name.txt", BytesOf("abc"));
    for (const wchar_t* path :
         {L"c:\\dir\\NAME.TXT", L"C:/Dir/Name.txt", L"..\\dir\\name.txt", L"\\Dir\\x\\..\\Name.txt"})
        EXPECT_EQ(disk_.Size(path), 3U) << base::ToUtf8(path);
    EXPECT_EQ(disk_.Size(L"C:\\Dir\\Nam.txt"), 0U);
}

TEST_F(PretendedDiskTest, HasTheFoldersThatThingsLieIn) {
    disk_.AddFile(L"C:\\a\\b\\f", {});
    disk_.AddFolder(L"D:\\x\\");
    for (const wchar_t* folder : {L"C:\\", L"C:\\a", L"c:/a/b/", L"D:\\", L"D:\\x"})
        EXPECT_TRUE(files::IsFolder(disk_.Attributes(folder))) << base::ToUtf8(folder);
    for (const wchar_t* path : {L"C:\\a\\c", L"C:\\a\\b\\f\\", L"E:\\", L"C:\\b", L""})
        EXPECT_EQ(disk_.Attributes(path), files::kInvalidAttributes) << base::ToUtf8(path);
    EXPECT_EQ(disk_.Attributes(L"C:\\a\\b\\f"), 0x20U);
}

TEST_F(PretendedDiskTest, ListsWhatIsInAFolderByName) {
    disk_.AddFile(L"C:\\d\\b.txt", {});
    disk_.AddFile(L"C:\\d\\A.txt", {});
    disk_.AddFile(L"C:\\d\\sub\\deep\\c.txt", {});
    disk_.AddFolder(L"C:\\d\\empty\\");
    EXPECT_THAT(Names(L"C:\\D\\*"), ElementsAre(L".\\", L"..\\", L"A.txt", L"b.txt", L"empty\\", L"sub\\"));
    EXPECT_THAT(Names(L"C:\\d\\*.TXT"), ElementsAre(L"A.txt", L"b.txt"));
    EXPECT_THAT(Names(L"C:\\d\\?.txt"), ElementsAre(L"A.txt", L"b.txt"));
    EXPECT_THAT(Names(L"C:\\*"), ElementsAre(L"d\\"));
    EXPECT_THAT(Names(L"C:\\d\\none"), ElementsAre());
    EXPECT_EQ(lastError_, 0U);
    EXPECT_THAT(Names(L"C:\\e\\*"), ElementsAre());
    EXPECT_EQ(lastError_, 3U);
}

TEST_F(PretendedDiskTest, ReadsAFileInPieces) {
    disk_.AddFile(L"C:\\f", BytesOf("0123456789"));
    EXPECT_EQ(ReadAll(*disk_.OpenToRead(L"c:/F"), 3), "0123456789");
    EXPECT_EQ(disk_.OpenToRead(L"C:\\g"), nullptr);
    EXPECT_EQ(disk_.OpenToRead(L"C:\\"), nullptr);
    EXPECT_THAT(Kept(log_), ElementsAre());
}

TEST_F(PretendedDiskTest, WritesBehindWhatIsThereOrInsteadOfIt) {
    disk_.AddFolder(L"C:\\cur");
    disk_.AddFile(L"C:\\cur\\Old", BytesOf("old"));
    disk_.OpenToWrite(L"old", OpenMode::Append)->Write(BytesOf("+"));
    EXPECT_EQ(ReadAll(*disk_.OpenToRead(L"old"), 9), "old+");
    disk_.OpenToWrite(L"old", OpenMode::Overwrite)->Write(BytesOf("new"));
    EXPECT_EQ(ReadAll(*disk_.OpenToRead(L"old"), 9), "new");
    EXPECT_THAT(Kept(log_), ElementsAre("open C:\\cur\\old|ab+S", "write C:\\cur\\old|2b",
                                        "open C:\\cur\\old|wbS", "write C:\\cur\\old|6e6577"));
    EXPECT_EQ(disk_.Files().at(L"C:\\cur\\Old"), BytesOf("new"));
}

TEST_F(PretendedDiskTest, MakesTheFileThatIsWrittenButNoFolderForIt) {
    disk_.AddFolder(L"C:\\d");
    EXPECT_NE(disk_.OpenToWrite(L"C:\\d\\new", OpenMode::Append), nullptr);
    EXPECT_EQ(disk_.OpenToWrite(L"C:\\e\\new", OpenMode::Append), nullptr);
    EXPECT_EQ(disk_.OpenToWrite(L"C:\\d", OpenMode::Append), nullptr);
    EXPECT_EQ(disk_.OpenToWrite(L"C:\\d\\x\\", OpenMode::Append), nullptr);
    EXPECT_EQ(disk_.OpenToWrite(L"", OpenMode::Append), nullptr);
    EXPECT_THAT(Kept(log_), ElementsAre("open C:\\d\\new|ab+S"));
    EXPECT_EQ(disk_.Files().size(), 1U);
}

TEST_F(PretendedDiskTest, LetsNobodyElseOpenAFileThatIsWritten) {
    disk_.AddFile(L"C:\\f", BytesOf("x"));
    auto writer = disk_.OpenToWrite(L"C:\\f", OpenMode::Append);
    EXPECT_EQ(disk_.OpenToRead(L"C:\\F"), nullptr);
    EXPECT_EQ(disk_.OpenToWrite(L"C:\\f", OpenMode::Append), nullptr);
    writer.reset();
    auto reader = disk_.OpenToRead(L"C:\\f");
    EXPECT_NE(reader, nullptr);
    EXPECT_EQ(disk_.OpenToWrite(L"C:\\f", OpenMode::Append), nullptr);
    EXPECT_NE(disk_.OpenToRead(L"C:\\f"), nullptr);
    reader.reset();
    EXPECT_NE(disk_.OpenToWrite(L"C:\\f", OpenMode::Append), nullptr);
}

TEST_F(PretendedDiskTest, MakesAFolderWithItsParents) {
    EXPECT_EQ(disk_.MakeFolder(L"C:\\a\\b"), files::kFolderMade);
    EXPECT_TRUE(files::IsFolder(disk_.Attributes(L"C:\\a")));
    EXPECT_EQ(disk_.MakeFolder(L"c:/A/b"), files::kFolderExists);
    EXPECT_THAT(Kept(log_), ElementsAre("mkdir C:\\a\\b", "mkdir c:\\A\\b"));
}

TEST_F(PretendedDiskTest, RenamesWithEverythingBelow) {
    disk_.AddFile(L"C:\\a\\b\\f", BytesOf("x"));
    disk_.AddFile(L"C:\\ab\\g", {});
    EXPECT_TRUE(disk_.Rename(L"C:\\a\\b", L"C:\\ab\\c"));
    EXPECT_EQ(disk_.Size(L"C:\\ab\\c\\f"), 1U);
    EXPECT_EQ(disk_.Attributes(L"C:\\a\\b"), files::kInvalidAttributes);
    EXPECT_TRUE(files::IsFolder(disk_.Attributes(L"C:\\a")));
    EXPECT_FALSE(disk_.Rename(L"C:\\ab\\c\\f", L"C:\\ab\\g"));
    EXPECT_FALSE(disk_.Rename(L"C:\\none", L"C:\\x"));
}

TEST_F(PretendedDiskTest, RemovesFoldersThatAreEmpty) {
    disk_.AddFolder(L"C:\\a\\b");
    EXPECT_FALSE(disk_.RemoveFolder(L"C:\\a"));
    EXPECT_TRUE(disk_.RemoveFolder(L"C:\\a\\b"));
    EXPECT_TRUE(disk_.RemoveFolder(L"C:\\a"));
    EXPECT_EQ(disk_.Attributes(L"C:\\a"), files::kInvalidAttributes);
}

TEST_F(PretendedDiskTest, KnowsRoots) {
    EXPECT_TRUE(disk_.IsRoot(L"C:\\"));
    EXPECT_TRUE(disk_.IsRoot(L"\\\\srv\\share"));
    EXPECT_FALSE(disk_.IsRoot(L"C:\\a"));
    EXPECT_FALSE(disk_.IsRoot(L""));
}

/// A folder of the pretended disk, held against what the program relies on when it searches.
class PretendedFolder final : public files::contract::SearchPlace {
public:
    PretendedFolder() { disk_.AddFolder(Folder()); }

    files::FolderSearch& Search() override { return disk_; }
    std::wstring Folder() override { return L"C:\\place\\"; }
    void AddFolder(const std::wstring& name) override { disk_.AddFolder(Folder() + name); }
    void AddFile(const std::wstring& name) override { disk_.AddFile(Folder() + name, {}); }
    void SetTimes(const std::wstring& name, const files::ItemTimes& times) override {
        disk_.SetTimes(Folder() + name, times);
    }

private:
    EffectLog log_;
    PretendedDisk disk_{L"C:\\", log_, nullptr};
};

/// A disk of one file.
class OneFileBelow : public DiskBelow {
public:
    std::uint32_t Attributes(const std::wstring& path) const override {
        if (path == L"Z:\\s" || path == L"Z:\\")
            return files::kAttributeDirectory;
        return path == L"Z:\\s\\one.txt" ? 0x20U : files::kInvalidAttributes;
    }
    std::optional<Bytes> Read(const std::wstring&) const override { return BytesOf("below"); }
    std::vector<std::wstring> Names(const std::wstring& folder) const override {
        return folder == L"Z:\\s\\" ? std::vector<std::wstring>{L"one.txt"} : std::vector<std::wstring>{};
    }
};

TEST(PretendedDiskAboveAnother, ReadsWhatLiesBelowAndKeepsWhatIsWritten) {
    const OneFileBelow below;
    EffectLog log;
    PretendedDisk disk(L"Z:\\s", log, &below);
    EXPECT_EQ(ReadAll(*disk.OpenToRead(L"one.txt"), 9), "below");
    EXPECT_TRUE(disk.Files().empty());
    disk.OpenToWrite(L"one.txt", OpenMode::Append)->Write(BytesOf("!"));
    disk.OpenToWrite(L"two.txt", OpenMode::Append)->Write(BytesOf("2"));
    EXPECT_EQ(disk.Files(), (std::map<std::wstring, Bytes>{{L"Z:\\s\\one.txt", BytesOf("below!")},
                                                           {L"Z:\\s\\two.txt", BytesOf("2")}}));
    std::vector<std::wstring> names;
    disk.Search(L"Z:\\s\\*.txt", [&names](const files::Match& match) {
        names.emplace_back(match.Name);
        return true;
    });
    EXPECT_THAT(names, ElementsAre(L"one.txt", L"two.txt"));
}

}  // namespace
}  // namespace ferry::scripttools

namespace ferry::files::contract {
namespace {

INSTANTIATE_TEST_SUITE_P(Pretended, SearchContract,
                         testing::Values(&test::Make<SearchPlace, scripttools::PretendedFolder>));

}  // namespace
}  // namespace ferry::files::contract
