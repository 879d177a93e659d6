#include "windows/recording_operation_win32.h"

#include <memory>

namespace ferry::test {
namespace {

struct TaskTextTraits {
    using Value = wchar_t*;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value text) noexcept { CoTaskMemFree(text); }
};

std::wstring PathOf(IShellItem* item) {
    base::UniqueResource<TaskTextTraits> path;
    if (item == nullptr || FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, path.Put()))) {
        return L"(none)";
    }
    return path.Get();
}

}  // namespace

std::vector<ULONG> OperationLog::ReferencesOfKeptItems() const {
    std::vector<ULONG> counts;
    for (const auto& item : KeptItems) {
        item->AddRef();
        counts.push_back(item->Release());
    }
    return counts;
}

HRESULT RecordingOperation::QueryInterface(REFIID id, void** object) {
    if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IFileOperation)) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    *object = static_cast<IFileOperation*>(this);
    return S_OK;
}

ULONG RecordingOperation::AddRef() {
    return ++references_;
}

ULONG RecordingOperation::Release() {
    const ULONG left = --references_;
    if (left == 0) {
        // Only objects of RecordingClass are ever counted.
        std::unique_ptr<RecordingOperation>(this).reset();
    }
    return left;
}

HRESULT RecordingOperation::SetOperationFlags(DWORD flags) {
    log_.Calls.push_back(L"SetOperationFlags " + std::to_wstring(flags));
    return S_OK;
}

HRESULT RecordingOperation::SetOwnerWindow(HWND owner) {
    log_.Calls.push_back(L"SetOwnerWindow " + std::to_wstring(reinterpret_cast<UINT_PTR>(owner)));
    return S_OK;
}

HRESULT RecordingOperation::Queue(const wchar_t* call, IUnknown* item, IShellItem* folder, LPCWSTR name) {
    base::ComPtr<IShellItem> source;
    if (FAILED(item->QueryInterface(IID_PPV_ARGS(source.Put())))) {
        return E_INVALIDARG;
    }
    std::wstring line = std::wstring(call) + L" " + PathOf(source.Get()) + L" > " + PathOf(folder);
    if (name != nullptr) {
        line += L" as " + std::wstring(name);
    }
    log_.Calls.push_back(line);
    log_.KeptItems.push_back(std::move(source));
    if (folder != nullptr) {
        folder->AddRef();
        log_.KeptItems.emplace_back(folder);
    }
    return log_.QueueResult;
}

HRESULT RecordingOperation::MoveItem(IShellItem* item, IShellItem* folder, LPCWSTR name,
                                     IFileOperationProgressSink* sink) {
    return sink == nullptr ? Queue(L"MoveItem", item, folder, name) : Unexpected();
}

HRESULT RecordingOperation::MoveItems(IUnknown* items, IShellItem* folder) {
    return Queue(L"MoveItems", items, folder, nullptr);
}

HRESULT RecordingOperation::CopyItem(IShellItem* item, IShellItem* folder, LPCWSTR name,
                                     IFileOperationProgressSink* sink) {
    return sink == nullptr ? Queue(L"CopyItem", item, folder, name) : Unexpected();
}

HRESULT RecordingOperation::CopyItems(IUnknown* items, IShellItem* folder) {
    return Queue(L"CopyItems", items, folder, nullptr);
}

HRESULT RecordingOperation::PerformOperations() {
    log_.Calls.emplace_back(L"PerformOperations");
    return log_.PerformResult;
}

HRESULT RecordingOperation::GetAnyOperationsAborted(BOOL* aborted) {
    log_.Calls.emplace_back(L"GetAnyOperationsAborted");
    *aborted = log_.IsAborted;
    return S_OK;
}

HRESULT RecordingOperation::Unexpected() {
    log_.Calls.emplace_back(L"unexpected");
    return E_NOTIMPL;
}

RecordingClass::RecordingClass(OperationLog& log) : log_(log) {
    CoRegisterClassObject(CLSID_FileOperation, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_);
}

RecordingClass::~RecordingClass() {
    CoRevokeClassObject(cookie_);
}

HRESULT RecordingClass::QueryInterface(REFIID id, void** object) {
    if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IClassFactory)) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IClassFactory*>(this);
    return S_OK;
}

HRESULT RecordingClass::CreateInstance(IUnknown*, REFIID id, void** object) {
    *object = nullptr;
    if (FAILED(log_.CreateResult)) {
        return log_.CreateResult;
    }
    auto operation = std::make_unique<RecordingOperation>(log_);
    const HRESULT result = operation->QueryInterface(id, object);
    if (SUCCEEDED(result)) {
        // From here on its references keep it.
        static_cast<void>(operation.release());  // NOLINT(bugprone-unused-return-value): COM owns it now
    }
    return result;
}

}  // namespace ferry::test
