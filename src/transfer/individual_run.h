// The item-by-item run: walks the sources, makes folders, lets the item engine judge each file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "transfer/item_engine.h"
#include "transfer/ports.h"
#include "transfer/request.h"
#include "transfer/source_listing.h"

namespace ferry::transfer {

/// One run over all sources of a request. It touches the world only through its ports.
class IndividualRun {
public:
    /// The request and what `ports` names must outlive the run.
    IndividualRun(const TransferRequest& request, const RunPorts& ports);

    /// Transfers everything; false when it was stopped before the end.
    bool Run();

private:
    bool TransferSource(std::wstring_view source);
    bool IsSourceFolder(std::wstring_view source);
    bool TransferFolder(std::wstring_view folder);
    bool TransferFile(std::wstring_view source);
    bool BeginItem();
    void MakeTargetFolder(std::wstring_view source, std::wstring_view target);
    void RemoveEmptiedFolders(const base::TextList& folders);
    bool HasMoved(std::wstring_view folder);
    bool HasKeptPart(std::wstring_view path) const noexcept;
    std::wstring TargetOf(std::wstring_view path) const;

    const TransferRequest& request_;
    RunPorts ports_;
    ItemEngine engine_;
    CollisionPolicy policy_;
    std::size_t keptPartStart_ = 0;  ///< Of the paths of the source at hand: what follows the base.
};

}  // namespace ferry::transfer
