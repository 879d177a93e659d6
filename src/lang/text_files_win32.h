// Text files on a disk, through the C library.
#pragma once

#include "lang/text_files.h"

namespace ferry::lang {

class DiskTextFiles : public TextFiles {
public:
    std::optional<std::wstring> Read(std::wstring_view path) override;
    bool Write(std::wstring_view path, std::wstring_view units) override;
};

}  // namespace ferry::lang
