// Queued operations and the sinks that hear about them.
#pragma once

#include <shobjidl.h>

#include <map>
#include <vector>

#include "com_ref.h"
#include "copy_engine.h"

namespace ferry::fileop {

/// One operation with the objects that the caller gave for it.
struct QueuedOperation {
    Operation Plan;
    ComRef<IShellItem> Item;
    ComRef<IShellItem> Folder;
    ComRef<IFileOperationProgressSink> Sink;  ///< The operation's own; may be empty.
};

/// The sinks of one file-operation object.
class ProgressSinks {
public:
    /// Keeps `sink` and gives the cookie that removes it again.
    DWORD Add(IFileOperationProgressSink* sink);

    /// False when nothing has that cookie.
    bool Remove(DWORD cookie);

    void Start() const;
    void Finish(HRESULT result) const;

    /// Tells every sink that `operation` is about to be performed; the first failure that a sink
    /// answers vetoes it.
    HRESULT Before(const QueuedOperation& operation) const;

    /// Tells every sink how it went. The newly made item is not given.
    void After(const QueuedOperation& operation, HRESULT result) const;

    void Progress(UINT total, UINT done) const;

private:
    std::map<DWORD, ComRef<IFileOperationProgressSink>> sinks_;
    DWORD nextCookie_ = 1;
};

}  // namespace ferry::fileop
