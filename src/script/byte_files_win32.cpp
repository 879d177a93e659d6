#include "script/byte_files_win32.h"

#include <windows.h>
// After windows.h, as everywhere.
#include <share.h>

#include <cstdio>
#include <utility>

#include "base/handles_win32.h"
#include "paths/path_grammar.h"
#include "script/full_path_win32.h"

namespace ferry::script {
namespace {

class DiskInFile final : public InFile {
public:
    explicit DiskInFile(base::FileStream stream) noexcept : stream_(std::move(stream)) {}

    std::size_t Read(std::span<std::byte> bytes) override {
        return std::fread(bytes.data(), 1, bytes.size(), stream_.Get());
    }

private:
    base::FileStream stream_;
};

class DiskOutFile final : public OutFile {
public:
    explicit DiskOutFile(base::FileStream stream) noexcept : stream_(std::move(stream)) {}

    bool Write(std::span<const std::byte> bytes) override {
        return std::fwrite(bytes.data(), 1, bytes.size(), stream_.Get()) == bytes.size();
    }

private:
    base::FileStream stream_;
};

/// Opens the file at `path` with the "mode" and "share flag" of the C library. The "S" of a mode says that
/// the file is read or written from its start to its end.
base::FileStream Open(std::wstring_view path, const wchar_t* mode, int share) {
    // Made full first: the form without a length limit takes no relative paths.
    const std::wstring name = paths::LongPathText(FullPathName(std::wstring(path)));
    return base::FileStream(_wfsopen(name.c_str(), mode, share));
}

}  // namespace

std::unique_ptr<InFile> DiskByteFiles::OpenToRead(std::wstring_view path) {
    // Others may have the file open and go on writing it: a script often looks at what a program logs.
    base::FileStream stream = Open(path, L"rbS", _SH_DENYNO);
    return stream ? std::make_unique<DiskInFile>(std::move(stream)) : nullptr;
}

std::unique_ptr<OutFile> DiskByteFiles::OpenToWrite(std::wstring_view path, OpenMode mode) {
    base::FileStream stream = Open(path, mode == OpenMode::Append ? L"ab+S" : L"wbS", _SH_DENYRW);
    return stream ? std::make_unique<DiskOutFile>(std::move(stream)) : nullptr;
}

}  // namespace ferry::script
