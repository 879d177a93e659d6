// The file-operation object that the shell's class id stands for.
#pragma once

#include <shobjidl.h>

#include <atomic>
#include <mutex>
#include <string>
#include <vector>

#include "operation_queue_win32.h"

namespace ferry::fileop {

/// Queues operations and performs them on the thread that calls PerformOperations, which also
/// shows the windows. Any thread may call; a call made while operations are performed sets up the
/// next run. Every call is logged.
class FileOperation final : public IFileOperation {
public:
    FileOperation() noexcept;
    FileOperation(const FileOperation&) = delete;
    FileOperation& operator=(const FileOperation&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override;
    ULONG STDMETHODCALLTYPE Release() noexcept override;

    HRESULT STDMETHODCALLTYPE Advise(IFileOperationProgressSink* sink, DWORD* cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE SetOperationFlags(DWORD flags) noexcept override;
    HRESULT STDMETHODCALLTYPE SetProgressMessage(LPCWSTR message) noexcept override;
    HRESULT STDMETHODCALLTYPE SetOwnerWindow(HWND owner) noexcept override;

    HRESULT STDMETHODCALLTYPE RenameItem(IShellItem* item, LPCWSTR newName,
                                         IFileOperationProgressSink* sink) noexcept override;
    HRESULT STDMETHODCALLTYPE RenameItems(IUnknown* items, LPCWSTR newName) noexcept override;
    HRESULT STDMETHODCALLTYPE MoveItem(IShellItem* item, IShellItem* folder, LPCWSTR newName,
                                       IFileOperationProgressSink* sink) noexcept override;
    HRESULT STDMETHODCALLTYPE MoveItems(IUnknown* items, IShellItem* folder) noexcept override;
    HRESULT STDMETHODCALLTYPE CopyItem(IShellItem* item, IShellItem* folder, LPCWSTR newName,
                                       IFileOperationProgressSink* sink) noexcept override;
    HRESULT STDMETHODCALLTYPE CopyItems(IUnknown* items, IShellItem* folder) noexcept override;
    HRESULT STDMETHODCALLTYPE NewItem(IShellItem* folder, DWORD attributes, LPCWSTR name,
                                      LPCWSTR templateName,
                                      IFileOperationProgressSink* sink) noexcept override;
    HRESULT STDMETHODCALLTYPE PerformOperations() noexcept override;
    HRESULT STDMETHODCALLTYPE GetAnyOperationsAborted(BOOL* aborted) noexcept override;

    // Not supplied: each answers E_NOTIMPL and leaves the object as it was.
    HRESULT STDMETHODCALLTYPE SetProgressDialog(IOperationsProgressDialog* dialog) noexcept override;
    HRESULT STDMETHODCALLTYPE SetProperties(IPropertyChangeArray* properties) noexcept override;
    HRESULT STDMETHODCALLTYPE ApplyPropertiesToItem(IShellItem* item) noexcept override;
    HRESULT STDMETHODCALLTYPE ApplyPropertiesToItems(IUnknown* items) noexcept override;
    HRESULT STDMETHODCALLTYPE DeleteItem(IShellItem* item,
                                         IFileOperationProgressSink* sink) noexcept override;
    HRESULT STDMETHODCALLTYPE DeleteItems(IUnknown* items) noexcept override;

private:
    /// What one run works with, taken from the object when it starts.
    struct Run {
        std::vector<QueuedOperation> Queue;
        ProgressSinks Sinks;
        DWORD Flags = 0;
        HWND Owner = nullptr;
        std::wstring Message;
    };

    ~FileOperation();

    void Enqueue(QueuedOperation operation, IShellItem* folder, IFileOperationProgressSink* sink);
    HRESULT Queue(Verb verb, const wchar_t* call, IShellItem* item, IShellItem* folder,
                  const wchar_t* newName, IFileOperationProgressSink* sink);
    HRESULT QueueAll(Verb verb, const wchar_t* call, IUnknown* items, IShellItem* folder,
                     const wchar_t* newName);
    Run TakeRun();
    HRESULT Perform(const Run& run);

    std::atomic<ULONG> references_{1};
    std::mutex guard_;
    std::vector<QueuedOperation> queue_;
    ProgressSinks sinks_;
    DWORD flags_;
    HWND owner_ = nullptr;
    std::wstring message_;
    bool hasAborted_ = false;
};

}  // namespace ferry::fileop
