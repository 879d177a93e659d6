// The item-by-item run: walks the sources, makes folders, lets the item engine judge each file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "transfer/item_engine.h"
#include "transfer/leftovers.h"
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

    /// What the run left behind so far and nobody told the person of.
    const Leftovers& Left() const noexcept { return leftovers_; }

private:
    bool TransferSource(std::wstring_view source);
    bool IsSourceFolder(std::wstring_view source);
    bool TransferFolder(std::wstring_view folder);
    bool TransferFile(std::wstring_view source);
    bool BeginItem(std::wstring_view path);
    void MakeTargetFolder(std::wstring_view source, std::wstring_view target);
    void RemoveEmptiedFolders(const base::TextList& folders);
    bool RemoveWhatIsEmpty(const base::TextList& folders);
    bool IsEmpty(std::wstring_view folder);
    bool HasMoved(std::wstring_view folder);
    bool IsSameFolder(std::wstring_view one, std::wstring_view other);
    bool HasKeptPart(std::wstring_view path) const noexcept;
    std::wstring TargetOf(std::wstring_view path) const;

    const TransferRequest& request_;
    RunPorts ports_;
    Leftovers leftovers_;
    ItemEngine engine_;
    CollisionPolicy policy_;
    std::wstring_view place_;  ///< Where the last item of the source at hand stood; empty before the first.
    std::size_t keptPartStart_ = 0;  ///< Of the paths of the source at hand: what follows the base.
};

}  // namespace ferry::transfer
