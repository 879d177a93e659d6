// The files of Windows behind the port of scripts.
#pragma once

#include "script/ports.h"

namespace ferry::script {

/// Paths have any length.
class DiskByteFiles final : public ByteFiles {
public:
    std::unique_ptr<InFile> OpenToRead(std::wstring_view path) override;
    std::unique_ptr<OutFile> OpenToWrite(std::wstring_view path, OpenMode mode) override;
};

}  // namespace ferry::script
