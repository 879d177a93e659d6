// The contract of the files that scripts name.
#include "core/script/file_contract.h"

#include <vector>

namespace ferry::script::contract {

using namespace std::string_literals;

bool FileContract::Write(const std::wstring& path, OpenMode mode, const std::string& content) {
    const auto file = Files().OpenToWrite(path, mode);
    return file && file->Write(std::as_bytes(std::span(content)));
}

std::optional<std::string> FileContract::Read(const std::wstring& path, std::size_t pieceSize) {
    const auto file = Files().OpenToRead(path);
    if (!file)
        return std::nullopt;
    std::string content;
    std::vector<std::byte> piece(pieceSize);
    while (const std::size_t count = file->Read(piece))
        content.append(reinterpret_cast<const char*>(piece.data()), count);
    return content;
}

namespace {

TEST_P(FileContract, AMissingFileIsNotRead) {
    EXPECT_FALSE(Read(Path(L"missing")));
    EXPECT_FALSE(AtPlace().Content(Path(L"missing")));
}

TEST_P(FileContract, WritingMakesTheFile) {
    EXPECT_TRUE(Write(Path(L"a"), OpenMode::Append, "one"));
    EXPECT_TRUE(Write(Path(L"b"), OpenMode::Overwrite, "two"));
    EXPECT_EQ(AtPlace().Content(Path(L"a")), "one");
    EXPECT_EQ(AtPlace().Content(Path(L"b")), "two");
}

TEST_P(FileContract, AppendingKeepsWhatIsThere) {
    AtPlace().Write(Path(L"a"), "one");
    EXPECT_TRUE(Write(Path(L"a"), OpenMode::Append, "two"));
    EXPECT_TRUE(Write(Path(L"a"), OpenMode::Append, "three"));
    EXPECT_EQ(AtPlace().Content(Path(L"a")), "onetwothree");
}

TEST_P(FileContract, OverwritingEmptiesTheFileAlsoWhenNothingIsWritten) {
    AtPlace().Write(Path(L"a"), "one and more");
    EXPECT_TRUE(Write(Path(L"a"), OpenMode::Overwrite, "two"));
    EXPECT_EQ(AtPlace().Content(Path(L"a")), "two");
    EXPECT_TRUE(Write(Path(L"a"), OpenMode::Overwrite, ""));
    EXPECT_EQ(AtPlace().Content(Path(L"a")), "");
}

TEST_P(FileContract, WhatIsWrittenPieceByPieceStandsInItsOrder) {
    std::string expected;
    {
        const auto file = Files().OpenToWrite(Path(L"a"), OpenMode::Append);
        ASSERT_TRUE(file);
        for (int line = 0; line < 3000; ++line) {
            const std::string piece = std::to_string(line) + "\r\n";
            EXPECT_TRUE(file->Write(std::as_bytes(std::span(piece))));
            expected += piece;
        }
    }
    EXPECT_TRUE(AtPlace().Content(Path(L"a")) == expected);
}

TEST_P(FileContract, BytesAreNeitherChangedNorTakenForAnEnd) {
    const std::string bytes =
        "\xFF\xFE"
        "a\0\r\n\n\x1A\0z\r"s;
    EXPECT_TRUE(Write(Path(L"a"), OpenMode::Append, bytes));
    EXPECT_EQ(AtPlace().Content(Path(L"a")), bytes);
    for (const std::size_t pieceSize : {1U, 3U, 100U})
        EXPECT_EQ(Read(Path(L"a"), pieceSize), bytes);
}

TEST_P(FileContract, AtItsEndAFileGivesNothingMore) {
    AtPlace().Write(Path(L"a"), "one");
    const auto file = Files().OpenToRead(Path(L"a"));
    ASSERT_TRUE(file);
    std::byte bytes[10];
    EXPECT_EQ(file->Read(bytes), 3U);
    EXPECT_EQ(file->Read(bytes), 0U);
    EXPECT_EQ(file->Read(bytes), 0U);
}

TEST_P(FileContract, EachReaderBeginsAtTheStart) {
    AtPlace().Write(Path(L"a"), "one");
    const auto first = Files().OpenToRead(Path(L"a"));
    const auto second = Files().OpenToRead(Path(L"a"));
    ASSERT_TRUE(first && second);
    std::byte bytes[2];
    EXPECT_EQ(first->Read(bytes), 2U);
    EXPECT_EQ(second->Read(bytes), 2U);
    EXPECT_EQ(bytes[0], std::byte{'o'});
}

TEST_P(FileContract, NobodyElseOpensAFileThatIsBeingWritten) {
    {
        const auto file = Files().OpenToWrite(Path(L"a"), OpenMode::Append);
        ASSERT_TRUE(file);
        EXPECT_FALSE(Files().OpenToRead(Path(L"a")));
        EXPECT_FALSE(Files().OpenToWrite(Path(L"a"), OpenMode::Append));
        EXPECT_FALSE(Files().OpenToWrite(Path(L"a"), OpenMode::Overwrite));
    }
    EXPECT_TRUE(Files().OpenToRead(Path(L"a")));
    EXPECT_TRUE(Files().OpenToWrite(Path(L"a"), OpenMode::Append));
}

TEST_P(FileContract, AFileThatIsBeingReadIsNotOpenedForWriting) {
    AtPlace().Write(Path(L"a"), "one");
    {
        const auto file = Files().OpenToRead(Path(L"a"));
        ASSERT_TRUE(file);
        EXPECT_FALSE(Files().OpenToWrite(Path(L"a"), OpenMode::Append));
        EXPECT_FALSE(Files().OpenToWrite(Path(L"a"), OpenMode::Overwrite));
    }
    EXPECT_EQ(AtPlace().Content(Path(L"a")), "one");
}

TEST_P(FileContract, AFolderIsNoFile) {
    EXPECT_FALSE(Files().OpenToRead(AtPlace().Root()));
    EXPECT_FALSE(Files().OpenToWrite(AtPlace().Root(), OpenMode::Append));
}

TEST_P(FileContract, AFileIsNotMadeInAFolderThatIsMissing) {
    EXPECT_FALSE(Files().OpenToWrite(Path(L"missing\\a"), OpenMode::Append));
    EXPECT_FALSE(Files().OpenToWrite(L"", OpenMode::Append));
}

TEST_P(FileContract, RelativePathsCountFromTheCurrentFolder) {
    EXPECT_TRUE(Write(L"a", OpenMode::Append, "one"));
    EXPECT_EQ(AtPlace().Content(Path(L"a")), "one");
    EXPECT_EQ(Read(L"a"), "one");
}

TEST_P(FileContract, PathsHaveAnyLength) {
    const std::wstring path = AtPlace().LongFolder() + L"\\a";
    EXPECT_TRUE(Write(path, OpenMode::Append, "one"));
    EXPECT_EQ(AtPlace().Content(path), "one");
    EXPECT_EQ(Read(path), "one");
}

}  // namespace
}  // namespace ferry::script::contract
