#include "script/script_files.h"

#include <algorithm>

#include "base/utf16.h"
#include "script/limits.h"

namespace ferry::script {

namespace {

constexpr std::size_t kBlockBytes = 65536;
constexpr wchar_t kMark = 0xFEFF;
constexpr std::byte kMarkBytes[] = {std::byte{0xFF}, std::byte{0xFE}};

/// Reads into `block` until it is full or the file ends; how many bytes.
std::size_t ReadBlock(InFile& file, std::span<std::byte> block) {
    std::size_t count = 0;
    while (count < block.size()) {
        const std::size_t more = file.Read(block.subspan(count));
        if (more == 0) {
            break;
        }
        count += std::min(more, block.size() - count);
    }
    return count;
}

}  // namespace

std::optional<std::wstring> ReadWhole(ByteFiles& files, std::wstring_view path, std::size_t maxBytes) {
    const std::unique_ptr<InFile> file = files.OpenToRead(path);
    if (file == nullptr) {
        return std::nullopt;
    }
    std::vector<std::byte> bytes;
    std::size_t count = 0;
    do {
        bytes.resize(count + kBlockBytes);
        count += ReadBlock(*file, std::span(bytes).subspan(count));
    } while (count == bytes.size() && count <= maxBytes);
    std::wstring text = base::UnitsFromBytes(std::span(bytes).first(count));
    if (text.starts_with(kMark)) {
        text.erase(0, 1);
    }
    return text;
}

ReadStatus LineFile::Next(std::wstring_view path, std::wstring& line) {
    if (path != path_ && !Open(path)) {
        return ReadStatus::NotOpen;
    }
    line.clear();
    bool isTooLong = false;
    bool isAnythingRead = false;
    while (next_ < units_.size() || Fill()) {
        isAnythingRead = true;
        const std::size_t feed = units_.find(L'\n', next_);
        // One unit more than fits, for the carriage return that is taken off again.
        const std::size_t end = std::min(feed, units_.size());
        isTooLong = isTooLong || line.size() + (end - next_) > kMaxValueUnits + 1;
        if (!isTooLong) {
            line.append(units_, next_, end - next_);
        }
        next_ = end;
        if (feed != std::wstring::npos) {
            ++next_;
            if (line.ends_with(L'\r')) {
                line.pop_back();
            }
            break;
        }
    }
    if (isTooLong || line.size() > kMaxValueUnits) {
        return ReadStatus::TooLong;
    }
    return isAnythingRead ? ReadStatus::Line : ReadStatus::End;
}

bool LineFile::Open(std::wstring_view path) {
    file_.reset();
    units_.clear();
    next_ = 0;
    hasEnded_ = false;
    path_.clear();
    file_ = files_.OpenToRead(path);
    if (file_ == nullptr) {
        return false;
    }
    path_ = path;
    block_.resize(kBlockBytes);
    if (Fill() && units_.starts_with(kMark)) {
        next_ = 1;
    }
    return true;
}

bool LineFile::Fill() {
    if (hasEnded_) {
        return false;
    }
    const std::size_t count = ReadBlock(*file_, block_);
    units_ = base::UnitsFromBytes(std::span(block_).first(count));
    next_ = 0;
    // Only the last block is not full, so none but the last unit of the file can be cut in two.
    hasEnded_ = count < block_.size();
    return !units_.empty();
}

bool OutputFile::Open(std::wstring_view path) {
    Close();
    const OpenMode mode = overwriteNext_ ? OpenMode::Overwrite : OpenMode::Append;
    overwriteNext_ = false;
    file_ = files_.OpenToWrite(path, mode);
    return IsOpen();
}

bool OutputFile::Write(std::span<const std::byte> bytes) {
    if (!markNext_) {
        return file_->Write(bytes);
    }
    markNext_ = false;
    std::vector<std::byte> marked(std::begin(kMarkBytes), std::end(kMarkBytes));
    marked.insert(marked.end(), bytes.begin(), bytes.end());
    return file_->Write(marked);
}

}  // namespace ferry::script
