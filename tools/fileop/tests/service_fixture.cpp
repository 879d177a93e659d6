#include "service_fixture.h"

#include <objbase.h>
#include <olectl.h>

#include <sstream>

#include "base/utf16.h"

namespace ferry::fileop {
namespace {

using RegisterFunction = HRESULT(STDAPICALLTYPE*)();

/// What the library answered when it was registered; of one process all tests share it.
HRESULT registered = E_FAIL;

std::wstring OwnFolder() {
    std::wstring path(1024, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.rfind(L'\\') + 1);
}

constexpr wchar_t kRegistrationKey[] =
    L"Software\\Classes\\CLSID\\{3AD05575-8857-4850-9277-11B85BDB8E09}\\InprocServer32";

/// The tests register the library beside them; the one that stood there before comes back afterwards.
class KeepsRegistration : public testing::Environment {
public:
    void SetUp() override {
        DWORD size = sizeof(before_);
        hasBefore_ = RegGetValueW(HKEY_LOCAL_MACHINE, kRegistrationKey, nullptr, RRF_RT_REG_SZ, nullptr,
                                  before_, &size) == ERROR_SUCCESS;
    }
    void TearDown() override {
        if (hasBefore_)
            RegSetKeyValueW(HKEY_LOCAL_MACHINE, kRegistrationKey, nullptr, REG_SZ, before_,
                            static_cast<DWORD>((wcslen(before_) + 1) * sizeof(wchar_t)));
    }

private:
    wchar_t before_[1024] = {};
    bool hasBefore_ = false;
};

const testing::Environment* const kKeepsRegistration =
    testing::AddGlobalTestEnvironment(new KeepsRegistration);

}  // namespace

ServiceTest::ServiceTest() {
    CoInitialize(nullptr);
    source_ = folder_.MakeFolder(L"from");
    target_ = folder_.MakeFolder(L"to");
    SetEnvironmentVariableW(L"FERRY_FILEOP_LOG", logFolder_.In(L"log.txt").c_str());
    SetFaults(L"");
}

ServiceTest::~ServiceTest() {
    SetEnvironmentVariableW(L"FERRY_FILEOP_LOG", nullptr);
    SetEnvironmentVariableW(L"FERRY_FILEOP_FAULTS", nullptr);
    CoUninitialize();
}

void ServiceTest::SetUpTestSuite() {
    static const HMODULE library = LoadLibraryW((OwnFolder() + L"ferry_fileop.dll").c_str());
    ASSERT_NE(library, nullptr);
    const auto registers = reinterpret_cast<RegisterFunction>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllRegisterServer")));
    ASSERT_NE(registers, nullptr);
    registered = registers();
    ASSERT_TRUE(registered == S_OK || registered == SELFREG_E_CLASS) << registered;
}

void ServiceTest::SetUp() {
    if (registered == SELFREG_E_CLASS) {
        GTEST_SKIP() << kNoService;
    }
}

ComRef<IFileOperation> ServiceTest::NewOperation() {
    ComRef<IFileOperation> operation;
    constexpr DWORD kAnyServer = 0x17;  // the class contexts that a program asks for by default
    EXPECT_EQ(CoCreateInstance(CLSID_FileOperation, nullptr, kAnyServer, IID_IFileOperation,
                               reinterpret_cast<void**>(operation.Put())),
              S_OK);
    return operation;
}

ComRef<IShellItem> ServiceTest::ItemOf(const std::wstring& path) {
    ComRef<IShellItem> item;
    SHCreateItemFromParsingName(path.c_str(), nullptr, IID_IShellItem, reinterpret_cast<void**>(item.Put()));
    return item;
}

Outcome ServiceTest::Perform(const std::vector<Job>& jobs, DWORD flags, HWND owner) {
    Outcome outcome;
    const ComRef<IFileOperation> operation = NewOperation();
    for (const Job& job : jobs) {
        const ComRef<IShellItem> item = ItemOf(job.Source);
        const ComRef<IShellItem> folder = ItemOf(job.Folder);
        const wchar_t* name = job.NewName.empty() ? nullptr : job.NewName.c_str();
        HRESULT queued = S_OK;
        if (name != nullptr) {
            queued = job.Moves ? operation->MoveItem(item.Get(), folder.Get(), name, nullptr)
                               : operation->CopyItem(item.Get(), folder.Get(), name, nullptr);
        } else {
            queued = job.Moves ? operation->MoveItems(item.Get(), folder.Get())
                               : operation->CopyItems(item.Get(), folder.Get());
        }
        outcome.Queued = FAILED(outcome.Queued) ? outcome.Queued : queued;
    }
    operation->SetOwnerWindow(owner);
    operation->SetOperationFlags(flags);
    outcome.Performed = operation->PerformOperations();
    BOOL isAborted = FALSE;
    operation->GetAnyOperationsAborted(&isAborted);
    outcome.IsAborted = isAborted != FALSE;
    return outcome;
}

void ServiceTest::SetFaults(const std::wstring& text) {
    // A rule for an item that never comes makes each text a new one, so that counting starts anew.
    static int farAway = 900'000'000;
    const std::wstring unique = L"slow@" + std::to_wstring(++farAway) + L":0";
    SetEnvironmentVariableW(L"FERRY_FILEOP_FAULTS", (text.empty() ? unique : text + L"," + unique).c_str());
}

std::vector<std::wstring> ServiceTest::Log() const {
    std::vector<std::wstring> lines;
    std::istringstream stream(ContentOf(logFolder_.In(L"log.txt")));
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(base::FromUtf8(line));
    }
    return lines;
}

}  // namespace ferry::fileop
