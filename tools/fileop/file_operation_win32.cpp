#include "file_operation_win32.h"

#include <new>

#include "disk_win32.h"
#include "item_path.h"
#include "log_win32.h"
#include "module_win32.h"
#include "shell_items_win32.h"
#include "shell_person_win32.h"

namespace ferry::fileop {
namespace {

// What the shell works with when SetOperationFlags is never called.
constexpr DWORD kDefaultFlags = kFlagAllowUndo | kFlagNoConfirmMakeFolder;

FaultPlan& ProcessFaults() {
    static FaultPlan plan;
    return plan;
}

// No exception may leave a COM method.
template <class Call>
HRESULT Guarded(Call&& call) noexcept {
    try {
        return call();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

HRESULT NotSupplied(const wchar_t* call) noexcept {
    return Guarded([&] {
        WriteLog({call, HexResult(E_NOTIMPL)});
        return E_NOTIMPL;
    });
}

std::wstring TextOrEmpty(const wchar_t* text) {
    return text != nullptr ? text : L"";
}

void LoadFaults() {
    const std::wstring text = EnvironmentText(L"FERRY_FILEOP_FAULTS");
    if (!ProcessFaults().Load(text)) {
        WriteLog({L"Faults", L"not understood", text});
    }
}

}  // namespace

FileOperation::FileOperation() noexcept : flags_(kDefaultFlags) {
    LockModule();
}

FileOperation::~FileOperation() {
    UnlockModule();
}

HRESULT FileOperation::QueryInterface(REFIID id, void** object) noexcept {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (!IsEqualIID(id, IID_IUnknown) && !IsEqualIID(id, IID_IFileOperation)) {
        return E_NOINTERFACE;
    }
    AddRef();
    *object = static_cast<IFileOperation*>(this);
    return S_OK;
}

ULONG FileOperation::AddRef() noexcept {
    return ++references_;
}

ULONG FileOperation::Release() noexcept {
    const ULONG left = --references_;
    if (left == 0) {
        delete this;
    }
    return left;
}

HRESULT FileOperation::Advise(IFileOperationProgressSink* sink, DWORD* cookie) noexcept {
    return Guarded([&] {
        if (sink == nullptr || cookie == nullptr) {
            return E_INVALIDARG;
        }
        const std::lock_guard lock(guard_);
        *cookie = sinks_.Add(sink);
        WriteLog({L"Advise", std::to_wstring(*cookie)});
        return S_OK;
    });
}

HRESULT FileOperation::Unadvise(DWORD cookie) noexcept {
    return Guarded([&] {
        WriteLog({L"Unadvise", std::to_wstring(cookie)});
        const std::lock_guard lock(guard_);
        return sinks_.Remove(cookie) ? S_OK : E_INVALIDARG;
    });
}

HRESULT FileOperation::SetOperationFlags(DWORD flags) noexcept {
    return Guarded([&] {
        WriteLog({L"SetOperationFlags", Hex(flags)});
        const std::lock_guard lock(guard_);
        flags_ = flags;
        return S_OK;
    });
}

HRESULT FileOperation::SetProgressMessage(LPCWSTR message) noexcept {
    return Guarded([&] {
        WriteLog({L"SetProgressMessage", TextOrEmpty(message)});
        const std::lock_guard lock(guard_);
        message_ = TextOrEmpty(message);
        return S_OK;
    });
}

HRESULT FileOperation::SetOwnerWindow(HWND owner) noexcept {
    return Guarded([&] {
        WriteLog({L"SetOwnerWindow", Hex(reinterpret_cast<std::uintptr_t>(owner))});
        const std::lock_guard lock(guard_);
        owner_ = owner;
        return S_OK;
    });
}

HRESULT FileOperation::RenameItem(IShellItem* item, LPCWSTR newName,
                                  IFileOperationProgressSink* sink) noexcept {
    return Guarded([&] { return Queue(Verb::Rename, L"RenameItem", item, nullptr, newName, sink); });
}

HRESULT FileOperation::RenameItems(IUnknown* items, LPCWSTR newName) noexcept {
    return Guarded([&] { return QueueAll(Verb::Rename, L"RenameItems", items, nullptr, newName); });
}

HRESULT FileOperation::MoveItem(IShellItem* item, IShellItem* folder, LPCWSTR newName,
                                IFileOperationProgressSink* sink) noexcept {
    return Guarded([&] { return Queue(Verb::Move, L"MoveItem", item, folder, newName, sink); });
}

HRESULT FileOperation::MoveItems(IUnknown* items, IShellItem* folder) noexcept {
    return Guarded([&] { return QueueAll(Verb::Move, L"MoveItems", items, folder, nullptr); });
}

HRESULT FileOperation::CopyItem(IShellItem* item, IShellItem* folder, LPCWSTR newName,
                                IFileOperationProgressSink* sink) noexcept {
    return Guarded([&] { return Queue(Verb::Copy, L"CopyItem", item, folder, newName, sink); });
}

HRESULT FileOperation::CopyItems(IUnknown* items, IShellItem* folder) noexcept {
    return Guarded([&] { return QueueAll(Verb::Copy, L"CopyItems", items, folder, nullptr); });
}

HRESULT FileOperation::NewItem(IShellItem* folder, DWORD attributes, LPCWSTR name, LPCWSTR templateName,
                               IFileOperationProgressSink* sink) noexcept {
    return Guarded([&] {
        QueuedOperation operation;
        const HRESULT found = PathOf(folder, operation.Plan.TargetFolder);
        WriteLog({L"NewItem", operation.Plan.TargetFolder, TextOrEmpty(name), Hex(attributes)});
        if (FAILED(found) || name == nullptr) {
            return FAILED(found) ? found : E_INVALIDARG;
        }
        if (templateName != nullptr && *templateName != L'\0') {
            return E_NOTIMPL;
        }
        operation.Plan.What = Verb::NewItem;
        operation.Plan.NewName = name;
        operation.Plan.NewAttributes = attributes;
        Enqueue(std::move(operation), folder, sink);
        return S_OK;
    });
}

void FileOperation::Enqueue(QueuedOperation operation, IShellItem* folder, IFileOperationProgressSink* sink) {
    operation.Folder = ComRef(folder);
    operation.Sink = ComRef(sink);
    const std::lock_guard lock(guard_);
    queue_.push_back(std::move(operation));
}

HRESULT FileOperation::Queue(Verb verb, const wchar_t* call, IShellItem* item, IShellItem* folder,
                             const wchar_t* newName, IFileOperationProgressSink* sink) {
    QueuedOperation operation;
    Operation& plan = operation.Plan;
    plan.What = verb;
    plan.NewName = TextOrEmpty(newName);
    HRESULT result = PathOf(item, plan.Source);
    if (verb == Verb::Rename) {
        plan.TargetFolder = FolderOf(plan.Source);
        result = SUCCEEDED(result) && plan.NewName.empty() ? E_INVALIDARG : result;
    } else if (SUCCEEDED(result)) {
        result = PathOf(folder, plan.TargetFolder);
    }
    if (newName != nullptr) {
        WriteLog({call, plan.Source, plan.TargetFolder, plan.NewName});
    } else {
        WriteLog({call, plan.Source, plan.TargetFolder});
    }
    if (FAILED(result)) {
        return result;
    }
    operation.Item = ComRef(item);
    Enqueue(std::move(operation), folder, sink);
    return S_OK;
}

HRESULT FileOperation::QueueAll(Verb verb, const wchar_t* call, IUnknown* items, IShellItem* folder,
                                const wchar_t* newName) {
    std::vector<ComRef<IShellItem>> list;
    HRESULT result = ItemsOf(items, list);
    if (FAILED(result)) {
        WriteLog({call, HexResult(result)});
    }
    for (const ComRef<IShellItem>& item : list) {
        if (SUCCEEDED(result)) {
            result = Queue(verb, call, item.Get(), folder, newName, nullptr);
        }
    }
    return result;
}

FileOperation::Run FileOperation::TakeRun() {
    const std::lock_guard lock(guard_);
    Run run{std::move(queue_), sinks_, flags_, owner_, message_};
    queue_.clear();
    hasAborted_ = false;
    return run;
}

HRESULT FileOperation::PerformOperations() noexcept {
    return Guarded([&] {
        const ComRef<IFileOperation> alive(this);  // messages are handled in between
        const Run run = TakeRun();
        // The shell too has nothing better to say about an empty queue.
        const HRESULT result = run.Queue.empty() ? E_UNEXPECTED : Perform(run);
        WriteLog({L"PerformOperations", HexResult(result)});
        return result;
    });
}

HRESULT FileOperation::Perform(const Run& run) {
    LoadFaults();
    WindowsDisk disk;
    LogJournal journal;
    ShellPerson person(run.Owner, (run.Flags & kFlagSilent) != 0, run.Message);
    CopyEngine engine(disk, person, journal, ProcessFaults(), run.Flags);
    const auto total = static_cast<UINT>(run.Queue.size());
    UINT done = 0;
    Result result = kDone;
    run.Sinks.Start();
    for (const QueuedOperation& operation : run.Queue) {
        Result one = run.Sinks.Before(operation);
        if (one == kDone) {
            one = engine.Perform(operation.Plan);
            run.Sinks.After(operation, one);
        }
        result = Heavier(result, one);
        run.Sinks.Progress(total, ++done);
        if (engine.MustStop()) {
            break;
        }
    }
    // What a person chose to skip is no failure of the operation.
    result = result > 0 ? kDone : result;
    run.Sinks.Finish(result);
    const std::lock_guard lock(guard_);
    hasAborted_ = engine.HasAborted();
    return result;
}

HRESULT FileOperation::GetAnyOperationsAborted(BOOL* aborted) noexcept {
    return Guarded([&] {
        if (aborted == nullptr) {
            return E_POINTER;
        }
        const std::lock_guard lock(guard_);
        *aborted = hasAborted_ ? TRUE : FALSE;
        WriteLog({L"GetAnyOperationsAborted", hasAborted_ ? L"1" : L"0"});
        return S_OK;
    });
}

HRESULT FileOperation::SetProgressDialog(IOperationsProgressDialog* /*dialog*/) noexcept {
    return NotSupplied(L"SetProgressDialog");
}

HRESULT FileOperation::SetProperties(IPropertyChangeArray* /*properties*/) noexcept {
    return NotSupplied(L"SetProperties");
}

HRESULT FileOperation::ApplyPropertiesToItem(IShellItem* /*item*/) noexcept {
    return NotSupplied(L"ApplyPropertiesToItem");
}

HRESULT FileOperation::ApplyPropertiesToItems(IUnknown* /*items*/) noexcept {
    return NotSupplied(L"ApplyPropertiesToItems");
}

HRESULT FileOperation::DeleteItem(IShellItem* /*item*/, IFileOperationProgressSink* /*sink*/) noexcept {
    return NotSupplied(L"DeleteItem");
}

HRESULT FileOperation::DeleteItems(IUnknown* /*items*/) noexcept {
    return NotSupplied(L"DeleteItems");
}

}  // namespace ferry::fileop
