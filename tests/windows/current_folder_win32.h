// The current folder of this process, for the length of a test.
#pragma once

#include <windows.h>

#include <string>

namespace ferry::test {

/// Makes `path` the current folder; what was it before comes back when this goes.
class CurrentFolder {
public:
    explicit CurrentFolder(const std::wstring& path) {
        before_.resize(GetCurrentDirectoryW(0, nullptr));
        before_.resize(GetCurrentDirectoryW(static_cast<DWORD>(before_.size()), before_.data()));
        SetCurrentDirectoryW(path.c_str());
    }
    ~CurrentFolder() { SetCurrentDirectoryW(before_.c_str()); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    std::wstring before_;
};

}  // namespace ferry::test
