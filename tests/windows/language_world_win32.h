// An installed program and the language that its host has set.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "core/settings/memory_store.h"
#include "windows/support_win32.h"

namespace ferry::test {

/// A store in which the host has put the language; it counts how often it was asked.
class LanguageStore : public MemoryStore {
public:
    LanguageStore(const std::wstring& suffix, std::uint32_t langOut) {
        if (!suffix.empty()) {
            HostTexts[L"NLS"] = suffix;
        }
        HostNumbers[L"LangOut"] = langOut;
    }

    int& Reads = HostReads;
};

class LangTest : public testing::Test {
protected:
    LangTest() {
        MakeFolders(folder_ / L"Command\\Ferry");
        MakeFolders(folder_ / L"Lang");
    }

    TempFolder folder_;
    std::wstring modulePath_ = folder_ / L"Command\\Ferry\\Ferry.exe";
};

}  // namespace ferry::test
