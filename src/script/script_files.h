// The files that a script reads and writes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "script/ports.h"

namespace ferry::script {

/// All of the file at `path` as UTF-16, without a mark at its start; at most `maxBytes` and a few of it are
/// read. Nothing when it cannot be opened.
std::optional<std::wstring> ReadWhole(ByteFiles& files, std::wstring_view path, std::size_t maxBytes);

/// What reading a line came to.
enum class ReadStatus : std::uint8_t { Line, End, NotOpen, TooLong };

/// The file that is read line by line. It stays open, also behind its end, until another path is asked for:
/// nobody gets it for writing meanwhile, and what others append is not looked for.
class LineFile {
public:
    /// `files` must outlive this object.
    explicit LineFile(ByteFiles& files) : files_(files) {}

    /// Puts the next line of the file at `path`, without its line end, into `line`. A line that is too long
    /// is passed over.
    ReadStatus Next(std::wstring_view path, std::wstring& line);

private:
    bool Open(std::wstring_view path);
    bool Fill();

    ByteFiles& files_;
    std::unique_ptr<InFile> file_;
    std::wstring path_;
    std::wstring units_;  ///< Read and not yet handed out, from next_ on.
    std::size_t next_ = 0;
    bool hasEnded_ = false;
    std::vector<std::byte> block_;
};

/// The file that a script writes.
class OutputFile {
public:
    /// `files` must outlive this object.
    explicit OutputFile(ByteFiles& files) : files_(files) {}

    /// Whether the next open takes away what the file holds.
    void OverwriteNext(bool isWanted) noexcept { overwriteNext_ = isWanted; }

    /// Whether the next write puts a byte-order mark first.
    void MarkNext(bool isWanted) noexcept { markNext_ = isWanted; }

    /// Closes the file that is open and opens the one at `path`; whether that worked.
    bool Open(std::wstring_view path);

    void Close() noexcept { file_.reset(); }

    bool IsOpen() const noexcept { return file_ != nullptr; }

    /// Writes to the open file; whether it took all.
    bool Write(std::span<const std::byte> bytes);

private:
    ByteFiles& files_;
    std::unique_ptr<OutFile> file_;
    bool overwriteNext_ = false;
    bool markNext_ = false;
};

}  // namespace ferry::script
