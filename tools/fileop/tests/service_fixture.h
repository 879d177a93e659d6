// Calls the registered class as a program does.
#pragma once

#include <windows.h>
#include <gmock/gmock.h>

#include <shellapi.h>
#include <shobjidl.h>

#include <string>
#include <vector>

#include "com_ref.h"
#include "results.h"
#include "test_folder.h"

namespace ferry::fileop {

struct Outcome {
    HRESULT Queued = S_OK;
    HRESULT Performed = E_FAIL;
    bool IsAborted = false;
};

/// One item to queue: the singular call when it has a new name, else the plural one.
struct Job {
    bool Moves = false;
    std::wstring Source;
    std::wstring Folder;
    std::wstring NewName = {};  // NOLINT(readability-redundant-member-init): most jobs leave it out
};

/// What a test says that is skipped outside Wine, where the system's own class transfers.
inline constexpr char kNoService[] = "the file-operation service is for Wine only";

inline constexpr DWORD kQuiet = FOF_SILENT | FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_NOCONFIRMMKDIR;

class ServiceTest : public testing::Test {
protected:
    ServiceTest();
    ~ServiceTest() override;

    static void SetUpTestSuite();
    void SetUp() override;

    /// The registered class's object.
    static ComRef<IFileOperation> NewOperation();

    /// The shell item of an existing path; empty when there is none.
    static ComRef<IShellItem> ItemOf(const std::wstring& path);

    /// Queues the jobs in one operation and performs them.
    Outcome Perform(const std::vector<Job>& jobs, DWORD flags = kQuiet, HWND owner = nullptr);

    Outcome Copy(const std::wstring& source, const std::wstring& folder, DWORD flags = kQuiet) {
        return Perform({{false, source, folder}}, flags);
    }
    Outcome Move(const std::wstring& source, const std::wstring& folder, DWORD flags = kQuiet) {
        return Perform({{true, source, folder}}, flags);
    }

    /// Sets the faults of the operations that follow; their items are counted from 1.
    static void SetFaults(const std::wstring& text);

    /// The lines that were logged since the test began, as UTF-16.
    std::vector<std::wstring> Log() const;

    TestFolder folder_;
    std::wstring source_;  ///< An empty folder "from".
    std::wstring target_;  ///< An empty folder "to".

private:
    TestFolder logFolder_;
};

}  // namespace ferry::fileop
