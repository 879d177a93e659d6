// A shell file operation that writes down what it is asked and does nothing.
#pragma once

#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shobjidl.h>

#include <string>
#include <vector>

#include "base/com_ptr_win32.h"

#ifdef __GNUC__
#pragma GCC diagnostic push
// COM classes are destroyed by their Release, never through an interface.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

namespace ferry::test {

/// What recording operations were asked, and what they are to answer.
struct OperationLog {
    std::vector<std::wstring> Calls;
    std::vector<base::ComPtr<IShellItem>> KeptItems;  ///< Every item that was queued, in order.
    HRESULT CreateResult = S_OK;
    HRESULT QueueResult = S_OK;
    HRESULT PerformResult = S_OK;
    BOOL IsAborted = FALSE;
    int LivingObjects = 0;

    /// How many references each kept item has now.
    std::vector<ULONG> ReferencesOfKeptItems() const;
};

/// The recording operation. It may live on the stack or be made by RecordingClass.
class RecordingOperation final : public IFileOperation {
public:
    explicit RecordingOperation(OperationLog& log) : log_(log) { ++log_.LivingObjects; }
    ~RecordingOperation() { --log_.LivingObjects; }

    RecordingOperation(const RecordingOperation&) = delete;
    RecordingOperation& operator=(const RecordingOperation&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE SetOperationFlags(DWORD flags) override;
    HRESULT STDMETHODCALLTYPE SetOwnerWindow(HWND owner) override;
    HRESULT STDMETHODCALLTYPE MoveItem(IShellItem* item, IShellItem* folder, LPCWSTR name,
                                       IFileOperationProgressSink* sink) override;
    HRESULT STDMETHODCALLTYPE MoveItems(IUnknown* items, IShellItem* folder) override;
    HRESULT STDMETHODCALLTYPE CopyItem(IShellItem* item, IShellItem* folder, LPCWSTR name,
                                       IFileOperationProgressSink* sink) override;
    HRESULT STDMETHODCALLTYPE CopyItems(IUnknown* items, IShellItem* folder) override;
    HRESULT STDMETHODCALLTYPE PerformOperations() override;
    HRESULT STDMETHODCALLTYPE GetAnyOperationsAborted(BOOL* aborted) override;

    // Nobody has a reason to call these.
    HRESULT STDMETHODCALLTYPE Advise(IFileOperationProgressSink*, DWORD*) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE SetProgressMessage(LPCWSTR) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE SetProgressDialog(IOperationsProgressDialog*) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE SetProperties(IPropertyChangeArray*) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE ApplyPropertiesToItem(IShellItem*) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE ApplyPropertiesToItems(IUnknown*) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE RenameItem(IShellItem*, LPCWSTR, IFileOperationProgressSink*) override {
        return Unexpected();
    }
    HRESULT STDMETHODCALLTYPE RenameItems(IUnknown*, LPCWSTR) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE DeleteItem(IShellItem*, IFileOperationProgressSink*) override {
        return Unexpected();
    }
    HRESULT STDMETHODCALLTYPE DeleteItems(IUnknown*) override { return Unexpected(); }
    HRESULT STDMETHODCALLTYPE NewItem(IShellItem*, DWORD, LPCWSTR, LPCWSTR,
                                      IFileOperationProgressSink*) override {
        return Unexpected();
    }

private:
    HRESULT Unexpected();
    HRESULT Queue(const wchar_t* call, IUnknown* item, IShellItem* folder, LPCWSTR name);

    OperationLog& log_;
    ULONG references_ = 0;
};

/// Stands in for the shell's class in this process while it lives, so that whoever asks COM for
/// a file operation gets a recording one.
class RecordingClass final : public IClassFactory {
public:
    /// COM must be initialised; `log` outlives this object.
    explicit RecordingClass(OperationLog& log);
    ~RecordingClass();

    RecordingClass(const RecordingClass&) = delete;
    RecordingClass& operator=(const RecordingClass&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

private:
    OperationLog& log_;
    DWORD cookie_ = 0;
};

}  // namespace ferry::test

#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif
