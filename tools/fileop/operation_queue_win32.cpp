#include "operation_queue_win32.h"

namespace ferry::fileop {
namespace {

HRESULT TellBefore(IFileOperationProgressSink* sink, const QueuedOperation& operation) {
    const wchar_t* name = operation.Plan.NewName.empty() ? nullptr : operation.Plan.NewName.c_str();
    switch (operation.Plan.What) {
        case Verb::Copy:
            return sink->PreCopyItem(0, operation.Item.Get(), operation.Folder.Get(), name);
        case Verb::Move:
            return sink->PreMoveItem(0, operation.Item.Get(), operation.Folder.Get(), name);
        case Verb::Rename:
            return sink->PreRenameItem(0, operation.Item.Get(), name);
        case Verb::NewItem:
            break;
    }
    return sink->PreNewItem(0, operation.Folder.Get(), name);
}

void TellAfter(IFileOperationProgressSink* sink, const QueuedOperation& operation, HRESULT result) {
    const wchar_t* name = operation.Plan.NewName.empty() ? nullptr : operation.Plan.NewName.c_str();
    switch (operation.Plan.What) {
        case Verb::Copy:
            sink->PostCopyItem(0, operation.Item.Get(), operation.Folder.Get(), name, result, nullptr);
            return;
        case Verb::Move:
            sink->PostMoveItem(0, operation.Item.Get(), operation.Folder.Get(), name, result, nullptr);
            return;
        case Verb::Rename:
            sink->PostRenameItem(0, operation.Item.Get(), name, result, nullptr);
            return;
        case Verb::NewItem:
            sink->PostNewItem(0, operation.Folder.Get(), name, nullptr, operation.Plan.NewAttributes, result,
                              nullptr);
            return;
    }
}

}  // namespace

DWORD ProgressSinks::Add(IFileOperationProgressSink* sink) {
    sinks_.emplace(nextCookie_, ComRef<IFileOperationProgressSink>(sink));
    return nextCookie_++;
}

bool ProgressSinks::Remove(DWORD cookie) {
    return sinks_.erase(cookie) != 0;
}

void ProgressSinks::Start() const {
    for (const auto& [cookie, sink] : sinks_) {
        sink->StartOperations();
    }
}

void ProgressSinks::Finish(HRESULT result) const {
    for (const auto& [cookie, sink] : sinks_) {
        sink->FinishOperations(result);
    }
}

HRESULT ProgressSinks::Before(const QueuedOperation& operation) const {
    HRESULT answer = S_OK;
    for (const auto& [cookie, sink] : sinks_) {
        const HRESULT one = TellBefore(sink.Get(), operation);
        answer = FAILED(answer) ? answer : one;
    }
    if (operation.Sink) {
        const HRESULT one = TellBefore(operation.Sink.Get(), operation);
        answer = FAILED(answer) ? answer : one;
    }
    return FAILED(answer) ? answer : S_OK;
}

void ProgressSinks::After(const QueuedOperation& operation, HRESULT result) const {
    for (const auto& [cookie, sink] : sinks_) {
        TellAfter(sink.Get(), operation, result);
    }
    if (operation.Sink) {
        TellAfter(operation.Sink.Get(), operation, result);
    }
}

void ProgressSinks::Progress(UINT total, UINT done) const {
    for (const auto& [cookie, sink] : sinks_) {
        sink->UpdateProgress(total, done);
    }
}

}  // namespace ferry::fileop
