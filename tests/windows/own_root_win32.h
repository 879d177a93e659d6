// A root of the user's registry that is a test's own.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <string>

#include "base/handles_win32.h"
#include "windows/support_win32.h"

namespace ferry::test {

/// Puts a fresh key in the place of the current user's root, for this process and while this lives.
class OwnRoot {
public:
    OwnRoot() {
        EXPECT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, name_.c_str(), root_.Put()), ERROR_SUCCESS);
        EXPECT_EQ(RegOverridePredefKey(HKEY_CURRENT_USER, root_.Get()), ERROR_SUCCESS);
    }
    ~OwnRoot() {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        root_.Reset();
        RegDeleteTreeW(HKEY_CURRENT_USER, name_.c_str());
    }

    OwnRoot(const OwnRoot&) = delete;
    OwnRoot& operator=(const OwnRoot&) = delete;

private:
    std::wstring name_ = UniqueName(L"FerryTests");
    base::RegistryKey root_;
};

}  // namespace ferry::test
